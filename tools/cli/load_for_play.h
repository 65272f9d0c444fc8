// What the playing commands of varkesh-cli share: the outside of a headless
// program in the tool's folder, a game loaded to the start of its turn, and the output.
#pragma once

#include <string>

#include "flow/game.h"
#include "tool_outside.h"

namespace varkesh::cli {

// The program folder is the tool's own, where the pack lies beside it.
void UseToolFolder(ToolOutside& outside);

// Reads FILE (exit 1 when it is not a game) and starts the turn of the team
// on turn as loading a saved game does: marks cleared, and for a human seat
// the moveable pieces marked.
Game LoadForPlay(const std::string& path, ToolOutside& outside);

// A fault that the game's error handler reported ends the command (exit 1).
void FailOnReportedFault(const ToolOutside& outside);

// The plain game text on standard output.
void PrintGame(const Game& game);

}  // namespace varkesh::cli
