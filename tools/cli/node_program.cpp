#include "node_program.h"

#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSocketNotifier>
#include <QTimer>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <optional>
#include <thread>

#include "cli.h"
#include "engine/general_engine.h"
#include "event_line.h"
#include "flow/main_loop.h"
#include "flow/save_load.h"
#include "headless_net_view.h"
#include "load_for_play.h"
#include "net/node.h"
#include "net/qt_transport.h"
#include "node_commands.h"
#include "tool_outside.h"

namespace varkesh::cli {

namespace {

constexpr int kPaceMs = 10;
// How long queued bytes may take to leave before the connections close.
constexpr int kFlushLimitMs = 2000;

// SIGINT and SIGTERM arrive through a pipe, so that the node ends in the
// main loop rather than inside the handler.
int signalPipe[2] = {-1, -1};

void OnSignal(int) {
  const char byte = 1;
  [[maybe_unused]] ssize_t written = write(signalPipe[1], &byte, 1);
}

class NodeRun {
 public:
  explicit NodeRun(const NodeSettings& settings) : settings_(settings) {}
  ~NodeRun() {
    if (inputFlags_ >= 0) fcntl(0, F_SETFL, inputFlags_);
  }
  NodeRun(const NodeRun&) = delete;
  NodeRun& operator=(const NodeRun&) = delete;

  // false: the host could not listen.
  bool Open();
  void Start();
  // Where the NetPlay error block went; empty when no log is written.
  std::string NetLog() const { return LogFile(outside_.engine, "error_netplay.log"); }

 private:
  void Tick();
  void ReadInput();
  void Finish();
  bool BytesWaiting() const;

  const NodeSettings& settings_;
  ToolOutside outside_;
  HeadlessNetView view_;
  GameView gameView_;  // nothing is drawn
  Game game_;
  net::NetSession session_;
  net::QtTransport transport_;
  net::NetNode node_{game_, session_, outside_, view_, transport_};
  std::optional<net::SessionLink> link_;
  NodeCommands commands_{node_, outside_, view_};

  QTimer pace_;
  std::optional<QSocketNotifier> input_;
  std::optional<QSocketNotifier> signals_;
  std::string inputBuffer_;
  int inputFlags_ = -1;
  int lastMode_ = 0;
  bool quitRequested_ = false;
  bool ending_ = false;
};

bool NodeRun::Open() {
  UseToolFolder(outside_);
  outside_.thinkingTimeMs = settings_.thinkingTimeMs;
  outside_.printEvent = PrintEventLine;
  outside_.serveEvents = [] { QCoreApplication::processEvents(); };
  if (settings_.host && !settings_.gameFile.empty()) {
    game_ = ReadGameFile(settings_.gameFile);
    ResumeLoadedGame(game_, outside_);
    game_.turn.gameSaved = true;
  }
  game_.random.Seed(static_cast<std::uint64_t>(
      std::chrono::high_resolution_clock::now().time_since_epoch().count()));

  link_.emplace(node_);
  game_.net.localPlayerName = settings_.name;
  session_.netPort = settings_.port;
  session_.hostAddress = settings_.address;
  if (settings_.host) {
    game_.net.netRole = kNetHostDialog;
    if (!net::OpenAsHost(node_)) return false;
  } else {
    game_.net.netRole = kNetConnectDialog;
    net::OpenAsClient(node_);
  }
  lastMode_ = game_.turn.gameMode;
  return true;
}

void NodeRun::Start() {
  inputFlags_ = fcntl(0, F_GETFL);
  if (inputFlags_ >= 0) fcntl(0, F_SETFL, inputFlags_ | O_NONBLOCK);
  input_.emplace(0, QSocketNotifier::Read);
  QObject::connect(&*input_, &QSocketNotifier::activated, [this] { ReadInput(); });

  // Non-blocking, so that a burst of signals can never stall the handler.
  if (pipe2(signalPipe, O_NONBLOCK | O_CLOEXEC) == 0) {
    signals_.emplace(signalPipe[0], QSocketNotifier::Read);
    QObject::connect(&*signals_, &QSocketNotifier::activated, [this] {
      char byte = 0;
      [[maybe_unused]] ssize_t got = read(signalPipe[0], &byte, 1);
      quitRequested_ = true;
    });
    std::signal(SIGINT, OnSignal);
    std::signal(SIGTERM, OnSignal);
  }

  // Restarted after each pass, so a pass never runs inside another, even
  // while it lets events run.
  pace_.setSingleShot(true);
  QObject::connect(&pace_, &QTimer::timeout, [this] { Tick(); });
  pace_.start(0);
}

void NodeRun::Tick() {
  if (ending_) return;
  if (quitRequested_ || !commands_.RunDue()) return Finish();
  if (!game_.turn.paused) {
    net::ServeGameQueue(node_);
    RunPass(game_, outside_, gameView_);
  }
  if (game_.turn.gameMode != lastMode_) {
    lastMode_ = game_.turn.gameMode;
    PrintEventLine("mode " + std::to_string(lastMode_));
  }
  commands_.AfterPass();
  if (quitRequested_) return Finish();
  pace_.start(kPaceMs);
}

void NodeRun::ReadInput() {
  char buffer[4096];
  for (;;) {
    const ssize_t got = read(0, buffer, sizeof buffer);
    if (got > 0) {
      inputBuffer_.append(buffer, static_cast<std::size_t>(got));
      continue;
    }
    if (got < 0 && errno == EINTR) continue;
    if (got == 0) {
      // A dedicated host serves on without input; a client is done.
      input_->setEnabled(false);
      if (!settings_.host) commands_.Queue("quit");
    }
    break;
  }
  // Complete lines only; the rest waits for its line end.
  std::size_t end;
  while ((end = inputBuffer_.find('\n')) != std::string::npos) {
    std::string line = inputBuffer_.substr(0, end);
    inputBuffer_.erase(0, end + 1);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    commands_.Queue(std::move(line));
  }
}

bool NodeRun::BytesWaiting() const {
  for (net::ConnectionId connection : session_.nodeConnections)
    if (connection != 0 && transport_.PendingBytes(connection) > 0) return true;
  return false;
}

// As the NetPlay window unloads when the system closes it: no question.
void NodeRun::Finish() {
  ending_ = true;
  pace_.stop();
  QElapsedTimer waited;
  waited.start();
  while (BytesWaiting() && waited.elapsed() < kFlushLimitMs) {
    QCoreApplication::processEvents();
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  net::CloseSession(node_);
  QCoreApplication::processEvents();
  QCoreApplication::exit(0);
}

}  // namespace

int RunNode(const NodeSettings& settings) {
  int argc = 1;
  char name[] = "varkesh-cli";
  char* argv[] = {name, nullptr};
  QCoreApplication app(argc, argv);
  NodeRun run(settings);
  if (!run.Open()) {
    const std::string log = run.NetLog();
    if (log.empty())
      std::fprintf(stderr, "varkesh-cli: cannot listen on port %d\n", settings.port);
    else
      std::fprintf(stderr, "varkesh-cli: cannot listen on port %d; details are in '%s'\n",
                   settings.port, log.c_str());
    return 1;
  }
  run.Start();
  return app.exec();
}

}  // namespace varkesh::cli
