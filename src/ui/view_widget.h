// The board view: a box with a 2-pixel border whose inner area shows what
// the drawing layer made of the back buffer, and turns mouse clicks into
// board squares. The pause button and the frame rate label sit inside it.
#pragma once

#include <QFrame>
#include <functional>
#include <utility>

#include "engine/gdi.h"
#include "flow/game.h"

class QLabel;
class QPushButton;
class QTimer;

namespace varkesh {

class ViewWidget : public QFrame {
  Q_OBJECT

 public:
  ViewWidget(Game& game, QWidget* parent);

  // The picture to paint, kept by the drawing layer at the inner size.
  void SetScreenImage(std::function<const QImage&()> screen) { screen_ = std::move(screen); }
  // How the drawing layer measures this view and asks for a repaint.
  ViewWindow AsViewWindow();
  // False while the player cannot see the view: nothing is drawn then.
  bool Seen() const;
  // The inner area in the screen's own pixels.
  QSize DevicePixels() const;

  // A line over the top of the board that goes by itself after a while.
  void ShowNotice(const QString& text);
  QLabel& NoticeLabel() { return *notice_; }

  QPushButton& PauseButton() { return *pause_; }
  QLabel& FrameRateLabel() { return *frameRate_; }
  // Keeps the caption in step with game.turn.paused, which the logic also sets.
  void SyncPauseCaption();

  // The square of a click at pixel position (pos) of an inner area of
  // innerSize pixels: the cell is innerSize / 17, rounded, and the click's
  // rounded position is divided by it. The last pixels give 17, off the board.
  static int SquareOfClick(double pos, int innerSize);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  void TogglePause();
  // A click of the mouse on a square of the game, as the logic takes it.
  void Click(int x, int y, bool left, bool right);
  // The keyboard's steps: the cursor, a click on its square, the next piece.
  void MoveCursor(int stepX, int stepY);
  void PressOnCursor(bool enter);
  void CancelSelection();
  void NextMoveablePiece(bool forward);
  void ShowCursor();

  Game& game_;
  std::function<const QImage&()> screen_;
  QPushButton* pause_ = nullptr;
  QLabel* frameRate_ = nullptr;
  QLabel* notice_ = nullptr;
  QTimer* noticeTimer_ = nullptr;
};

}  // namespace varkesh
