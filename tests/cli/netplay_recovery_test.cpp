// varkesh-cli host against peers that go wrong on the loopback: moves out of
// turn or against the rules, a client whose game drifted, a client killed
// and back, a client frozen. The host refuses, repairs or lets go, and the
// well-behaved nodes end with the host's game.
#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <thread>

#include "link_proxy.h"
#include "netplay_fixture.h"
#include "raw_peer.h"

namespace varkesh::testing {
namespace {

using Clock = std::chrono::steady_clock;

bool IsGameVerb(const std::string& verb) {
  return verb == "GUPM" || verb == "GUGS" || verb == "GAMV" || verb == "GRES" || verb == "GLGF";
}

// Reads until the peer has been quiet for a while: what joining brought.
void Drain(RawPeer& peer) {
  while (peer.Next(0.5)) {
  }
}

// The verbs that come up to and including the first `last`, keep-alives left out.
std::vector<std::string> VerbsThrough(RawPeer& peer, const std::string& last) {
  std::vector<std::string> verbs;
  while (auto message = peer.Next(5.0)) {
    const std::string verb = VerbOf(*message);
    if (verb == "GXKA") continue;
    verbs.push_back(verb);
    if (verb == last) break;
  }
  return verbs;
}

bool EndsWith(const std::vector<std::string>& verbs, const std::vector<std::string>& tail) {
  return verbs.size() >= tail.size() &&
         std::equal(tail.begin(), tail.end(), verbs.end() - static_cast<long>(tail.size()));
}

// The five messages by which a node's player picks a piece, its destination,
// and confirms: as the real client sends them.
void SendMove(RawPeer& peer, const PlannedMove& move) {
  peer.Send(Numbers("GUPM", {move.fromX, move.fromY, 0, 0}));
  peer.Send(Numbers("GUGS", {ModeChooseDestination}));
  peer.Send(Numbers("GUPM", {move.fromX, move.fromY, move.toX, move.toY}));
  peer.Send(Numbers("GUGS", {ModeConfirmMove}));
  peer.Send(Numbers("GAMV", {0, 0, 0}));
}

class NetPlayRecoveryTest : public NetPlayProcessTest {
 protected:
  void StartGame(const std::string& name) {
    host_ = Host();
    ASSERT_TRUE(host_);
    host_->Send("new --name " + name);
    ASSERT_TRUE(host_->WaitFor("mode 1")) << host_->Recent();
  }
  // Polls the host's log until it holds text after its first `from` characters.
  bool LogGets(const std::string& text, std::size_t from = 0) {
    const auto deadline = Clock::now() + std::chrono::seconds(10);
    while (Clock::now() < deadline) {
      if (NetLog().find(text, from) != std::string::npos) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return false;
  }

  std::unique_ptr<NodeProcess> host_;
};

TEST_F(NetPlayRecoveryTest, MovesWithoutTheSeatOrAgainstTheRulesAreRefusedAndTheSenderResynced) {
  ASSERT_NO_FATAL_FAILURE(StartGame("Authority"));
  host_->ExpectErrors();  // the rogue's moves are logged as refused
  auto alice = Join("Alice");
  ASSERT_TRUE(alice);
  RawPeer rogue(port_);
  ASSERT_EQ(rogue.Join("Rogue"), 2);
  RawPeer watcher(port_);
  ASSERT_EQ(watcher.Join("Watcher"), 3);
  host_->Send("assign 1 1");
  host_->Send("assign 2 2");
  ASSERT_TRUE(SeatsBecome(*alice, {"seat 1 0 1 Alice(you)", "seat 2 0 2 Rogue",
                                   "seat 3 0 0 Hosty(host)", "seat 4 0 0 Hosty(host)"}))
      << alice->Recent();
  Drain(rogue);
  Drain(watcher);

  // The rogue plays White's move, which is Alice's to play.
  const auto hostBefore = host_->Show();
  const auto aliceBefore = alice->Show();
  auto move = FirstLegalMove(*host_->ShownGame());
  ASSERT_TRUE(move);
  SendMove(rogue, *move);
  EXPECT_TRUE(EndsWith(VerbsThrough(rogue, "GUGS"), {"GLGF", "GUPM", "GUGS"}))
      << "the rogue is sent the game";
  std::this_thread::sleep_for(std::chrono::milliseconds(500));
  EXPECT_EQ(host_->Show(), hostBefore);
  EXPECT_EQ(alice->Show(), aliceBefore);
  EXPECT_FALSE(host_->Seen("mode 2")) << "the rogue's choice took effect";
  while (auto message = watcher.Next(1.0))
    EXPECT_FALSE(IsGameVerb(VerbOf(*message))) << "relayed: " << *message;
  EXPECT_TRUE(LogGets("was refused: the node does not hold the seat of White")) << NetLog();

  // Blue is the rogue's: a destination the rules do not list is refused...
  ASSERT_TRUE(PlayTurn(*alice, *host_)) << alice->Recent();
  Drain(rogue);
  Drain(watcher);
  const auto blue = host_->ShownGame();
  ASSERT_TRUE(blue);
  auto wrong = FirstIllegalMove(*blue);
  ASSERT_TRUE(wrong);
  SendMove(rogue, *wrong);
  EXPECT_TRUE(EndsWith(VerbsThrough(rogue, "GUGS"), {"GLGF", "GUPM", "GUGS"}));
  std::this_thread::sleep_for(std::chrono::milliseconds(500));
  const auto after = host_->ShownGame();
  ASSERT_TRUE(after);
  EXPECT_EQ(TurnKey(*after), TurnKey(*blue));
  EXPECT_EQ(after->match.position.board.at(wrong->fromX, wrong->fromY).piece,
            blue->match.position.board.at(wrong->fromX, wrong->fromY).piece);
  EXPECT_EQ(after->match.position.board.at(wrong->toX, wrong->toY).team,
            blue->match.position.board.at(wrong->toX, wrong->toY).team);
  while (auto message = watcher.Next(1.0))
    EXPECT_NE(VerbOf(*message), "GAMV") << "the move was relayed";
  EXPECT_TRUE(LogGets("not one the rules list")) << NetLog();
  EXPECT_EQ(ShowDifference(*host_, *alice), "");

  // ...and a move it may play goes through to everyone.
  auto right = FirstLegalMove(*blue);
  ASSERT_TRUE(right);
  SendMove(rogue, *right);
  EXPECT_TRUE(watcher.WaitFor("GAMV", 5.0));
  EXPECT_TRUE(LeavesTurn(*host_, TurnKey(*blue))) << host_->Recent();
  ASSERT_TRUE(PlayTurn(*host_, *host_)) << host_->Recent();
  EXPECT_EQ(ShowDifference(*host_, *alice), "");
}

TEST_F(NetPlayRecoveryTest, AClientWhoseGameDriftedIsSentTheGameAgain) {
  ASSERT_NO_FATAL_FAILURE(StartGame("Drift"));
  mismatchExpected_ = true;
  host_->ExpectErrors();
  // A peer of the extension that reports a checksum the host's game does not have.
  RawPeer liar(port_);
  ASSERT_EQ(liar.Join("Liar", true), 1);
  EXPECT_EQ(liar.WaitFor("GXHI", 5.0), "GXHI}2");
  auto sync = liar.WaitFor("GXSY", 5.0);
  ASSERT_TRUE(sync);
  const int joined = std::atoi(FieldsOf(*sync).at(0).c_str());
  ASSERT_TRUE(liar.WaitFor("GUGS", 5.0));
  ASSERT_TRUE(PlayTurn(*host_, *host_)) << host_->Recent();
  ASSERT_TRUE(liar.WaitFor("GAMV", 5.0));
  liar.Send("GXCK}" + std::to_string(joined + 1) + "\x01" + "12345");
  const std::vector<std::string> verbs = VerbsThrough(liar, "GUGS");
  EXPECT_TRUE(EndsWith(verbs, {"GXSY", "GLGF", "GUPM", "GUGS"})) << verbs.size() << " messages";
  EXPECT_TRUE(LogGets("differs from the host's after game event " + std::to_string(joined + 1)))
      << NetLog();

  // A real client that loses one move on the way plays on with a wrong
  // board; its checksum gives it away and the host repairs it.
  const std::size_t afterLiar = NetLog().size();
  auto alice = Join("Alice");
  ASSERT_TRUE(alice);
  std::atomic<bool> armed{false};
  LinkProxy proxy(port_, [&armed](const std::string& message) {
    return VerbOf(message) == "GAMV" && armed.exchange(false);
  });
  ASSERT_NE(proxy.Port(), 0);
  auto carol = StartClient(proxy.Port(), "Carol", folder_.Slashed());
  ASSERT_TRUE(carol);
  ASSERT_TRUE(PlayTurn(*host_, *host_)) << host_->Recent();
  EXPECT_EQ(ShowDifference(*host_, *carol), "");
  EXPECT_EQ(NetLog().find("differs from the host's", afterLiar), std::string::npos) << NetLog();
  const std::size_t logged = NetLog().size();
  armed = true;
  ASSERT_TRUE(PlayTurn(*host_, *host_)) << host_->Recent();
  ASSERT_TRUE(PlayTurn(*host_, *host_)) << host_->Recent();
  EXPECT_EQ(proxy.DroppedCount(), 1);
  EXPECT_TRUE(LogGets("differs from the host's", logged)) << NetLog();
  EXPECT_EQ(ShowDifference(*host_, *carol), "");
  ASSERT_TRUE(PlayTurn(*host_, *host_)) << host_->Recent();
  EXPECT_EQ(ShowDifference(*host_, *carol), "");
  EXPECT_EQ(ShowDifference(*host_, *alice), "");
}

TEST_F(NetPlayRecoveryTest, APlayerKilledAndBackUnderTheSameNameGetsTheSeatsStillFree) {
  ASSERT_NO_FATAL_FAILURE(StartGame("Comeback"));
  auto alice = Join("Alice");
  ASSERT_TRUE(alice);
  auto bob = Join("Bob");
  ASSERT_TRUE(bob);
  host_->Send("assign 1 1");
  host_->Send("assign 3 1");
  host_->Send("assign 2 2");
  ASSERT_TRUE(SeatsBecome(*bob, {"seat 1 0 1 Alice", "seat 2 0 2 Bob(you)", "seat 3 0 1 Alice",
                                 "seat 4 0 0 Hosty(host)"}))
      << bob->Recent();

  alice->Kill(SIGKILL);
  ASSERT_TRUE(host_->WaitFor("chat      *** Alice has disconnected")) << host_->Recent();
  // Meanwhile Black goes to Bob, and someone else joins under another name.
  host_->Send("assign 3 2");
  auto mallory = Join("Mallory");
  ASSERT_TRUE(mallory);
  EXPECT_TRUE(SeatsBecome(*mallory, {"seat 1 0 0 Hosty(host)", "seat 2 0 2 Bob", "seat 3 0 2 Bob",
                                     "seat 4 0 0 Hosty(host)"}))
      << mallory->Recent();

  // Mallory took Alice's old node number, 1; Alice comes back as node 3.
  auto back = Join("Alice");
  ASSERT_TRUE(back);
  const std::string notice = "chat      *** Alice is back and plays White again.";
  for (NodeProcess* node : {host_.get(), bob.get(), mallory.get(), back.get()})
    EXPECT_TRUE(node->Seen(notice) || node->WaitFor(notice)) << node->Recent();
  EXPECT_TRUE(SeatsBecome(*back, {"seat 1 0 3 Alice(you)", "seat 2 0 2 Bob", "seat 3 0 2 Bob",
                                  "seat 4 0 0 Hosty(host)"}))
      << back->Recent();
  EXPECT_TRUE(SeatsBecome(*bob, {"seat 1 0 3 Alice", "seat 2 0 2 Bob(you)", "seat 3 0 2 Bob(you)",
                                 "seat 4 0 0 Hosty(host)"}))
      << bob->Recent();

  ASSERT_TRUE(PlayTurn(*back, *host_)) << back->Recent();
  ASSERT_TRUE(PlayTurn(*bob, *host_)) << bob->Recent();
  ASSERT_TRUE(PlayTurn(*bob, *host_)) << bob->Recent();
  ASSERT_TRUE(PlayTurn(*host_, *host_)) << host_->Recent();
  EXPECT_EQ(ShowDifference(*host_, *back), "");
  EXPECT_EQ(ShowDifference(*host_, *bob), "");
  EXPECT_EQ(ShowDifference(*host_, *mallory), "");
}

TEST_F(NetPlayRecoveryTest, AFrozenClientIsLetGoWithinThirtySecondsWhileTheOthersPlayOn) {
  ASSERT_NO_FATAL_FAILURE(StartGame("Frozen"));
  auto alice = Join("Alice");
  ASSERT_TRUE(alice);
  auto bob = Join("Bob");
  ASSERT_TRUE(bob);
  auto carol = Join("Carol");
  ASSERT_TRUE(carol);
  host_->Send("assign 1 1");
  host_->Send("assign 2 2");
  host_->Send("assign 3 3");
  ASSERT_TRUE(SeatsBecome(*carol, {"seat 1 0 1 Alice", "seat 2 0 2 Bob", "seat 3 0 3 Carol(you)",
                                   "seat 4 0 0 Hosty(host)"}))
      << carol->Recent();
  ASSERT_TRUE(PlayTurn(*alice, *host_)) << alice->Recent();

  host_->ExpectErrors();  // the silence is logged
  carol->Kill(SIGSTOP);
  const auto frozen = Clock::now();
  ASSERT_TRUE(PlayTurn(*bob, *host_)) << bob->Recent();
  ASSERT_TRUE(host_->WaitFor("chat      *** Carol has disconnected", 35.0)) << host_->Recent();
  const double seconds = std::chrono::duration<double>(Clock::now() - frozen).count();
  Figure("frozen client: seconds from SIGSTOP until let go", std::to_string(seconds));
  EXPECT_LE(seconds, 30.0);
  EXPECT_GE(seconds, 14.0) << "let go sooner than twenty seconds of silence";
  // The quiet but living clients stay.
  host_->Send("nodes");
  EXPECT_EQ(host_->WaitFor("nodes "), "nodes 3");
  EXPECT_EQ(host_->WaitFor("Alice"), "Alice");
  EXPECT_EQ(host_->WaitFor("Bob"), "Bob");
  EXPECT_TRUE(LogGets("has been silent for 20 seconds")) << NetLog();

  // Black fell to the host, and the round goes on.
  ASSERT_TRUE(PlayTurn(*host_, *host_)) << host_->Recent();
  ASSERT_TRUE(PlayTurn(*host_, *host_)) << host_->Recent();
  ASSERT_TRUE(PlayTurn(*alice, *host_)) << alice->Recent();
  EXPECT_EQ(ShowDifference(*host_, *alice), "");
  EXPECT_EQ(ShowDifference(*host_, *bob), "");
  carol->Kill(SIGCONT);
  EXPECT_TRUE(carol->WaitFor("chat *** You have been disconnected from the host."))
      << carol->Recent();
}

}  // namespace
}  // namespace varkesh::testing
