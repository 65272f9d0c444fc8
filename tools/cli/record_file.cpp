#include "record_file.h"

#include <sys/stat.h>

#include <ctime>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "cli.h"
#include "core/new_game_data.h"
#include "load_for_play.h"
#include "persist/file_coder.h"

namespace varkesh::cli {

namespace {

// A saved game keeps no date: the day the file was last written stands for it.
std::string FileDate(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return "";
  std::tm parts{};
  gmtime_r(&status.st_mtime, &parts);
  char text[16];
  std::strftime(text, sizeof text, "%Y.%m.%d", &parts);
  return text;
}

bool LooksLikeRecord(const std::string& bytes) {
  const std::size_t first = bytes.find_first_not_of(" \t\r\n");
  return first != std::string::npos && bytes[first] == '[';
}

}  // namespace

std::optional<Board> StandardStartBoard() {
  try {
    ToolOutside outside;
    UseToolFolder(outside);
    return LoadNewGameDataFile(outside.ExtractEntry("newgamedata"));
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

GameRecord ReadRecordFile(const std::string& path, const Board* standardStart) {
  std::string bytes;
  try {
    bytes = ReadFileBytes(path);
  } catch (const std::runtime_error& error) {
    BadInput("varkesh-cli: " + path + ": " + error.what());
  }
  GameRecord game;
  if (LooksLikeRecord(bytes)) {
    if (auto problem = ReadRecordText(bytes, standardStart, game))
      BadInput("varkesh-cli: " + path + ": " + problem->Text());
    return game;
  }
  const Game saved = ReadGameFile(path);
  game.setup = saved.match.setup;
  game.record = saved.match.record;
  game.date = FileDate(path);
  return game;
}

std::string RecordText(const GameRecord& game, const Board* standardStart,
                       const std::string& what) {
  std::optional<std::string> text = WriteRecordText(game, standardStart);
  if (!text)
    BadInput("varkesh-cli: " + what + ": its start position strays from the board's layout");
  return *text;
}

void WriteRecordFile(const Match& match, const std::string& path) {
  GameRecord record;
  record.setup = match.setup;
  record.date = RecordDateToday();
  record.record = match.record;
  const std::optional<Board> standard = StandardStartBoard();
  const std::string text = RecordText(record, standard ? &*standard : nullptr, path);
  std::ofstream file(path, std::ios::binary);
  if (!(file << text)) BadInput("varkesh-cli: cannot write " + path);
}

std::string RecordsFolderOption(const Options& options, const std::string& usageLine) {
  const std::string folder = options.Value("records");
  if (options.Has("records") && !std::filesystem::is_directory(folder)) Usage(usageLine);
  return folder;
}

std::string GameRecordPath(const std::string& folder, int game) {
  return folder + "/game-" + std::to_string(game) + ".vrec";
}

}  // namespace varkesh::cli
