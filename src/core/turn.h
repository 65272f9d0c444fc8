// Handing the turn to the next team that has not fallen.
#pragma once

#include "core/game.h"
#include "core/outside.h"

namespace varkesh {

// Next standing team (the round grows at the wrap), the labels, fresh marks,
// and mode 1 with the moveable pieces listed for a human, 8 for a computer.
// Leaves clickPending alone: callers that must drop a click clear it.
void PassTurn(Game& game, Outside& outside);

}  // namespace varkesh
