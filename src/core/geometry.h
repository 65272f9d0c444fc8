// The shape of the board, worked out once: the diamond's squares in scan
// order and, for each square, its neighbours and Knight's jumps that lie on
// the diamond. The rules walk these tables instead of testing bounds.
#pragma once

#include <array>
#include <cstdint>

#include "core/types.h"

namespace varkesh {

// Whether (x, y) lies on the playable diamond.
constexpr bool OnDiamond(int x, int y) {
  const int dx = x < 8 ? 8 - x : x - 8;
  const int dy = y < 8 ? 8 - y : y - 8;
  return Board::InBounds(x, y) && dx + dy < 9;
}

inline constexpr int kDiamondSquares = 145;
inline constexpr int kDirections = 8;
inline constexpr std::int16_t kNowhere = -1;

// The eight neighbours, rows from the top; directions are indexes into it.
inline constexpr int kStepX[kDirections] = {-1, 0, 1, -1, 1, -1, 0, 1};
inline constexpr int kStepY[kDirections] = {-1, -1, -1, 0, 0, 1, 1, 1};
inline constexpr bool IsOrthogonal(int direction) {
  return kStepX[direction] == 0 || kStepY[direction] == 0;
}
inline constexpr int kJumpX[kDirections] = {-1, 1, -2, 2, -2, 2, -1, 1};
inline constexpr int kJumpY[kDirections] = {-2, -2, -1, -1, 1, 1, 2, 2};

struct Geometry {
  std::array<std::int16_t, kDiamondSquares> diamond{};
  // By square index: the square one step or one jump away, or kNowhere.
  std::array<std::array<std::int16_t, kDirections>, kSquareCount> neighbour{};
  std::array<std::array<std::int16_t, kDirections>, kSquareCount> jump{};
  std::array<std::int8_t, kSquareCount> x{};
  std::array<std::int8_t, kSquareCount> y{};
};

constexpr Geometry MakeGeometry() {
  Geometry g;
  int next = 0;
  for (int y = 0; y < kBoardSide; ++y) {
    for (int x = 0; x < kBoardSide; ++x) {
      const int index = Board::Index(x, y);
      g.x[static_cast<std::size_t>(index)] = static_cast<std::int8_t>(x);
      g.y[static_cast<std::size_t>(index)] = static_cast<std::int8_t>(y);
      if (OnDiamond(x, y))
        g.diamond[static_cast<std::size_t>(next++)] = static_cast<std::int16_t>(index);
      for (int d = 0; d < kDirections; ++d) {
        const int nx = x + kStepX[d], ny = y + kStepY[d];
        const int jx = x + kJumpX[d], jy = y + kJumpY[d];
        g.neighbour[static_cast<std::size_t>(index)][static_cast<std::size_t>(d)] =
            OnDiamond(nx, ny) ? static_cast<std::int16_t>(Board::Index(nx, ny)) : kNowhere;
        g.jump[static_cast<std::size_t>(index)][static_cast<std::size_t>(d)] =
            OnDiamond(jx, jy) ? static_cast<std::int16_t>(Board::Index(jx, jy)) : kNowhere;
      }
    }
  }
  return g;
}

inline constexpr Geometry kGeometry = MakeGeometry();

constexpr int SquareX(int index) {
  return kGeometry.x[static_cast<std::size_t>(index)];
}
constexpr int SquareY(int index) {
  return kGeometry.y[static_cast<std::size_t>(index)];
}
constexpr int Neighbour(int index, int direction) {
  return kGeometry.neighbour[static_cast<std::size_t>(index)][static_cast<std::size_t>(direction)];
}
constexpr int Jump(int index, int direction) {
  return kGeometry.jump[static_cast<std::size_t>(index)][static_cast<std::size_t>(direction)];
}

}  // namespace varkesh
