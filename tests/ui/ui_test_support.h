// What the window's tests share: controls reached by name, file dialogs and
// documents that answer from a script, scripted answers to modal windows,
// the whole program as main() starts it, in a folder of its own, and the
// pictures of the documentation, taken under VARKESH_SCREENSHOTS.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

#include "persist/command_line.h"
#include "ui/board_turn.h"
#include "ui/documents.h"
#include "ui/main_window.h"
#include "ui/program_loop.h"
#include "ui/startup.h"
#include "ui/view_widget.h"

namespace varkesh::test {

template <class T>
T& Child(QWidget& parent, const QString& name) {
  T* child = parent.findChild<T*>(name);
  if (child == nullptr) throw std::runtime_error("no control " + name.toStdString());
  return *child;
}

inline void Click(QWidget& parent, const QString& name) {
  QTest::mouseClick(&Child<QAbstractButton>(parent, name), Qt::LeftButton);
}

inline int FreePort() {
  QTcpServer probe;
  if (!probe.listen(QHostAddress::LocalHost, 0)) return 0;
  return probe.serverPort();
}

// The window, with a dialog drawn where it stands over it.
inline void Shoot(QWidget& window, const char* name, QWidget* dialog = nullptr) {
  const QString folder = qEnvironmentVariable("VARKESH_SCREENSHOTS");
  if (folder.isEmpty()) return;
  QTest::qWait(400);  // the strobe and the flags move on, the chat box scrolls
  QPixmap shot = window.grab();
  if (dialog != nullptr) QPainter(&shot).drawPixmap(dialog->pos() - window.pos(), dialog->grab());
  EXPECT_TRUE(QDir().mkpath(folder) && shot.save(folder + "/" + name + ".png")) << name;
}

// Resizes the window until the board view's inner area is side pixels square.
inline bool SetViewSide(MainWindow& window, int side) {
  return QTest::qWaitFor(
      [&] {
        const int now = window.view().contentsRect().width();
        if (now == side && window.view().contentsRect().height() == side) return true;
        window.resize(window.size() + QSize(side - now, side - now));
        return false;
      },
      3000);
}

struct ScriptedDocuments : Documents {
  std::vector<std::string> opened;
  std::vector<std::string> answers;  // of the file dialogs in turn; none left: cancelled
  std::size_t answered = 0;

  void OpenDocument(const std::string& path) override { opened.push_back(path); }
  std::string LoadFileDialog(QWidget*, const std::string&, const std::string&,
                             const std::string&) override {
    return Answer();
  }
  std::string SaveFileDialog(QWidget*, const std::string&, const std::string&, const std::string&,
                             const std::string&) override {
    return Answer();
  }
  std::string Answer() { return answered < answers.size() ? answers[answered++] : ""; }
};

// Runs act on each modal window that shows (by default only the first), from
// inside its event loop, for as long as the returned watcher lives.
[[nodiscard]] inline std::unique_ptr<QTimer> WhenModalOpens(std::function<void(QWidget&)> act,
                                                            bool once = true) {
  auto poll = std::make_unique<QTimer>();
  QObject::connect(poll.get(), &QTimer::timeout, [timer = poll.get(), act, once] {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || !modal->isVisible()) return;
    if (once) timer->stop();
    act(*modal);
  });
  poll->start(5);
  return poll;
}

[[nodiscard]] inline std::unique_ptr<QTimer> AnswerQuestion(const QString& title,
                                                            QMessageBox::StandardButton answer) {
  return WhenModalOpens([title, answer](QWidget& box) {
    EXPECT_EQ(box.windowTitle(), title);
    QTest::mouseClick(static_cast<QMessageBox&>(box).button(answer), Qt::LeftButton);
  });
}

class RunningProgram {
 public:
  // stored: settings of an earlier run, in place before the start.
  explicit RunningProgram(const CommandLine& commandLine = {}, bool firstRun = false,
                          bool withPack = true,
                          const std::vector<std::pair<std::string, std::string>>& stored = {}) {
    if (withPack) QFile::copy(VARKESH_BIN_DIR "/r.opk", folderHolder_.filePath("r.opk"));
    program_.settings = std::make_unique<SettingsStore>(folder_ + "settings.ini");
    if (!firstRun) program_.settings->Write("First", "Done");
    for (const auto& [key, value] : stored) program_.settings->Write(key, value);
    program_.documents.reset(documents_);
    program_.folders = UserFolders{folder_, folder_, folder_};
    started_ = StartUp(program_, commandLine, folder_);
    if (!started_) return;
    BeginRun(program_, commandLine);
    QObject::connect(&loop_, &ProgramLoop::Ended, [this] { ended_ = true; });
    loop_.Start();
  }
  ~RunningProgram() {
    if (!started_ || ended_) return;
    game().turn.gameSaved = true;
    window().close();
    WaitFor([this] { return ended_; });
  }

