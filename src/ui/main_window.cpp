#include "ui/main_window.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>

#include "core/resign.h"
#include "engine/general_engine.h"
#include "flow/error_handler.h"
#include "flow/new_game.h"
#include "flow/save_load.h"
#include "ui/qt_outside.h"
#include "ui/view_widget.h"
#include "ui/window_layout.h"

namespace varkesh {

namespace {

constexpr int kStartWidth = 620;
constexpr int kStartHeight = 700;
constexpr int kStartTop = 10;
const char* const kModule = "frmMain";

QLabel* NamedLabel(const char* objectName, Qt::Alignment alignment, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(objectName);
  label->setAlignment(alignment | Qt::AlignVCenter);
  label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
  return label;
}

}  // namespace

MainWindow::MainWindow(Game& game, const DesktopServices& services)
    : game_(game), outside_(std::make_unique<QtOutside>(*this, services)) {
  setObjectName("frmMain");
  setWindowTitle("Varkesh");

  auto* inner = new QWidget(this);
  inner->setMinimumSize(kSmallestInnerWidth, kSmallestInnerHeight);
  setCentralWidget(inner);
  gameDescription_ = NamedLabel("lblGameDescription", Qt::AlignHCenter, inner);
  turn_ = NamedLabel("lblTurn", Qt::AlignLeft, inner);
  piece_ = NamedLabel("lblPiece", Qt::AlignRight, inner);
  view_ = new ViewWidget(game, inner);
  inner->installEventFilter(this);

  BuildMenus();
  PlaceOnScreen();
  gameDescription_->setText("A Chess Variant for up to 4 Players");
}

MainWindow::~MainWindow() = default;

void MainWindow::PlaceOnScreen() {
  resize(kStartWidth, kStartHeight);
  const QRect screenArea = screen()->geometry();
  const int top = kStartHeight == screenArea.height() ? 0 : kStartTop;
  move(screenArea.left() + screenArea.width() / 2 - kStartWidth / 2, screenArea.top() + top);
}

QAction* MainWindow::AddEntry(QMenu* menu, const char* objectName, const char* text,
                              const QKeySequence& key) {
  QAction* action = menu->addAction(text);
  action->setObjectName(objectName);
  if (!key.isEmpty()) action->setShortcut(key);
  return action;
}

template <class Body>
void MainWindow::RunCommand(const char* sub, Body&& body) {
  ++commandDepth_;
  Guarded(*outside_, kModule, sub, body);
  --commandDepth_;
}

void MainWindow::OpenDocument(const std::string& pathOrAddress) {
  outside_->OpenDocument(pathOrAddress);
}

void MainWindow::OpenProgramFile(const char* name) {
  OpenDocument(outside_->Engine().appPath + name);
}

void MainWindow::BuildMenus() {
  QMenuBar* bar = menuBar();

  QMenu* gameMenu = bar->addMenu("&Game");
  gameMenu->setObjectName("mnuGame");
  menus_[Menu::Game] = gameMenu->menuAction();
  menus_[Menu::GameNew] = AddEntry(gameMenu, "mnuGameNew", "&New Game", Qt::CTRL | Qt::Key_N);
  connect(menus_[Menu::GameNew], &QAction::triggered, this, [this] {
    RunCommand("mnuGameNew.Click", [this] { NewGameCommand(game_, *outside_); });
  });
  gameMenu->addSeparator()->setObjectName("mnuGameUL1");
  menus_[Menu::GameLoad] = AddEntry(gameMenu, "mnuGameLoad", "&Load Game", Qt::CTRL | Qt::Key_L);
  connect(menus_[Menu::GameLoad], &QAction::triggered, this, [this] {
    RunCommand("mnuGameLoad.Click", [this] { LoadGameCommand(game_, *outside_); });
  });
  menus_[Menu::GameSave] = AddEntry(gameMenu, "mnuGameSave", "&Save Game", Qt::CTRL | Qt::Key_S);
  connect(menus_[Menu::GameSave], &QAction::triggered, this, [this] {
    RunCommand("mnuGameSave.Click", [this] { SaveGameCommand(game_, *outside_); });
  });
  gameMenu->addSeparator()->setObjectName("mnuGameUL3");
  connect(AddEntry(gameMenu, "mnuGameExit", "E&xit"), &QAction::triggered, this, &QWidget::close);

  QMenu* netPlayMenu = bar->addMenu("&NetPlay");
  netPlayMenu->setObjectName("mnuNetPlay");
  menus_[Menu::NetPlay] = netPlayMenu->menuAction();
  const auto netPlayMissing = [this] {
    RunCommand("mnuNetPlay.Click", [this] {
      outside_->ShowMessage("NetPlay", "NetPlay is not available in this version of Varkesh.");
    });
  };
  connect(AddEntry(netPlayMenu, "mnuNetPlayHost", "&Host", Qt::CTRL | Qt::Key_H),
          &QAction::triggered, this, netPlayMissing);
  connect(AddEntry(netPlayMenu, "mnuNetPlayConnect", "&Connect", Qt::CTRL | Qt::Key_C),
          &QAction::triggered, this, netPlayMissing);

  QMenu* optionsMenu = bar->addMenu("&Options");
  optionsMenu->setObjectName("mnuOptions");
  menus_[Menu::Options] = optionsMenu->menuAction();
  const struct {
    Menu id;
    const char* objectName;
    const char* text;
    QKeyCombination key;
  } options[] = {
      {Menu::OptionsSfx, "mnuOptionsSfx", "Sound E&ffects", Qt::CTRL | Qt::Key_F},
      {Menu::OptionIndicator, "mnuOptionIndicator", "Selection &Indicator",
       Qt::CTRL | Qt::Key_I},
      {Menu::OptionsShowComp, "mnuOptionsShowComp", "&Preview Computer Moves",
       Qt::CTRL | Qt::Key_P},
      {Menu::OptionsHints, "mnuOptionsHints", "&User Interface Hints", Qt::CTRL | Qt::Key_U},
  };
  for (const auto& option : options) {
    QAction* action = AddEntry(optionsMenu, option.objectName, option.text, option.key);
    action->setCheckable(true);
    action->setChecked(true);
    menus_[option.id] = action;
  }
  // The strobe shows at once when switched, so the board is drawn anew.
  connect(menus_[Menu::OptionIndicator], &QAction::triggered, this,
          [this] { game_.boardChanged = true; });
  optionsMenu->addSeparator()->setObjectName("mnuOptionsUL1");
  auto* history = new QActionGroup(this);
  history->setExclusive(true);
  const struct {
    Menu id;
    const char* objectName;
    const char* text;
    Qt::Key key;
  } histories[] = {
      {Menu::History0, "mnuHistory0", "Show N&o Move History", Qt::Key_F2},
      {Menu::History1, "mnuHistory1", "Show &1 Move History", Qt::Key_F3},
      {Menu::History3, "mnuHistory3", "Show &3 Moves History", Qt::Key_F4},
  };
  for (const auto& entry : histories) {
    QAction* action = AddEntry(optionsMenu, entry.objectName, entry.text, entry.key);
    action->setCheckable(true);
    history->addAction(action);
    menus_[entry.id] = action;
    connect(action, &QAction::triggered, this, [this] { game_.boardChanged = true; });
  }
  menus_[Menu::History0]->setChecked(true);

  QMenu* resignMenu = bar->addMenu("&Resign");
  resignMenu->setObjectName("mnuResign");
  menus_[Menu::Resign] = resignMenu->menuAction();
  connect(AddEntry(resignMenu, "mnuResignResign", "&Resign from Game", Qt::CTRL | Qt::Key_R),
          &QAction::triggered, this, [this] {
            RunCommand("mnuResignResign.Click", [this] { DoResign(game_, *outside_, -1); });
          });
  SetMenuEnabled(Menu::Resign, false);

  QMenu* helpMenu = bar->addMenu("&Help");
  helpMenu->setObjectName("mnuHelp");
  menus_[Menu::Help] = helpMenu->menuAction();
  const auto command = [this](const char* sub, auto target) {
    return [this, sub, target] { RunCommand(sub, [this, target] { target(); }); };
  };
  connect(AddEntry(helpMenu, "mnuHelpHelp", "Varkesh Help", Qt::Key_F1), &QAction::triggered,
          this, command("mnuHelpHelp.Click", [this] { OpenProgramFile("help/help.htm"); }));
  helpMenu->addSeparator()->setObjectName("mnuHelpUL1");
  connect(AddEntry(helpMenu, "mnuHelpReadMe", "View &ReadMe.txt File"), &QAction::triggered, this,
          command("mnuHelpReadMe.Click", [this] { OpenProgramFile("ReadMe.txt"); }));
  helpMenu->addSeparator()->setObjectName("mnuHelpUL3");
  connect(AddEntry(helpMenu, "mnuHelpWebsite", "Varkesh &Webpage"), &QAction::triggered, this,
          command("mnuHelpWebsite.Click", [this] { OpenDocument(WebPages::kHome); }));
  connect(AddEntry(helpMenu, "mnuHelpMsgBrd", "&Message Board"), &QAction::triggered, this,
          command("mnuHelpMsgBrd.Click",
               [this] { OpenDocument(WebPages::kMessageBoard); }));
  helpMenu->addSeparator()->setObjectName("mnuHelpUL2");
  connect(AddEntry(helpMenu, "mnuHelpGamesPub", "Find &Opponents"), &QAction::triggered, this,
          command("mnuHelpGamesPub.Click",
               [this] { OpenDocument(WebPages::kFindOpponents); }));
  helpMenu->addSeparator()->setObjectName("mnuHelpUL4");
  connect(AddEntry(helpMenu, "mnuHelpAbout", "&About Varkesh", Qt::CTRL | Qt::Key_A),
          &QAction::triggered, this, [this] {
            game_.modeAfterTitle = game_.gameMode;
            game_.gameMode = ModeTitle;
          });
}

void MainWindow::SetMenuEnabled(Menu menu, bool enabled) { menus_.at(menu)->setEnabled(enabled); }

bool MainWindow::IsMenuChecked(Menu menu) const { return menus_.at(menu)->isChecked(); }

void MainWindow::SetMenuChecked(Menu menu, bool checked) { menus_.at(menu)->setChecked(checked); }

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == centralWidget() && event->type() == QEvent::Resize) LayOutInnerArea();
  return QMainWindow::eventFilter(watched, event);
}

void MainWindow::LayOutInnerArea() {
  Guarded(*outside_, kModule, "Form.Resize", [this] {
    if (isMinimized()) return;
    const QSize inner = centralWidget()->size();
    const auto layout =
        LayOutWindow(inner.width(), inner.height(), gameDescription_->fontMetrics().height(),
                     turn_->fontMetrics().height());
    if (!layout) return;
    gameDescription_->setGeometry(layout->gameDescription);
    turn_->setGeometry(layout->turn);
    piece_->setGeometry(layout->piece);
    view_->setGeometry(layout->view);
  });
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (!game_.gameSaved &&
      !outside_->AskYesNo("Exit without Saving?",
                          "The current game is not saved ... are you sure you wish to quit "
                          "without saving the current one?\n\n"
                          "          \u00bb Click 'Yes' to quit without saving.\n"
                          "          \u00bb Click 'No' to continue with the current game.")) {
    event->ignore();
    return;
  }
  // The main loop ends the run at the end of its present pass.
  game_.quitRequested = true;
  event->accept();
}

}  // namespace varkesh
