// The computer opponent's own picture of attacks on a board. It is no call
// of the move rules: the tests look outward from the target and stop at
// the first attacker, and where they differ from the move rules they stay so.
#pragma once

#include "core/position.h"

namespace varkesh {

// The first attacker a threat test found.
struct Attacker {
  int x = 0;
  int y = 0;
  int team = kNoTeam;
  int piece = kNoPiece;
};

// True if the live piece on (x, y) stands attacked by a live piece of a team
// opposed to its own; the attacker found goes to *by when given.
bool TestThreat(const Board& board, int gameType, int x, int y, Attacker* by = nullptr);

// The same with the keep wall taken away and without the King as a striker:
// the weak threat of a slider on an open line into a keep.
bool TestMoatlessThreat(const Board& board, int gameType, int x, int y);

// True if (toX, toY) lies nearer than (fromX, fromY) to the keep of at least
// one standing enemy of the team on turn. Looks at no board.
bool AdvancesPawn(const Position& position, int fromX, int fromY, int toX, int toY);

}  // namespace varkesh
