// The whole desktop program, started as main() starts it but in a folder of
// its own, with its settings in a file there and scripted file dialogs.
#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <QTest>
#include <functional>
#include <string>

#include "persist/command_line.h"
#include "ui/main_window.h"
#include "ui/program_loop.h"
#include "ui/startup.h"
#include "ui/view_widget.h"
#include "ui_test_support.h"

namespace varkesh::test {

class RunningProgram {
 public:
  // Settings already stored before the start, as key and value.
  using StoredSettings = std::vector<std::pair<std::string, std::string>>;

  explicit RunningProgram(const CommandLine& commandLine = {},
                          const StoredSettings& stored = {{"First", "Done"}}) {
    folder_ = folderHolder_.path().toStdString() + "/";
    QFile::copy(VARKESH_BIN_DIR "/r.opk", QString::fromStdString(folder_ + "r.opk"));
    program_.settings = std::make_unique<SettingsStore>(folder_ + "settings.ini");
    for (const auto& [key, value] : stored) program_.settings->Write(key, value);
    auto documents = std::make_unique<ScriptedDocuments>();
    documents_ = documents.get();
    program_.documents = std::move(documents);
    started_ = StartUp(program_, commandLine, folder_);
    if (!started_) return;
    BeginRun(program_, commandLine);
    QObject::connect(&loop_, &ProgramLoop::Ended, [this] { ended_ = true; });
    loop_.Start();
  }

  ~RunningProgram() {
    if (started_ && !ended_) Quit();
  }

  bool Started() const { return started_; }
  Game& game() { return program_.game; }
  MainWindow& window() { return *program_.window; }
  ViewWidget& view() { return program_.window->view(); }
  ScriptedDocuments& documents() { return *documents_; }
  SettingsStore& settings() { return *program_.settings; }
  const std::string& folder() const { return folder_; }

  // A click in the middle of a square of the board at full size.
  void ClickSquare(int x, int y, Qt::MouseButton button = Qt::LeftButton) {
    const QPoint inner = view().contentsRect().topLeft();
    QTest::mouseClick(&view(), button, {}, inner + QPoint(x * 35 + 17, y * 35 + 17));
  }

  // A menu shortcut, typed into the main window once it is the active one.
  void PressShortcut(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
    window().activateWindow();
    if (!QTest::qWaitForWindowActive(&window())) ADD_FAILURE() << "the window is not active";
    QTest::keyClick(&window(), key, modifiers);
  }

  bool WaitFor(const std::function<bool()>& done, int milliseconds = 30000) {
    return QTest::qWaitFor(done, milliseconds);
  }
  bool WaitForMode(int mode, int milliseconds = 30000) {
    return WaitFor([this, mode] { return game().gameMode == mode; }, milliseconds);
  }

  // Closes the window as the player would, and waits for the run to end.
  bool Quit() {
    game().gameSaved = true;
    window().close();
    return WaitFor([this] { return ended_; }, 5000);
  }
  bool Ended() const { return ended_; }

 private:
  QTemporaryDir folderHolder_;
  std::string folder_;
  Program program_;
  ScriptedDocuments* documents_ = nullptr;
  ProgramLoop loop_{program_};
  bool started_ = false;
  bool ended_ = false;
};

}  // namespace varkesh::test
