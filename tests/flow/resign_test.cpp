// The team on turn gives up, by the menu here or by a message from another
// machine, under each rule.
#include "flow/resign.h"
#include "flow_fixture.h"

namespace varkesh::testing {
namespace {

class ResignTest : public FlowTest {
 protected:
  ResignTest() {
    PutArmies();
    AddToHistory(Pos(), 8, 13, 8, 11, kRed, false);
    BeginTurn(kWhite);
  }
};

struct Resignation {
  int rule;
  int queenTeam, queenPiece;  // White's Queen afterwards
  const char* told;
};

class ResignRuleTest : public ResignTest, public ::testing::WithParamInterface<Resignation> {};

TEST_P(ResignRuleTest, AfterAWithdrawalOrANoTheKingLeavesAndTheRestMeetsTheRule) {
  const Resignation& r = GetParam();
  Pos().kingCaptureRule = r.rule;
  game.net.netRole = kNetClient;
  const Position before = Pos();
  outside.concedePicks = {0, kRed};      // withdrawn, then to Red
  outside.yesNoAnswers = {false, true};  // No, then Yes
  DoResign(game, outside, -1);
  EXPECT_EQ(Pos(), before);
  EXPECT_TRUE(game.turn.gameSaved && outside.told.empty() && game.match.record.events.empty());

  DoResign(game, outside, -1);
  if (r.rule == kKingdomGained) {
    EXPECT_EQ(outside.concedeDialogs.at(1), (std::vector<int>{kBlue, kBlack, kRed}));
  } else {
    EXPECT_EQ(outside.boxes.at(1).text, "Are you sure you wish to resign from the game?");
  }
  EXPECT_EQ(At(8, 15).piece, kNoPiece);
  EXPECT_EQ(At(8, 14).team, r.queenTeam);
  EXPECT_EQ(At(8, 14).piece, r.queenPiece);
  EXPECT_TRUE(Pos().kingdomFallen[kWhite - 1] && !game.turn.gameSaved);
  EXPECT_EQ(Pos().history[1].team, kRed) << "an empty move is shown for the resignation";
  EXPECT_EQ(Pos().currentTeam, kBlue);
  EXPECT_EQ(outside.told, (std::vector<std::string>{r.told, "event"}));
  EXPECT_EQ(game.match.record.events.size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(EachRule, ResignRuleTest,
                         ::testing::Values(Resignation{kKingdomGained, kRed, kQueen, "resign 4"},
                                           Resignation{kKingdomLost, kNoTeam, kNoPiece, "resign 0"},
                                           Resignation{kKingdomFrozen, kWhite, -kQueen,
                                                       "resign 0"}));

TEST_F(ResignTest, AReceivedResignationNeitherAsksNorTellsAndMayEndTheGame) {
  game.net.netRole = kNetHosting;
  outside.SetMenuEnabled(Menu::Resign, true);
  DoResign(game, outside, kRed);
  EXPECT_EQ(At(8, 14).team, kRed);
  DoResign(game, outside, kWhite);  // a fallen team: a damaged message
  EXPECT_EQ(At(2, 8).team, kBlack) << "the first team that may gain them";
  Pos().kingCaptureRule = kKingdomLost;
  DoResign(game, outside, 0);
  EXPECT_EQ(Pos().winner, kRed);
  EXPECT_EQ(game.turn.gameMode, ModeVictorySetUp);
  EXPECT_FALSE(outside.IsMenuEnabled(Menu::Resign));
  EXPECT_TRUE(outside.concedeDialogs.empty() && outside.boxes.empty());
  EXPECT_EQ(outside.told, (std::vector<std::string>(3, "event"))) << "nothing is told on";
}

}  // namespace
}  // namespace varkesh::testing
