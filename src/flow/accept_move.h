// Playing a confirmed human move, made here or on another machine.
#pragma once

#include "core/game.h"
#include "core/outside.h"

namespace varkesh {

// The move (moveFromX, moveFromY) to (moveToX, moveToY) of currentTeam.
void AcceptMove(Game& game, Outside& outside);
// The same move as told by a GAMV message (netMoveKind and its arguments).
void NetAcceptMove(Game& game, Outside& outside);

}  // namespace varkesh
