// The New Game command.
#pragma once

#include "flow/game.h"
#include "flow/outside.h"

namespace varkesh {

// Asks about an unsaved game, runs the new game dialog and, if it was
// accepted, resets the game from the choices and the pack's start position.
void NewGameCommand(Game& game, Outside& outside);

}  // namespace varkesh
