// The computer opponent's table of piece values, and whom it counts as an
// enemy. The three personalities differ only in this table, in the divisor
// that turns a capture value into a threat value, and in their opening moves.
#pragma once

#include <array>

#include "core/types.h"

namespace varkesh {

enum ScoreKind : int {
  kCaptureValue = 0,
  kThreatValue = 1,
  kWeakThreatValue = 2,
  kDangerValue = 3,
};

inline constexpr int kPersonalityCount = 3;
inline constexpr int kScoreKindCount = 4;
inline constexpr int kPieceKindCount = 7;

// [personality - 1][score kind][piece kind - 1]
using AiValueTable =
    std::array<std::array<std::array<int, kPieceKindCount>, kScoreKindCount>, kPersonalityCount>;

namespace detail {

struct StatedValues {
  std::array<int, kPieceKindCount> capture;
  std::array<int, kPieceKindCount> danger;
};

// Pawn, Castle Pawn, Bishop, Rook, Knight, Queen, King. The uneven entries
// (the Balanced Knight and Queen, the Defensive Castle Pawn) are deliberate.
inline constexpr std::array<StatedValues, kPersonalityCount> kStated{{
    {{40, 100, 800, 600, 300, 1000, 2000}, {50, 60, 700, 500, 200, 900, 5000}},
    {{40, 100, 800, 600, 500, 900, 2000}, {50, 60, 900, 700, 400, 1000, 5000}},
    {{40, 50, 800, 600, 300, 1000, 2000}, {50, 60, 1000, 700, 200, 2000, 5000}},
}};

constexpr AiValueTable MakeAiValues() {
  AiValueTable table{};
  for (int p = 0; p < kPersonalityCount; ++p) {
    const int personality = p + 1;
    for (int k = 0; k < kPieceKindCount; ++k) {
      const int capture = kStated[p].capture[k];
      // Integer divisions on purpose: the dropped fractions are part of the values.
      const int threat = capture / (personality * 2 + 4);
      table[p][kCaptureValue][k] = capture;
      table[p][kThreatValue][k] = threat;
      table[p][kWeakThreatValue][k] = threat / 2;
      table[p][kDangerValue][k] = kStated[p].danger[k];
    }
  }
  return table;
}

}  // namespace detail

inline constexpr AiValueTable AIValues = detail::MakeAiValues();

// The value for a personality (1 to 3), score kind and live piece kind
// (1 to 7); 0 for anything outside the table.
constexpr int AiValue(int personality, ScoreKind kind, int piece) {
  if (personality < 1 || personality > kPersonalityCount) return 0;
  if (kind < 0 || kind >= kScoreKindCount) return 0;
  if (piece < 1 || piece > kPieceKindCount) return 0;
  return AIValues[personality - 1][kind][piece - 1];
}

// The teams that team fights in a game of gameType, as bits 1 << team;
// none for a game type or team outside the table.
constexpr unsigned EnemyTeams(int gameType, int team) {
  constexpr unsigned kAll = (1u << kWhite) | (1u << kBlue) | (1u << kBlack) | (1u << kRed);
  if (team < kWhite || team > kRed) return 0;
  switch (gameType) {
    case kAlliedNeighbors:
      return team <= kBlue ? (1u << kBlack) | (1u << kRed) : (1u << kWhite) | (1u << kBlue);
    case kCrossroadAllies:
      return team % 2 == 1 ? (1u << kBlue) | (1u << kRed) : (1u << kWhite) | (1u << kBlack);
    case kAnarchy:
      return kAll & ~(1u << team);
    default:
      return 0;
  }
}

constexpr bool IsEnemy(unsigned enemies, int team) {
  return team >= kWhite && team <= kRed && (enemies & (1u << team)) != 0;
}

}  // namespace varkesh
