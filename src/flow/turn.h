// The start of a turn on this machine: the labels, the marks that say what a
// click would choose, and the mode that waits for the player or the computer.
#pragma once

#include "flow/game.h"
#include "flow/outside.h"

namespace varkesh {

void UpdateCurrentPlayer(const Game& game, Labels& labels);
void ShowPiece(const Game& game, Labels& labels, int fromX, int fromY, int toX, int toY);

// Mark 1 on each piece of the team on turn that can move; with forStrobe the
// strobe runs over them, else the strobe list is left empty.
void MarkMoveablePieces(Game& game, bool forStrobe);
// Mark 2 on each destination of the piece on (x, y), and the strobe over them.
void MarkDestinations(Game& game, int x, int y);
void ClearMarks(Game& game);

// The team on turn starts its turn on a board without marks: mode 1 with its
// moveable pieces marked and the turn clock restarted for a human, else 8.
void StartTurn(Game& game, Clock& clock);

// After the rules passed the turn: the labels, fresh marks, the next mode.
void BeginNextTurn(Game& game, Outside& outside);

}  // namespace varkesh
