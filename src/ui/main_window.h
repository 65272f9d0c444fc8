// The one window of the game: three labels on top, the board view under
// them, and the menu bar. It turns menu commands into calls of the logic and
// holds no game logic of its own.
#pragma once

#include <QMainWindow>
#include <functional>
#include <map>
#include <memory>

#include "flow/game.h"
#include "flow/outside.h"
#include "ui/board_turn.h"
#include "ui/during_search.h"
#include "ui/qt_outside.h"

class QAction;
class QLabel;
class QMenu;

namespace varkesh {

class MoveListView;
class NetPlaySession;
class RecordCommands;
class ViewWidget;

// The chapters of the local help that stand in for the game's web pages
// (home, message board, finding opponents) until the game has a site.
struct HelpChapters {
  static constexpr const char* kHome = "board";
  static constexpr const char* kMessageBoard = "netplay";
  static constexpr const char* kFindOpponents = "opponents";
};

class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  MainWindow(Game& game, const DesktopServices& services);
  ~MainWindow() override;

  QtOutside& outside() { return *outside_; }
  const Game& game() const { return game_; }
  // A file or web page in the system's default application.
  void OpenDocument(const std::string& pathOrAddress);
  // A file of the program's folder, such as "ReadMe.txt".
  void OpenProgramFile(const char* name);
  // A chapter of the help page, by its anchor.
  void OpenHelpChapter(const char* chapter);
  // The folder where the logs are kept.
  void OpenLogFolder();
  // The title screen, over whatever the player was doing.
  void ShowAbout();
  ViewWidget& view() { return *view_; }
  QLabel& gameDescriptionLabel() { return *gameDescription_; }
  QLabel& turnLabel() { return *turn_; }
  QLabel& pieceLabel() { return *piece_; }

  QAction& menuAction(Menu menu) const { return *menus_.at(menu); }
  // The Options menu's "Turn Board": what the player chose, and the check
  // mark on the choice as it stands for the present game.
  TurnChoice ChosenTurn() const { return chosenTurn_; }
  void SetChosenTurn(TurnChoice choice);
  void MarkTurnChoice(TurnChoice effective);
  QAction& turnEntry(TurnChoice choice) const { return *turnEntries_.at(choice); }
  // The Options menu's "Computer Thinking Time": the Master's time a move,
  // one of the times the menu offers.
  int ThinkingTimeMs() const { return thinkingTimeMs_; }
  // Any other time is taken as the default.
  void SetThinkingTime(int ms);
  QAction& thinkingTimeEntry(int ms) const { return *thinkingEntries_.at(ms); }
  void SetMenuEnabled(Menu menu, bool enabled);
  bool IsMenuChecked(Menu menu) const;
  // Only for the option entries; History entries uncheck their sisters.
  void SetMenuChecked(Menu menu, bool checked);

  // True while a menu command runs: its dialogs hold the main loop, as the
  // loop does not advance inside an event.
  bool CommandRunning() const { return commandDepth_ > 0; }

  // True when command was held back for a running search.
  bool HoldDuringSearch(DuringSearch policy, std::function<void()> command);
  // Runs the command held back, once no search runs.
  void RunHeldCommand();

  MoveListView& moveList() { return *moveList_; }
  RecordCommands& recordCommands() { return *records_; }
  // Places the labels, the board view and the move list in the inner area.
  void LayOutInnerArea();

  // The open NetPlay session, or null.
  NetPlaySession* netPlay() { return netPlay_.get(); }
  // As the program ends: the session closes without a question.
  void EndNetPlay();

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // The error log's name for this window's handlers.
  static constexpr const char* kModule = "frmMain";
  static constexpr const char* kHelpPage = "help/help.htm";

  void PlaceOnScreen();
  void BuildMenus();
  void BuildGameMenu();
  void BuildNetPlayMenu();
  void BuildOptionsMenu();
  void BuildTurnBoardMenu(QMenu* options);
  void BuildThinkingTimeMenu(QMenu* options);
  void BuildResignMenu();
  void BuildHelpMenu();
  QMenu* AddMenu(const char* objectName, const char* text, Menu id);
  QAction* AddEntry(QMenu* menu, const char* objectName, const char* text,
                    const QKeySequence& key = {});
  // An entry whose handler runs under the error handler, with the main loop
  // held while it runs.
  QAction* AddCommand(QMenu* menu, const char* objectName, const char* text,
                      const QKeySequence& key, std::function<void()> body,
                      DuringSearch duringSearch = DuringSearch::Run);
  // The connect dialog for role 1 (host) or 3 (client), then the session.
  void OpenNetPlay(int role);

  Game& game_;
  DesktopServices services_;
  std::unique_ptr<QtOutside> outside_;
  QLabel* gameDescription_ = nullptr;
  QLabel* turn_ = nullptr;
  QLabel* piece_ = nullptr;
  ViewWidget* view_ = nullptr;
  MoveListView* moveList_ = nullptr;
  std::unique_ptr<RecordCommands> records_;
  std::map<Menu, QAction*> menus_;
  std::map<TurnChoice, QAction*> turnEntries_;
  TurnChoice chosenTurn_ = TurnChoice::Unchosen;
  std::map<int, QAction*> thinkingEntries_;
  int thinkingTimeMs_ = 0;
  int commandDepth_ = 0;
  std::function<void()> held_;
  std::unique_ptr<NetPlaySession> netPlay_;
};

}  // namespace varkesh
