// What the host's relaying costs a move: one client sends the five messages
// of a move, and the time runs until the last of the eight other clients has
// the GAMV. Once through a real NetPlay host node with a game in progress,
// which judges each message, applies it and relays it as it serves its game
// queue (here as fast as the loop turns; the program serves one message a
// pass), once through a bare relay that forwards bytes and knows nothing of
// games. Everything runs in this one process, on loopback, in one event loop.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/rules.h"
#include "flow/headless_outside.h"
#include "flow/new_game.h"
#include "net/node.h"
#include "net/node_table.h"
#include "net/qt_transport.h"
#include "net/wire.h"

namespace varkesh::net {
namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* kStartPosition = VARKESH_PACK_DIR "/newgamedata.txt";
constexpr int kWatchers = 8;
constexpr int kMoves = 10000;
constexpr auto kPatience = std::chrono::seconds(10);

int FreePort() {
  QTcpServer probe;
  if (!probe.listen(QHostAddress::Any, 0)) return 0;
  const int port = probe.serverPort();
  probe.close();
  return port;
}

// Serves the event loop until done() or the patience runs out; done() may do
// the program's own work between the loop's turns.
bool RunUntil(const std::function<bool()>& done) {
  const Clock::time_point giveUp = Clock::now() + kPatience;
  while (!done()) {
    if (Clock::now() > giveUp) return false;
    QCoreApplication::processEvents(QEventLoop::AllEvents);
  }
  return true;
}

void RunFor(std::chrono::milliseconds span) {
  const Clock::time_point end = Clock::now() + span;
  while (Clock::now() < end) QCoreApplication::processEvents(QEventLoop::AllEvents);
}

std::string Framed(std::string message) {
  message += kMessageEnd;
  return message;
}

// The first move the rules list for the team to move.
varkesh::Move FirstMove(const Game& game) {
  MoveList moves;
  ListMoves(game.match.position, moves);
  return moves[0];
}

// A piece chosen, its destination chosen, the move accepted.
std::vector<std::string> MoveMessages(const varkesh::Move& move) {
  return {Framed(NumberMessage("GUPM", {move.fromX, move.fromY, 0, 0})),
          Framed(NumberMessage("GUGS", {2})),
          Framed(NumberMessage("GUPM", {move.fromX, move.fromY, move.toX, move.toY})),
          Framed(NumberMessage("GUGS", {3})), Framed(NumberMessage("GAMV", {0, 0, 0}))};
}

// A client at the socket level: it answers its node number with a name,
// keeps what comes while a move is timed, and notes when the GAMV is whole.
class RelayClient final : public TransportEvents {
 public:
  explicit RelayClient(std::string name) : name_(std::move(name)) { transport.SetEvents(this); }

  void OnAccepted(ConnectionId) override {}
  void OnConnected(ConnectionId id) override { connection = id; }
  void OnData(ConnectionId, std::string_view bytes) override {
    received.append(bytes);
    buffer_.append(bytes);
    while (std::optional<std::string> message = TakeMessage(buffer_)) {
      const Message parts = SplitMessage(*message);
      if (parts.verb == "GYNI") {
        node = FieldNumber(parts.payload);
        transport.Send(connection, Framed("GMNI}" + name_));
      } else if (parts.verb == "GAMV") {
        moveArrived = Clock::now();
      }
    }
  }
  void OnClosed(ConnectionId) override { connection = 0; }
  void OnError(ConnectionId, int, const std::string&) override { failed = true; }

  void Forget() {
    received.clear();
    moveArrived.reset();
  }

  QtTransport transport;
  ConnectionId connection = 0;
  int node = 0;
  bool failed = false;
  std::string received;
  std::optional<Clock::time_point> moveArrived;

 private:
  std::string name_;
  std::string buffer_;
};

class SilentView final : public NetView {
 public:
  void AppendChat(const std::vector<ChatRun>&, int) override {}
  void SetNodeList(const std::vector<NodeLine>&, int) override {}
  void SetSeatCaptions(const PerTeam<std::string>&) override {}
  void SetChatEnabled(bool) override {}
  void SetHostControlsEnabled(bool) override {}
};

// The forwarding relay to compare with: every byte from one socket goes to
// every other socket as it comes.
class BareRelay {
 public:
  bool Listen(int port) {
    QObject::connect(&server_, &QTcpServer::newConnection, [this] {
      while (QTcpSocket* socket = server_.nextPendingConnection()) {
        // As the transport does, so that only the game logic tells them apart.
        socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        sockets_.push_back(socket);
        QObject::connect(socket, &QTcpSocket::readyRead, [this, socket] {
          const QByteArray bytes = socket->readAll();
          for (QTcpSocket* other : sockets_)
            if (other != socket) other->write(bytes);
        });
      }
    });
    return server_.listen(QHostAddress::Any, static_cast<quint16>(port));
  }
  std::size_t Connections() const { return sockets_.size(); }

