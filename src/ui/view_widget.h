// The board view: a box with a 2-pixel border whose inner area shows what
// the drawing layer made of the back buffer, and turns mouse clicks into
// board squares. The pause button and the frame rate label sit inside it.
#pragma once

#include <QFrame>
#include <functional>
#include <utility>

#include "flow/game.h"
#include "engine/gdi.h"

class QLabel;
class QPushButton;

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

 private:
  void TogglePause();

  Game& game_;
  std::function<const QImage&()> screen_;
  QPushButton* pause_ = nullptr;
  QLabel* frameRate_ = nullptr;
};

}  // namespace varkesh
