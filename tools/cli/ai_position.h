// What the scores and aimove commands share: the game of FILE and the
// personality that plays its team on turn.
#pragma once

#include <string>

#include "ai/move_scoring.h"
#include "cli.h"

namespace varkesh::cli {

struct AiPosition {
  Game game;
  int personality = 0;
  AiMoveList moves;
};

// "FILE [--personality P]": P from 1 to 3, by default the seat's own; a
// human seat without P is a usage error. The game draws only zeros, so no
// tie-break raises a score.
AiPosition ReadAiPosition(const Args& args, const std::string& usageLine);

}  // namespace varkesh::cli
