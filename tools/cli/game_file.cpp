#include <optional>
#include <stdexcept>

#include "cli.h"
#include "persist/file_coder.h"
#include "persist/game_text.h"
#include "persist/saved_game.h"

namespace varkesh::cli {

Game ReadGameFile(const std::string& path) {
  Game game;
  std::optional<std::string> problem;
  try {
    const std::string bytes = ReadFileBytes(path);
    if (LooksCoded(bytes)) {
      DecodeSavedGame(bytes, game.match, &game.view.marks);
      return game;
    }
    problem = ReadGameText(bytes, game.match.position, game.match.setup, &game.view.marks);
  } catch (const std::runtime_error& error) {
    problem = error.what();
  }
  if (problem) BadInput("varkesh-cli: " + path + ": " + *problem);
  game.match.BeginRecord();
  return game;
}

}  // namespace varkesh::cli
