// Peers that follow only the protocol, against our host and clients: moves,
// resignations, names and chat reach them as they expect, and every game
// ends the same as the host's.
#include <algorithm>

#include "core/pawn_options.h"
#include "core/rules.h"
#include "flow/resign.h"
#include "net/extension.h"
#include "net/net_fixture.h"
#include "net/session.h"
#include "support/first_move.h"

namespace varkesh::testing {
namespace {

// A pawn of the team on turn put where its next step enters a keep with
// nothing to offer; the position is changed so. The empty keep of a kingdom
// fallen under Kingdom Lost is such a keep: Red's falls first when needed.
std::optional<varkesh::Move> PlaceLostPawn(Position& position) {
  for (const bool redFalls : {false, true}) {
    Position base = position;
    if (redFalls) {
      if (base.currentTeam == kRed) return std::nullopt;
      for (Square& square : base.board.squares)
        if (square.team == kRed) {
          square.team = kNoTeam;
          square.piece = kNoPiece;
        }
      base.kingdomFallen[kRed - 1] = true;
    }
    for (int y = 0; y < kBoardSide; ++y) {
      for (int x = 0; x < kBoardSide; ++x) {
        if (!Board::InBounds(x, y) || base.board.at(x, y).piece != kNoPiece) continue;
        Position trial = base;
        trial.board.at(x, y).team = trial.currentTeam;
        trial.board.at(x, y).piece = kPawn;
        trial.Refresh();
        MoveList moves;
        ListMoves(trial, moves);
        for (const Move& move : moves) {
          if (move.fromX != x || move.fromY != y) continue;
          if (PawnOptionsOfMove(trial, x, y, move.toX, move.toY).effects.pawn != PawnOutcome::Lost)
            continue;
          position = trial;
          return move;
        }
      }
    }
  }
  return std::nullopt;
}

class PlainTable : public NetTable {
 protected:
  void StartWith(int rule, PerTeam<int> players = {}) {
    StartGame(kAnarchy, players, rule);
    Settle();
  }
  // The host's game changed by hand and sent to everyone as a loaded one.
  std::optional<varkesh::Move> SendLostPawnPosition() {
    Position position = host->game.match.position;
    std::optional<varkesh::Move> move = PlaceLostPawn(position);
    EXPECT_FALSE(
        LoadGameText(host->game, host->outside, WriteGameText(position, host->game.match.setup)));
    host->link.TellGameStarted(host->game, true);
    network.Pump();
    Settle();
    return move;
  }
};

TEST_F(PlainTable, APawnLostInAKeepIsGoneOnEveryNodeWhoeverMovesIt) {
  StartGame();
  Peer& bob = Join("Bob");
  PlainPeer& pat = PlainJoin("Pat");
  PlainPeer& quinn = PlainJoin("Quinn");
  Settle();
  // White by the plain peer, Blue by the host, Black by our client; Red's
  // kingdom falls for the first lost pawn.
  net::AssignSeat(host->node, kWhite, pat.myNode);
  net::AssignSeat(host->node, kBlack, 1);
  Settle();
  const std::string plainMove = "GAMV}0" + kSep + "0" + kSep + "0";

  std::optional<varkesh::Move> white = SendLostPawnPosition();
  ASSERT_TRUE(white);
  const int imagesBefore = pat.Count("GLGF}");
  pat.MoveAs(white->fromX, white->fromY, white->toX, white->toY);
  network.Pump();
  Settle();
  EXPECT_EQ(host->game.match.position.board.at(white->toX, white->toY).piece, kNoPiece);
  EXPECT_EQ(pat.Count("GLGF}"), imagesBefore) << "the mover's own game needs nothing";
  EXPECT_EQ(host->game.match.position.currentTeam, kBlue);
  ExpectSameEverywhere();

  for (Peer* mover : {host.get(), &bob}) {
    ASSERT_TRUE(net::SpeaksExtension(host->session, 1));
    std::optional<varkesh::Move> lost = SendLostPawnPosition();
    ASSERT_TRUE(lost);
    quinn.messages.clear();
    Move(*mover, lost->fromX, lost->fromY, lost->toX, lost->toY);
    Settle();
    EXPECT_EQ(host->game.match.position.board.at(lost->toX, lost->toY).piece, kNoPiece);
    ASSERT_GE(quinn.Count("GLGF}"), 1) << mover->game.net.localPlayerName;
    EXPECT_EQ(quinn.Count(plainMove), 1) << "only the kinds every peer knows";
    ExpectSameEverywhere();
  }
  EXPECT_TRUE(Log().empty()) << Log();
}

// A plain peer's resignation under every rule, conceding to any team under
// Kingdom Lost or Frozen; the host's own resignation reaches it too.
TEST_F(PlainTable, ResignationsOfAPlainPeerAndOfTheHostEndAlikeEverywhere) {
  Join("Bob");
  PlainPeer& pat = PlainJoin("Pat");
  for (int rule : {kKingdomGained, kKingdomLost, kKingdomFrozen}) {
    for (int team : {4, 2}) {
      SCOPED_TRACE(std::to_string(rule) + " " + std::to_string(team));
      StartWith(rule);
      net::AssignSeat(host->node, kWhite, pat.myNode);
      Settle();
      pat.Send("GRES}" + std::to_string(team));
      DoResign(pat.game, pat.outside, team);
      network.Pump();
      Settle();
      EXPECT_TRUE(host->game.match.position.kingdomFallen[0]);
      EXPECT_EQ(host->game.match.position.currentTeam, kBlue);
      ExpectSameEverywhere();
    }
  }
  DoResign(host->game, host->outside, -1);
  network.Pump();
  Settle();
  EXPECT_TRUE(host->game.match.position.kingdomFallen[1]);
  EXPECT_EQ(host->game.match.position.currentTeam, kBlack);
  ExpectSameEverywhere();
  EXPECT_TRUE(Log().empty()) << Log();
}

TEST_F(PlainTable, NewGamesLoadsAndSeatChangesRaiseNoFalseError) {
  StartGame();
  Peer& bob = Join("Bob");
  PlainJoin("Pat");
  net::AssignSeat(host->node, kRed, 1);
  Settle();
  StartWith(kKingdomLost, {kHuman, kHuman, kHuman, kDefensive});
  for (Peer* peer : {host.get(), &bob}) {
    EXPECT_EQ(peer->view.captions[3], "Comp (Def)") << peer->game.net.localPlayerName;
    EXPECT_EQ(peer->game.net.seatNode[3], 0);
  }
  ExpectSameEverywhere();

  // A loaded game whose computer seat the host's table still gave to Bob.
  net::AssignSeat(host->node, kBlue, 1);
  Settle();
  host->game.match.setup.playerKinds[1] = kAggressive;
  host->link.TellGameStarted(host->game, true);
  network.Pump();
  Settle();
  EXPECT_EQ(host->view.captions[1], "Comp (Agr)");
  EXPECT_EQ(bob.view.captions[1], "Comp (Agr)");
  net::AssignSeat(host->node, kBlack, 1);
  net::GiveSeatToComputer(host->node, kBlue, kBalanced);
  Settle();
  ExpectSameEverywhere();
  // The computer's move comes next, which every node plays by itself.
  const varkesh::Move move = FirstListedMove(host->game);
  Move(*host, move.fromX, move.fromY, move.toX, move.toY);
  Settle();
  ExpectSameEverywhere();
  EXPECT_TRUE(Log().empty()) << Log();
}

TEST_F(PlainTable, AHostThatCannotListenSaysWhyAndHandsOutNothing) {
  Peer second(network.AddEndpoint("10.0.0.9"), folder.Slashed(), "Zed");
  second.game.net.netRole = kNetHostDialog;
  second.session.netPort = kTablePort;
  EXPECT_FALSE(net::OpenAsHost(second.node));
  EXPECT_TRUE(second.view.Saw("*** Cannot host on port 5337: The bound address is already in use"));
  EXPECT_FALSE(second.view.chatEnabled || second.view.hostControlsEnabled);
  const PerTeam<int> kinds = second.game.match.setup.playerKinds;
  net::AssignSeat(second.node, kWhite, 0);
  net::GiveSeatToComputer(second.node, kBlue, kBalanced);
  EXPECT_EQ(second.game.match.setup.playerKinds, kinds);
  EXPECT_FALSE(net::SendChat(second.node, "anyone?"));
}

TEST_F(PlainTable, AccentsTravelAsOneByteACharacterBothWays) {
  StartGame();
  Peer& zoe = Join("Zo\u00EB \u2603");
  PlainPeer& carol = PlainJoin("Carol \xE9");
  PlainPeer& long_name = PlainJoin(std::string(70, '\xE9'));
  Settle();
  EXPECT_EQ(host->session.nodeNames[2], "Carol \u00E9");
  EXPECT_EQ(zoe.session.nodeNames[2], "Carol \u00E9");
  EXPECT_EQ(host->session.nodeNames[1], "Zo\u00EB ?");
  EXPECT_EQ(carol.nodeNames.at(1), "Zo\xEB ?");
  std::string capped;
  for (int i = 0; i < 64; ++i) capped += "\u00E9";
  EXPECT_EQ(zoe.session.nodeNames[3], capped);
  EXPECT_EQ(long_name.nodeNames.at(3), std::string(64, '\xE9'));

  carol.Send("GCHT}caf\xE9");
  network.Pump();
  EXPECT_TRUE(zoe.view.Saw("Carol \u00E9: caf\u00E9"));
  EXPECT_TRUE(host->view.Saw("Carol \u00E9: caf\u00E9"));
  EXPECT_TRUE(net::SendChat(zoe.node, "na\u00EFve \u2603"));
  network.Pump();
  EXPECT_EQ(carol.chat.back(), "1: na\xEFve ?");
  ExpectSameEverywhere();
}

TEST_F(PlainTable, ASecondNameRenamesTheNodeAndABootReasonGoesOutAsTyped) {
  StartGame();
  Peer& bob = Join("Bob");
  PlainPeer& pat = PlainJoin("Pat");
  net::AssignSeat(host->node, kWhite, pat.myNode);
  Settle();
  const int images = pat.Count("GLGF}");
  pat.Send("GMNI}Patricia");
  network.Pump();
  Settle();
  EXPECT_EQ(host->session.nodeNames[2], "Patricia");
  EXPECT_EQ(bob.session.nodeNames[2], "Patricia");
  EXPECT_EQ(pat.nodeNames.at(2), "Patricia");
  EXPECT_EQ(bob.view.captions[0], "Patricia");
  EXPECT_EQ(host->game.net.seatNode[0], pat.myNode) << "the seats stay";
  EXPECT_EQ(pat.Count("GLGF}"), images + 1) << "caught up";
  ExpectSameEverywhere();

  // The boot reason goes out as typed; blanks alone cancel.
  net::BootNode(host->node, pat.myNode, " \t ");
  network.Pump();
  EXPECT_TRUE(pat.boots.empty());
  net::BootNode(host->node, pat.myNode, "  too slow  ");
  network.Pump();
  ASSERT_EQ(pat.boots.size(), 1u);
  EXPECT_EQ(pat.boots[0], "2:   too slow  ");
  EXPECT_TRUE(bob.view.Saw("   REASON: '  too slow  '"));
}

TEST_F(PlainTable, ConnectionsThatNeverNameThemselvesAreClosedAfterFifteenSeconds) {
  StartGame();
  for (int i = 0; i < net::kMaxClients; ++i) PlainJoin("Mute", "127.0.0.1", false);
  const auto open = [&] {
    return std::count_if(plains.begin(), plains.end(), [](auto& p) { return p->connected(); });
  };
  RawClient extra(network.AddEndpoint());
  network.Pump();
  EXPECT_EQ(extra.Messages(),
            std::vector<std::string>{"GMSG}*** This session is full: 64 players at the most."});
  EXPECT_EQ(extra.connection, 0) << "and closed";
  for (int second = 0; second < 14; ++second) Tick(*host, 1.0);
  EXPECT_EQ(open(), net::kMaxClients);
  Tick(*host, 1.0);
  Tick(*host, 1.0);
  EXPECT_EQ(open(), 0);
  EXPECT_EQ(Occurrences(Log(), "sent no name"), net::kMaxClients) << "once each";
  for (const std::string& line : host->view.lines)
    EXPECT_EQ(line.find("disconnected"), std::string::npos) << "counted nowhere";

  Peer& bob = Join("Bob");
  Settle();
  EXPECT_EQ(bob.game.net.myNodeId, 1);
  const std::vector<net::NodeLine> list = {{"Ann (host/you)", 0}, {"Bob", 1}};
  EXPECT_EQ(host->view.nodeLines, list);
  ExpectSameEverywhere();
}

}  // namespace
}  // namespace varkesh::testing
