#include "flow/save_load.h"

#include <cctype>
#include <filesystem>
#include <stdexcept>

#include "core/labels.h"
#include "core/turn.h"
#include "engine/general_engine.h"
#include "flow/error_handler.h"
#include "persist/file_coder.h"
#include "persist/game_text.h"

namespace varkesh {

namespace {

constexpr const char* kModule = "modVarkesh";
constexpr const char* kFilter = "Game Files (*.vsh)|*.vsh|All Files (*.*)|*.*";
constexpr const char* kExtension = ".vsh";
constexpr const char* kLoadQuestion =
    "The current game is not saved ... are you sure you wish to load a different game without "
    "saving the current one?\n"
    "\n"
    "          \u00BB Click 'Yes' to load a different game.\n"
    "          \u00BB Click 'No' to continue with the current game.";

// A working file that is gone again however the operation ends.
class ScratchFile {
 public:
  explicit ScratchFile(std::string path) : path_(std::move(path)) { Remove(); }
  ~ScratchFile() { Remove(); }
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;
  const std::string& path() const { return path_; }

 private:
  void Remove() {
    std::error_code ignored;
    if (std::filesystem::is_regular_file(path_, ignored)) std::filesystem::remove(path_, ignored);
  }
  std::string path_;
};

std::string TempSavePath(Outside& outside) {
  return TempFile(outside.Engine(), "temp.sav");
}

// The coded file is written beside the old one and renamed over it, so a
// save that fails halfway leaves the previous file whole.
void WriteSavedGame(const Game& game, Outside& outside, const std::string& path) {
  ScratchFile plain(TempSavePath(outside));
  WriteFileBytes(plain.path(), WriteGameText(game));
  ScratchFile coded(path + ".part");
  EncodeFile(plain.path(), coded.path());
  std::filesystem::rename(coded.path(), path);
}

bool TrySaveGame(Game& game, Outside& outside, const std::string& path) {
  bool saved = false;
  Guarded(outside, kModule, "SaveGame", [&] {
    WriteSavedGame(game, outside, path);
    saved = true;
  });
  return saved;
}

// Everything is read before anything of the running game changes.
void ReadSavedGame(Game& game, Outside& outside, const std::string& path) {
  ScratchFile plain(TempSavePath(outside));
  DecodeFile(path, plain.path());
  if (auto problem = ReadGameText(ReadFileBytes(plain.path()), game))
    throw std::runtime_error("The saved game '" + path + "' cannot be read: " + *problem);
}

// Play goes on at the start of the current team's turn, whatever was under
// way when the game was saved.

bool TryLoadGame(Game& game, Outside& outside, const std::string& path) {
  bool loaded = false;
  Guarded(outside, kModule, "LoadGame", [&] {
    ReadSavedGame(game, outside, path);
    loaded = true;
    ResumeLoadedGame(game, outside);
  });
  return loaded;
}

std::string ProposedSaveName(const Game& game, Outside& outside) {
  std::string name;
  for (char c : game.gameName)
    if (std::isalnum(static_cast<unsigned char>(c)) || c == '_') name += c;
  return DocumentFile(outside.Engine(), name + kExtension);
}

}  // namespace

void ResumeLoadedGame(Game& game, Outside& outside) {
  outside.SetGameDescription(GameDescription(game));
  UpdateCurrentPlayer(game, outside);
  ShowPiece(game, outside, 0, 0, 0, 0);
  outside.SetMenuEnabled(Menu::Resign, true);
  game.moveFromX = game.moveFromY = game.moveToX = game.moveToY = 0;
  game.winner = game.coWinner = kNoTeam;
  ClearMarks(game);
  ClearMoveablePieces(game);
  StartTurn(game, outside);
  bool allHuman = true;
  for (int kind : game.playerKinds) allHuman = allHuman && kind == kHuman;
  outside.ShowPauseButton(!allHuman && game.netRole != kNetClient);
  game.paused = false;
  game.boardChanged = true;
}

void SaveGame(Game& game, Outside& outside, const std::string& path) {
  TrySaveGame(game, outside, path);
}

void LoadGame(Game& game, Outside& outside, const std::string& path) {
  TryLoadGame(game, outside, path);
}

std::optional<std::string> LoadGameText(Game& game, Outside& outside, const std::string& text) {
  if (auto problem = ReadGameText(text, game)) return problem;
  Guarded(outside, kModule, "LoadGame", [&] { ResumeLoadedGame(game, outside); });
  return std::nullopt;
}

std::string GameImage(Game& game, Outside& /*outside*/) {
  return WriteGameText(game);
}

void SaveGameCommand(Game& game, Outside& outside) {
  std::string path = game.saveFilePath;
  if (path.empty()) {
    path = outside.SaveFileDialog("Save Game ...", kFilter, ProposedSaveName(game, outside),
                                  kExtension);
    if (path.empty()) return;
  }
  // A failed save leaves the game marked unsaved, so quitting still asks.
  if (!TrySaveGame(game, outside, path)) return;
  game.saveFilePath = path;
  game.gameSaved = true;
}

void LoadGameCommand(Game& game, Outside& outside) {
  if (!game.gameSaved && !outside.AskYesNo("Load Different Game?", kLoadQuestion)) return;
  std::string path =
      outside.LoadFileDialog("Load Game ...", kFilter, DocumentFile(outside.Engine(), ""));
  if (path.empty()) return;
  if (!TryLoadGame(game, outside, path)) return;
  game.saveFilePath = path;
  game.gameSaved = true;
  if (game.netRole != kNetHosting) return;
  outside.SendToAll(
      "GMSG}*** " + game.localPlayerName + " (host) has loaded a game: '" + GameDescription(game),
      0);
  outside.SendToAll("GLGF}" + GameImage(game, outside), 0);
}

}  // namespace varkesh
