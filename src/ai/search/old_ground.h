// Going round in circles: what a search charges a line that comes back to a
// position the game has already stood in, and which teams it charges.
#pragma once

#include "ai/search/sides.h"
#include "core/position.h"

namespace varkesh::search {

// What old ground costs the root's side in a search at this round. The
// charge grows late in a game: by then someone has to take a risk.
int OldGroundCost(int round);

// Whether the root team is charged for old ground. Two alliances always
// are. In Anarchy waiting while the others wear each other down is a plan,
// and so is holding on when behind: only the strongest team, or one of the
// last two, has to press on.
bool ChargesOldGround(const Position& position, const Sides& sides, int personality);

}  // namespace varkesh::search
