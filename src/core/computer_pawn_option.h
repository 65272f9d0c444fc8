// The computer's pawn in a keep: a fixed order, no scores and no chance, so
// that every machine of a session makes the same choice.
#pragma once

#include "core/position.h"

namespace varkesh {

struct ComputerPawnChoice {
  bool onBoard = false;  // take the piece on (x, y)
  int x = 0, y = 0;
  int prisonerIndex = 0;  // else free this prisoner of the keep's owner; 0: nothing
};

// First take, then rescue; in each the most valuable kind in the order
// Queen, Bishop, Rook, Knight, Castle Pawn. For the pawn on (toX, toY) of
// the team on turn.
ComputerPawnChoice ChooseComputerPawnOption(const Position& position, int toX, int toY);

}  // namespace varkesh
