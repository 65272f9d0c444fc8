// The team on turn gives up, by the menu here or by a message from another
// machine, under each rule.
#include "core/resign.h"

#include "flow_fixture.h"

namespace varkesh::testing {
namespace {

class ResignTest : public FlowTest {
 protected:
  ResignTest() {
    PutArmies();
    AddToHistory(game, 8, 13, 8, 11, kRed, false);
    BeginTurn(kWhite);
  }
};

struct Resignation {
  int rule;
  int queenTeam, queenPiece;  // White's Queen afterwards
  const char* sent;
};

class ResignRuleTest : public ResignTest, public ::testing::WithParamInterface<Resignation> {};

TEST_P(ResignRuleTest, AfterAWithdrawalOrANoTheKingLeavesAndTheRestMeetsTheRule) {
  const Resignation& r = GetParam();
  game.match.position.kingCaptureRule = r.rule;
  game.net.netRole = kNetClient;
  const Board before = game.match.position.board;
  outside.concedePicks = {0, kRed};      // withdrawn, then to Red
  outside.yesNoAnswers = {false, true};  // No, then Yes
  DoResign(game, outside, -1);
  EXPECT_EQ(game.match.position.board, before);
  EXPECT_TRUE(game.turn.gameSaved && outside.sent.empty());

  DoResign(game, outside, -1);
  if (r.rule == kKingdomGained) {
    EXPECT_EQ(outside.concedeDialogs.at(1), (std::vector<int>{kBlue, kBlack, kRed}));
  } else {
    EXPECT_EQ(outside.messages.at(1).text, "Are you sure you wish to resign from the game?");
  }
  EXPECT_EQ(At(8, 15).piece, kNoPiece);
  EXPECT_EQ(At(8, 14).team, r.queenTeam);
  EXPECT_EQ(At(8, 14).piece, r.queenPiece);
  EXPECT_TRUE(game.match.position.kingdomFallen[kWhite - 1] && !game.turn.gameSaved);
  EXPECT_EQ(game.match.position.history[1].team, kRed) << "an empty move is shown for the resignation";
  EXPECT_EQ(game.match.position.currentTeam, kBlue);
  EXPECT_EQ(SentMessages(), std::vector<std::string>{r.sent});
}

INSTANTIATE_TEST_SUITE_P(EachRule, ResignRuleTest,
                         ::testing::Values(Resignation{kKingdomGained, kRed, kQueen, "GRES}4"},
                                           Resignation{kKingdomLost, kNoTeam, kNoPiece, "GRES}0"},
                                           Resignation{kKingdomFrozen, kWhite, -kQueen, "GRES}0"}));

TEST_F(ResignTest, AReceivedResignationNeitherAsksNorTellsAndMayEndTheGame) {
  game.net.netRole = kNetHosting;
  outside.SetMenuEnabled(Menu::Resign, true);
  DoResign(game, outside, kRed);
  EXPECT_EQ(At(8, 14).team, kRed);
  DoResign(game, outside, kWhite);  // a fallen team: a damaged message
  EXPECT_EQ(At(2, 8).team, kBlack) << "the first team that may gain them";
  game.match.position.kingCaptureRule = kKingdomLost;
  DoResign(game, outside, 0);
  EXPECT_EQ(game.match.position.winner, kRed);
  EXPECT_EQ(game.turn.gameMode, ModeVictorySetUp);
  EXPECT_FALSE(outside.IsMenuEnabled(Menu::Resign));
  EXPECT_TRUE(outside.concedeDialogs.empty() && outside.messages.empty() && outside.sent.empty());
}

}  // namespace
}  // namespace varkesh::testing
