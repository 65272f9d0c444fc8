// A team gives up during its turn.
#pragma once

#include <vector>

#include "core/position.h"

namespace varkesh {

// The standing teams hostile to the team on turn, in the order of their
// numbers: who may receive its pieces when it resigns under Kingdom Gained.
std::vector<int> ConcedeOffers(const Position& position);

struct ResignEffects {
  bool done = false;  // false: nobody may receive the pieces, nothing changed
  int team = kNoTeam;
  int concedeTeam = kNoTeam;  // who received the pieces; 0 under the other rules
  bool gameOver = false;
};

// The team on turn resigns by the rule in force and the turn passes unless a
// side has won. Under Kingdom Gained concedeTeam receives its pieces; a team
// that may not (a damaged message) gives way to the first that may, so every
// machine agrees. Under the other rules concedeTeam means nothing.
ResignEffects Resign(Position& position, int concedeTeam);

}  // namespace varkesh