 private:
  QTcpServer server_;
  std::vector<QTcpSocket*> sockets_;  // children of the server
};

struct Spread {
  double median = 0;
  double p99 = 0;
  double worst = 0;
};
std::optional<Spread> hostResult;
std::optional<Spread> bareResult;

Spread Summarise(std::vector<double> micros) {
  std::sort(micros.begin(), micros.end());
  const auto at = [&](double share) {
    const std::size_t index =
        static_cast<std::size_t>(share * static_cast<double>(micros.size() - 1));
    return micros[index];
  };
  return {at(0.5), at(0.99), micros.back()};
}

// Times the move kMoves times between the sender and the watchers; reset
// runs between moves, outside the timing.
void TimeMoves(benchmark::State& state, const varkesh::Move& move, RelayClient& sender,
               std::vector<std::unique_ptr<RelayClient>>& watchers,
               const std::function<void()>& reset, const std::function<void()>& serve,
               std::optional<Spread>& result) {
  const std::vector<std::string> messages = MoveMessages(move);
  std::string expected;
  for (const std::string& message : messages) expected += message;
  std::vector<double> micros;
  micros.reserve(kMoves);
  for (auto _ : state) {
    sender.Forget();
    for (auto& watcher : watchers) watcher->Forget();
    reset();

    const Clock::time_point start = Clock::now();
    for (const std::string& message : messages) sender.transport.Send(sender.connection, message);
    const bool arrived = RunUntil([&] {
      serve();
      return std::all_of(watchers.begin(), watchers.end(),
                         [](const auto& watcher) { return watcher->moveArrived.has_value(); });
    });
    if (!arrived) {
      state.SkipWithError("a watcher never had the move");
      return;
    }
    Clock::time_point last = start;
    for (const auto& watcher : watchers) last = std::max(last, *watcher->moveArrived);
    const double seconds = std::chrono::duration<double>(last - start).count();
    state.SetIterationTime(seconds);
    micros.push_back(seconds * 1e6);

    for (const auto& watcher : watchers) {
      if (watcher->received != expected) {
        state.SkipWithError("a watcher had other bytes than the move");
        return;
      }
    }
    if (!sender.received.empty()) {
      state.SkipWithError("the sender had its own move back");
      return;
    }
  }
  const Spread spread = Summarise(std::move(micros));
  state.counters["median_us"] = spread.median;
  state.counters["p99_us"] = spread.p99;
  state.counters["max_us"] = spread.worst;
  result = spread;
}

std::vector<std::unique_ptr<RelayClient>> ConnectClients(int port, int count) {
  std::vector<std::unique_ptr<RelayClient>> clients;
  for (int i = 0; i < count; ++i) {
    clients.push_back(std::make_unique<RelayClient>("Player " + std::to_string(i + 1)));
    clients.back()->transport.Connect("127.0.0.1", port);
  }
  return clients;
}

bool AllConnected(const std::vector<std::unique_ptr<RelayClient>>& clients) {
  return std::all_of(clients.begin(), clients.end(),
                     [](const auto& client) { return client->connection != 0; });
}

void BM_MoveThroughHostNode(benchmark::State& state) {
  Game game;
  NetSession session;
  HeadlessOutside outside({});
  SilentView view;
  QtTransport transport;
  outside.entryPaths["newgamedata"] = kStartPosition;
  outside.newGameChoices.push_back(
      {true, kAnarchy, kKingdomGained, {kHuman, kHuman, kHuman, kHuman}, "Relay"});
  NewGameCommand(game, outside);
  if (game.turn.gameMode != ModeChoosePiece) {
    state.SkipWithError("the new game did not start");
    return;
  }

  NetNode host{game, session, outside, view, transport};
  SessionLink link(host);
  game.net.netRole = kNetHostDialog;
  game.net.localPlayerName = "Host";
  session.netPort = FreePort();
  if (!OpenAsHost(host)) {
    state.SkipWithError("the host could not listen");
    return;
  }

  auto clients = ConnectClients(session.netPort, kWatchers + 1);
  const bool joined = RunUntil([&] {
    for (const auto& client : clients)
      if (client->node == 0 || NodeName(session, client->node).empty()) return false;
    return true;
  });
  if (!joined) {
    state.SkipWithError("the clients did not join");
    return;
  }
  RelayClient& sender = *clients.front();
  for (int team = kWhite; team <= kRed; ++team) AssignSeat(host, team, sender.node);
  // The joining notices, node lists, catching up and seat change settle.
  RunFor(std::chrono::milliseconds(300));

  std::vector<std::unique_ptr<RelayClient>> watchers;
  for (std::size_t i = 1; i < clients.size(); ++i) watchers.push_back(std::move(clients[i]));
  // Every move is played from the same position.
  const Game start = game;
  TimeMoves(
      state, FirstMove(start), sender, watchers, [&] { game = start; },
      [&] { ServeGameQueue(host); }, hostResult);
  if (game.match.position.currentTeam == start.match.position.currentTeam)
    state.SkipWithError("the host did not play the move on its own game");
  if (session.netErrorShown) state.SkipWithError("the host reported a NetPlay error");
}
BENCHMARK(BM_MoveThroughHostNode)
    ->Iterations(kMoves)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

void BM_MoveThroughBareRelay(benchmark::State& state) {
  BareRelay relay;
  const int port = FreePort();
  if (!relay.Listen(port)) {
    state.SkipWithError("the relay could not listen");
    return;
  }
  auto clients = ConnectClients(port, kWatchers + 1);
  if (!RunUntil([&] { return AllConnected(clients) && relay.Connections() == clients.size(); })) {
    state.SkipWithError("the clients did not connect");
    return;
  }
  RelayClient& sender = *clients.front();
  std::vector<std::unique_ptr<RelayClient>> watchers;
  for (std::size_t i = 1; i < clients.size(); ++i) watchers.push_back(std::move(clients[i]));
  TimeMoves(
      state, {8, 1, 8, 2}, sender, watchers, [] {}, [] {}, bareResult);
}
BENCHMARK(BM_MoveThroughBareRelay)
    ->Iterations(kMoves)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace varkesh::net

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  using varkesh::net::bareResult;
  using varkesh::net::hostResult;
  if (hostResult && bareResult && bareResult->median > 0 && bareResult->p99 > 0) {
    std::printf("host node / bare relay: median %.2f, p99 %.2f\n",
                hostResult->median / bareResult->median, hostResult->p99 / bareResult->p99);
  }
  return 0;
}
