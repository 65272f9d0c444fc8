#include "ai/computer.h"
#include "core/labels.h"
#include "core/resign.h"
#include "core/turn.h"
#include "flow/error_handler.h"
#include "flow/mode_steps.h"

namespace varkesh {

namespace {

constexpr double kPreviewWait = 0.4;
constexpr Menu kMenusLockedWhileThinking[] = {Menu::Game, Menu::Options, Menu::Resign, Menu::Help};

bool ChoosesComputerMoves(const Game& game) {
  return game.netRole == kNetNone || game.myNodeId == 0;
}

void WaitFor(Outside& outside, double seconds) {
  double start = outside.Now();
  while (outside.Now() - start <= seconds) outside.Yield();
}

void UnlockMenus(const Game& game, Outside& outside) {
  for (Menu menu : kMenusLockedWhileThinking) {
    bool enabled = menu != Menu::Resign || game.gameMode != ModeVictorySetUp;
    outside.SetMenuEnabled(menu, enabled);
  }
}

// A computer seat without a legal move gives up by the rule in force, so the
// game always goes on. A host tells its clients as a player's machine would.
void ResignForComputer(Game& game, Outside& outside) {
  std::vector<int> offers = ConcedeOffers(game);
  int concedeTeam =
      game.kingCaptureRule == kKingdomGained && !offers.empty() ? offers.front() : kNoTeam;
  Guarded(outside, "frmMain", "DoResign", [&] { DoResign(game, outside, concedeTeam); });
  if (game.netRole == kNetHosting) outside.SendToAll("GRES}" + std::to_string(concedeTeam), 0);
  UnlockMenus(game, outside);
}

void PreviewMove(Game& game, Outside& outside, GameView& view) {
  for (int round = 0; round < 2; ++round) {
    game.boardChanged = true;
    DrawBlock(game, view);
    view.DrawMove(game, game.moveFromX, game.moveFromY, game.moveToX, game.moveToY, true);
    ShowBlock(game, view);
    WaitFor(outside, kPreviewWait);
    game.boardChanged = true;
    DrawBlock(game, view);
    ShowBlock(game, view);
    WaitFor(outside, kPreviewWait);
    game.boardChanged = true;
  }
}

}  // namespace

void StepComputerThinks(Game& game, Outside& outside, GameView& view) {
  game.clickPending = false;
  DrawBlock(game, view);
  ShowBlock(game, view);
  if (!ChoosesComputerMoves(game)) return;

  for (Menu menu : kMenusLockedWhileThinking) outside.SetMenuEnabled(menu, false);
  int chosen = 0;
  Guarded(outside, "modVarkesh", "GetAImove", [&] { chosen = GetAImove(game, outside); });
  // The weighing marked this team's pieces on this machine alone; the other
  // machines of a session must hold the same board.
  ClearMarks(game);
  if (chosen < 1 || chosen > game.moveList.Count()) return ResignForComputer(game, outside);

  const MoveRec& move = game.moveList[chosen];
  game.moveFromX = move.fromX;
  game.moveFromY = move.fromY;
  game.moveToX = move.toX;
  game.moveToY = move.toY;
  ShowPiece(game, outside, game.moveFromX, game.moveFromY, game.moveToX, game.moveToY);
  game.gameMode = ModeComputerMoves;
  Mirror(game, outside);
}

void StepComputerMoves(Game& game, Outside& outside, GameView& view) {
  if (outside.IsMenuChecked(Menu::OptionsShowComp)) PreviewMove(game, outside, view);
  Guarded(outside, "modVarkesh", "CarryOutAImove", [&] { CarryOutAImove(game, outside); });
  // A move that failed half-way must not be tried again on every pass.
  if (game.gameMode == ModeComputerMoves) PassTurn(game, outside);
  if (ChoosesComputerMoves(game)) UnlockMenus(game, outside);
  game.clickPending = false;
  game.boardChanged = true;
  outside.GameEventDone();
}

}  // namespace varkesh
