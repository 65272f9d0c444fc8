#include "ui/main_window.h"

#include <QCloseEvent>
#include <QLabel>
#include <QScreen>
#include <QUrl>
#include <algorithm>

#include "engine/general_engine.h"
#include "flow/error_handler.h"
#include "ui/connect_dialog.h"
#include "ui/dialog_placement.h"
#include "ui/fitting_label.h"
#include "ui/move_list.h"
#include "ui/netplay_session.h"
#include "ui/qt_outside.h"
#include "ui/record_commands.h"
#include "ui/view_widget.h"
#include "ui/window_layout.h"

namespace varkesh {

namespace {

constexpr int kStartWidth = 608;  // a view of 600 pixels inside its border, at scale 1
constexpr int kStartHeight = 700;
constexpr int kStartTop = 10;
// Room left for the window manager's frame and title bar around the window.
constexpr int kFrameAllowance = 16;
constexpr int kTitleAllowance = 48;

QLabel* NamedLabel(const char* objectName, Qt::Alignment alignment, QWidget* parent) {
  auto* label = new FittingLabel(parent);
  label->setObjectName(objectName);
  label->setAlignment(alignment | Qt::AlignVCenter);
  label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
  return label;
}

}  // namespace

MainWindow::MainWindow(Game& game, const DesktopServices& services)
    : game_(game), services_(services), outside_(std::make_unique<QtOutside>(*this, services)) {
  setObjectName("frmMain");
  setWindowTitle("Varkesh");

  auto* inner = new QWidget(this);
  inner->setMinimumSize(kSmallestInnerWidth, kSmallestInnerHeight);
  setCentralWidget(inner);
  gameDescription_ = NamedLabel("lblGameDescription", Qt::AlignHCenter, inner);
  turn_ = NamedLabel("lblTurn", Qt::AlignLeft, inner);
  piece_ = NamedLabel("lblPiece", Qt::AlignRight, inner);
  view_ = new ViewWidget(game, inner);
  moveList_ = new MoveListView(game, inner);
  records_ = std::make_unique<RecordCommands>(game, *outside_, *this, *moveList_);
  inner->installEventFilter(this);

  BuildMenus();
  PlaceOnScreen();
  gameDescription_->setText("A Chess Variant for up to 4 Players");
}

MainWindow::~MainWindow() = default;

void MainWindow::PlaceOnScreen() {
  // Inside the area the desktop leaves free (panels and docks aside), title
  // bar included, on a screen of any size.
  const QRect area = screen()->availableGeometry();
  const int wanted = kStartWidth + (records_->ListShown() ? MoveListView::kWidth : 0);
  const int width = std::min(wanted, area.width() - kFrameAllowance);
  const int height = std::min(kStartHeight, area.height() - kTitleAllowance);
  resize(std::max(width, kSmallestInnerWidth), std::max(height, kSmallestInnerHeight));
  const int spare = area.height() - height - kTitleAllowance;
  move(area.left() + (area.width() - width) / 2, area.top() + std::clamp(spare / 2, 0, kStartTop));
}

void MainWindow::OpenDocument(const std::string& pathOrAddress) {
  outside_->OpenDocument(pathOrAddress);
}

void MainWindow::OpenProgramFile(const char* name) {
  OpenDocument(outside_->Engine().appPath + name);
}

void MainWindow::OpenHelpChapter(const char* chapter) {
  QUrl page = QUrl::fromLocalFile(QString::fromStdString(outside_->Engine().appPath + kHelpPage));
  page.setFragment(chapter);
  OpenDocument(page.toString().toStdString());
}

void MainWindow::OpenLogFolder() {
  const std::string folder = LogFile(outside_->Engine(), "");
  if (folder.empty()) {
    outside_->ShowMessage("Varkesh", "This run keeps no logs: no folder could be written.");
    return;
  }
  OpenDocument(folder);
}

void MainWindow::ShowAbout() {
  // A second About keeps the way back to where the player was.
  if (game_.turn.gameMode != ModeTitle) game_.turn.modeAfterTitle = game_.turn.gameMode;
  game_.turn.gameMode = ModeTitle;
}

void MainWindow::OpenNetPlay(int role) {
  // The menu is off while a session lasts; its keys may still come.
  if (netPlay_ && netPlay_->IsOpen() && game_.net.netRole != kNetNone) return;
  // What is left of a host that could not listen gives way to the new one.
  EndNetPlay();
  game_.net.netRole = role;
  ConnectDialog dialog(game_, this);
  CentreOnOwner(dialog, this);
  dialog.exec();
  if (game_.net.netRole == kNetNone) return;
  netPlay_ = std::make_unique<NetPlaySession>(game_, *outside_, *this, services_.settings,
                                              dialog.Choice());
  // Destroyed from the event loop: the window that ends it is still in its
  // close handler.
  connect(netPlay_.get(), &NetPlaySession::Ended, this, [this, ended = netPlay_.get()] {
    QMetaObject::invokeMethod(
        this,
        [this, ended] {
          if (netPlay_.get() == ended) netPlay_.reset();
        },
        Qt::QueuedConnection);
  });
}

void MainWindow::EndNetPlay() {
  if (!netPlay_) return;
  netPlay_->CloseBySystem();
  netPlay_.reset();
}

void MainWindow::SetChosenTurn(TurnChoice choice) {
  chosenTurn_ = choice;
  MarkTurnChoice(EffectiveChoice(game_, choice));
}

void MainWindow::MarkTurnChoice(TurnChoice effective) {
  const auto entry = turnEntries_.find(effective);
  if (entry != turnEntries_.end() && !entry->second->isChecked()) entry->second->setChecked(true);
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == centralWidget() && event->type() == QEvent::Resize) LayOutInnerArea();
  return QMainWindow::eventFilter(watched, event);
}

void MainWindow::LayOutInnerArea() {
  Guarded(*outside_, kModule, "Form.Resize", [this] {
    if (isMinimized()) return;
    const QSize inner = centralWidget()->size();
    // The move list takes its width at the right; the rest is laid out as ever.
    const int listWidth = records_->ListShown() ? MoveListView::kWidth : 0;
    const auto layout =
        LayOutWindow(inner.width() - listWidth, inner.height(),
                     gameDescription_->fontMetrics().height(), turn_->fontMetrics().height());
    if (!layout) return;
    gameDescription_->setGeometry(layout->gameDescription);
    turn_->setGeometry(layout->turn);
    piece_->setGeometry(layout->piece);
    view_->setGeometry(layout->view);
    moveList_->setGeometry(inner.width() - listWidth, layout->view.top(), listWidth,
                           layout->view.height());
  });
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (!game_.turn.gameSaved &&
      !outside_->AskYesNo("Exit without Saving?",
                          "The current game is not saved ... are you sure you wish to quit "
                          "without saving the current one?\n\n"
                          "          \u00bb Click 'Yes' to quit without saving.\n"
                          "          \u00bb Click 'No' to continue with the current game.")) {
    event->ignore();
    return;
  }
  // The main loop ends the run at the end of its present pass.
  game_.turn.quitRequested = true;
  event->accept();
}

}  // namespace varkesh
