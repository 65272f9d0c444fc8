// The fate of a fallen kingdom, and the end of the game.
#pragma once

#include "core/game.h"

namespace varkesh {

// Kingdom Gained: the gainer takes the pieces, moat and keep.
void SwapTeams(Game& game, int oldTeam, int newTeam);
// Kingdom Lost: the pieces leave the board; moat and keep turn neutral.
void ClearBoardOfTeam(Game& game, int team);
// Kingdom Frozen: the pieces stay as obstacles; moat and keep turn neutral.
void FreezePieces(Game& game, int team);
// The one of the three above that game.kingCaptureRule calls for.
void ApplyFate(Game& game, int fallenTeam, int captorTeam);

// Sets winner, coWinner and ModeVictorySetUp when a side has won; true then.
bool VictoryTest(Game& game);

}  // namespace varkesh
