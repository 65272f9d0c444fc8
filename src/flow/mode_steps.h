// The steps of the game modes and the blocks they share; RunPass picks one
// step a pass.
#pragma once

#include "flow/game.h"
#include "flow/game_view.h"
#include "flow/outside.h"

namespace varkesh {

// The board and dungeons when they changed, with the history marks.
void DrawBlock(Game& game, GameView& view);
// The back buffer to the screen, once anything has been drawn.
void ShowBlock(const Game& game, GameView& view);
// A hint for a player who has waited more than 10 seconds.
void HintBlock(Game& game, Outside& outside, GameView& view, Hint hint);
// Tells the other machines of the selection and the mode: GUPM, then GUGS.
void Mirror(const Game& game, Outside& outside);
// Marks the moveable pieces of currentTeam afresh.
void Relist(Game& game, bool forStrobe);

void StepNoGame(Game& game, Outside& outside, GameView& view);
void StepChoosePiece(Game& game, Outside& outside, GameView& view);
void StepChooseDestination(Game& game, Outside& outside, GameView& view);
void StepConfirmMove(Game& game, Outside& outside, GameView& view);
void StepGameOver(Game& game, GameView& view);
void StepTitle(Game& game, GameView& view);
void StepVictorySetUp(Game& game, Outside& outside, GameView& view);
void StepVictory(Game& game, Outside& outside, GameView& view);
void StepComputerThinks(Game& game, Outside& outside, GameView& view);
void StepComputerMoves(Game& game, Outside& outside, GameView& view);

}  // namespace varkesh
