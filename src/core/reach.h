// What each square reaches, worked out once from the shape of the board and
// its fixed terrain, for the move counter: short lists that leave out every
// square a piece could never enter from there, so that counting a piece's
// moves looks only at squares where the answer depends on the position.
#pragma once

#include <array>
#include <cstdint>

#include "core/geometry.h"
#include "core/terrain.h"

namespace varkesh {

// Stands for a missing neighbour where a row must have all eight places:
// (0, 0), a corner off the diamond, where no terrain is ever laid.
inline constexpr std::int16_t kPadSquare = 0;
static_assert(!OnDiamond(0, 0));

template <int Capacity>
struct SquareList {
  std::int8_t count = 0;
  std::array<std::int16_t, Capacity> squares{};

  constexpr void Add(int index) {
    squares[static_cast<std::size_t>(count++)] = static_cast<std::int16_t>(index);
  }
  constexpr const std::int16_t* begin() const { return squares.data(); }
  constexpr const std::int16_t* end() const { return squares.data() + count; }
};

// A pawn's steps from one square: straight ones, each with the square beyond
// it for the double step, and diagonal ones. Unused places hold kPadSquare,
// which no pawn enters, so a count may walk a whole row.
struct PawnSteps {
  SquareList<4> straight;
  std::array<std::int16_t, 4> beyond{};
  SquareList<4> diagonal;
};

// Everything about one square kept together, since a count reads several
// rows of the square a piece stands on.
struct SquareReach {
  // All eight neighbours by direction, kPadSquare off the diamond.
  std::array<std::int16_t, kDirections> ring{};
  // The neighbours and the Knight's jumps on the diamond.
  SquareList<kDirections> king;
  SquareList<kDirections> knight;
  // A pawn's steps onto the battlefield, where a pawn in its own moat or on
  // the battlefield may go; onto a moat, where the realm decides; and onto
  // any ground, for a Castle Pawn.
  PawnSteps field;
  PawnSteps moat;
  PawnSteps any;
};

using Reach = std::array<SquareReach, kSquareCount>;

constexpr Reach MakeReach() {
  Reach reach;
  const auto terrainIs = [](int index, int terrain) {
    return index != kNowhere && LaidOutTerrain(index) == terrain;
  };
  for (int from = 0; from < kSquareCount; ++from) {
    SquareReach& r = reach[static_cast<std::size_t>(from)];
    for (int d = 0; d < kDirections; ++d) {
      const int to = Neighbour(from, d);
      const int jump = Jump(from, d);
      r.ring[static_cast<std::size_t>(d)] =
          to == kNowhere ? kPadSquare : static_cast<std::int16_t>(to);
      if (to != kNowhere) r.king.Add(to);
      if (jump != kNowhere) r.knight.Add(jump);
      if (to == kNowhere) continue;
      const bool straight = IsOrthogonal(d);
      (straight ? r.any.straight : r.any.diagonal).Add(to);
      if (terrainIs(to, kMoat)) (straight ? r.moat.straight : r.moat.diagonal).Add(to);
      if (!terrainIs(to, kBattlefield)) continue;
      if (!straight) {
        r.field.diagonal.Add(to);
        continue;
      }
      const int beyond = Neighbour(to, d);
      r.field.beyond[static_cast<std::size_t>(r.field.straight.count)] =
          terrainIs(beyond, kBattlefield) ? static_cast<std::int16_t>(beyond) : kPadSquare;
      r.field.straight.Add(to);
    }
  }
  return reach;
}

inline constexpr Reach kReach = MakeReach();

constexpr const SquareReach& ReachOf(int index) {
  return kReach[static_cast<std::size_t>(index)];
}

// Out of a moat a pawn has one straight step onto the battlefield and two
// diagonal ones, at most: the counter looks at no more.
inline constexpr int kMoatStraightSteps = 1;
inline constexpr int kMoatDiagonalSteps = 2;
constexpr bool MoatStepsFit() {
  for (int index = 0; index < kSquareCount; ++index) {
    const PawnSteps& steps = ReachOf(index).field;
    if (LaidOutTerrain(index) == kMoat &&
        (steps.straight.count > kMoatStraightSteps || steps.diagonal.count > kMoatDiagonalSteps))
      return false;
  }
  return true;
}
static_assert(MoatStepsFit());

}  // namespace varkesh
