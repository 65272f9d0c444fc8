// Who plays a game and what it is called: chosen in the new game dialog,
// changed by NetPlay seats, kept in saved games.
#pragma once

#include <string>

#include "core/types.h"

namespace varkesh {

// How strongly a computer seat plays: the one-move evaluator, or a search
// of growing budget. 0, as in a game saved before seats had levels, plays
// as Classic.
inline constexpr int kLevelClassic = 1;
inline constexpr int kLevelClub = 2;
inline constexpr int kLevelExpert = 3;
inline constexpr int kLevelMaster = 4;

// "Classic", "Club", "Expert", "Master"; a level outside reads as Classic.
constexpr const char* LevelName(int level) {
  switch (level) {
    case kLevelClub:
      return "Club";
    case kLevelExpert:
      return "Expert";
    case kLevelMaster:
      return "Master";
    default:
      return "Classic";
  }
}

struct Setup {
  std::string gameName;
  // kHuman, or the personality of a computer seat.
  PerTeam<int> playerKinds{};
  // The level of each computer seat; meaningless for a human seat.
  PerTeam<int> levels{kLevelClassic, kLevelClassic, kLevelClassic, kLevelClassic};

  bool AllHuman() const {
    for (int kind : playerKinds)
      if (kind != kHuman) return false;
    return true;
  }
  bool operator==(const Setup&) const = default;
};

}  // namespace varkesh
