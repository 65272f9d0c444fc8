#include <iostream>
#include <string>

#include "cli.h"
#include "core/rules.h"

namespace varkesh::cli {

// Every live piece of every team with its destinations, in scan order.
int CmdMoves(const Args& args) {
  if (args.size() != 1) Usage("moves FILE");
  Game game = ReadGameFile(args[0]);
  std::string out;
  for (int y = 0; y < kBoardSide; ++y) {
    for (int x = 0; x < kBoardSide; ++x) {
      if (game.board.at(x, y).piece <= kNoPiece) continue;
      out += std::to_string(x) + "," + std::to_string(y) + ":";
      game.moveList.Clear();
      FindMoves(game, x, y, false, true);
      for (const MoveRec& move : game.moveList)
        out += " " + std::to_string(move.toX) + "," + std::to_string(move.toY);
      out += "\n";
    }
  }
  std::cout << out;
  return 0;
}

}  // namespace varkesh::cli
