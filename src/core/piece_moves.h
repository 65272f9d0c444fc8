// The rule of each piece kind. FindMoves picks the rule; the rule hands each
// destination, in its fixed order, to the search.
#pragma once

#include "core/game.h"
#include "core/rules.h"

namespace varkesh {

// One FindMoves call: the copied source square and what to do with each
// destination. Adding never allocates unless marking or listing was asked for.
struct MoveSearch {
  Game& game;
  int x;
  int y;
  Square source;
  bool markSquares;
  bool addToMoveList;
  int count = 0;

  int Mover() const { return source.team; }

  bool HoldsHostilePiece(const Square& square) const {
    return square.piece > 0 && IsHostile(game.gameType, source.team, square.team);
  }

  void AddDestination(int toX, int toY) {
    ++count;
    if (markSquares) {
      game.board.at(toX, toY).mark = kMarkDestination;
      AddToMoveablePieces(game, toX, toY);
    }
    if (addToMoveList) {
      MoveRec move;
      move.fromX = x;
      move.fromY = y;
      move.toX = toX;
      move.toY = toY;
      game.moveList.Add(move);
    }
  }
};

struct Step {
  int dx;
  int dy;
  bool Orthogonal() const { return dx == 0 || dy == 0; }
};

// The eight neighbours, rows from the top.
inline constexpr Step kNeighbourSteps[] = {{-1, -1}, {0, -1}, {1, -1}, {-1, 0},
                                           {1, 0},   {-1, 1}, {0, 1},  {1, 1}};

// A moat or keep square of a kingdom that was cleared or frozen.
inline bool IsFallenSquare(const Square& square) {
  return (square.terrain == kMoat || square.terrain == kKeep) && square.realm == kNoTeam;
}

void FindPawnMoves(MoveSearch& search);
void FindCastlePawnMoves(MoveSearch& search);
void FindKnightMoves(MoveSearch& search);
void FindKingMoves(MoveSearch& search);
// Rook, Bishop and Queen.
void FindSlidingMoves(MoveSearch& search);

}  // namespace varkesh
