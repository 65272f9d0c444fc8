// Joining, leaving, the node list, seats, chat and boot between a host and
// clients on the in-process network.
#include "net/net_fixture.h"
#include "support/first_move.h"

namespace varkesh::testing {
namespace {

TEST_F(NetTable, JoinersAreNumberedNamedAndListedAndOneLeavingFreesItsNodeAndSeats) {
  EXPECT_TRUE(host->view.Saw("Hosting as 'Ann' on IP=10.0.0.1, Port=5337 ..."));
  StartGame();
  Peer& bob = Join("Bob");
  Peer& cid = Join("Cid");
  EXPECT_EQ(bob.game.net.netRole, kNetClient);
  EXPECT_EQ(cid.game.net.myNodeId, 2);
  EXPECT_TRUE(cid.view.Saw("You are connected as Node #2") && cid.view.chatEnabled);
  EXPECT_TRUE(bob.view.Saw("     *** Cid has joined.") &&
              host->view.Saw("     *** Cid has joined."));
  const std::vector<net::NodeLine> hostList = {{"Ann (host/you)", 0}, {"Bob", 1}, {"Cid", 2}};
  const std::vector<net::NodeLine> bobList = {{"Ann (host)", 0}, {"Bob (you)", 1}, {"Cid", 2}};
  EXPECT_EQ(host->view.nodeLines, hostList);
  EXPECT_EQ(bob.view.nodeLines, bobList);

  RawClient watcher(network.AddEndpoint());
  network.Pump();
  watcher.Send("GMNI}Dee");
  net::AssignSeat(host->node, kBlue, 2);
  net::AssignSeat(host->node, kRed, 2);
  Settle();
  EXPECT_EQ(bob.game.net.seatNode, (PerTeam<int>{0, 2, 0, 2}));
  EXPECT_EQ(bob.view.captions[1], "Cid");

  watcher.received.clear();
  network.Break(clients[1]->transport, clients[1]->session.nodeConnections[0]);
  network.Pump();
  EXPECT_EQ(host->game.net.seatNode, (PerTeam<int>{}));
  EXPECT_TRUE(host->view.Saw("     *** Cid has disconnected"));
  const std::vector<std::string> told = watcher.Messages();
  ASSERT_EQ(told.size(), 3u);
  EXPECT_EQ(told[0], "GMSG}     *** Cid has disconnected");
  EXPECT_EQ(told[1], "GCNC}0" + kSep + "0" + kSep + "0" + kSep + "0" + kSep + "0" + kSep + "0" +
                         kSep + "0" + kSep + "0");
  EXPECT_EQ(told[2], "GCNL}3" + kSep + "Ann" + kSep + "Bob" + kSep + "\xFF" + kSep + "Dee");
  EXPECT_EQ(bob.view.captions[1], "Ann(host)");

  Peer& eve = Join("Eve");
  EXPECT_EQ(eve.game.net.myNodeId, 2);
  EXPECT_EQ(host->session.nodeCount, 3);
  EXPECT_EQ(watcher.Messages().back(),
            "GCNL}3" + kSep + "Ann" + kSep + "Bob" + kSep + "Eve" + kSep + "Dee");
}

TEST_F(NetTable, AJoinerDuringAComputerMoveCarriesItOutToo) {
  StartGame(kAnarchy, {kBalanced, kHuman, kHuman, kHuman});
  host->Pass();  // the computer chooses: mode 9
  ASSERT_EQ(host->game.turn.gameMode, ModeComputerMoves);
  Peer& bob = Join("Bob");
  Settle();
  EXPECT_EQ(bob.game.match.position.currentTeam, kBlue);
  ExpectSameEverywhere();
}

TEST_F(NetTable, AJoinerKeepsTheSeatsGivenWhileItLoadsAndShowsTheSameSelection) {
  StartGame();
  const varkesh::Move move = FirstListedMove(host->game);
  host->Click(move.fromX, move.fromY);
  host->Pass();
  Peer& bob = Join("Bob");
  ASSERT_FALSE(bob.session.gameQueue.empty()) << "the catch-up waits in the queue";
  net::GiveSeatToComputer(host->node, kBlack, kBalanced);
  network.Pump();
  Settle();
  EXPECT_EQ(bob.game.match.setup.playerKinds, host->game.match.setup.playerKinds);
  host->Click(move.toX, move.toY);
  host->Pass();
  Peer& cid = Join("Cid");
  Settle();
  ASSERT_EQ(host->game.turn.gameMode, ModeConfirmMove);
  for (Peer* client : {&bob, &cid}) {
    EXPECT_EQ(client->game.turn.gameMode, ModeConfirmMove) << client->game.net.localPlayerName;
    EXPECT_EQ(client->game.turn.moveFromX, move.fromX) << client->game.net.localPlayerName;
    EXPECT_EQ(client->game.turn.moveToY, move.toY) << client->game.net.localPlayerName;
  }
  ExpectSameEverywhere();
}

}  // namespace
}  // namespace varkesh::testing
