#include "ai/search/king_danger.h"

#include "core/alliances.h"
#include "core/geometry.h"
#include "core/piece_moves.h"

namespace varkesh::search {

namespace {

int KingSquare(const Position& position, int team) {
  int king = -1;
  position.pieces[static_cast<std::size_t>(team - 1)].ForEach([&](int index) {
    if (position.board.squares[static_cast<std::size_t>(index)].piece == kKing) king = index;
  });
  return king;
}

bool HostilePiece(const Square& square, unsigned hostile, int kind) {
  return square.piece == kind && InTeams(hostile, square.team);
}

}  // namespace

bool KingMayBeAttacked(const Position& position, int team) {
  if (TeamIndex(team) < 0) return false;
  const int king = KingSquare(position, team);
  if (king < 0) return false;
  const unsigned hostile = HostileTeamsOf(position.gameType, team);
  const auto& squares = position.board.squares;
  const auto at = [&](int index) -> const Square& {
    return squares[static_cast<std::size_t>(index)];
  };
  for (int d = 0; d < kDirections; ++d) {
    const int jump = Jump(king, d);
    if (jump != kNowhere && HostilePiece(at(jump), hostile, kKnight)) return true;
    const int next = Neighbour(king, d);
    if (next == kNowhere) continue;
    const Square& near = at(next);
    if (HostilePiece(near, hostile, kKing)) return true;
    if (!IsOrthogonal(d) &&
        (HostilePiece(near, hostile, kPawn) || HostilePiece(near, hostile, kCastlePawn)))
      return true;
    const int slider = IsOrthogonal(d) ? kRook : kBishop;
    for (int to = next; to != kNowhere; to = Neighbour(to, d)) {
      const Square& square = at(to);
      if (square.piece == kNoPiece) continue;
      if (HostilePiece(square, hostile, kQueen) || HostilePiece(square, hostile, slider))
        return true;
      break;
    }
  }
  return false;
}

bool KingAttacked(const Position& position, int team) {
  if (TeamIndex(team) < 0) return false;
  const int king = KingSquare(position, team);
  if (king < 0) return false;
  bool attacked = false;
  for (int other = kWhite; other <= kRed && !attacked; ++other) {
    if (!IsHostile(position.gameType, team, other)) continue;
    position.pieces[static_cast<std::size_t>(other - 1)].ForEach([&](int from) {
      if (attacked) return;
      ForEachDestination(position, from, [&](int to) { attacked = attacked || to == king; });
    });
  }
  return attacked;
}

}  // namespace varkesh::search
