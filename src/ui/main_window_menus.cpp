// The main window's menus: building them, and the way their commands run
// beside the main loop and a computer's search.
#include <QActionGroup>
#include <QMenuBar>

#include "flow/error_handler.h"
#include "flow/new_game.h"
#include "flow/resign.h"
#include "flow/save_load.h"
#include "flow/thinking_time.h"
#include "ui/main_window.h"
#include "ui/record_commands.h"

namespace varkesh {

namespace {

// A menu entry with a check mark.
struct CheckableEntry {
  Menu id;
  const char* objectName;
  const char* text;
  QKeySequence key;
};

}  // namespace

QAction* MainWindow::AddEntry(QMenu* menu, const char* objectName, const char* text,
                              const QKeySequence& key) {
  QAction* action = menu->addAction(text);
  action->setObjectName(objectName);
  if (!key.isEmpty()) action->setShortcut(key);
  return action;
}

QAction* MainWindow::AddCommand(QMenu* menu, const char* objectName, const char* text,
                                const QKeySequence& key, std::function<void()> body,
                                DuringSearch duringSearch) {
  QAction* action = AddEntry(menu, objectName, text, key);
  // Named as the error log names the handler: "mnuGameNew.Click".
  const std::string sub = std::string(objectName) + ".Click";
  auto run = [this, sub, body = std::move(body)] {
    ++commandDepth_;
    Guarded(*outside_, kModule, sub.c_str(), body);
    --commandDepth_;
  };
  connect(action, &QAction::triggered, this, [this, run, duringSearch] {
    if (!HoldDuringSearch(duringSearch, run)) run();
  });
  return action;
}

bool MainWindow::HoldDuringSearch(DuringSearch policy, std::function<void()> command) {
  if (policy == DuringSearch::Run || !game_.turn.searching) return false;
  // The last command chosen is the one the player wants.
  held_ = std::move(command);
  if (policy == DuringSearch::StopIt) game_.turn.searchAbandoned = true;
  return true;
}

void MainWindow::RunHeldCommand() {
  if (!held_ || game_.turn.searching) return;
  const std::function<void()> command = std::move(held_);
  held_ = nullptr;
  command();
}

QMenu* MainWindow::AddMenu(const char* objectName, const char* text, Menu id) {
  QMenu* menu = menuBar()->addMenu(text);
  menu->setObjectName(objectName);
  menus_[id] = menu->menuAction();
  return menu;
}

void MainWindow::BuildMenus() {
  BuildGameMenu();
  BuildNetPlayMenu();
  BuildOptionsMenu();
  BuildResignMenu();
  BuildHelpMenu();
}

void MainWindow::BuildGameMenu() {
  QMenu* menu = AddMenu("mnuGame", "&Game", Menu::Game);
  menus_[Menu::GameNew] = AddCommand(
      menu, "mnuGameNew", "&New Game", Qt::CTRL | Qt::Key_N,
      [this] { NewGameCommand(game_, *outside_); }, DuringSearch::StopIt);
  menu->addSeparator()->setObjectName("mnuGameUL1");
  menus_[Menu::GameLoad] = AddCommand(
      menu, "mnuGameLoad", "&Load Game", Qt::CTRL | Qt::Key_L,
      [this] { LoadGameCommand(game_, *outside_); }, DuringSearch::StopIt);
  menus_[Menu::GameSave] = AddCommand(menu, "mnuGameSave", "&Save Game", Qt::CTRL | Qt::Key_S,
                                      [this] { SaveGameCommand(game_, *outside_); });
  menu->addSeparator()->setObjectName("mnuGameUL2");
  records_->AddGameEntries(menu);
  menu->addSeparator()->setObjectName("mnuGameUL3");
  connect(AddEntry(menu, "mnuGameExit", "E&xit"), &QAction::triggered, this, &QWidget::close);
}

void MainWindow::BuildNetPlayMenu() {
  QMenu* menu = AddMenu("mnuNetPlay", "&NetPlay", Menu::NetPlay);
  AddCommand(
      menu, "mnuNetPlayHost", "&Host", Qt::CTRL | Qt::Key_H,
      [this] { OpenNetPlay(kNetHostDialog); }, DuringSearch::StopIt);
  AddCommand(
      menu, "mnuNetPlayConnect", "&Connect", Qt::CTRL | Qt::Key_C,
      [this] { OpenNetPlay(kNetConnectDialog); }, DuringSearch::StopIt);
}

void MainWindow::BuildOptionsMenu() {
  QMenu* menu = AddMenu("mnuOptions", "&Options", Menu::Options);
  const CheckableEntry options[] = {
      {Menu::OptionsSfx, "mnuOptionsSfx", "Sound E&ffects", Qt::CTRL | Qt::Key_F},
      {Menu::OptionIndicator, "mnuOptionIndicator", "Selection &Indicator", Qt::CTRL | Qt::Key_I},
      {Menu::OptionsShowComp, "mnuOptionsShowComp", "&Preview Computer Moves",
       Qt::CTRL | Qt::Key_P},
      {Menu::OptionsHints, "mnuOptionsHints", "&User Interface Hints", Qt::CTRL | Qt::Key_U},
  };
  for (const auto& option : options) {
    QAction* action = AddEntry(menu, option.objectName, option.text, option.key);
    action->setCheckable(true);
    action->setChecked(true);
    menus_[option.id] = action;
  }
  BuildThinkingTimeMenu(menu);
  // The strobe shows or goes at once, so the board is drawn anew.
  connect(menus_[Menu::OptionIndicator], &QAction::triggered, this,
          [this] { game_.view.boardChanged = true; });

  records_->AddOptionsEntries(menu);
  menu->addSeparator()->setObjectName("mnuOptionsUL1");
  auto* history = new QActionGroup(this);
  history->setExclusive(true);
  const CheckableEntry histories[] = {
      {Menu::History0, "mnuHistory0", "Show N&o Move History", Qt::Key_F2},
      {Menu::History1, "mnuHistory1", "Show &1 Move History", Qt::Key_F3},
      {Menu::History3, "mnuHistory3", "Show &3 Moves History", Qt::Key_F4},
  };
  for (const auto& entry : histories) {
    QAction* action = AddEntry(menu, entry.objectName, entry.text, entry.key);
    action->setCheckable(true);
    history->addAction(action);
    menus_[entry.id] = action;
    connect(action, &QAction::triggered, this, [this] { game_.view.boardChanged = true; });
  }
  menus_[Menu::History0]->setChecked(true);
  BuildTurnBoardMenu(menu);
}

void MainWindow::BuildTurnBoardMenu(QMenu* options) {
  options->addSeparator()->setObjectName("mnuOptionsUL2");
  QMenu* menu = options->addMenu("&Turn Board");
  menu->setObjectName("mnuTurnBoard");
  auto* group = new QActionGroup(this);
  group->setExclusive(true);
  struct TurnEntry {
    TurnChoice choice;
    const char* objectName;
    const char* text;
  };
  const TurnEntry entries[] = {
      {TurnChoice::White, "mnuTurnWhite", "&White"}, {TurnChoice::Blue, "mnuTurnBlue", "&Blue"},
      {TurnChoice::Black, "mnuTurnBlack", "Blac&k"}, {TurnChoice::Red, "mnuTurnRed", "&Red"},
      {TurnChoice::Mine, "mnuTurnMine", "&Mine"},
  };
  for (const auto& entry : entries) {
    QAction* action = AddEntry(menu, entry.objectName, entry.text);
    action->setCheckable(true);
    group->addAction(action);
    turnEntries_[entry.choice] = action;
    connect(action, &QAction::triggered, this,
            [this, choice = entry.choice] { SetChosenTurn(choice); });
  }
  MarkTurnChoice(EffectiveChoice(game_, chosenTurn_));
}

void MainWindow::BuildThinkingTimeMenu(QMenu* options) {
  QMenu* menu = options->addMenu("Computer Thin&king Time");
  menu->setObjectName("mnuThinkingTime");
  auto* group = new QActionGroup(this);
  group->setExclusive(true);
  for (int ms : kThinkingTimeChoicesMs) {
    QAction* action = menu->addAction(QString::fromStdString("&" + ThinkingTimeCaption(ms)));
    action->setObjectName("mnuThinking" + QString::number(ms));
    action->setCheckable(true);
    group->addAction(action);
    thinkingEntries_[ms] = action;
    connect(action, &QAction::triggered, this, [this, ms] { SetThinkingTime(ms); });
  }
  SetThinkingTime(0);
}

void MainWindow::SetThinkingTime(int ms) {
  thinkingTimeMs_ = ThinkingTimeChoice(ms);
  thinkingEntries_.at(thinkingTimeMs_)->setChecked(true);
}

void MainWindow::BuildResignMenu() {
  QMenu* menu = AddMenu("mnuResign", "&Resign", Menu::Resign);
  AddCommand(menu, "mnuResignResign", "&Resign from Game", Qt::CTRL | Qt::Key_R,
             [this] { DoResign(game_, *outside_, -1); });
  SetMenuEnabled(Menu::Resign, false);
}

void MainWindow::BuildHelpMenu() {
  QMenu* menu = AddMenu("mnuHelp", "&Help", Menu::Help);
  AddCommand(menu, "mnuHelpHelp", "Varkesh Help", Qt::Key_F1,
             [this] { OpenProgramFile(kHelpPage); });
  menu->addSeparator()->setObjectName("mnuHelpUL1");
  AddCommand(menu, "mnuHelpReadMe", "View &ReadMe.txt File", {},
             [this] { OpenProgramFile("ReadMe.txt"); });
  AddCommand(menu, "mnuHelpLogFolder", "Open &Log Folder", {}, [this] { OpenLogFolder(); });
  menu->addSeparator()->setObjectName("mnuHelpUL3");
  AddCommand(menu, "mnuHelpWebsite", "Varkesh &Webpage", {},
             [this] { OpenHelpChapter(HelpChapters::kHome); });
  AddCommand(menu, "mnuHelpMsgBrd", "&Message Board", {},
             [this] { OpenHelpChapter(HelpChapters::kMessageBoard); });
  menu->addSeparator()->setObjectName("mnuHelpUL2");
  AddCommand(menu, "mnuHelpGamesPub", "Find &Opponents", {},
             [this] { OpenHelpChapter(HelpChapters::kFindOpponents); });
  menu->addSeparator()->setObjectName("mnuHelpUL4");
  // The title screen shows once the computer has moved.
  connect(AddEntry(menu, "mnuHelpAbout", "&About Varkesh", Qt::CTRL | Qt::Key_A),
          &QAction::triggered, this, [this] {
            if (!HoldDuringSearch(DuringSearch::AfterIt, [this] { ShowAbout(); })) ShowAbout();
          });
}

void MainWindow::SetMenuEnabled(Menu menu, bool enabled) {
  menus_.at(menu)->setEnabled(enabled);
}

bool MainWindow::IsMenuChecked(Menu menu) const {
  return menus_.at(menu)->isChecked();
}

void MainWindow::SetMenuChecked(Menu menu, bool checked) {
  menus_.at(menu)->setChecked(checked);
}

}  // namespace varkesh
