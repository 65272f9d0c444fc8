// varkesh-cli host and join over real TCP on the loopback: one host and its
// clients as separate processes, driven through their standard input.
#include <gtest/gtest.h>

#include <csignal>
#include <memory>
#include <thread>

#include "core/rules.h"
#include "node_play.h"
#include "node_process.h"
#include "persist/temp_folder.h"

namespace varkesh {
namespace {

using testing::NodeProcess;
using testing::PlayTurn;
using testing::SeatsBecome;
using testing::ShowDifference;

std::optional<BoardSquare> FirstMarked(const Game& game, int mark) {
  for (int y = 0; y < kBoardSide; ++y)
    for (int x = 0; x < kBoardSide; ++x)
      if (game.view.MarkAt(x, y) == mark) return BoardSquare{x, y};
  return std::nullopt;
}

class NetPlayNodeTest : public ::testing::Test {
 protected:
  std::unique_ptr<NodeProcess> Host(const std::string& name) {
    auto host = std::make_unique<NodeProcess>(
        std::vector<std::string>{"host", "--port", std::to_string(port_), "--name", name},
        folder_.Slashed());
    EXPECT_TRUE(host->WaitFor("chat Hosting as '" + name + "'")) << host->Recent();
    return host;
  }
  std::unique_ptr<NodeProcess> Join(const std::string& name, int expectedNode) {
    auto client = std::make_unique<NodeProcess>(
        std::vector<std::string>{"join", "--address", "127.0.0.1", "--port", std::to_string(port_),
                                 "--name", name},
        folder_.Slashed());
    EXPECT_TRUE(client->WaitFor("chat You are connected as Node #" + std::to_string(expectedNode)))
        << client->Recent();
    // The host's game has come off the client's queue: seats given after
    // this are not undone by it.
    EXPECT_TRUE(client->WaitFor("mode ")) << client->Recent();
    return client;
  }

  // The computer may have played before the host is asked.
  static bool ComputerTurn(NodeProcess& host, int team) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (std::chrono::steady_clock::now() < deadline) {
      auto game = host.ShownGame();
      if (game && game->match.position.currentTeam != team) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return false;
  }

