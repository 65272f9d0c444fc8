// The computer's near twin of AcceptMove. Every machine of a session runs it
// for the same move, so it draws no random numbers and sends nothing.
#include "ai/computer.h"
#include "core/pawn_options.h"
#include "core/play_move.h"
#include "core/turn.h"

namespace varkesh {
void CarryOutAImove(Game& game, Outside& outside) {
  game.gameSaved = false;
  game.boardChanged = true;
  PlayMoveOnBoard(game, outside, MaterialNotice::HumanOnly);
  // Even a move that has just ended the game gets its pawn option.
  if (PawnOptionsDue(game, game.moveToX, game.moveToY)) AIpawnOptions(game, outside);
  if (game.gameMode != ModeVictorySetUp) PassTurn(game, outside);
}

}  // namespace varkesh
