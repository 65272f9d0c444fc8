// A legal move to play when any will do.
#pragma once

#include "core/rules.h"
#include "flow/game.h"

namespace varkesh::testing {

// The first move the rules list for the team to move; the game has one.
inline Move FirstListedMove(const Game& game) {
  MoveList moves;
  ListMoves(game.match.position, moves);
  return moves[0];
}

}  // namespace varkesh::testing
