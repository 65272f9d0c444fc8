#include "flow/main_loop.h"

#include "flow/error_handler.h"
#include "flow/mode_steps.h"
#include "flow/turn.h"

namespace varkesh {

namespace {

constexpr double kHintDelay = 10.0;

void RunModeStep(Game& game, Outside& outside, GameView& view, int mode) {
  switch (mode) {
    case ModeNoGame:
      return StepNoGame(game, outside, view);
    case ModeChoosePiece:
      return StepChoosePiece(game, outside, view);
    case ModeChooseDestination:
      return StepChooseDestination(game, outside, view);
    case ModeConfirmMove:
      return StepConfirmMove(game, outside, view);
    case ModeGameOver:
      return StepGameOver(game, view);
    case ModeTitle:
      return StepTitle(game, view);
    case ModeVictorySetUp:
      return StepVictorySetUp(game, outside, view);
    case ModeVictory:
      return StepVictory(game, outside, view);
    case ModeComputerThinks:
      return StepComputerThinks(game, outside, view);
    case ModeComputerMoves:
      return StepComputerMoves(game, outside, view);
    default:
      return;
  }
}

}  // namespace

void DrawBlock(Game& game, GameView& view) {
  view.DrawBoardWithPieces(game);
  if (game.view.boardChanged) view.ShowHistory(game);
  view.DrawDungeons(game);
  game.view.boardChanged = false;
}

void ShowBlock(const Game& game, GameView& view) {
  if (game.view.viewChanged) view.ShowViewport();
}

void HintBlock(Game& game, Outside& outside, GameView& view, Hint hint) {
  if (!outside.IsMenuChecked(Menu::OptionsHints) || game.turn.turnElapsed <= kHintDelay) return;
  view.DrawHint(game, hint);
  game.view.viewChanged = true;
}

void Mirror(const Game& game, Outside& outside) {
  if (NetLink* link = outside.Link()) link->TellSelection(game);
}

void Relist(Game& game, bool forStrobe) {
  game.view.boardChanged = true;
  MarkMoveablePieces(game, forStrobe);
}

void RunPass(Game& game, Outside& outside, GameView& view) {
  view.UpdateFrameRate();
  view.AdvanceStrobes();
  double now = outside.Now();
  if (game.turn.turnClock == 0.0) game.turn.turnClock = now;
  game.turn.turnElapsed = now - game.turn.turnClock;
  // Read once: an event inside the step may change the mode.
  int mode = game.turn.gameMode;
  Guarded(outside, "modVarkesh", "Main", [&] { RunModeStep(game, outside, view, mode); });
}

}  // namespace varkesh
