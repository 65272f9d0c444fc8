// Handing the turn to the next team that has not fallen.
#pragma once

#include "core/game.h"
#include "core/outside.h"

namespace varkesh {

// Next standing team (the round grows at the wrap), the labels, fresh marks,
// and mode 1 with the moveable pieces listed for a human, 8 for a computer.
// Leaves clickPending alone: callers that must drop a click clear it.
void PassTurn(Game& game, Outside& outside);

// The start of currentTeam's turn on a board without marks: mode 1 with the
// moveable pieces listed and the turn clock restarted for a human, else mode 8.
void StartTurn(Game& game, Outside& outside);

}  // namespace varkesh
