// A searching computer seat in a session: its move reaches our clients and
// peers that follow only the protocol, and every node plays the option the
// host's search chose, whether or not the computer's fixed rule agrees.
#include "ai/search/option_line.h"
#include "ai/search_fixture.h"
#include "core/apply_move.h"
#include "net/net_fixture.h"

namespace varkesh::testing {
namespace {

using test::Garrison;
using test::HandMade;
using test::Piece;
using test::With;

constexpr int kRaidFromX = 9, kRaidFromY = 3;

// White to move with a pawn at Black's moat, next to a keep that holds
// Black's King, its garrison and the given piece; with queenHeld, Black
// holds White's Queen. Freeing the Queen is worth more than any piece the
// computer's fixed rule would take first.
Position RaidPosition(int keepPiece, bool queenHeld) {
  std::vector<Piece> pieces = {{8, 16, kWhite, kKing},    {0, 8, kBlue, kKing},
                               {8, 0, kBlack, kKing},     {16, 8, kRed, kKing},
                               {8, 1, kBlack, keepPiece}, {kRaidFromX, kRaidFromY, kWhite, kPawn}};
  for (int team : {kWhite, kBlue, kBlack, kRed}) pieces = With(pieces, Garrison(team));
  Position position = HandMade(kAlliedNeighbors, kWhite, pieces);
  if (queenHeld) position.dungeons[kBlack - 1].prisoners.Add({kWhite, kQueen});
  return position;
}

class SearchedMoveTable : public NetTable {
 protected:
  // The host takes the position as a loaded game, White a Master seat.
  void SendPosition(const Position& position) {
    varkesh::Setup setup = host->game.match.setup;
    setup.playerKinds = {kBalanced, kHuman, kHuman, kHuman};
    ASSERT_FALSE(LoadGameText(host->game, host->outside, WriteGameText(position, setup)));
    host->game.match.setup.levels[kWhite - 1] = kLevelMaster;
    host->link.TellGameStarted(host->game, true);
    network.Pump();
  }
};

TEST_F(SearchedMoveTable, EveryNodePlaysTheOptionTheSearchChoseJoinedLateOrNot) {
  struct Case {
    const char* name;
    int keepPiece;
    bool queenHeld;
    bool toldAsPlayers;  // the fixed rule would choose otherwise
  };
  const Case cases[] = {
      {"the rule takes the Knight, the search frees the Queen", kKnight, true, true},
      {"both take the Queen", kQueen, false, false},
  };
  StartGame();
  Peer& bob = Join("Bob");
  PlainPeer& pat = PlainJoin("Pat");
  Settle();
  host->outside.thinkingTimeMs = 300;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const Position before = RaidPosition(c.keepPiece, c.queenHeld);
    SendPosition(before);
    ASSERT_EQ(host->game.turn.gameMode, ModeComputerThinks);
    pat.messages.clear();

    host->Pass();
    ASSERT_EQ(host->game.turn.gameMode, ModeComputerMoves);
    const TurnState& turn = host->game.turn;
    const varkesh::Move chosen =
        Move::Of(turn.moveFromX, turn.moveFromY, turn.moveToX, turn.moveToY, turn.computerOption);
    ASSERT_EQ(turn.computerOption != kOptionComputer, c.toldAsPlayers)
        << "searched " << chosen.option << ", the rule "
        << ComputerOptionLine(before, Move::Of(chosen.fromX, chosen.fromY, chosen.toX, chosen.toY));
    network.Pump();
    Settle();

    Position searched = before;
    ApplyMove(searched, chosen);
    EXPECT_EQ(host->game.match.position, searched);
    if (c.toldAsPlayers) {
      Position byRule = before;
      ApplyMove(byRule,
                Move::Of(chosen.fromX, chosen.fromY, chosen.toX, chosen.toY, kOptionComputer));
      EXPECT_NE(byRule, searched) << "the case tells the two apart";
      const std::string from = std::to_string(chosen.fromX) + kSep + std::to_string(chosen.fromY);
      const std::vector<std::string> expected = {
          "GUPM}" + from + kSep + "0" + kSep + "0",
          "GUGS}2",
          "GUPM}" + from + kSep + std::to_string(chosen.toX) + kSep + std::to_string(chosen.toY),
          "GUGS}3",
          "GAMV}2" + kSep + "1" + kSep + "0",  // the first prisoner freed
      };
      EXPECT_EQ(pat.messages, expected);
    } else {
      EXPECT_EQ(pat.Count("GUGS}9"), 1);
      EXPECT_EQ(pat.Count("GAMV}"), 0);
    }
    EXPECT_EQ(bob.game.turn.gameMode, ModeChoosePiece);
    ExpectSameEverywhere();
  }

  // A node that joins while the move is under way plays it too.
  SendPosition(RaidPosition(kKnight, true));
  host->Pass();
  network.Pump();
  ASSERT_EQ(host->game.turn.gameMode, ModeComputerMoves);
  ASSERT_NE(host->game.turn.computerOption, kOptionComputer);
  PlainPeer& late = PlainJoin("Late");
  ASSERT_GE(late.Count("GLGF}"), 1);
  EXPECT_EQ(late.Count("GUGS}9"), 0) << "its rule would free nobody";
  Settle();
  EXPECT_EQ(host->game.match.position.currentTeam, kBlue);
  ExpectSameEverywhere();
  EXPECT_TRUE(Log().empty()) << Log();
}

}  // namespace
}  // namespace varkesh::testing
