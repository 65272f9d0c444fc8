#include "load_for_play.h"

#include <cstdio>
#include <filesystem>

#include "cli.h"
#include "flow/save_load.h"
#include "persist/game_text.h"
#include "persist/user_folders.h"

namespace varkesh::cli {

void UseToolFolder(ToolOutside& outside) {
  std::error_code error;
  std::filesystem::path tool = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) return;
  outside.engine.appPath = ProgramDataFolder(tool.parent_path().string() + "/");
  // A fault's log goes where the game keeps its logs, as the tool's own
  // folder may not be writable once installed.
  outside.engine.logPath = FindUserFolders().logs;
  outside.engine.logsOff = outside.engine.logPath.empty();
}

Game LoadForPlay(const std::string& path, ToolOutside& outside) {
  Game game = ReadGameFile(path);
  ResumeLoadedGame(game, outside);
  return game;
}

void FailOnReportedFault(const ToolOutside& outside) {
  if (outside.faultReported)
    BadInput("varkesh-cli: the game met a fault; details are in '" +
             LogFile(outside.engine, "error_main.log") + "'");
}

void PrintGame(const Game& game) {
  std::string text = GameImage(game);
  std::fwrite(text.data(), 1, text.size(), stdout);
}

}  // namespace varkesh::cli
