// The team on turn gives up: asked on this machine, or told by another.
#pragma once

#include "flow/game.h"
#include "flow/outside.h"

namespace varkesh {

// resignToTeam is -1 for this machine's player (the concede dialog or the
// question decides, and the others are told); 0 or more for a resignation
// received from another machine, or the computer's.
void DoResign(Game& game, Outside& outside, int resignToTeam);

}  // namespace varkesh
