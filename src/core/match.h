// One game: who plays it, where it stands and how it got there. The program
// holds one; a test, the command-line tool or the computer may hold many.
#pragma once

#include "core/apply_move.h"
#include "core/position.h"
#include "core/record.h"
#include "core/resign.h"
#include "core/setup.h"

namespace varkesh {

struct Match {
  Setup setup;
  Position position;
  Record record;

  // Starts the record afresh from the position as it stands: a new game or a load.
  void BeginRecord() { record.Begin(position); }
};

// A legal move (IsLegal) played and kept in the record.
MoveEffects PlayMove(Match& match, const Move& move);
// The team on turn resigns; kept in the record when it took effect.
ResignEffects PlayResign(Match& match, int concedeTeam);

}  // namespace varkesh
