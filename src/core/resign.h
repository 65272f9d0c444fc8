// A team gives up during its turn.
#pragma once

#include <vector>

#include "core/game.h"
#include "core/outside.h"

namespace varkesh {

// The standing teams hostile to currentTeam, in the order of their numbers:
// who may receive the pieces of a team that resigns under Kingdom Gained.
std::vector<int> ConcedeOffers(const Game& game);

// resignToTeam is -1 for this machine's player (the concede dialog or the
// question decides, and the resignation is sent on); 0 or more for a
// resignation received from another machine.
void DoResign(Game& game, Outside& outside, int resignToTeam);

}  // namespace varkesh
