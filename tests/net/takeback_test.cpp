// Take Back Move in a session: a client asks, the host's player answers,
// and on Yes every node, a peer that knows only the plain protocol too, goes
// on from the same earlier game.
#include "flow/takeback.h"
#include "net/extension.h"
#include "net/net_fixture.h"
#include "net/sending.h"
#include "support/first_move.h"

namespace varkesh::testing {
namespace {

class SessionTakeback : public NetTable {
 protected:
  PlainPeer* pat = nullptr;
  TakebackState redo;

  // Bob (ours) plays White, the computer Blue, Ann (the host) Black and Red;
  // Pat follows only the plain protocol and watches.
  Peer& SitDown() {
    StartGame(kAnarchy, {kHuman, kBalanced, kHuman, kHuman});
    Peer& bob = Join("Bob");
    pat = &PlainJoin("Pat");
    net::AssignSeat(host->node, kWhite, bob.game.net.myNodeId);
    Settle();
    return bob;
  }

  // The first listed move of the team on turn, by the node that holds it,
  // and the computer's move if it comes next.
  void PlayTurn() {
    const int team = host->game.match.position.currentTeam;
    Peer& mover =
        host->game.net.seatNode[static_cast<std::size_t>(team - 1)] == 0 ? *host : *clients.front();
    const varkesh::Move move = FirstListedMove(mover.game);
    Move(mover, move.fromX, move.fromY, move.toX, move.toY);
    Settle(8);
  }

  int QuestionsAsked() const {
    int count = 0;
    for (const auto& box : host->outside.boxes) count += box.question;
    return count;
  }

