#include <iostream>
#include <string>

#include "cli.h"
#include "core/piece_moves.h"

namespace varkesh::cli {

// Every live piece of every team with its destinations, in scan order.
int CmdMoves(const Args& args) {
  if (args.size() != 1) Usage("moves FILE");
  Game game = ReadGameFile(args[0]);
  std::string out;
  for (int y = 0; y < kBoardSide; ++y) {
    for (int x = 0; x < kBoardSide; ++x) {
      if (game.match.position.board.at(x, y).piece <= kNoPiece) continue;
      out += std::to_string(x) + "," + std::to_string(y) + ":";
      FindMoves(game.match.position, x, y, [&](int toX, int toY) {
        out += " " + std::to_string(toX) + "," + std::to_string(toY);
      });
      out += "\n";
    }
  }
  std::cout << out;
  return 0;
}

}  // namespace varkesh::cli
