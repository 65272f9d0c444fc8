#include "flow/accept_move.h"
#include "flow/mode_steps.h"
#include "flow/turn.h"

namespace varkesh {

namespace {

bool SeatIsLocal(const Game& game) {
  return game.net.netRole == kNetNone ||
         TeamEntry(game.net.seatNode, game.match.position.currentTeam, -1) == game.net.myNodeId;
}

// Clicks of another machine's seat are not ours to act on, and a click off
// the board is nobody's.
bool TakeTurnOnThisMachine(Game& game, Outside& outside) {
  bool local = SeatIsLocal(game);
  if (!local || !Board::InBounds(game.view.clickX, game.view.clickY))
    game.view.clickPending = false;
  outside.SetMenuEnabled(Menu::Resign, local);
  return local;
}

bool TakeLeftClick(Game& game) {
  if (!game.view.clickPending || !game.view.clickLeft) return false;
  game.view.clickPending = false;
  return true;
}

int ClickedMark(const Game& game) {
  return game.view.MarkAt(game.view.clickX, game.view.clickY);
}

void ShowChoice(Game& game, Outside& outside) {
  game.view.boardChanged = true;
  MarkMoveablePieces(game, false);
  MarkDestinations(game, game.turn.moveFromX, game.turn.moveFromY);
  game.turn.turnClock = outside.Now();
  Mirror(game, outside);
}

void ChoosePiece(Game& game, Outside& outside) {
  game.turn.moveFromX = game.view.clickX;
  game.turn.moveFromY = game.view.clickY;
  ShowPiece(game, outside, game.turn.moveFromX, game.turn.moveFromY, 0, 0);
  game.turn.gameMode = ModeChooseDestination;
  ShowChoice(game, outside);
}

void ChooseDestination(Game& game, Outside& outside) {
  game.turn.moveToX = game.view.clickX;
  game.turn.moveToY = game.view.clickY;
  ShowPiece(game, outside, game.turn.moveFromX, game.turn.moveFromY, game.turn.moveToX,
            game.turn.moveToY);
  game.turn.gameMode = ModeConfirmMove;
  ShowChoice(game, outside);
}

void CancelSelection(Game& game, Outside& outside) {
  game.turn.moveFromX = game.turn.moveFromY = game.turn.moveToX = game.turn.moveToY = 0;
  game.turn.gameMode = ModeChoosePiece;
  Relist(game, true);
  game.turn.turnClock = outside.Now();
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
  view.DrawSelection(game, game.turn.moveFromX, game.turn.moveFromY, true);
  HintBlock(game, outside, view, Hint::ChooseMove);
  ShowBlock(game, view);
  if (!TakeTurnOnThisMachine(game, outside)) return;
  HandleSelectionClick(game, outside);
}

void StepConfirmMove(Game& game, Outside& outside, GameView& view) {
  DrawBlock(game, view);
  view.DrawMove(game, game.turn.moveFromX, game.turn.moveFromY, game.turn.moveToX,
                game.turn.moveToY, true);
  HintBlock(game, outside, view, Hint::Confirm);
  ShowBlock(game, view);
  if (!TakeTurnOnThisMachine(game, outside)) return;
  HandleSelectionClick(game, outside);
  if (!game.view.clickPending || !game.view.clickRight) return;
  game.view.clickPending = false;
  // Only a right click on the chosen destination confirms the move.
  if (game.view.clickX == game.turn.moveToX && game.view.clickY == game.turn.moveToY)
    AcceptMove(game, outside);
}

}  // namespace varkesh
