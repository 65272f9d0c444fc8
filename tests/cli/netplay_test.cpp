// varkesh-cli host and join over real TCP on the loopback: a host and two
// clients as separate processes. The session itself, peers that speak only
// the protocol included, is tested in process; here the programs must
// really play a game together, and tell and exit as they should.
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "node_process.h"
#include "persist/temp_folder.h"

namespace varkesh::testing {
namespace {

class NetPlayProcessTest : public ::testing::Test {
 protected:
  // The nodes' logs go to the test's folder, where the test can read them.
  NetPlayProcessTest() { setenv("XDG_DATA_HOME", folder_.Slashed().c_str(), 1); }

  // A client in step with the host is never found to differ from it.
  void TearDown() override {
    EXPECT_EQ(NetLog().find("differs from the host's"), std::string::npos) << NetLog();
  }
  std::string NetLog() const { return FileText(LogPath()); }
  std::string LogPath() const { return folder_.File("varkesh/logs/error_netplay.log"); }
  std::unique_ptr<NodeProcess> Node(std::vector<std::string> words) {
    return std::make_unique<NodeProcess>(words, folder_.Slashed());
  }

  TempFolder folder_;
  int port_ = FreeLoopbackPort();
};

// The computer may have played before the host is asked.
bool ComputerPlays(NodeProcess& host, int team) {
  return PollUntil(
      {&host},
      [&] {
        auto game = host.ShownGame();
        return game && game->match.position.currentTeam != team;
      },
      10.0);
}

TEST_F(NetPlayProcessTest, AHostAndTwoOfOurClientsPlayAWholeGameThatEndsAlikeEverywhere) {
  auto host = StartHost(port_, "Hosty", folder_.Slashed());
  ASSERT_TRUE(host);
  // Anarchy under Kingdom Lost: the last team standing wins.
  host->Send("new --type 3 --rule 2 --name NetGame");
  ASSERT_TRUE(host->WaitFor("mode 1")) << host->Recent();
  auto alice = StartClient(port_, "Alice", folder_.Slashed());
  ASSERT_TRUE(alice);
  auto carol = StartClient(port_, "Carol", folder_.Slashed());
  ASSERT_TRUE(carol);
  ASSERT_TRUE(host->WaitFor("chat      *** Carol has joined.")) << host->Recent();
  host->Send("assign 1 1");
  host->Send("assign 2 2");
  host->Send("computer 3 2");
  const std::vector<std::string> seats{"seat 1 0 1 Alice(you)", "seat 2 0 2 Carol",
                                       "seat 3 2 0 Comp (Bal)", "seat 4 0 0 Hosty(host)"};
  EXPECT_TRUE(PollUntil({alice.get()}, [&] { return alice->Seats() == seats; })) << alice->Recent();

  // Commands a node may not give are refused, and change nothing.
  const auto before = host->Show();
  struct Refused {
    NodeProcess* node;
    const char* command;
    const char* error;
  };
  for (const Refused& refused :
       {Refused{alice.get(), "assign 1 1", "error only the host can assign seats"},
        Refused{alice.get(), "move 8 13 8 7", "error White has no move from (8, 13) to (8, 7)"},
        Refused{alice.get(), "click 8 x", "error bad number 'x'"},
        Refused{host.get(), "computer 2 4", "error '4' is not from 1 to 3"},
        Refused{host.get(), "assign 2 7", "error node 7 is not here"}}) {
    refused.node->Send(refused.command);
    EXPECT_EQ(refused.node->WaitFor("error"), refused.error) << refused.command;
  }
  EXPECT_EQ(host->Show(), before);

  // Two rounds: Alice plays White, Carol Blue, the computer Black, the host Red.
  for (int round = 1; round <= 2; ++round) {
    ASSERT_TRUE(PlayTurn(*alice, *host)) << alice->Recent() << host->Recent();
    ASSERT_TRUE(PlayTurn(*carol, *host)) << carol->Recent() << host->Recent();
    ASSERT_TRUE(ComputerPlays(*host, kBlack)) << host->Recent();
    ASSERT_TRUE(PlayTurn(*host, *host)) << host->Recent();
  }
  EXPECT_EQ(ShowDifference(*host, *alice), "");
  host->Send("save mid.vsh");
  const auto saved = host->Show();  // answered once the save is done

  // Then every human team gives up in its turn, and Black is left standing.
  ASSERT_TRUE(PlayTurn(*alice, *host, "resign")) << alice->Recent() << host->Recent();
  ASSERT_TRUE(ReachesTurn(*host, 30 + kBlue)) << host->Recent();
  ASSERT_TRUE(PlayTurn(*carol, *host, "resign")) << carol->Recent() << host->Recent();
  ASSERT_TRUE(ComputerPlays(*host, kBlack)) << host->Recent();
  ASSERT_TRUE(ReachesTurn(*host, 30 + kRed)) << host->Recent();
  host->Send("resign");
  for (NodeProcess* node : {host.get(), alice.get(), carol.get()})
    ASSERT_TRUE(node->WaitFor("mode 7")) << node->Recent();
  EXPECT_EQ(ShowDifference(*host, *alice), "");
  EXPECT_EQ(ShowDifference(*host, *carol), "");
  const auto end = host->ShownGame();
  ASSERT_TRUE(end);
  EXPECT_EQ(end->match.position.kingdomFallen, (PerTeam<bool>{true, true, false, true}));
  EXPECT_TRUE(NetLog().empty()) << NetLog();

  // A host loads its --game before it listens.
  auto loaded = Node({"host", "--port", std::to_string(FreeLoopbackPort()), "--game", "mid.vsh"});
  EXPECT_EQ(loaded->Show(), saved);

  // The end of a client's input ends it; a host ends on a signal.
  alice->CloseInput();
  EXPECT_EQ(alice->WaitForExit(), 0);
  EXPECT_TRUE(host->WaitFor("chat      *** Alice has disconnected")) << host->Recent();
  host->Kill(SIGTERM);
  EXPECT_EQ(host->WaitForExit(), 0);
}

TEST_F(NetPlayProcessTest, AHostOnABusyPortExitsNamingItsLogAndAClientWithoutAHostTellsAndRuns) {
  auto host = StartHost(port_, "Hosty", folder_.Slashed());
  ASSERT_TRUE(host);
  auto second = Node({"host", "--port", std::to_string(port_), "--name", "Zed"});
  EXPECT_EQ(second->WaitForExit(), 1);
  const std::string error = FileText(folder_.File("err-" + std::to_string(second->Pid()) + ".txt"));
  EXPECT_NE(error.find("cannot listen on port " + std::to_string(port_) + "; details are in '" +
                       LogPath() + "'"),
            std::string::npos)
      << error;
  EXPECT_TRUE(std::filesystem::exists(LogPath()));

  auto lonely = Node({"join", "--address", "127.0.0.1", "--port",
                      std::to_string(FreeLoopbackPort()), "--name", "Lonely"});
  EXPECT_TRUE(lonely->WaitFor("chat A NetPlay error has been detected.")) << lonely->Recent();
  lonely->Send("quit");
  EXPECT_EQ(lonely->WaitForExit(), 0);
}

}  // namespace
}  // namespace varkesh::testing
