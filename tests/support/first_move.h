// A legal move to play when any will do.
#pragma once

#include "core/rules.h"

namespace varkesh::testing {

// The first move the rules list for the team to move; the game has one.
inline MoveRec FirstListedMove(const Game& game) {
  Game probe = game;
  FindMoveablePieces(probe, probe.match.position.currentTeam, true, false);
  const BoardSquare piece = probe.view.moveablePieces[1];
  probe.moveList.Clear();
  FindMoves(probe, piece.x, piece.y, false, true);
  return probe.moveList[1];
}

}  // namespace varkesh::testing
