// The fixed terrain of the board: a moat row and a keep behind it on each
// side of the diamond, battlefield in the middle. Worked out at compile time
// so that the move counter's tables can lean on it; the game lays it out
// (LayOutTerrain) and a saved game must match it.
#pragma once

#include "core/geometry.h"

namespace varkesh {

// The terrain and realm of (x, y) as laid out; no team and no piece.
constexpr Square LaidOutSquare(int x, int y) {
  Square square;
  if (!OnDiamond(x, y)) return square;
  const auto set = [&square](int terrain, int realm) {
    square.terrain = static_cast<std::int8_t>(terrain);
    square.realm = static_cast<std::int8_t>(realm);
  };
  if (y >= 13) {
    set(y == 13 ? kMoat : kKeep, kWhite);
  } else if (y <= 3) {
    set(y == 3 ? kMoat : kKeep, kBlack);
  } else if (x <= 3) {
    set(x == 3 ? kMoat : kKeep, kBlue);
  } else if (x >= 13) {
    set(x == 13 ? kMoat : kKeep, kRed);
  } else {
    set(kBattlefield, kNoTeam);
  }
  return square;
}

constexpr int LaidOutTerrain(int index) {
  return LaidOutSquare(SquareX(index), SquareY(index)).terrain;
}

}  // namespace varkesh
