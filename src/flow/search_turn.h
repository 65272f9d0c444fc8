// The turn of a computer seat of a searching level: the search runs on a
// worker thread over its own copy of the position while this thread keeps
// the window's events flowing and shows the progress.
#pragma once

#include "core/move.h"
#include "flow/game.h"
#include "flow/outside.h"

namespace varkesh {

struct SearchedMove {
  bool found = false;    // false: the team on turn has no move
  bool stopped = false;  // quitting, or the player gave the game another course: no move
  // Its option: kOptionComputer where the computer's fixed rule makes the
  // same choice, else the line (or kOptionClosed) the search chose.
  Move move;
};

// Searches for the team on turn at this level, within the Master's time
// the outside gives.
SearchedMove SearchComputerMove(const Game& game, Outside& outside, int level, int personality);

}  // namespace varkesh
