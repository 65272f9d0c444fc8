#include "ui/program_loop.h"

#include <QLabel>

#include "flow/main_loop.h"
#include "flow/save_load.h"
#include "ui/board_view.h"
#include "ui/main_window.h"
#include "ui/move_list.h"
#include "ui/netplay_session.h"
#include "ui/qt_outside.h"
#include "ui/startup.h"
#include "ui/stop_signal.h"
#include "ui/view_widget.h"

namespace varkesh {

namespace {

constexpr int kSleepMs = 10;

void LoadGameOfCommandLine(Program& program, const CommandLine& commandLine) {
  QtOutside& outside = program.window->outside();
  const std::string& path = commandLine.savedGamePath;
  const std::optional<std::string> found = SavedGameToLoad(commandLine);
  if (!found) {
    outside.ShowMessage("Varkesh", "The saved game '" + path +
                                       "' named on the command line was not found.\n\n"
                                       "Varkesh starts without it.");
    return;
  }
  LoadGame(program.game, outside, *found);
  if (program.game.turn.gameMode == ModeTitle) {
    outside.ShowMessage("Varkesh", "The saved game '" + path +
                                       "' could not be loaded: it is damaged or not a "
                                       "Varkesh game.\n\nVarkesh starts without it.");
  }
}

}  // namespace

void BeginRun(Program& program, const CommandLine& commandLine) {
  MainWindow& window = *program.window;
  if (commandLine.showFps) window.view().FrameRateLabel().show();
  if (!commandLine.savedGamePath.empty()) LoadGameOfCommandLine(program, commandLine);
  if (TakeFirstRun(*program.settings)) window.OpenProgramFile("ReadMe.txt");
}

ProgramLoop::ProgramLoop(Program& program) : program_(program) {
  pace_.setSingleShot(true);
  connect(&pace_, &QTimer::timeout, this, &ProgramLoop::Tick);
}

void ProgramLoop::Start() {
  pace_.start(0);
}

void ProgramLoop::Tick() {
  Game& game = program_.game;
  MainWindow& window = *program_.window;
  // The system ends the session: no question about an unsaved game can be answered.
  if (StopSignalled()) game.turn.quitRequested = true;
  // Paused, or a menu command waits in its dialog: only events run.
  if (!game.turn.quitRequested && !game.turn.paused && !window.CommandRunning()) {
    NetPlaySession* netPlay = window.netPlay();
    if (netPlay != nullptr && netPlay->IsOpen()) net::ServeGameQueue(netPlay->node());
    window.RunHeldCommand();
    fit_.Update(program_);
    // While the move list shows an earlier position, the game waits.
    if (window.moveList().Browsing())
      window.moveList().DrawBrowsed(*program_.view);
    else
      RunPass(game, window.outside(), *program_.view);
  }
  window.view().SyncPauseCaption();
  if (game.turn.quitRequested) {
    End();
    return;
  }
  pace_.start(kSleepMs);
}

void ProgramLoop::End() {
  ShutDown(program_);
  emit Ended();
}

}  // namespace varkesh
