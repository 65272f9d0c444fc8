// The window while a Master seat searches: the whole program runs (offscreen
// unless a display is chosen), four Master seats play, and each computer
// move is timed from the turn's start to the chosen move, against the
// Master's time a move. Meanwhile the board view is asked to repaint 60
// times a second, as a compositor or a dragged window would ask, and its
// paint events are counted: the view must keep up with at least 30 a
// second, and no gap between two paints may pass a frame of 30 per second.
#include <benchmark/benchmark.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <memory>
#include <vector>

#include "persist/command_line.h"
#include "persist/user_folders.h"
#include "ui/main_window.h"
#include "ui/program_loop.h"
#include "ui/startup.h"
#include "ui/view_widget.h"

namespace varkesh {
namespace {

constexpr int kAskedRepaintMs = 16;
constexpr int kProbeMs = 1;

// Counts the paint events of one widget, with their times.
class PaintCounter : public QObject {
 public:
  PaintCounter(QWidget& widget, const QElapsedTimer& clock) : clock_(clock) {
    widget.installEventFilter(this);
  }
  std::vector<double> times;  // seconds since the clock started

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) times.push_back(clock_.nsecsElapsed() / 1e9);
    return QObject::eventFilter(watched, event);
  }

 private:
  const QElapsedTimer& clock_;
};

// The program as main() runs it, in a folder of its own, with settings
// that skip the first run's ReadMe.
class RunningWindow {
 public:
  explicit RunningWindow(int thinkingMs) {
    const std::string folder = folder_.path().toStdString() + "/";
    program_.settings = std::make_unique<SettingsStore>(folder + "settings.ini");
    program_.settings->Write("First", "Done");
    program_.folders = UserFolders{folder, folder, folder};
    started_ = StartUp(program_, CommandLine{}, ProgramDataFolder(ExecutableFolder()));
    if (!started_) return;
    BeginRun(program_, CommandLine{});
    MainWindow& window = *program_.window;
    window.SetMenuChecked(Menu::OptionsShowComp, false);
    window.SetMenuChecked(Menu::OptionsSfx, false);
    window.SetThinkingTime(thinkingMs);
    QObject::connect(&loop_, &ProgramLoop::Ended, [this] { ended_ = true; });
    loop_.Start();
  }
  ~RunningWindow() {
    if (!started_) return;
    program_.game.turn.gameSaved = true;
    program_.window->close();
    WaitUntil([this] { return ended_; }, 10.0);
  }

  bool Started() const { return started_; }
  Game& game() { return program_.game; }
  MainWindow& window() { return *program_.window; }

  // Through the menu and the dialog: four Master seats.
  void StartMasterGame() {
    QTimer fill;
    QObject::connect(&fill, &QTimer::timeout, [&fill] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr) return;
      fill.stop();
      for (int i = 0; i < kTeamCount; ++i) {
        const QString index = QString::number(i);
        dialog->findChild<QComboBox*>("cmbPlayer" + index)->setCurrentIndex(kBalanced);
        dialog->findChild<QComboBox*>("cmbLevel" + index)
            ->setCurrentIndex(kLevelMaster - kLevelClassic);
      }
      dialog->findChild<QAbstractButton*>("cmdStart")->click();
    });
    fill.start(5);
    window().menuAction(Menu::GameNew).trigger();
  }

  template <class Done>
  static bool WaitUntil(Done done, double seconds) {
    QElapsedTimer waited;
    waited.start();
    while (!done()) {
      if (waited.nsecsElapsed() / 1e9 > seconds) return false;
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 5);
    }
    return true;
  }

 private:
  QTemporaryDir folder_;
  Program program_;
  ProgramLoop loop_{program_};
  bool started_ = false;
  bool ended_ = false;
};

struct MoveSample {
  double seconds = 0;  // the turn's start to the chosen move
  double paintsPerSecond = 0;
  double longestGapMs = 0;  // between two paints, or the turn's ends and a paint
  double servedPerSecond = 0;
};

void MasterMoveInTheWindow(benchmark::State& state) {
  const int thinkingMs = static_cast<int>(state.range(0));
  RunningWindow run(thinkingMs);
  if (!run.Started()) {
    state.SkipWithError("the program did not start");
    return;
  }
  QElapsedTimer clock;
  clock.start();
  PaintCounter paints(run.window().view(), clock);
  QTimer asker;
  QObject::connect(&asker, &QTimer::timeout, [&run] { run.window().view().update(); });
  asker.start(kAskedRepaintMs);

  // A probe that sees each turn of the computer begin and end, between
  // passes and in the events served while the search runs.
  int lastMode = run.game().turn.gameMode;
  double turnStart = -1;
  int served = 0;
  std::vector<std::pair<double, double>> turns;
  QTimer probe;
  QObject::connect(&probe, &QTimer::timeout, [&] {
    ++served;
    const int mode = run.game().turn.gameMode;
    const double now = clock.nsecsElapsed() / 1e9;
    if (mode == ModeComputerThinks && lastMode != ModeComputerThinks) turnStart = now;
    if (mode == ModeComputerMoves && lastMode == ModeComputerThinks && turnStart >= 0)
      turns.emplace_back(turnStart, now);
    lastMode = mode;
  });
  probe.start(kProbeMs);
  run.StartMasterGame();

  std::vector<MoveSample> samples;
  for (auto _ : state) {
    const std::size_t wanted = turns.size() + 1;
    const int servedBefore = served;
    if (!RunningWindow::WaitUntil([&] { return turns.size() >= wanted; }, 60.0)) {
      state.SkipWithError("no computer move came");
      return;
    }
    const auto [start, end] = turns.back();
    MoveSample sample;
    sample.seconds = end - start;
    double previous = start;
    int count = 0;
    for (double at : paints.times) {
      if (at < start || at > end) continue;
      sample.longestGapMs = std::max(sample.longestGapMs, (at - previous) * 1000.0);
      previous = at;
      ++count;
    }
    sample.longestGapMs = std::max(sample.longestGapMs, (end - previous) * 1000.0);
    sample.paintsPerSecond = count / sample.seconds;
    sample.servedPerSecond = (served - servedBefore) / sample.seconds;
    state.SetIterationTime(sample.seconds);
    samples.push_back(sample);
  }

  double slowest = 0, fewestPaints = 1e9, longestGap = 0, fewestServed = 1e9;
  for (const MoveSample& sample : samples) {
    slowest = std::max(slowest, sample.seconds);
    fewestPaints = std::min(fewestPaints, sample.paintsPerSecond);
    longestGap = std::max(longestGap, sample.longestGapMs);
    fewestServed = std::min(fewestServed, sample.servedPerSecond);
  }
  state.counters["budget_s"] = thinkingMs / 1000.0;
  state.counters["slowest_move_s"] = slowest;
  state.counters["slowest_vs_budget"] = slowest * 1000.0 / thinkingMs;
  state.counters["fewest_paints_per_s"] = fewestPaints;
  state.counters["longest_paint_gap_ms"] = longestGap;
  state.counters["fewest_probes_per_s"] = fewestServed;
}

BENCHMARK(MasterMoveInTheWindow)
    ->Arg(500)
    ->Arg(1000)
    ->Arg(2000)
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace varkesh

int main(int argc, char** argv) {
  // Headless unless a display is asked for.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
