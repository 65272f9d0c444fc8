// The computer opponent's entry points.
#pragma once

#include "core/game.h"
#include "core/outside.h"

namespace varkesh {

// Scores every legal move of currentTeam and picks one; the index in
// game.moveList (from 1), or 0 when the team has no move.
int GetAImove(Game& game, Outside& outside);
// Plays the chosen move (moveFromX ... moveToY) and hands the turn on.
// Deterministic: every machine of a session gets the same result.
void CarryOutAImove(Game& game, Outside& outside);
// The computer's fixed choice for its pawn on (moveToX, moveToY).
void AIpawnOptions(Game& game, Outside& outside);

}  // namespace varkesh
