// The moves of the game beside the board, by round, one column per team in
// its colour. Clicking a move, or Left / Right / Home / End while the list
// has the focus, shows the position after it on the board without touching
// the game; End, or a click on the board, returns to the game.
#pragma once

#include <QTableWidget>
#include <functional>
#include <optional>

#include "core/record.h"
#include "flow/game.h"

namespace varkesh {

class BoardView;

class MoveListView : public QTableWidget {
  Q_OBJECT

 public:
  static constexpr int kWidth = 300;

  MoveListView(Game& game, QWidget* parent);

  // Brings the list in step with the game's record; the newest move shows.
  void Follow();

  // The position after the first plies events, on the board until Return.
  void Browse(int plies);
  void Return();
  bool Browsing() const { return browsed_.has_value(); }
  // The ply shown while browsing.
  int BrowsedPlies() const { return browsed_.value_or(PlyCount()); }
  int PlyCount() const { return static_cast<int>(shownRecord_.events.size()); }

  // Told what the board shows while browsing, and "" on the way back.
  std::function<void(const QString&)> showNote;

  // Draws the browsed position, once after each step.
  void DrawBrowsed(BoardView& view);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Rebuild();
  void SelectPly(int plies);
  QString NoteFor(int plies) const;

  Game& game_;
  Record shownRecord_;      // the record the rows were built from
  int describedPlies_ = 0;  // events that fit, which the rows show
  std::optional<int> browsed_;
  bool redraw_ = false;
};

}  // namespace varkesh
