#include "ui/chat_window.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QGuiApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextCursor>
#include <QTextEdit>
#include <algorithm>
#include <exception>

#include "ai/search/levels.h"
#include "net/node.h"
#include "persist/settings.h"

namespace varkesh {

namespace {

constexpr int kMaximized = 2;
constexpr int kMargin = 8;
constexpr int kRowHeight = 24;
constexpr int kRowStep = 26;
constexpr QRect kNodesLabel{kMargin, 6, 200, 16};
constexpr QRect kNodes{kMargin, 24, 200, 128};
constexpr int kSeatLabelLeft = 218, kSeatLabelWidth = 44;
constexpr int kNameLeft = 264, kNameWidth = 150;
constexpr int kAssignLeft = 418, kAssignWidth = 34;
constexpr int kComputerLeft = 460, kComputerWidth = 40;
constexpr int kLevelLeft = kComputerLeft + 3 * (kComputerWidth + 4) + 4, kLevelWidth = 84;
constexpr int kSeatTop = 24;
constexpr int kButtonsTop = kSeatTop + 4 * kRowStep + 2;
constexpr QRect kChatButton{kMargin, 162, 70, kRowHeight};
constexpr int kChatLeft = 84;
constexpr int kHistoryTop = kChatButton.top() + kRowHeight + 8;
constexpr QSize kStartSize{kLevelLeft + kLevelWidth + kMargin, 430};
const QColor kBackground(192, 192, 192);

QPushButton* NamedButton(const QString& objectName, const QString& text, QWidget* parent) {
  auto* button = new QPushButton(text, parent);
  button->setObjectName(objectName);
  return button;
}

QLabel* NamedLabel(const QString& objectName, const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setObjectName(objectName);
  return label;
}

QString BoxText(const std::string& text) {
  QString shown = QString::fromStdString(text);
  shown.replace("\r\n", "\n");
  return shown;
}

}  // namespace

ChatWindow::ChatWindow(Game& game, SettingsStore* settings, QWidget* owner)
    : QWidget(owner, Qt::Window), game_(game), settings_(settings) {
  setObjectName("frmChat");
  setWindowTitle("Varkesh NetPlay");
  QPalette shade = palette();
  shade.setColor(QPalette::Window, kBackground);
  setPalette(shade);
  setAutoFillBackground(true);

  NamedLabel("lblWhosHere", "Who's Here:", this)->setGeometry(kNodesLabel);
  nodes_ = new QListWidget(this);
  nodes_->setObjectName("lstNodes");
  nodes_->setGeometry(kNodes);
  BuildSeatRows();

  boot_ = NamedButton("cmdBoot", "&Boot", this);
  boot_->setGeometry(kSeatLabelLeft, kButtonsTop, 90, kRowHeight);
  exit_ = NamedButton("cmdExit", "E&xit NetPlay", this);
  exit_->setGeometry(kSeatLabelLeft + 98, kButtonsTop, 110, kRowHeight);
  connect(boot_, &QPushButton::clicked, this, &ChatWindow::BootClicked);
  connect(exit_, &QPushButton::clicked, this, &QWidget::close);

  send_ = NamedButton("cmdChat", "&Chat", this);
  send_->setGeometry(kChatButton);
  send_->setDefault(true);
  chat_ = new QLineEdit(this);
  chat_->setObjectName("txtChat");
  chat_->setGeometry(kChatLeft, kChatButton.top(), 200, kRowHeight);
  connect(send_, &QPushButton::clicked, this, &ChatWindow::ChatClicked);
  connect(chat_, &QLineEdit::returnPressed, this, &ChatWindow::ChatClicked);

  history_ = new QTextEdit(this);
  history_->setObjectName("txtHistory");
  history_->setReadOnly(true);
  history_->setGeometry(kMargin, kHistoryTop, 200, 100);
  QPalette historyShade = history_->palette();
  historyShade.setColor(QPalette::Base, kBackground);
  history_->setPalette(historyShade);

  SetChatEnabled(false);
  resize(kStartSize);
  RestorePlacement();
}

ChatWindow::~ChatWindow() = default;

void ChatWindow::BuildSeatRows() {
  assignTitle_ = NamedLabel("lblAssign", "Assign", this);
  assignTitle_->setGeometry(kAssignLeft - 4, 6, kAssignWidth + 8, 16);
  computerTitle_ = NamedLabel("lblCompOpp", "Computer Opponent", this);
  computerTitle_->setGeometry(kComputerLeft, 6, 3 * kComputerWidth + 8, 16);
  levelTitle_ = NamedLabel("lblLevel", "Level", this);
  levelTitle_->setGeometry(kLevelLeft, 6, kLevelWidth, 16);
  const char* const seatLabels[kTeamCount] = {"White:", "Blue:", "Black:", "Red:"};
  const char* const computerNames[3] = {"cmdAgr", "cmdBal", "cmdDef"};
  const char* const computerTexts[3] = {"Agr", "Bal", "Def"};
  for (int i = 0; i < kTeamCount; ++i) {
    const auto at = static_cast<std::size_t>(i);
    const int team = i + 1;
    const int top = kSeatTop + i * kRowStep;
    const QString index = QString::number(i);
    NamedLabel("lblSeat" + index, seatLabels[i], this)
        ->setGeometry(kSeatLabelLeft, top, kSeatLabelWidth, kRowHeight);
    playerNames_[at] = NamedLabel("lblPlayerName" + index, "", this);
    playerNames_[at]->setGeometry(kNameLeft, top, kNameWidth, kRowHeight);
    playerNames_[at]->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    assign_[at] = NamedButton("cmdAssign" + index, QString::fromUtf8("\u00bb\u00bb"), this);
    assign_[at]->setGeometry(kAssignLeft, top, kAssignWidth, kRowHeight);
    connect(assign_[at], &QPushButton::clicked, this, [this, team] { AssignClicked(team); });
    for (int kind = 0; kind < 3; ++kind) {
      QPushButton* button = NamedButton(computerNames[kind] + index, computerTexts[kind], this);
      button->setGeometry(kComputerLeft + kind * (kComputerWidth + 4), top, kComputerWidth,
                          kRowHeight);
      computer_[at][static_cast<std::size_t>(kind)] = button;
      const int personality = kind + 1;
      connect(button, &QPushButton::clicked, this,
              [this, team, personality] { ComputerClicked(team, personality); });
    }
    // How strongly the computer plays the seat, as in the new game dialog.
    levels_[at] = new QComboBox(this);
    levels_[at]->setObjectName("cmbLevel" + index);
    for (int level = kLevelClassic; level <= kLevelMaster; ++level)
      levels_[at]->addItem(LevelName(level), level);
    levels_[at]->setGeometry(kLevelLeft, top, kLevelWidth, kRowHeight);
    connect(levels_[at], &QComboBox::currentIndexChanged, this, [this, at, team](int index) {
      LevelChosen(team, levels_[at]->itemData(index).toInt());
    });
  }
  ShowLevels();
}

void ChatWindow::ShowLevels() {
  const Setup& setup = game_.match.setup;
  for (std::size_t i = 0; i < levels_.size(); ++i) {
    // Showing the game's level is no choice of the player's.
    const QSignalBlocker quiet(levels_[i]);
    const int shown = levels_[i]->findData(SeatLevel(setup.levels[i]));
    levels_[i]->setCurrentIndex(std::max(shown, 0));
    // Open for a human seat too, so that the host can choose before handing
    // the seat to the computer.
    levels_[i]->setEnabled(hostControlsEnabled_);
  }
}

void ChatWindow::HideHostControls() {
  exit_->move(boot_->pos());
  boot_->hide();
  assignTitle_->hide();
  computerTitle_->hide();
  levelTitle_->hide();
  for (std::size_t i = 0; i < assign_.size(); ++i) {
    assign_[i]->hide();
    levels_[i]->hide();
    for (QPushButton* button : computer_[i]) button->hide();
  }
}

void ChatWindow::CloseBySystem() {
  closingBySystem_ = true;
  close();
}

void ChatWindow::AppendChat(const std::vector<net::ChatRun>& runs, int cutChars) {
  QTextCursor cursor(history_->document());
  if (cutChars > 0) {
    const auto cut = std::min(static_cast<std::size_t>(cutChars), shownHistory_.size());
    cursor.setPosition(0);
    cursor.setPosition(static_cast<int>(BoxText(shownHistory_.substr(0, cut)).size()),
                       QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    shownHistory_.erase(0, cut);
  }
  cursor.movePosition(QTextCursor::End);
  for (const net::ChatRun& run : runs) {
    QTextCharFormat format;
    format.setForeground(QColor(run.colour.red, run.colour.green, run.colour.blue));
    format.setFontWeight(run.bold ? QFont::Bold : QFont::Normal);
    format.setFontItalic(run.italic);
    cursor.insertText(BoxText(run.text), format);
    shownHistory_ += run.text;
  }
  history_->setTextCursor(cursor);
  history_->ensureCursorVisible();
  history_->verticalScrollBar()->setValue(history_->verticalScrollBar()->maximum());
}

void ChatWindow::SetNodeList(const std::vector<net::NodeLine>& lines, int selectNode) {
  const int keep = selectNode >= 0 ? selectNode : SelectedNode();
  nodes_->clear();
  for (const net::NodeLine& line : lines) {
    auto* item = new QListWidgetItem(QString::fromStdString(line.text), nodes_);
    item->setData(Qt::UserRole, line.node);
    if (line.node == keep) nodes_->setCurrentItem(item);
  }
}

void ChatWindow::SetSeatCaptions(const PerTeam<std::string>& captions) {
  for (std::size_t i = 0; i < playerNames_.size(); ++i)
    playerNames_[i]->setText(QString::fromStdString(captions[i]));
  // A new game, a loaded one or a seat change: the levels may have changed too.
  ShowLevels();
  // The board writes the same names beside the keeps.
  game_.view.boardChanged = true;
}

void ChatWindow::SetChatEnabled(bool enabled) {
  send_->setEnabled(enabled);
  chat_->setEnabled(enabled);
  if (enabled) chat_->setFocus();
}

void ChatWindow::SetHostControlsEnabled(bool enabled) {
  hostControlsEnabled_ = enabled;
  ShowLevels();
  boot_->setEnabled(enabled);
  for (std::size_t i = 0; i < assign_.size(); ++i) {
    assign_[i]->setEnabled(enabled);
    for (QPushButton* button : computer_[i]) button->setEnabled(enabled);
  }
}

int ChatWindow::SelectedNode() const {
  const QListWidgetItem* item = nodes_->currentItem();
  return item != nullptr && item->isSelected() ? item->data(Qt::UserRole).toInt() : -1;
}

void ChatWindow::Guard(const char* sub, const std::function<void()>& body) {
  if (node_ == nullptr) return;
  try {
    body();
  } catch (const std::exception& error) {
    net::ReportNetError(*node_, sub, 1, error.what());
  } catch (...) {
    net::ReportNetError(*node_, sub, 1, "Unknown fault");
  }
}

void ChatWindow::AssignClicked(int team) {
  Guard("cmdAssign.Click", [this, team] {
    const int node = SelectedNode();
    if (node >= 0) net::AssignSeat(*node_, team, node);
  });
}

void ChatWindow::ComputerClicked(int team, int personality) {
  const char* const subs[] = {"cmdAgr.Click", "cmdBal.Click", "cmdDef.Click"};
  Guard(subs[personality - 1],
        [this, team, personality] { net::GiveSeatToComputer(*node_, team, personality); });
}

void ChatWindow::LevelChosen(int team, int level) {
  Guard("cmbLevel.Click", [this, team, level] { net::SetSeatLevel(*node_, team, level); });
}

void ChatWindow::BootClicked() {
  Guard("cmdBoot.Click", [this] {
    const int node = SelectedNode();
    if (node < 0) return;
    const std::string question = net::BootQuestion(*node_, node);
    if (question.empty()) return;
    bool given = false;
    const QString reason = QInputDialog::getText(
        this, "Boot User", QString::fromStdString(question), QLineEdit::Normal, "", &given);
    if (given) net::BootNode(*node_, node, reason.toStdString());
  });
}

void ChatWindow::ChatClicked() {
  if (!send_->isEnabled()) return;
  Guard("cmdChat.Click", [this] {
    if (net::SendChat(*node_, chat_->text().toStdString())) chat_->clear();
  });
  chat_->setFocus();
}

void ChatWindow::closeEvent(QCloseEvent* event) {
  if (closed_) return;
  if (!closingBySystem_) {
    QMessageBox box(QMessageBox::Question, "Exit NetPlay?",
                    "Are you sure you wish to exit from NetPlay?",
                    QMessageBox::Yes | QMessageBox::No, this);
    box.setDefaultButton(QMessageBox::Yes);
    if (box.exec() != QMessageBox::Yes) {
      event->ignore();
      return;
    }
  }
  closed_ = true;
  StorePlacement();
  event->accept();
  emit Closed();
}

void ChatWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  LayOutToSize();
}

void ChatWindow::LayOutToSize() {
  if (isMinimized()) return;
  // Never so small that the list of who is here, or a few lines of the
  // history, would be cut off; the correction brings a new resize.
  const int smallestWidth = 2 * kNodes.left() + kNodes.width();
  const int smallestHeight = kHistoryTop + 4 * chat_->height();
  if (width() < smallestWidth || height() < smallestHeight) {
    resize(std::max(width(), smallestWidth), std::max(height(), smallestHeight));
    return;
  }
  const int right = width() - assign_[0]->width() / 2;
  chat_->setGeometry(kChatLeft, chat_->y(), right - kChatLeft, chat_->height());
  history_->setGeometry(kMargin, kHistoryTop, right - kMargin,
                        height() - send_->height() - kHistoryTop);
}

void ChatWindow::RestorePlacement() {
  if (settings_ == nullptr) return;
  const WindowPlacement stored = ReadWindowPlacement(*settings_, "Chat");
  QRect place = geometry();
  if (stored.top) place.moveTop(*stored.top);
  if (stored.left) place.moveLeft(*stored.left);
  if (stored.height && *stored.height > 0) place.setHeight(*stored.height);
  if (stored.width && *stored.width > 0) place.setWidth(*stored.width);
  // A place on no screen any more would hide the window.
  for (const QScreen* screen : QGuiApplication::screens()) {
    if (screen->availableGeometry().intersects(place)) {
      setGeometry(place);
      break;
    }
  }
  if (stored.state == kMaximized) setWindowState(Qt::WindowMaximized);
}

void ChatWindow::StorePlacement() {
  if (settings_ == nullptr) return;
  if (isMinimized()) showNormal();
  const QRect normal = normalGeometry().isValid() ? normalGeometry() : geometry();
  WriteWindowPlacement(*settings_, "Chat", normal.top(), normal.left(), normal.height(),
                       normal.width(), isMaximized() ? kMaximized : 0);
}

}  // namespace varkesh
