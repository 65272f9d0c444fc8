// Who plays a game and what it is called: chosen in the new game dialog,
// changed by NetPlay seats, kept in saved games.
#pragma once

#include <string>

#include "core/types.h"

namespace varkesh {

struct Setup {
  std::string gameName;
  // kHuman, or the personality of a computer seat.
  PerTeam<int> playerKinds{};

  bool AllHuman() const {
    for (int kind : playerKinds)
      if (kind != kHuman) return false;
    return true;
  }
  bool operator==(const Setup&) const = default;
};

}  // namespace varkesh
