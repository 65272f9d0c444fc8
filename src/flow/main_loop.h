// One pass of the main loop: the frame rate, the strobes, the clocks and the
// step of the present game mode. The program's loop repeats it, yielding and
// sleeping in between; tests drive it pass by pass.
#pragma once

#include "flow/game.h"
#include "flow/game_view.h"
#include "flow/outside.h"

namespace varkesh {

void RunPass(Game& game, Outside& outside, GameView& view);

}  // namespace varkesh
