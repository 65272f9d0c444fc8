// Peers that misbehave, drift, drop or go silent: the host keeps the game of
// everyone else whole.
#include "net/net_fixture.h"
#include "net/sending.h"
#include "support/first_move.h"

namespace varkesh::testing {
namespace {

std::string Selection(int fromX, int fromY, int toX, int toY) {
  return net::NumberMessage("GUPM", {fromX, fromY, toX, toY});
}

class Guard : public NetTable {
 protected:
  // A client speaking the wire by hand, joined under name.
  std::unique_ptr<RawClient> RawJoin(const std::string& name, bool extended = false) {
    auto raw = std::make_unique<RawClient>(network.AddEndpoint());
    network.Pump();
    if (extended) raw->Send("GXHI}1");
    raw->Send("GMNI}" + name);
    network.Pump();
    return raw;
  }
};

TEST_F(Guard, GameMessagesOfANodeWithoutTheSeatOrOutsideTheRulesAreRefusedAndRepaired) {
  StartGame();
  Peer& bob = Join("Bob");
  auto mallory = RawJoin("Mallory");
  net::AssignSeat(host->node, kWhite, 1);
  Settle();
  const std::string before = host->Text();
  const varkesh::Move move = FirstListedMove(host->game);

  // Mallory holds no seat: a legal move of White's changes nothing anywhere.
  mallory->received.clear();
  for (const std::string& message :
       {Selection(move.fromX, move.fromY, move.toX, move.toY), std::string("GUGS}3"),
        std::string("GAMV}0") + kSep + "0" + kSep + "0", std::string("GRES}0")})
    mallory->Send(message);
  Settle();
  EXPECT_EQ(host->Text(), before);
  ExpectSameEverywhere();
  EXPECT_EQ(host->game.turn.gameMode, ModeChoosePiece);
  EXPECT_NE(Log().find("the node does not hold the seat of White"), std::string::npos);
  EXPECT_GE(Count(mallory->Messages(), "GLGF}"), 1) << "the sender gets the game again";

  // Now Mallory holds White, but still only the rules' moves pass.
  net::AssignSeat(host->node, kWhite, 2);
  Settle();
  for (const std::string& message :
       {Selection(move.fromX, move.fromY, 0, 0), std::string("GUGS}3"),
        Selection(move.fromX, move.fromY, move.toX, move.toY), std::string("GUGS}9"),
        std::string("GAMV}3") + kSep + "0" + kSep + "0",
        std::string("GAMV}1") + kSep + "4" + kSep + "4", std::string("GUPM}1") + kSep + "2"})
    mallory->Send(message);
  Settle();
  EXPECT_EQ(host->Text(), before);
  ExpectSameEverywhere();
  for (const char* reason :
       {"the chosen move is not one the rules list", "mode 9 is none a player's clicks reach",
        "the pawn option is not one the rules offer", "a square off the board"})
    EXPECT_NE(Log().find(reason), std::string::npos) << reason;

  // The plain move goes through, to everyone but its sender.
  mallory->received.clear();
  mallory->Send(Selection(move.fromX, move.fromY, move.toX, move.toY));
  mallory->Send("GAMV}0" + kSep + "0" + kSep + "0");
  Settle();
  EXPECT_EQ(host->game.match.position.currentTeam, kBlue);
  EXPECT_EQ(bob.game.match.position.currentTeam, kBlue);
  ExpectSameEverywhere();
  EXPECT_EQ(Count(mallory->Messages(), "GAMV}"), 0);
}

TEST_F(Guard, AClientWhoseBoardDriftedGetsTheGameAgainWithinOneMoveAndNoUnreadableOne) {
  StartGame();
  Peer& bob = Join("Bob");
  const varkesh::Move opening = FirstListedMove(host->game);
  Move(*host, opening.fromX, opening.fromY, opening.toX, opening.toY);
  Settle();
  // Seats that change between two moves are no drift, for those who saw the
  // move before the change nor for one who joins after it.
  net::AssignSeat(host->node, kRed, 1);
  Peer& cid = Join("Cid");
  net::AssignSeat(host->node, kBlack, 1);
  Settle();
  ASSERT_EQ(Log().find("differs"), std::string::npos);
  // A piece vanishes from Bob's board alone.
  const varkesh::Move move = FirstListedMove(host->game);
  Square& lost = bob.game.match.position.board.at(move.fromX, move.fromY);
  lost.team = kNoTeam;
  lost.piece = kNoPiece;
  ASSERT_NE(bob.Text(), host->Text());

  Move(*host, move.fromX, move.fromY, move.toX, move.toY);
  Settle();
  Settle();
  ExpectSameEverywhere();
  EXPECT_NE(Log().find("The game of node 1 differs from the host's"), std::string::npos);
  EXPECT_EQ(Log().find("The game of node 2 differs"), std::string::npos);
  EXPECT_EQ(bob.session.gameEvents, host->session.gameEvents);
  EXPECT_EQ(cid.session.gameEvents, host->session.gameEvents);

  // A game that cannot be read is logged and changes nothing.
  const std::string before = bob.Text();
  net::SendToNode(host->node, 1, "GLGF}not a game");
  Settle();
  EXPECT_EQ(bob.Text(), before);
  EXPECT_TRUE(bob.outside.boxes.empty()) << "no box for the host's fault";
  EXPECT_NE(Log().find("The game sent by the host cannot be read"), std::string::npos);
}

TEST_F(Guard, ChecksumsOfManyWatchersDoNotHoldUpAMove) {
  StartGame();
  auto player = RawJoin("Player", true);
  auto watcher = RawJoin("Watcher", true);
  net::AssignSeat(host->node, kWhite, 1);
  Settle();
  const std::string report = "GXCK}" + std::to_string(host->session.gameEvents) + kSep + "1";
  std::string burst;
  for (int i = 0; i < 200; ++i) burst += report + kEnd;
  watcher->transport.Send(watcher->connection, burst);
  network.Pump();
  const varkesh::Move move = FirstListedMove(host->game);
  player->Send(Selection(move.fromX, move.fromY, move.toX, move.toY));
  player->Send("GAMV}0" + kSep + "0" + kSep + "0");
  network.Pump();
  for (int pass = 0; pass < 3; ++pass) host->Pass();
  EXPECT_EQ(host->game.match.position.currentTeam, kBlue);
}

TEST_F(Guard, APlayerWhoRejoinsSoonUnderTheSameNameAndAddressGetsBackTheSeatsStillWithTheHost) {
  StartGame();
  Join("Bob");
  Peer& cid = Join("Cid");
  for (int team : {kWhite, kBlue, kRed}) net::AssignSeat(host->node, team, 1);
  Settle();
  network.Break(clients[0]->transport, clients[0]->session.nodeConnections[0]);
  network.Pump();
  ASSERT_EQ(host->game.net.seatNode, (PerTeam<int>{0, 0, 0, 0}));
  net::GiveSeatToComputer(host->node, kRed, kBalanced);
  host->outside.clock += 100.0;

  Peer& back = Join("Bob");
  Settle();
  EXPECT_EQ(host->game.net.seatNode, (PerTeam<int>{1, 1, 0, 0}));
  EXPECT_EQ(host->game.match.setup.playerKinds[3], kBalanced);
  EXPECT_EQ(back.game.net.seatNode, host->game.net.seatNode);
  EXPECT_EQ(cid.game.net.seatNode, host->game.net.seatNode);
  EXPECT_TRUE(cid.view.Saw("     *** Bob is back and plays White and Blue again."));
  EXPECT_TRUE(back.Text() == host->Text() && cid.Text() == host->Text());

  // Too late: the seats stay with the host.
  network.Break(back.transport, back.session.nodeConnections[0]);
  network.Pump();
  host->outside.clock += 121.0;
  Join("Bob");
  Settle();
  EXPECT_EQ(host->game.net.seatNode, (PerTeam<int>{0, 0, 0, 0}));

  // Only the dropped address takes the seats back.
  PlainPeer& pat = PlainJoin("Pat", "10.0.0.2");
  Settle();
  net::AssignSeat(host->node, kBlue, pat.myNode);
  Settle();
  pat.Break(network);
  network.Pump();
  ASSERT_EQ(host->game.net.seatNode[1], 0);
  PlainPeer& impostor = PlainJoin("Pat", "10.0.0.3");
  Settle();
  EXPECT_EQ(host->session.nodeNames[static_cast<std::size_t>(impostor.myNode)], "Pat");
  EXPECT_EQ(host->game.net.seatNode, (PerTeam<int>{}));
  PlainPeer& returned = PlainJoin("Pat", "10.0.0.2");
  Settle();
  EXPECT_EQ(host->game.net.seatNode[1], returned.myNode);
  EXPECT_EQ(returned.Text(), WriteGameText(host->game.match.position, host->game.match.setup));
}

TEST_F(Guard, OnlyPeersThatSpeakTheKeepAliveAreDroppedForSilence) {
  Peer& bob = Join("Bob");
  auto plain = RawJoin("Plain");
  ASSERT_TRUE(bob.session.peers[0].extended) << "the host answered the hello";
  ASSERT_TRUE(host->session.peers[1].extended);
  for (int second = 0; second < 15; ++second) {
    Tick(*host, 1.0);
    Tick(bob, 1.0);
  }
  EXPECT_TRUE(host->session.nodeInUse[1]) << "Bob's keep-alives kept him";
  Tick(*host, 60.0);
  EXPECT_TRUE(host->session.nodeInUse[1]) << "the host's own stall blames no peer";
  // Bob freezes: the host hears nothing from him any more.
  for (int second = 0; second < 21; ++second) Tick(*host, 1.0);
  EXPECT_FALSE(host->session.nodeInUse[1]);
  EXPECT_TRUE(host->session.nodeInUse[2]) << "a peer without keep-alives is never dropped";
  EXPECT_NE(Log().find("Node 1 has been silent for 20 seconds"), std::string::npos);
  EXPECT_NE(plain->connection, 0);

  // A client drops a host that went silent.
  Peer& cid = Join("Cid");
  for (int second = 0; second < 21; ++second) Tick(cid, 1.0);
  EXPECT_EQ(cid.session.nodeConnections[0], 0);
  EXPECT_TRUE(cid.view.Saw("*** You have been disconnected from the host."));
}

TEST_F(Guard, FloodsOfChatOrOfBadMessagesAreCut) {
  StartGame();
  Peer& bob = Join("Bob");
  auto talker = RawJoin("Talker");
  for (int line = 0; line < 20; ++line) talker->Send("GCHT}line " + std::to_string(line));
  network.Pump();
  EXPECT_TRUE(bob.view.Saw("Talker: line 7"));
  EXPECT_FALSE(bob.view.Saw("Talker: line 8"));
  EXPECT_EQ(Count(talker->Messages(), "GMSG}*** Too many chat lines"), 1);

  host->outside.clock += 10.0;
  talker->Send("GCHT}later");
  network.Pump();
  EXPECT_TRUE(bob.view.Saw("Talker: later"));
  // The host's own chat has no limit.
  for (int line = 0; line < 20; ++line) net::SendChat(host->node, "host " + std::to_string(line));
  network.Pump();
  EXPECT_TRUE(bob.view.Saw("Ann: host 19"));

  // Bad game messages fill neither the queue nor the log.
  std::string burst;
  for (int i = 0; i < 6000; ++i) burst += "GUGS}7" + kEnd;
  talker->transport.Send(talker->connection, burst);
  network.Pump();
  EXPECT_EQ(host->session.gameQueue.size(), net::kMaxQueuedMessages);
  for (int pass = 0; pass < 300; ++pass) host->Pass();
  EXPECT_LE(Occurrences(Log(), "--------------------"), 100);
}

TEST_F(Guard, PeersThatDoNotReadOrNeverEndAMessageAreLetGoAndNoOneElse) {
  Peer& bob = Join("Bob");
  auto sleeper = RawJoin("Sleeper");
  auto endless = RawJoin("Endless");
  endless->transport.Send(endless->connection, std::string(net::kMaxMessageBytes + 1, 'x'));
  network.Pump();
  EXPECT_FALSE(host->session.nodeInUse[3]);
  EXPECT_TRUE(host->session.nodeBuffers[3].empty());
  EXPECT_EQ(endless->connection, 0);
  EXPECT_NE(Log().find("A message longer than 65536 bytes; the connection is closed"),
            std::string::npos);

  // The sleeper is let go before its backlog passes the limit.
  network.StopReading(sleeper->transport, sleeper->connection);
  const std::string big(512 * 1024, 'x');
  for (int chunk = 0; chunk < 12; ++chunk) {
    net::SendToAllNodes(host->node, "GMSG}" + big, 0);
    network.Pump();
  }
  EXPECT_LE(host->transport.PendingBytes(host->session.nodeConnections[2]),
            net::kMaxBacklogBytes + big.size() + 16);
  Tick(*host, 1.0);
  EXPECT_FALSE(host->session.nodeInUse[2]);
  EXPECT_NE(Log().find("Node 2 does not read what is sent to it"), std::string::npos);
  EXPECT_TRUE(host->session.nodeInUse[1]);
  EXPECT_NE(bob.session.nodeConnections[0], 0);
}

}  // namespace
}  // namespace varkesh::testing
