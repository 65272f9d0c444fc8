// Take Back Move and Redo in a game on one machine: back to the turn of the
// last human seat that moved, with everything as it stood then, and forward
// again until a new move is made.
#pragma once

#include <vector>

#include "flow/game.h"
#include "flow/outside.h"

namespace varkesh {

// What Redo needs; lives beside the game for as long as the window does.
struct TakebackState {
  // The records as they stood before each takeback, the latest last.
  std::vector<Record> redo;
  // The record right after the latest takeback or redo: any other means a
  // move has been made since, and the redo list no longer applies.
  Record after;
};

// The number of events left once the last human move and the computer moves
// since are taken back; -1 when there is none to take back.
int TakebackTarget(const Game& game);

bool CanTakeBack(const Game& game);
bool CanRedo(const Game& game, const TakebackState& state);

// Each does nothing and returns false when it cannot.
bool TakeBack(Game& game, Outside& outside, TakebackState& state);
bool Redo(Game& game, Outside& outside, TakebackState& state);

}  // namespace varkesh
