#include "core/rules.h"

#include <algorithm>

#include "core/piece_moves.h"

namespace varkesh {

bool IsAlly(int gameType, int team, int other) {
  if (TeamIndex(team) < 0 || TeamIndex(other) < 0 || team == other) return false;
  switch (gameType) {
    case kAlliedNeighbors:  // White with Blue, Black with Red
      return (team <= kBlue) == (other <= kBlue);
    case kCrossroadAllies:  // White with Black, Blue with Red
      return team % 2 == other % 2;
    default:
      return false;
  }
}

bool IsHostile(int gameType, int team, int other) {
  return other != team && !IsAlly(gameType, team, other);
}

int FindMoves(Game& game, int x, int y, bool markSquares, bool addToMoveList) {
  if (!Board::InBounds(x, y)) return 0;
  const Square& source = game.board.at(x, y);
  if (source.piece < kPawn) return 0;

  MoveSearch search{game, x, y, source, markSquares, addToMoveList};
  switch (source.piece) {
    case kPawn:
      FindPawnMoves(search);
      break;
    case kCastlePawn:
      FindCastlePawnMoves(search);
      break;
    case kKnight:
      FindKnightMoves(search);
      break;
    case kKing:
      FindKingMoves(search);
      break;
    case kBishop:
    case kRook:
    case kQueen:
      FindSlidingMoves(search);
      break;
    default:  // an unknown kind from a damaged file cannot move
      break;
  }
  return search.count;
}

bool IsListedMove(const Game& game, int fromX, int fromY, int toX, int toY) {
  if (!Board::InBounds(fromX, fromY) || game.board.at(fromX, fromY).team != game.currentTeam)
    return false;
  // On a copy: listing moves touches the move list.
  Game probe = game;
  probe.moveList.Clear();
  FindMoves(probe, fromX, fromY, false, true);
  return std::any_of(probe.moveList.begin(), probe.moveList.end(),
                     [&](const MoveRec& m) { return m.toX == toX && m.toY == toY; });
}

int FindMoveablePieces(Game& game, int team, bool forStrobe, bool forComputer) {
  int count = 0;
  for (int y = 0; y < kBoardSide; ++y) {
    for (int x = 0; x < kBoardSide; ++x) {
      if (game.board.at(x, y).team != team) continue;
      if (FindMoves(game, x, y, false, false) <= 0) continue;
      ++count;
      if (forStrobe) AddToMoveablePieces(game, x, y);
      game.board.at(x, y).mark = kMarkMoveable;
      if (forComputer) game.computerPieces.Add({x, y});
    }
  }
  return count;
}

BoardSquare CastleCorner(int team) {
  static constexpr BoardSquare kCorners[] = {{8, 16}, {0, 8}, {8, 0}, {16, 8}};
  int index = TeamIndex(team);
  return index < 0 ? BoardSquare{} : kCorners[index];
}

}  // namespace varkesh
