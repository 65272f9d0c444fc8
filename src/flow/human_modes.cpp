#include "core/labels.h"
#include "core/rules.h"
#include "flow/accept_move.h"
#include "flow/mode_steps.h"

namespace varkesh {

namespace {

bool SeatIsLocal(const Game& game) {
  return game.netRole == kNetNone ||
         TeamEntry(game.seatNode, game.currentTeam, -1) == game.myNodeId;
}

// Clicks of another machine's seat are not ours to act on, and a click off
// the board is nobody's.
bool TakeTurnOnThisMachine(Game& game, Outside& outside) {
  bool local = SeatIsLocal(game);
  if (!local || !Board::InBounds(game.clickX, game.clickY)) game.clickPending = false;
  outside.SetMenuEnabled(Menu::Resign, local);
  return local;
}

bool TakeLeftClick(Game& game) {
  if (!game.clickPending || !game.clickLeft) return false;
  game.clickPending = false;
  return true;
}

int ClickedMark(const Game& game) {
  return game.board.at(game.clickX, game.clickY).mark;
}

void MarkDestinations(Game& game, Outside& outside) {
  Relist(game, false);
  FindMoves(game, game.moveFromX, game.moveFromY, true, false);
  game.turnClock = outside.Now();
  Mirror(game, outside);
}

void ChoosePiece(Game& game, Outside& outside) {
  game.moveFromX = game.clickX;
  game.moveFromY = game.clickY;
  ShowPiece(game, outside, game.moveFromX, game.moveFromY, 0, 0);
  game.gameMode = ModeChooseDestination;
  MarkDestinations(game, outside);
}

void ChooseDestination(Game& game, Outside& outside) {
  game.moveToX = game.clickX;
  game.moveToY = game.clickY;
  ShowPiece(game, outside, game.moveFromX, game.moveFromY, game.moveToX, game.moveToY);
  game.gameMode = ModeConfirmMove;
  MarkDestinations(game, outside);
}

void CancelSelection(Game& game, Outside& outside) {
  game.moveFromX = game.moveFromY = game.moveToX = game.moveToY = 0;
  game.gameMode = ModeChoosePiece;
  Relist(game, true);
  game.turnClock = outside.Now();
  Mirror(game, outside);
}

// Modes 2 and 3: another piece, a destination, or anything else to cancel.
void HandleSelectionClick(Game& game, Outside& outside) {
  if (!TakeLeftClick(game)) return;
  switch (ClickedMark(game)) {
    case kMarkMoveable:
      return ChoosePiece(game, outside);
    case kMarkDestination:
      return ChooseDestination(game, outside);
    default:
      return CancelSelection(game, outside);
  }
}

}  // namespace

void StepChoosePiece(Game& game, Outside& outside, GameView& view) {
  DrawBlock(game, view);
  view.DrawSquares(game);
  HintBlock(game, outside, view, Hint::ChoosePiece);
  ShowBlock(game, view);
  if (!TakeTurnOnThisMachine(game, outside)) return;
  // A right click is left pending here: only a left click chooses.
  if (TakeLeftClick(game) && ClickedMark(game) == kMarkMoveable) ChoosePiece(game, outside);
}

void StepChooseDestination(Game& game, Outside& outside, GameView& view) {
  DrawBlock(game, view);
  view.DrawSquares(game);
  view.DrawSelection(game, game.moveFromX, game.moveFromY, true);
  HintBlock(game, outside, view, Hint::ChooseMove);
  ShowBlock(game, view);
  if (!TakeTurnOnThisMachine(game, outside)) return;
  HandleSelectionClick(game, outside);
}

void StepConfirmMove(Game& game, Outside& outside, GameView& view) {
  DrawBlock(game, view);
  view.DrawMove(game, game.moveFromX, game.moveFromY, game.moveToX, game.moveToY, true);
  HintBlock(game, outside, view, Hint::Confirm);
  ShowBlock(game, view);
  if (!TakeTurnOnThisMachine(game, outside)) return;
  HandleSelectionClick(game, outside);
  if (!game.clickPending || !game.clickRight) return;
  game.clickPending = false;
  // Only a right click on the chosen destination confirms the move.
  if (game.clickX == game.moveToX && game.clickY == game.moveToY) AcceptMove(game, outside);
}

}  // namespace varkesh
