// The fate of a fallen kingdom, and the end of the game.
#pragma once

#include "core/position.h"

namespace varkesh {

// Kingdom Gained: the gainer takes the pieces, moat and keep.
void SwapTeams(Position& position, int oldTeam, int newTeam);
// Kingdom Lost: the pieces leave the board; moat and keep turn neutral.
void ClearBoardOfTeam(Position& position, int team);
// Kingdom Frozen: the pieces stay as obstacles; moat and keep turn neutral.
void FreezePieces(Position& position, int team);
// The one of the three above that the position's kingCaptureRule calls for.
void ApplyFate(Position& position, int fallenTeam, int captorTeam);

// Sets winner and coWinner when a side has won; true then.
bool VictoryTest(Position& position);

}  // namespace varkesh
