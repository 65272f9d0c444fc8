// varkesh-cli host under floods on the loopback: an endless message, a client
// that never reads, a chat flood, a crowd of connections, the checksums of
// many watchers. The host must keep its memory, its limits and its pace
// while the well-behaved nodes play on.
#include <sys/types.h>

#include <chrono>
#include <fstream>
#include <thread>

#include "netplay_fixture.h"
#include "raw_peer.h"

namespace varkesh::testing {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kMiB = 1024 * 1024;
constexpr std::size_t kGiB = 1024 * kMiB;
// Growth of the host's peak memory that a flood may cost at the most: the
// limits hold 4 MiB for a peer, and the rest is the host's own bookkeeping.
constexpr long kFloodGrowthKiB = 16 * 1024;

double SecondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

// The peak memory of the process starts again from what it holds now.
void ResetPeak(pid_t pid) {
  std::ofstream("/proc/" + std::to_string(pid) + "/clear_refs") << "5";
}

class NetPlayStressTest : public NetPlayProcessTest {
 protected:
  // A game where Alice holds White and the host every other seat.
  void StartWithAlice(const std::string& gameName) {
    host_ = Host();
    ASSERT_TRUE(host_);
    host_->Send("new --name " + gameName);
    ASSERT_TRUE(host_->WaitFor("mode 1")) << host_->Recent();
    alice_ = Join("Alice");
    ASSERT_TRUE(alice_);
    host_->Send("assign 1 1");
    ASSERT_TRUE(SeatsBecome(*alice_, {"seat 1 0 1 Alice(you)", "seat 2 0 0 Hosty(host)",
                                      "seat 3 0 0 Hosty(host)", "seat 4 0 0 Hosty(host)"}))
        << alice_->Recent();
  }
  // One whole round: Alice plays White, the host the rest.
  void PlayRound() {
    ASSERT_TRUE(PlayTurn(*alice_, *host_)) << alice_->Recent() << host_->Recent();
    for (int team = kBlue; team <= kRed; ++team)
      ASSERT_TRUE(PlayTurn(*host_, *host_)) << host_->Recent();
  }
  void MemoryFigures(const std::string& what, long beforeKiB) {
    const long after = StatusKiB(host_->Pid(), "VmRSS");
    const long peak = StatusKiB(host_->Pid(), "VmHWM");
    Figure(what + " host VmRSS before (KiB)", std::to_string(beforeKiB));
    Figure(what + " host VmRSS after (KiB)", std::to_string(after));
    Figure(what + " host VmHWM during (KiB)", std::to_string(peak));
    if (!kSanitized) {
      EXPECT_LT(peak - beforeKiB, kFloodGrowthKiB) << "the host kept the flood";
    }
  }

