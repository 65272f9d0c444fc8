#include "ai/search/king_danger.h"

#include "core/alliances.h"
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

}  // namespace

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
