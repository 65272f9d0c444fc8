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

struct Reach {
  // By square index. ring: all eight neighbours by direction, kPadSquare off
  // the diamond; king and knight: the neighbours and jumps on the diamond.
  std::array<std::array<std::int16_t, kDirections>, kSquareCount> ring{};
  std::array<SquareList<kDirections>, kSquareCount> king{};
  std::array<SquareList<kDirections>, kSquareCount> knight{};
  // A pawn in a moat steps only onto the battlefield, twice straight out of
  // its own; a pawn on the battlefield onto more battlefield (onField) or a
  // moat (intoMoat), where the realm decides.
  std::array<PawnSteps, kSquareCount> outOfMoat{};
  std::array<PawnSteps, kSquareCount> onField{};
  std::array<PawnSteps, kSquareCount> intoMoat{};
  // A Castle Pawn may step onto any ground.
  std::array<PawnSteps, kSquareCount> anyGround{};
};

constexpr Reach MakeReach() {
  Reach r;
  const auto terrainIs = [](int index, int terrain) {
    return index != kNowhere && LaidOutTerrain(index) == terrain;
  };
  for (int from = 0; from < kSquareCount; ++from) {
    const auto f = static_cast<std::size_t>(from);
    for (int d = 0; d < kDirections; ++d) {
      const int to = Neighbour(from, d);
      const int jump = Jump(from, d);
      r.ring[f][static_cast<std::size_t>(d)] =
          to == kNowhere ? kPadSquare : static_cast<std::int16_t>(to);
      if (to != kNowhere) r.king[f].Add(to);
      if (jump != kNowhere) r.knight[f].Add(jump);
      const bool field = terrainIs(to, kBattlefield);
      const bool moat = terrainIs(to, kMoat);
      PawnSteps& out = r.outOfMoat[f];
      PawnSteps& on = r.onField[f];
      PawnSteps& moatward = r.intoMoat[f];
      PawnSteps& any = r.anyGround[f];
      if (to != kNowhere) (IsOrthogonal(d) ? any.straight : any.diagonal).Add(to);
      if (!IsOrthogonal(d)) {
        if (field) out.diagonal.Add(to);
        if (field) on.diagonal.Add(to);
        if (moat) moatward.diagonal.Add(to);
        continue;
      }
      if (field) {
        const int beyond = Neighbour(to, d);
        out.beyond[static_cast<std::size_t>(out.straight.count)] =
            terrainIs(beyond, kBattlefield) ? static_cast<std::int16_t>(beyond) : kPadSquare;
        out.straight.Add(to);
      }
      if (field) on.straight.Add(to);
      if (moat) moatward.straight.Add(to);
    }
  }
  return r;
}

inline constexpr Reach kReach = MakeReach();

// Out of a moat a pawn has one straight step onto the battlefield and two
// diagonal ones, at most: the counter looks at no more.
inline constexpr int kMoatStraightSteps = 1;
inline constexpr int kMoatDiagonalSteps = 2;
constexpr bool MoatStepsFit() {
  for (int index = 0; index < kSquareCount; ++index) {
    const PawnSteps& steps = kReach.outOfMoat[static_cast<std::size_t>(index)];
    if (LaidOutTerrain(index) == kMoat &&
        (steps.straight.count > kMoatStraightSteps || steps.diagonal.count > kMoatDiagonalSteps))
      return false;
  }
  return true;
}
static_assert(MoatStepsFit());

}  // namespace varkesh
