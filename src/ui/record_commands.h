// The window's commands over the course of the game: Take Back Move and
// Redo, Export Record and Import Record in the Game menu, Show Move List in
// the Options menu, and the move list they share.
#pragma once

#include <QObject>
#include <QTimer>

#include "flow/game.h"
#include "flow/takeback.h"
#include "ui/during_search.h"

class QAction;
class QMenu;

namespace varkesh {

class MainWindow;
class MoveListView;
class QtOutside;

class RecordCommands : public QObject {
  Q_OBJECT

 public:
  RecordCommands(Game& game, QtOutside& outside, MainWindow& window, MoveListView& list);

  void AddGameEntries(QMenu* menu);
  void AddOptionsEntries(QMenu* menu);

  QAction& TakeBackAction() { return *takeBack_; }
  QAction& RedoAction() { return *redo_; }
  QAction& ShowListAction() { return *showList_; }
  bool ListShown() const;

  // The entries enabled as the game allows, the list in step with it.
  void Refresh();

 protected:
  // A click on the board while browsing returns to the game, and goes no further.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QAction* AddCommand(QMenu* menu, const char* objectName, const char* text,
                      const QKeySequence& key, std::function<void()> body,
                      DuringSearch duringSearch = DuringSearch::Run);
  void ExportRecord();
  void ImportRecord();
  void ShowList(bool shown);

  Game& game_;
  QtOutside& outside_;
  MainWindow& window_;
  MoveListView& list_;
  TakebackState takeback_;
  QAction* takeBack_ = nullptr;
  QAction* redo_ = nullptr;
  QAction* import_ = nullptr;
  QAction* showList_ = nullptr;
  QTimer refresh_;
};

}  // namespace varkesh
