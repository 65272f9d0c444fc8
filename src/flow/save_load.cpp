#include "flow/save_load.h"

#include <cctype>
#include <filesystem>
#include <stdexcept>

#include "core/labels.h"
#include "engine/general_engine.h"
#include "flow/error_handler.h"
#include "flow/turn.h"
#include "persist/file_coder.h"
#include "persist/game_text.h"
#include "persist/saved_game.h"

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

// The coded file is written beside the old one and renamed over it, so a
// save that fails halfway leaves the previous file whole.
void WriteSavedGame(const Game& game, const std::string& path) {
  const std::string part = path + ".part";
  WriteFileBytes(part, EncodeSavedGame(game.match, &game.view.marks));
  std::filesystem::rename(part, path);
}

bool TrySaveGame(Game& game, Outside& outside, const std::string& path) {
  bool saved = false;
  Guarded(outside, kModule, "SaveGame", [&] {
    WriteSavedGame(game, path);
    saved = true;
  });
  return saved;
}

// Everything is read before anything of the running game changes.
void ReadSavedGame(Game& game, const std::string& path) {
  Match read;
  try {
    DecodeSavedGame(ReadFileBytes(path), read);
  } catch (const std::exception& error) {
    throw std::runtime_error("The saved game '" + path + "' cannot be read: " + error.what());
  }
  game.match = std::move(read);
}

// Play goes on at the start of the current team's turn, whatever was under
// way when the game was saved.
bool TryLoadGame(Game& game, Outside& outside, const std::string& path) {
  bool loaded = false;
  Guarded(outside, kModule, "LoadGame", [&] {
    ReadSavedGame(game, path);
    loaded = true;
    ResumeLoadedGame(game, outside);
  });
  return loaded;
}

std::string ProposedSaveName(const Game& game, Outside& outside) {
  std::string name;
  for (char c : game.match.setup.gameName)
    if (std::isalnum(static_cast<unsigned char>(c)) || c == '_') name += c;
  return DocumentFile(outside.Engine(), name + kExtension);
}

}  // namespace

void ResumeLoadedGame(Game& game, Outside& outside) {
  outside.SetGameDescription(GameDescription(game.match.position, game.match.setup));
  UpdateCurrentPlayer(game, outside);
  ShowPiece(game, outside, 0, 0, 0, 0);
  outside.SetMenuEnabled(Menu::Resign, true);
  game.turn.moveFromX = game.turn.moveFromY = game.turn.moveToX = game.turn.moveToY = 0;
  ClearMarks(game);
  StartTurn(game, outside);
  outside.ShowPauseButton(!game.match.setup.AllHuman() && game.net.netRole != kNetClient);
  game.turn.paused = false;
  game.view.boardChanged = true;
}

void SaveGame(Game& game, Outside& outside, const std::string& path) {
  TrySaveGame(game, outside, path);
}

void LoadGame(Game& game, Outside& outside, const std::string& path) {
  TryLoadGame(game, outside, path);
}

std::optional<std::string> LoadGameText(Game& game, Outside& outside, const std::string& text) {
  Match& match = game.match;
  if (auto problem = ReadGameText(text, match.position, match.setup)) return problem;
  match.BeginRecord();
  Guarded(outside, kModule, "LoadGame", [&] { ResumeLoadedGame(game, outside); });
  return std::nullopt;
}

std::string GameImage(const Game& game) {
  return WriteGameText(game.match.position, game.match.setup, &game.view.marks);
}

void SaveGameCommand(Game& game, Outside& outside) {
  std::string path = game.turn.saveFilePath;
  if (path.empty()) {
    path = outside.SaveFileDialog("Save Game ...", kFilter, ProposedSaveName(game, outside),
                                  kExtension);
    if (path.empty()) return;
  }
  // A failed save leaves the game marked unsaved, so quitting still asks.
  if (!TrySaveGame(game, outside, path)) return;
  game.turn.saveFilePath = path;
  game.turn.gameSaved = true;
}

void LoadGameCommand(Game& game, Outside& outside) {
  if (!game.turn.gameSaved && !outside.AskYesNo("Load Different Game?", kLoadQuestion)) return;
  std::string path =
      outside.LoadFileDialog("Load Game ...", kFilter, DocumentFile(outside.Engine(), ""));
  if (path.empty()) return;
  if (!TryLoadGame(game, outside, path)) return;
  game.turn.saveFilePath = path;
  game.turn.gameSaved = true;
  if (NetLink* link = outside.Link()) link->TellGameStarted(game, true);
}

}  // namespace varkesh