  std::unique_ptr<NodeProcess> host_;
  std::unique_ptr<NodeProcess> alice_;
};

TEST_F(NetPlayStressTest, AMessageThatNeverEndsIsCutOffAndCostsTheHostNoMemory) {
  ASSERT_NO_FATAL_FAILURE(StartWithAlice("Endless"));
  ASSERT_NO_FATAL_FAILURE(PlayRound());
  const long before = StatusKiB(host_->Pid(), "VmRSS");
  ResetPeak(host_->Pid());

  host_->ExpectErrors();  // the cut is logged
  RawPeer flood(port_);
  ASSERT_EQ(flood.Join("Flood"), 2);
  ASSERT_TRUE(host_->WaitFor("chat      *** Flood has joined.")) << host_->Recent();
  const auto start = Clock::now();
  const std::size_t sent = flood.Stream(kGiB, 60.0);
  EXPECT_TRUE(flood.WaitClosed(10.0)) << "the host still listens after " << sent << " bytes";
  EXPECT_LT(sent, kGiB) << "the host read a whole GiB";
  Figure("endless message: bytes that went out before the host closed", std::to_string(sent));
  Figure("endless message: seconds until the host closed", std::to_string(SecondsSince(start)));
  EXPECT_TRUE(host_->WaitFor("chat      *** Flood has disconnected")) << host_->Recent();
  MemoryFigures("endless message:", before);
  EXPECT_NE(NetLog().find("bytes; the connection is closed"), std::string::npos) << NetLog();

  ASSERT_NO_FATAL_FAILURE(PlayRound());
  EXPECT_EQ(ShowDifference(*host_, *alice_), "");
}

// Computer moves carry some twenty bytes a move: the host's own long chat
// lines bring the backlog of a client that never reads past its limit.
TEST_F(NetPlayStressTest, AClientThatNeverReadsIsLetGoOnceItsBacklogPassesTheLimit) {
  host_ = Host();
  ASSERT_TRUE(host_);
  host_->Send("new --players 2,2,2,2 --name Backlog");
  ASSERT_TRUE(host_->WaitFor("mode ")) << host_->Recent();
  alice_ = Join("Alice");
  ASSERT_TRUE(alice_);
  const long before = StatusKiB(host_->Pid(), "VmRSS");
  ResetPeak(host_->Pid());

  // Little can wait unread in the sink's own buffers.
  host_->ExpectErrors();  // letting the sink go is logged
  RawPeer sink(port_, 4096);
  ASSERT_EQ(sink.Join("Sink"), 2);
  ASSERT_TRUE(alice_->WaitFor("chat      *** Sink has joined.")) << alice_->Recent();
  const std::string filler(32 * 1024, 'z');
  const auto start = Clock::now();
  std::size_t relayed = 0;
  const std::string dropped = "chat      *** Sink has disconnected";
  for (int line = 0; !host_->Seen(dropped) && relayed < 64 * kMiB; ++line) {
    const std::string tag = "L" + std::to_string(line) + " ";
    host_->Send("chat " + tag + filler);
    // Both keep reading their output, so that neither stops reading the net.
    ASSERT_TRUE(host_->WaitFor("chat  \u00BBHosty: " + tag)) << host_->Recent();
    ASSERT_TRUE(alice_->WaitFor("chat Hosty: " + tag)) << alice_->Recent();
    relayed += filler.size();
  }
  EXPECT_TRUE(host_->Seen(dropped)) << host_->Recent();
  EXPECT_GE(relayed, 4 * kMiB) << "let go before its backlog reached the limit";
  Figure("backlog: bytes of chat relayed until the sink was let go", std::to_string(relayed));
  Figure("backlog: seconds until the sink was let go", std::to_string(SecondsSince(start)));
  EXPECT_NE(NetLog().find("does not read what is sent to it"), std::string::npos) << NetLog();
  MemoryFigures("backlog:", before);
  EXPECT_TRUE(sink.WaitClosed(10.0));

  // The computer played on through it all. Then the host's player takes
  // every seat, as a computer game may never end, and plays a round, unless
  // the game is over already.
  Figure("backlog: rounds the computer played",
         std::to_string(host_->ShownGame()->match.position.roundNumber));
  for (int team = kWhite; team <= kRed; ++team)
    host_->Send("assign " + std::to_string(team) + " 0");
  // A computer move chosen before the seats changed is still played, so the
  // player's turn is the first mode line after it, not one from earlier.
  const auto deadline = Clock::now() + std::chrono::seconds(10);
  bool playersTurn = false;
  while (!playersTurn && !host_->Seen("mode 7") && Clock::now() < deadline) {
    const std::optional<std::string> line = host_->WaitFor("mode ", 0.1);
    playersTurn = line && *line == "mode 1";
  }
  if (!host_->Seen("mode 7")) {
    for (int team = kWhite; team <= kRed; ++team)
      ASSERT_TRUE(PlayTurn(*host_, *host_)) << host_->Recent();
  }
  EXPECT_EQ(ShowDifference(*host_, *alice_), "");
}

// Each watcher of the extension answers every move with its checksum: a
// computer game moves fast, and a player's move that comes after must not
// wait behind all those checksums at the host.
TEST_F(NetPlayStressTest, APlayersMoveIsNotHeldUpByEightWatchersOfAComputerGame) {
  host_ = Host();
  ASSERT_TRUE(host_);
  std::vector<std::unique_ptr<NodeProcess>> watchers;
  for (const char* name : {"Alice", "W2", "W3", "W4", "W5", "W6", "W7", "W8"}) {
    watchers.push_back(StartClient(port_, name, folder_.Slashed(), false));
    ASSERT_TRUE(watchers.back());
  }
  ASSERT_TRUE(NodeCountBecomes(*host_, 9)) << host_->Recent();
  host_->Send("new --players 2,2,2,2 --name Busy");
  const auto stretch = Clock::now();
  while (SecondsSince(stretch) < 3.0) {
    host_->ReadFor(0.02);
    for (auto& watcher : watchers) watcher->ReadFor(0.005);
  }

  // Then a game of people, every seat Alice's.
  bool started = false;
  for (int attempt = 0; attempt < 10 && !started; ++attempt) {
    host_->Send("new --name People");
    started = host_->WaitFor("game People (", 1.0).has_value();
  }
  ASSERT_TRUE(started) << host_->Recent();
  for (int team = kWhite; team <= kRed; ++team)
    host_->Send("assign " + std::to_string(team) + " 1");
  NodeProcess& alice = *watchers[0];
  ASSERT_TRUE(SeatsBecome(alice, {"seat 1 0 1 Alice(you)", "seat 2 0 1 Alice(you)",
                                  "seat 3 0 1 Alice(you)", "seat 4 0 1 Alice(you)"}))
      << alice.Recent();
  const int white = TurnKey(*host_->ShownGame());
  ASSERT_TRUE(ReachesTurn(alice, white)) << alice.Recent();
  auto move = FirstLegalMove(*alice.ShownGame());
  ASSERT_TRUE(move);
  alice.Send(move->Command());
  const auto moved = Clock::now();
  EXPECT_TRUE(LeavesTurn(*host_, white, 30.0)) << host_->Recent();
  const double seconds = SecondsSince(moved);
  Figure("watched computer game: seconds until a player's move took effect",
         std::to_string(seconds));
  EXPECT_LT(seconds, 3.0);
  EXPECT_EQ(NetLog().find("queue is full"), std::string::npos) << NetLog();
  EXPECT_EQ(ShowDifference(*host_, alice), "");
  EXPECT_EQ(ShowDifference(*host_, *watchers[7]), "");
}

TEST_F(NetPlayStressTest, AChatFloodIsCutToEightLinesInTenSecondsWithOneNotice) {
  ASSERT_NO_FATAL_FAILURE(StartWithAlice("Chatty"));
  auto bob = Join("Bob");
  ASSERT_TRUE(bob);
  ASSERT_TRUE(alice_->WaitFor("chat      *** Bob has joined.")) << alice_->Recent();

  const auto start = Clock::now();
  for (int line = 0; line < 200; ++line) {
    alice_->Send("chat flood " + std::to_string(line));
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  Figure("chat flood: seconds to send 200 lines", std::to_string(SecondsSince(start)));
  int relayed = 0;
  while (bob->WaitFor("chat Alice: flood ", 2.0)) ++relayed;
  EXPECT_EQ(relayed, 8) << bob->Recent();
  // Alice's own lines come back from the host; anything else is a notice.
  int echoed = 0;
  std::vector<std::string> notices;
  while (auto line = alice_->WaitFor("chat ", 1.0)) {
    if (line->rfind("chat  \u00BBAlice: flood ", 0) == 0)
      ++echoed;
    else if (*line != "chat ")
      notices.push_back(*line);
  }
  EXPECT_EQ(echoed, 8);
  ASSERT_EQ(notices.size(), 1u) << alice_->Recent();
  EXPECT_NE(notices[0].find('8'), std::string::npos) << notices[0];

  // Ten seconds on, the window has room again.
  std::this_thread::sleep_until(start + std::chrono::milliseconds(10'500));
  alice_->Send("chat later");
  EXPECT_EQ(bob->WaitFor("chat Alice: "), "chat Alice: later") << bob->Recent();

  ASSERT_NO_FATAL_FAILURE(PlayRound());
  EXPECT_EQ(ShowDifference(*host_, *alice_), "");
  EXPECT_EQ(ShowDifference(*host_, *bob), "");
}

TEST_F(NetPlayStressTest, OfAHundredConnectionsAtOnceTheSessionServesSixtyFour) {
  ASSERT_NO_FATAL_FAILURE(StartWithAlice("Crowd"));
  std::vector<std::unique_ptr<RawPeer>> crowd;
  const auto start = Clock::now();
  for (int i = 0; i < 100; ++i) crowd.push_back(std::make_unique<RawPeer>(port_));
  Figure("crowd: seconds to open 100 connections", std::to_string(SecondsSince(start)));
  int served = 0;
  int refused = 0;
  for (std::size_t i = 0; i < crowd.size(); ++i) {
    RawPeer& peer = *crowd[i];
    ASSERT_TRUE(peer.Connected()) << "connection " << i;
    auto first = peer.Next(10.0);
    ASSERT_TRUE(first) << "connection " << i << " heard nothing";
    if (VerbOf(*first) == "GYNI") {
      ++served;
      peer.Send("GMNI}Crowd" + std::to_string(i));
    } else if (*first == "GMSG}*** This session is full: 64 players at the most.") {
      ++refused;
      EXPECT_TRUE(peer.WaitClosed(5.0)) << "connection " << i;
    } else {
      ADD_FAILURE() << "connection " << i << " got " << *first;
    }
  }
  EXPECT_EQ(served, 63) << "Alice holds the 64th place";
  EXPECT_EQ(refused, 37);
  Figure("crowd: served", std::to_string(served));
  Figure("crowd: refused", std::to_string(refused));
  EXPECT_TRUE(NodeCountBecomes(*host_, 65)) << host_->Recent();

  // The session goes on: Alice plays, the crowd leaves, and a newcomer gets in.
  ASSERT_NO_FATAL_FAILURE(PlayRound());
  crowd.clear();
  ASSERT_TRUE(NodeCountBecomes(*host_, 2)) << host_->Recent();
  auto bob = Join("Bob");
  ASSERT_TRUE(bob);
  ASSERT_NO_FATAL_FAILURE(PlayRound());
  EXPECT_EQ(ShowDifference(*host_, *alice_), "");
  EXPECT_EQ(ShowDifference(*host_, *bob), "");
}

}  // namespace
}  // namespace varkesh::testing