  bool Started() const { return started_; }
  bool Ended() const { return ended_; }
  Game& game() { return program_.game; }
  Program& program() { return program_; }
  MainWindow& window() { return *program_.window; }
  ScriptedDocuments& documents() { return *documents_; }
  SettingsStore& settings() { return *program_.settings; }
  const std::string& folder() const { return folder_; }

  // The middle of a square of the game where the board shows it, turned and
  // scaled as it is, in the view's coordinates.
  QPoint SquareCentre(int x, int y) {
    ViewWidget& view = window().view();
    const SquarePoint drawn = DrawnSquare(x, y, game().view.bottomTeam);
    const double unit = view.contentsRect().width() / 600.0;
    return view.contentsRect().topLeft() +
           QPoint(static_cast<int>((3 + 35 * drawn.x + 17.5) * unit),
                  static_cast<int>((3 + 35 * drawn.y + 17.5) * unit));
  }
  void ClickSquare(int x, int y, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(&window().view(), button, {}, SquareCentre(x, y));
  }
  // A click on the title and Start in the New Game dialog, its players first
  // chosen by choose when given; true once it is White's turn to choose.
  bool StartFromTitle(const std::function<void(QWidget&)>& choose = {}) {
    const auto start = WhenModalOpens([&choose](QWidget& dialog) {
      if (choose) choose(dialog);
      QTest::mouseClick(dialog.findChild<QAbstractButton*>("cmdStart"), Qt::LeftButton);
    });
    ClickSquare(8, 8);
    return WaitFor(ModeChoosePiece, kWhite);
  }
  // The piece on from and its destination `to` (by default its first) chosen
  // by clicks; true once the move waits to be confirmed.
  bool ChooseByClicks(BoardSquare from, std::optional<BoardSquare> to = {}) {
    ClickSquare(from.x, from.y);
    if (!WaitFor(ModeChooseDestination)) return false;
    EXPECT_FALSE(window().pieceLabel().text().isEmpty()) << "the chosen piece is named";
    const BoardSquare target = to.value_or(game().view.moveablePieces[1]);
    ClickSquare(target.x, target.y);
    return WaitFor(ModeConfirmMove);
  }
  // ... and then confirmed with a right click there.
  bool PlayByClicks(BoardSquare from, std::optional<BoardSquare> to = {},
                    const char* shot = nullptr) {
    if (!ChooseByClicks(from, to)) return false;
    if (shot != nullptr) Shoot(window(), shot);
    ClickSquare(game().turn.moveToX, game().turn.moveToY, Qt::RightButton);
    return WaitFor([this] { return game().turn.gameMode != ModeConfirmMove; });
  }
  void PressShortcut(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
    window().activateWindow();
    if (!QTest::qWaitForWindowActive(&window())) ADD_FAILURE() << "the window is not active";
    QTest::keyClick(&window(), key, modifiers);
  }
  bool WaitFor(const std::function<bool()>& done, int ms = 30000) {
    return QTest::qWaitFor(done, ms);
  }
  // Until the game is in the mode, and if a team is given, at that team's turn.
  // A game without a session that waits for a click here, with none pending
  // and no dialog open, will not move on: the wait ends there at once.
  bool WaitFor(int mode, int team = kNoTeam) {
    const auto reached = [=, this] {
      return game().turn.gameMode == mode &&
             (team == kNoTeam || game().match.position.currentTeam == team);
    };
    const auto resting = [this] {
      const int now = game().turn.gameMode;
      return game().net.netRole == kNetNone && !game().view.clickPending &&
             QApplication::activeModalWidget() == nullptr &&
             (now == ModeChoosePiece || now == ModeChooseDestination || now == ModeConfirmMove);
    };
    return WaitFor([&] { return reached() || resting(); }, 120000) && reached();
  }

 private:
  QTemporaryDir folderHolder_;
  std::string folder_ = folderHolder_.path().toStdString() + "/";
  Program program_;
  ScriptedDocuments* documents_ = new ScriptedDocuments;  // owned by program_
  ProgramLoop loop_{program_};
  bool started_ = false;
  bool ended_ = false;
};

}  // namespace varkesh::test