  // Every node stands where the host stands, and ours came there the same way.
  void ExpectAllAlike() {
    ExpectSameEverywhere();
    for (auto& client : clients)
      EXPECT_TRUE(client->game.match.record == host->game.match.record)
          << client->game.net.localPlayerName;
    EXPECT_EQ(pat->Count("GX"), 0) << "a plain peer is sent none of our verbs";
  }
};

TEST_F(SessionTakeback, OnYesEveryNodeGoesBackToTheAskersTurnAndPlaysOn) {
  Peer& bob = SitDown();
  EXPECT_FALSE(CanTakeBack(bob.game, bob.outside.Link())) << "nothing played yet";
  for (int turn = 0; turn < 3; ++turn) PlayTurn();
  ASSERT_EQ(host->game.match.position.currentTeam, kWhite);
  const Match whitesTurn = host->game.match;
  PlayTurn();  // White, then the computer's Blue
  ASSERT_EQ(host->game.match.position.currentTeam, kBlack);
  ASSERT_EQ(host->game.match.record.events.size(), 6u);
  EXPECT_TRUE(CanTakeBack(bob.game, bob.outside.Link()));
  EXPECT_FALSE(CanTakeBack(host->game, host->outside.Link())) << "White's move is Bob's";

  ASSERT_TRUE(TakeBack(bob.game, bob.outside, redo));
  EXPECT_TRUE(bob.view.Saw("*** You asked the host to take back White's last move."));
  EXPECT_FALSE(CanTakeBack(bob.game, bob.outside.Link())) << "one request at a time";
  network.Pump();
  Settle();

  ASSERT_FALSE(host->outside.boxes.empty());
  EXPECT_EQ(host->outside.boxes.back().title, "Take Back Move?");
  EXPECT_EQ(host->outside.boxes.back().text, "Bob asks to take back White's last move. Allow it?");
  EXPECT_EQ(host->game.match.position, whitesTurn.position);
  EXPECT_EQ(host->game.match.record, whitesTurn.record);
  EXPECT_EQ(bob.game.turn.gameMode, ModeChoosePiece);
  EXPECT_EQ(pat->messages.back().rfind("GLGF}", 0), 0u);
  EXPECT_TRUE(bob.view.Saw("*** White's last move was taken back, as Bob asked."));
  ExpectAllAlike();

  // Play goes on in step; then the host takes back its own move by itself.
  PlayTurn();
  const Match blacksTurn = host->game.match;
  PlayTurn();
  EXPECT_FALSE(CanTakeBack(bob.game, bob.outside.Link())) << "Black moved last: not Bob's";
  const int questions = QuestionsAsked();
  ASSERT_TRUE(TakeBack(host->game, host->outside, redo));
  network.Pump();
  Settle();
  EXPECT_EQ(QuestionsAsked(), questions);
  EXPECT_EQ(host->game.match.record, blacksTurn.record);
  EXPECT_FALSE(CanRedo(host->game, redo)) << "no redo in a session";
  ExpectAllAlike();
  EXPECT_TRUE(Log().empty()) << Log();
}

TEST_F(SessionTakeback, TheAskerIsToldOnNoOrWhenTheGameMovedOnAndAsksOnlyAHostThatAnnouncedIt) {
  Peer& bob = SitDown();
  PlayTurn();
  const std::string before = host->Text();
  const Record record = host->game.match.record;

  host->outside.yesNoAnswers.push_back(false);
  ASSERT_TRUE(TakeBack(bob.game, bob.outside, redo));
  network.Pump();
  Settle();
  EXPECT_EQ(host->Text(), before);
  ASSERT_FALSE(bob.outside.boxes.empty());
  EXPECT_EQ(bob.outside.boxes.back().text, "Ann did not allow the move to be taken back.");
  EXPECT_TRUE(CanTakeBack(bob.game, bob.outside.Link())) << "it may ask again";

  // Asked at a count the game has passed: refused without a question.
  const int questions = QuestionsAsked();
  bob.session.takebackAskedAt = bob.session.gameEvents - 1;
  net::SendToHost(bob.node, "GXTB}" + std::to_string(bob.session.gameEvents - 1));
  network.Pump();
  Settle();
  EXPECT_EQ(QuestionsAsked(), questions);
  EXPECT_EQ(bob.outside.boxes.back().text,
            "The move could not be taken back: the game has moved on.");
  EXPECT_NE(Log().find("and the game is at"), std::string::npos) << Log();
  EXPECT_EQ(host->Text(), before);
  EXPECT_EQ(host->game.match.record, record);
  ExpectAllAlike();

  // Only of a host that announced it, and not while the computer thinks.
  ASSERT_TRUE(CanTakeBack(bob.game, bob.outside.Link()));
  bob.session.peers[0].extensionVersion = net::kTakebackVersion - 1;
  EXPECT_FALSE(CanTakeBack(bob.game, bob.outside.Link()));
  EXPECT_FALSE(TakeBack(bob.game, bob.outside, redo));
  bob.session.peers[0].extensionVersion = net::kTakebackVersion;
  bob.game.turn.gameMode = ModeComputerThinks;
  EXPECT_FALSE(CanTakeBack(bob.game, bob.outside.Link()));
}

TEST_F(SessionTakeback, RequestsOfNodesWithoutTheSeatOrOutOfShapeAreRefused) {
  Peer& bob = SitDown();
  Peer& cid = Join("Cid");
  Settle();
  PlayTurn();
  const std::string before = host->Text();
  const std::string events = std::to_string(host->session.gameEvents);
  struct Case {
    Peer* sender;
    std::string message;
    std::string logged;
  };
  const Case cases[] = {
      {&cid, "GXTB}" + events, "does not hold the seat of White"},
      {&bob, "GXTB}", "does not fit its verb"},
      {&bob, "GXTB}-1", "does not fit its verb"},
      {&bob, "GXTB}" + events + "x", "does not fit its verb"},
      {&bob, "GXTB}" + events + kSep + "1", "does not fit its verb"},
      {&bob, "GXTB}99999999999", "does not fit its verb"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.message);
    const std::size_t logged = Log().size();
    net::SendToHost(c.sender->node, c.message);
    network.Pump();
    Settle();
    EXPECT_NE(Log().find(c.logged, logged), std::string::npos) << Log().substr(logged);
    EXPECT_EQ(host->Text(), before);
  }
  EXPECT_NE(Log().find("The host refused a takeback that was never asked for"), std::string::npos)
      << "Cid is told, and drops an answer it never asked for";

  // A second request while the first waits, and a plain peer's: dropped.
  const std::size_t logged = Log().size();
  net::SendToHost(bob.node, "GXTB}0");
  net::SendToHost(bob.node, "GXTB}0");
  pat->Send("GXTB}" + events);
  network.Pump();
  EXPECT_NE(Log().find("its earlier request is still waiting", logged), std::string::npos);
  EXPECT_NE(Log().find("never announced that it asks for takebacks", logged), std::string::npos);
  Settle();
  EXPECT_EQ(QuestionsAsked(), 0);
  EXPECT_EQ(host->Text(), before);
  ExpectAllAlike();
}

}  // namespace
}  // namespace varkesh::testing
