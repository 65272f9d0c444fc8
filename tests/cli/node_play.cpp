#include "node_play.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <thread>

#include "core/rules.h"

namespace varkesh::testing {

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto kPollPause = std::chrono::milliseconds(20);

// Polls until the test holds, the time runs out or one of the nodes is
// broken.
template <class Test>
bool PollUntil(double seconds, std::initializer_list<const NodeProcess*> nodes, Test test) {
  const auto deadline = After(seconds);
  while (Clock::now() < deadline) {
    if (test()) return true;
    for (const NodeProcess* node : nodes)
      if (node->Broken()) return false;
    std::this_thread::sleep_for(kPollPause);
  }
  return false;
}

}  // namespace

std::string PlannedMove::Command() const {
  return "move " + std::to_string(fromX) + " " + std::to_string(fromY) + " " + std::to_string(toX) +
         " " + std::to_string(toY);
}

std::optional<PlannedMove> FirstLegalMove(const Game& shown) {
  MoveList moves;
  ListMoves(shown.match.position, moves);
  if (moves.Empty()) return std::nullopt;
  return PlannedMove{moves[0].fromX, moves[0].fromY, moves[0].toX, moves[0].toY};
}

int TurnKey(const Game& game) {
  return game.match.position.roundNumber * 10 + game.match.position.currentTeam;
}

bool ReachesTurn(NodeProcess& node, int key, double seconds) {
  return PollUntil(seconds, {&node}, [&] {
    auto game = node.ShownGame();
    return game && TurnKey(*game) == key;
  });
}

std::string ShowDifference(NodeProcess& a, NodeProcess& b, double seconds) {
  std::string difference = "no show";
  const bool same = PollUntil(seconds, {&a, &b}, [&] {
    auto shownA = a.Show();
    auto shownB = b.Show();
    if (!shownA || !shownB) return false;
    if (*shownA == *shownB) return true;
    difference = "the shows differ in length";
    for (std::size_t i = 0; i < std::min(shownA->size(), shownB->size()); ++i)
      if ((*shownA)[i] != (*shownB)[i]) {
        difference = "line " + std::to_string(i + 1) + ": " + (*shownA)[i] + " / " + (*shownB)[i];
        break;
      }
    return false;
  });
  return same ? std::string() : difference;
}

bool NodeCountBecomes(NodeProcess& node, int count, double seconds) {
  const std::string wanted = "nodes " + std::to_string(count);
  return PollUntil(seconds, {&node}, [&] {
    node.Send("nodes");
    return node.WaitFor("nodes ") == wanted;
  });
}

bool SeatsBecome(NodeProcess& node, const std::vector<std::string>& seats, double seconds) {
  return PollUntil(seconds, {&node}, [&] { return node.Seats() == seats; });
}

bool PlayTurn(NodeProcess& mover, NodeProcess& host, const std::string& command) {
  auto game = host.ShownGame();
  if (!game) return false;
  const int key = TurnKey(*game);
  if (!ReachesTurn(mover, key)) return false;
  if (command.empty()) {
    auto shown = mover.ShownGame();
    auto move = shown ? FirstLegalMove(*shown) : std::nullopt;
    if (!move) return false;
    mover.Send(move->Command());
  } else {
    mover.Send(command);
  }
  return PollUntil(kNodeWaitSeconds, {&host}, [&] {
    auto shown = host.ShownGame();
    return shown && TurnKey(*shown) != key;
  });
}

std::unique_ptr<NodeProcess> StartHost(int port, const std::string& name,
                                       const std::string& folder) {
  auto host = std::make_unique<NodeProcess>(
      std::vector<std::string>{"host", "--port", std::to_string(port), "--name", name}, folder);
  if (host->WaitFor("chat Hosting as '" + name + "'")) return host;
  std::fprintf(stderr, "host %s did not start:\n%s", name.c_str(), host->Recent().c_str());
  return nullptr;
}

std::unique_ptr<NodeProcess> StartClient(int port, const std::string& name,
                                         const std::string& folder, bool waitForGame) {
  auto client = std::make_unique<NodeProcess>(
      std::vector<std::string>{"join", "--address", "127.0.0.1", "--port", std::to_string(port),
                               "--name", name},
      folder);
  // The host's game has come off the client's queue: seats given after
  // this are not undone by it.
  if (client->WaitFor("chat You are connected as Node #") &&
      (!waitForGame || client->WaitFor("mode ")))
    return client;
  std::fprintf(stderr, "client %s did not join:\n%s", name.c_str(), client->Recent().c_str());
  return nullptr;
}

}  // namespace varkesh::testing
