// The computer's fixed rule for a pawn in a keep, told as the line of the
// options dialog it comes to: how a move of the evaluator is written out,
// and how a searched move is compared with what that rule would do.
#pragma once

#include "core/move.h"
#include "core/position.h"

namespace varkesh {

// The option (a line, kOptionClosed or kOptionNone) that plays the same as
// the move with kOptionComputer; kOptionNone when the move opens no options.
int ComputerOptionLine(const Position& position, const Move& move);

}  // namespace varkesh
