// The fixed terrain of the board: a moat row and a keep behind it on each
// side of the diamond, battlefield in the middle. Worked out at compile time
// so that the move counter's tables can lean on it; the game lays it out
// (LayOutTerrain) and a saved game must match it.
#pragma once

#include "core/geometry.h"

namespace varkesh {

// How many steps (x, y) lies past the moat line on team's side of the
// board, counted towards that edge: 0 on the moat line, 1 to 3 in the keep,
// less than 0 on the near side. The lines are row 13 for White, column 3
// for Blue, row 3 for Black and column 13 for Red.
constexpr int StepsPastMoatLine(int team, int x, int y) {
  switch (team) {
    case kWhite:
      return y - 13;
    case kBlue:
      return 3 - x;
    case kBlack:
      return 3 - y;
    case kRed:
      return x - 13;
    default:
      return -kDiamondSquares;  // no side of the board
  }
}

// The terrain and realm of (x, y) as laid out; no team and no piece. The
// four sides' moats and keeps do not meet on the diamond.
constexpr Square LaidOutSquare(int x, int y) {
  Square square;
  if (!OnDiamond(x, y)) return square;
  square.terrain = static_cast<std::int8_t>(kBattlefield);
  square.realm = static_cast<std::int8_t>(kNoTeam);
  for (int team = kWhite; team <= kRed; ++team) {
    const int past = StepsPastMoatLine(team, x, y);
    if (past >= 0) {
      square.terrain = static_cast<std::int8_t>(past == 0 ? kMoat : kKeep);
      square.realm = static_cast<std::int8_t>(team);
      break;
    }
  }
  return square;
}

constexpr int LaidOutTerrain(int index) {
  return LaidOutSquare(SquareX(index), SquareY(index)).terrain;
}

}  // namespace varkesh
