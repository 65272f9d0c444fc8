#include "flow/mode_steps.h"
#include "flow/new_game.h"

namespace varkesh {

namespace {

constexpr int kFlagFrames = 4;
constexpr double kWinnerFlagPeriod = 0.1;
constexpr double kCoWinnerFlagPeriod = 0.15;

// Each flag waves at its own pace, with frames picked at random.
int WaveFlag(Game& game, std::size_t flag, double now, double period) {
  if (now - game.turn.flagTimers[flag] > period) {
    game.turn.flagFrames[flag] = game.random.Below(kFlagFrames);
    game.turn.flagTimers[flag] = now;
  }
  return game.turn.flagFrames[flag];
}

}  // namespace

void StepNoGame(Game& game, Outside& outside, GameView& view) {
  if (game.turn.offerNewGame) {
    game.turn.offerNewGame = false;
    if (game.net.netRole != kNetClient) NewGameCommand(game, outside);
    return;
  }
  view.DrawBoardWithPieces(game);
  game.view.boardChanged = false;
  ShowBlock(game, view);
  // A click on the empty board offers the dialog again after a cancel.
  if (game.view.clickPending) {
    game.view.clickPending = false;
    game.turn.offerNewGame = true;
  }
}

void StepGameOver(Game& game, GameView& view) {
  DrawBlock(game, view);
  ShowBlock(game, view);
  game.view.clickPending = false;
}

void StepTitle(Game& game, GameView& view) {
  if (!game.turn.titleLoaded) {
    view.LoadTitle();
    view.ShowTitle();
    game.turn.titleLoaded = true;
    return;
  }
  view.ShowTitle();
  if (!game.view.clickPending) return;
  game.view.clickPending = false;
  view.ClearTitle();
  game.turn.gameMode = game.turn.modeAfterTitle;
  game.view.viewChanged = true;
  game.view.boardChanged = true;
  game.turn.titleLoaded = false;
}

void StepVictorySetUp(Game& game, Outside& outside, GameView& view) {
  outside.ShowPauseButton(false);
  game.turn.paused = false;
  game.view.clickPending = false;
  view.DrawVictory(game);
  game.turn.gameMode = ModeVictory;
  game.turn.flagTimers = {0.0, 0.0};
}

void StepVictory(Game& game, Outside& outside, GameView& view) {
  double now = outside.Now();
  int winnerFrame = WaveFlag(game, 0, now, kWinnerFlagPeriod);
  int coWinnerFrame =
      game.match.position.coWinner > 0 ? WaveFlag(game, 1, now, kCoWinnerFlagPeriod) : -1;
  view.DrawVictoryFlags(game, winnerFrame, coWinnerFrame);
  view.ShowViewport();
  if (game.view.clickPending) {
    game.view.clickPending = false;
    game.turn.gameMode = ModeGameOver;
  }
}

}  // namespace varkesh
