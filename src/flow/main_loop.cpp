#include "flow/main_loop.h"

#include "core/rules.h"
#include "flow/error_handler.h"
#include "flow/mode_steps.h"

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
  if (game.boardChanged) view.ShowHistory(game);
  view.DrawDungeons(game);
  game.boardChanged = false;
}

void ShowBlock(const Game& game, GameView& view) {
  if (game.viewChanged) view.ShowViewport();
}

void HintBlock(Game& game, Outside& outside, GameView& view, Hint hint) {
  if (!outside.IsMenuChecked(Menu::OptionsHints) || game.turnElapsed <= kHintDelay) return;
  view.DrawHint(game, hint);
  game.viewChanged = true;
}

void Mirror(const Game& game, Outside& outside) {
  if (game.netRole != kNetHosting && game.netRole != kNetClient) return;
  std::string selection = "GUPM}" + std::to_string(game.moveFromX) + kFieldSeparator +
                          std::to_string(game.moveFromY) + kFieldSeparator +
                          std::to_string(game.moveToX) + kFieldSeparator +
                          std::to_string(game.moveToY);
  std::string mode = "GUGS}" + std::to_string(game.gameMode);
  for (const std::string& message : {selection, mode}) {
    if (game.netRole == kNetHosting)
      outside.SendToAll(message, 0);
    else
      outside.SendToClient(0, message);
  }
}

void Relist(Game& game, bool forStrobe) {
  game.boardChanged = true;
  ClearMarks(game);
  ClearMoveablePieces(game);
  FindMoveablePieces(game, game.currentTeam, forStrobe, false);
}

void RunPass(Game& game, Outside& outside, GameView& view) {
  view.UpdateFrameRate();
  view.AdvanceStrobes();
  double now = outside.Now();
  if (game.turnClock == 0.0) game.turnClock = now;
  game.turnElapsed = now - game.turnClock;
  // Read once: an event inside the step may change the mode.
  int mode = game.gameMode;
  Guarded(outside, "modVarkesh", "Main", [&] { RunModeStep(game, outside, view, mode); });
}

}  // namespace varkesh
