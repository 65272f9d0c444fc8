#include "flow/mode_steps.h"
#include "flow/new_game.h"

namespace varkesh {

namespace {

constexpr int kFlagFrames = 4;
constexpr double kWinnerFlagPeriod = 0.1;
constexpr double kCoWinnerFlagPeriod = 0.15;

// Each flag waves at its own pace, with frames picked at random.
int WaveFlag(Game& game, std::size_t flag, double now, double period) {
  if (now - game.flagTimers[flag] > period) {
    game.flagFrames[flag] = game.random.Below(kFlagFrames);
    game.flagTimers[flag] = now;
  }
  return game.flagFrames[flag];
}

}  // namespace

void StepNoGame(Game& game, Outside& outside, GameView& view) {
  if (game.offerNewGame) {
    game.offerNewGame = false;
    if (game.netRole != kNetClient) NewGameCommand(game, outside);
    return;
  }
  view.DrawBoardWithPieces(game);
  game.boardChanged = false;
  ShowBlock(game, view);
  // A click on the empty board offers the dialog again after a cancel.
  if (game.clickPending) {
    game.clickPending = false;
    game.offerNewGame = true;
  }
}

void StepGameOver(Game& game, GameView& view) {
  DrawBlock(game, view);
  ShowBlock(game, view);
  game.clickPending = false;
}

void StepTitle(Game& game, GameView& view) {
  if (!game.titleLoaded) {
    view.LoadTitle();
    view.ShowTitle();
    game.titleLoaded = true;
    return;
  }
  view.ShowTitle();
  if (!game.clickPending) return;
  game.clickPending = false;
  view.ClearTitle();
  game.gameMode = game.modeAfterTitle;
  game.viewChanged = true;
  game.boardChanged = true;
  game.titleLoaded = false;
}

void StepVictorySetUp(Game& game, Outside& outside, GameView& view) {
  outside.ShowPauseButton(false);
  game.paused = false;
  game.clickPending = false;
  view.DrawVictory(game);
  game.gameMode = ModeVictory;
  game.flagTimers = {0.0, 0.0};
}

void StepVictory(Game& game, Outside& outside, GameView& view) {
  double now = outside.Now();
  int winnerFrame = WaveFlag(game, 0, now, kWinnerFlagPeriod);
  int coWinnerFrame = game.coWinner > 0 ? WaveFlag(game, 1, now, kCoWinnerFlagPeriod) : -1;
  view.DrawVictoryFlags(game, winnerFrame, coWinnerFrame);
  view.ShowViewport();
  if (game.clickPending) {
    game.clickPending = false;
    game.gameMode = ModeGameOver;
  }
}

}  // namespace varkesh
