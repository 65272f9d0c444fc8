#include "load_for_play.h"

#include <cstdio>
#include <filesystem>

#include "cli.h"
#include "flow/save_load.h"
#include "persist/game_text.h"

namespace varkesh::cli {

void UseToolFolder(HeadlessOutside& outside) {
  std::error_code error;
  std::filesystem::path tool = std::filesystem::read_symlink("/proc/self/exe", error);
  if (!error) outside.engine.appPath = tool.parent_path().string() + "/";
}

Game LoadForPlay(const std::string& path, HeadlessOutside& outside) {
  Game game = ReadGameFile(path);
  ResumeLoadedGame(game, outside);
  return game;
}

void FailOnReportedFault(const HeadlessOutside& outside) {
  if (outside.faultReported)
    BadInput("varkesh-cli: the game met a fault; details are in '" + outside.engine.appPath +
             "error_main.log'");
}

void PrintGame(const Game& game) {
  std::string text = WriteGameText(game);
  std::fwrite(text.data(), 1, text.size(), stdout);
}

}  // namespace varkesh::cli
