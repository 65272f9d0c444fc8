// The board played from the keyboard: every key becomes a step the mouse
// could take, so the modes, marks and NetPlay messages are the same.
#include <QKeyEvent>
#include <vector>

#include "core/geometry.h"
#include "ui/board_turn.h"
#include "ui/view_widget.h"

namespace varkesh {
namespace {

// A square off the diamond: a left click there cancels a selection.
constexpr SquarePoint kOffDiamond{0, 0};

bool Selecting(const Game& game) {
  return game.turn.gameMode == ModeChooseDestination || game.turn.gameMode == ModeConfirmMove;
}

bool InPlay(const Game& game) {
  return game.turn.gameMode == ModeChoosePiece || Selecting(game);
}

}  // namespace

void ViewWidget::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Left:
      return MoveCursor(-1, 0);
    case Qt::Key_Right:
      return MoveCursor(1, 0);
    case Qt::Key_Up:
      return MoveCursor(0, -1);
    case Qt::Key_Down:
      return MoveCursor(0, 1);
    case Qt::Key_Space:
      return PressOnCursor(false);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return PressOnCursor(true);
    case Qt::Key_Escape:
      return CancelSelection();
    case Qt::Key_Tab:
      return NextMoveablePiece(true);
    case Qt::Key_Backtab:
      return NextMoveablePiece(false);
    default:
      QFrame::keyPressEvent(event);
  }
}

void ViewWidget::ShowCursor() {
  ViewState& view = game_.view;
  if (!OnDiamond(view.cursorX, view.cursorY)) {
    view.cursorX = 8;
    view.cursorY = 8;
  }
  view.cursorShown = true;
  view.boardChanged = true;
}

void ViewWidget::MoveCursor(int stepX, int stepY) {
  ViewState& view = game_.view;
  if (!view.cursorShown) return ShowCursor();
  // The step is taken on the board as drawn; squares off the diamond are
  // passed over to the next one on it in that direction.
  SquarePoint drawn = DrawnSquare(view.cursorX, view.cursorY, view.bottomTeam);
  for (;;) {
    drawn = {drawn.x + stepX, drawn.y + stepY};
    if (!Board::InBounds(drawn.x, drawn.y)) return;
    const SquarePoint square = GameSquare(drawn.x, drawn.y, view.bottomTeam);
    if (OnDiamond(square.x, square.y)) {
      view.cursorX = square.x;
      view.cursorY = square.y;
      view.boardChanged = true;
      return;
    }
  }
}

void ViewWidget::PressOnCursor(bool enter) {
  ViewState& view = game_.view;
  if (!view.cursorShown) return ShowCursor();
  // Enter on the chosen destination confirms, as the right button does.
  const bool confirm = enter && game_.turn.gameMode == ModeConfirmMove &&
                       view.cursorX == game_.turn.moveToX && view.cursorY == game_.turn.moveToY;
  Click(view.cursorX, view.cursorY, !confirm, confirm);
}

void ViewWidget::CancelSelection() {
  if (Selecting(game_)) Click(kOffDiamond.x, kOffDiamond.y, true, false);
}

void ViewWidget::NextMoveablePiece(bool forward) {
  if (!InPlay(game_)) return;
  ViewState& view = game_.view;
  // The flashing pieces in reading order of the board as drawn.
  std::vector<SquarePoint> pieces;
  int at = -1;
  for (int y = 0; y < kBoardSide; ++y) {
    for (int x = 0; x < kBoardSide; ++x) {
      const SquarePoint square = GameSquare(x, y, view.bottomTeam);
      if (view.MarkAt(square.x, square.y) != kMarkMoveable) continue;
      if (view.cursorShown && square.x == view.cursorX && square.y == view.cursorY)
        at = static_cast<int>(pieces.size());
      pieces.push_back(square);
    }
  }
  if (pieces.empty()) return;
  const int count = static_cast<int>(pieces.size());
  const int next = at < 0 ? (forward ? 0 : count - 1) : (at + (forward ? 1 : count - 1)) % count;
  view.cursorX = pieces[static_cast<std::size_t>(next)].x;
  view.cursorY = pieces[static_cast<std::size_t>(next)].y;
  view.cursorShown = true;
  view.boardChanged = true;
}

}  // namespace varkesh