  testing::TempFolder folder_;
  int port_ = testing::FreeLoopbackPort();
};

TEST_F(NetPlayNodeTest, AWholeGameEndsAlikeOnTheHostAndBothClients) {
  auto host = Host("Hosty");
  // Anarchy under Kingdom Lost: the last team standing wins.
  host->Send("new --type 3 --rule 2 --name NetGame");
  ASSERT_TRUE(host->WaitFor("mode 1")) << host->Recent();
  auto alice = Join("Alice", 1);
  auto bob = Join("Bob", 2);
  ASSERT_TRUE(host->WaitFor("chat      *** Bob has joined.")) << host->Recent();
  host->Send("assign 1 1");
  host->Send("assign 2 2");
  host->Send("computer 3 2");
  EXPECT_EQ(host->Seats(),
            (std::vector<std::string>{"seat 1 0 1 Alice", "seat 2 0 2 Bob", "seat 3 2 0 Comp (Bal)",
                                      "seat 4 0 0 Hosty(host/you)"}));
  EXPECT_TRUE(SeatsBecome(*alice, {"seat 1 0 1 Alice(you)", "seat 2 0 2 Bob",
                                   "seat 3 2 0 Comp (Bal)", "seat 4 0 0 Hosty(host)"}))
      << alice->Recent();

  // Two rounds of moves, the computer playing Black; Red is the host's player.
  for (int round = 1; round <= 2; ++round) {
    ASSERT_TRUE(PlayTurn(*alice, *host)) << alice->Recent() << host->Recent();
    ASSERT_TRUE(PlayTurn(*bob, *host)) << bob->Recent() << host->Recent();
    ASSERT_TRUE(ComputerTurn(*host, kBlack)) << host->Recent();
    ASSERT_TRUE(PlayTurn(*host, *host)) << host->Recent();
  }
  EXPECT_EQ(ShowDifference(*host, *alice), "");

  // White goes to the computer in the middle of Alice's selection, which the
  // computer drops to play the turn; then the seat is hers again.
  ASSERT_TRUE(ReachesTurn(*alice, 30 + kWhite)) << alice->Recent();
  auto piece = FirstMarked(*alice->ShownGame(), kMarkMoveable);
  ASSERT_TRUE(piece);
  alice->Send("click " + std::to_string(piece->x) + " " + std::to_string(piece->y));
  ASSERT_TRUE(host->WaitFor("mode 2")) << host->Recent();
  host->Send("computer 1 1");
  ASSERT_TRUE(ComputerTurn(*host, kWhite)) << host->Recent();
  host->Send("assign 1 1");
  ASSERT_TRUE(PlayTurn(*bob, *host)) << bob->Recent() << host->Recent();
  ASSERT_TRUE(ComputerTurn(*host, kBlack)) << host->Recent();
  ASSERT_TRUE(PlayTurn(*host, *host)) << host->Recent();

  // Then every human team gives up in its turn, and Black is left standing.
  ASSERT_TRUE(PlayTurn(*alice, *host, "resign")) << alice->Recent() << host->Recent();
  ASSERT_TRUE(PlayTurn(*bob, *host, "resign")) << bob->Recent() << host->Recent();
  ASSERT_TRUE(ComputerTurn(*host, kBlack)) << host->Recent();
  ASSERT_TRUE(ReachesTurn(*host, 40 + kRed)) << host->Recent();
  host->Send("resign");
  for (NodeProcess* node : {host.get(), alice.get(), bob.get()})
    ASSERT_TRUE(node->WaitFor("mode 7")) << node->Recent();
  auto shown = host->Show();
  ASSERT_TRUE(shown);
  EXPECT_EQ(alice->Show(), shown);
  EXPECT_EQ(bob->Show(), shown);
  auto end = host->ShownGame();
  ASSERT_TRUE(end);
  EXPECT_EQ(end->match.position.kingdomFallen, (PerTeam<bool>{true, true, false, true}));

  // The end of a client's input ends it; a host ends on a signal.
  alice->CloseInput();
  EXPECT_EQ(alice->WaitForExit(), 0);
  EXPECT_TRUE(host->WaitFor("chat      *** Alice has disconnected")) << host->Recent();
  host->CloseInput();
  bob->Send("quit");
  EXPECT_EQ(bob->WaitForExit(), 0);
  EXPECT_TRUE(host->WaitFor("chat      *** Bob has disconnected")) << host->Recent();
  host->Kill(SIGTERM);
  EXPECT_EQ(host->WaitForExit(), 0);
}

TEST_F(NetPlayNodeTest, AClientJoiningMidSelectionShowsTheSameSelection) {
  auto host = Host("Hosty");
  host->Send("new --name Watched");
  ASSERT_TRUE(host->WaitFor("mode 1")) << host->Recent();
  auto piece = FirstMarked(*host->ShownGame(), kMarkMoveable);
  ASSERT_TRUE(piece);
  host->Send("click " + std::to_string(piece->x) + " " + std::to_string(piece->y));
  ASSERT_TRUE(host->WaitFor("mode 2")) << host->Recent();
  auto carol = Join("Carol", 1);
  EXPECT_EQ(ShowDifference(*host, *carol), "") << carol->Recent();

  auto destination = FirstMarked(*host->ShownGame(), kMarkDestination);
  ASSERT_TRUE(destination);
  host->Send("click " + std::to_string(destination->x) + " " + std::to_string(destination->y));
  ASSERT_TRUE(host->WaitFor("mode 3")) << host->Recent();
  auto dave = Join("Dave", 2);
  EXPECT_EQ(ShowDifference(*host, *dave), "") << dave->Recent();
  EXPECT_EQ(ShowDifference(*host, *carol), "") << carol->Recent();
}

TEST_F(NetPlayNodeTest, AClientKilledInItsMoveLeavesTheSeatToTheHost) {
  auto host = Host("Hosty");
  host->Send("new --name Broken");
  ASSERT_TRUE(host->WaitFor("mode 1")) << host->Recent();
  auto alice = Join("Alice", 1);
  auto bob = Join("Bob", 2);
  ASSERT_TRUE(host->WaitFor("chat      *** Bob has joined.")) << host->Recent();
  host->Send("assign 1 1");
  host->Send("assign 2 2");
  ASSERT_TRUE(SeatsBecome(*alice, {"seat 1 0 1 Alice(you)", "seat 2 0 2 Bob",
                                   "seat 3 0 0 Hosty(host)", "seat 4 0 0 Hosty(host)"}))
      << alice->Recent();

  auto piece = FirstMarked(*alice->ShownGame(), kMarkMoveable);
  ASSERT_TRUE(piece);
  alice->Send("click " + std::to_string(piece->x) + " " + std::to_string(piece->y));
  ASSERT_TRUE(host->WaitFor("mode 2")) << host->Recent();
  alice->Kill(SIGKILL);
  ASSERT_TRUE(host->WaitFor("chat      *** Alice has disconnected")) << host->Recent();
  EXPECT_EQ(host->Seats(),
            (std::vector<std::string>{"seat 1 0 0 Hosty(host/you)", "seat 2 0 2 Bob",
                                      "seat 3 0 0 Hosty(host/you)", "seat 4 0 0 Hosty(host/you)"}));
  EXPECT_TRUE(SeatsBecome(*bob, {"seat 1 0 0 Hosty(host)", "seat 2 0 2 Bob(you)",
                                 "seat 3 0 0 Hosty(host)", "seat 4 0 0 Hosty(host)"}))
      << bob->Recent();

  // The host's player finishes White's move, and Bob plays on.
  ASSERT_TRUE(PlayTurn(*host, *host)) << host->Recent();
  ASSERT_TRUE(PlayTurn(*bob, *host)) << bob->Recent() << host->Recent();
  EXPECT_EQ(ShowDifference(*host, *bob), "");
}

TEST_F(NetPlayNodeTest, RefusedCommandsChangeNothingAndFailuresAreTold) {
  auto host = Host("Hosty");
  auto second =
      NodeProcess({"host", "--port", std::to_string(port_), "--name", "Other"}, folder_.Slashed());
  EXPECT_EQ(second.WaitForExit(), 1) << "a port in use";

  host->Send("new --name Refusals");
  ASSERT_TRUE(host->WaitFor("mode 1")) << host->Recent();
  auto alice = Join("Alice", 1);
  ASSERT_TRUE(ReachesTurn(*alice, 11));
  const auto before = alice->Show();
  alice->Send("move 8 13 8 11");
  EXPECT_EQ(alice->WaitFor("error"), "error this node does not hold the seat of White");
  alice->Send("assign 1 1");
  EXPECT_EQ(alice->WaitFor("error"), "error only the host can assign seats");
  host->Send("assign 1 1");
  ASSERT_TRUE(SeatsBecome(*alice, {"seat 1 0 1 Alice(you)", "seat 2 0 0 Hosty(host)",
                                   "seat 3 0 0 Hosty(host)", "seat 4 0 0 Hosty(host)"}));
  alice->Send("move 8 13 8 7");
  EXPECT_EQ(alice->WaitFor("error"), "error White has no move from (8, 13) to (8, 7)");
  alice->Send("click 8 x");
  EXPECT_EQ(alice->WaitFor("error"), "error bad number 'x'");
  host->Send("computer 2 4");
  EXPECT_EQ(host->WaitFor("error"), "error '4' is not from 1 to 3");
  host->Send("assign 2 7");
  EXPECT_EQ(host->WaitFor("error"), "error node 7 is not here");
  EXPECT_EQ(alice->Show(), before);
  EXPECT_EQ(ShowDifference(*host, *alice), "");

  // Nobody listens on the second port: the client tells and keeps running.
  auto lonely = NodeProcess({"join", "--address", "127.0.0.1", "--port",
                             std::to_string(testing::FreeLoopbackPort()), "--name", "Lonely"},
                            folder_.Slashed());
  EXPECT_TRUE(lonely.WaitFor("chat A NetPlay error has been detected.")) << lonely.Recent();
  lonely.Send("quit");
  EXPECT_EQ(lonely.WaitForExit(), 0);
}

TEST_F(NetPlayNodeTest, ChatSaveLoadAndBootReachEveryNode) {
  auto host = Host("Hosty");
  host->Send("new --name Talk");
  ASSERT_TRUE(host->WaitFor("mode 1")) << host->Recent();
  auto alice = Join("Alice", 1);
  host->Send("chat  hello }all ");
  EXPECT_EQ(host->WaitFor("chat  \u00BBHosty"), "chat  \u00BBHosty: hello }all");
  EXPECT_EQ(alice->WaitFor("chat Hosty"), "chat Hosty: hello }all");
  alice->Send("chat back");
  EXPECT_EQ(host->WaitFor("chat Alice"), "chat Alice: back");
  EXPECT_EQ(alice->WaitFor("chat  \u00BBAlice"), "chat  \u00BBAlice: back")
      << "the sender sees its line when the host sends it back";
  host->Send("nodes");
  EXPECT_EQ(host->WaitFor("nodes"), "nodes 2");
  EXPECT_EQ(host->WaitFor("Alice"), "Alice");

  // The host saves, starts another game, and loads the saved one again.
  const auto saved = host->Show();
  host->Send("save talk.vsh");
  host->Send("new --name Other");
  ASSERT_TRUE(alice->WaitFor("game Other")) << alice->Recent();
  host->Send("load talk.vsh");
  EXPECT_TRUE(alice->WaitFor("chat *** Hosty (host) has loaded a game: 'Talk")) << alice->Recent();
  EXPECT_EQ(host->Show(), saved);
  EXPECT_EQ(ShowDifference(*host, *alice), "");
  NodeProcess loaded(
      {"host", "--port", std::to_string(testing::FreeLoopbackPort()), "--game", "talk.vsh"},
      folder_.Slashed());
  EXPECT_EQ(loaded.Show(), saved) << "a host loads its --game before it listens";

  host->Send("boot 1 too chatty");
  EXPECT_TRUE(alice->WaitFor("chat ***** You are being booted by the host!")) << alice->Recent();
  EXPECT_EQ(alice->WaitFor("chat REASON"), "chat REASON: 'too chatty'");
  EXPECT_TRUE(host->WaitFor("chat      *** Alice has disconnected")) << host->Recent();
  host->Send("nodes");
  EXPECT_EQ(host->WaitFor("nodes"), "nodes 1");
}

}  // namespace
}  // namespace varkesh
