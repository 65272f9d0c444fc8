#include <stdexcept>

#include "cli.h"
#include "persist/file_coder.h"
#include "persist/game_text.h"

namespace varkesh::cli {

Game ReadGameFile(const std::string& path) {
  std::string text;
  try {
    text = ReadFileBytes(path);
    if (LooksCoded(text)) text = DecodeText(text);
  } catch (const std::runtime_error& error) {
    BadInput("varkesh-cli: " + path + ": " + error.what());
  }
  Game game;
  if (auto problem = ReadGameText(text, game)) BadInput("varkesh-cli: " + path + ": " + *problem);
  return game;
}

}  // namespace varkesh::cli
