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

  int PiecesOf(int team) {
    int count = 0;
    for (const Square& square : game.board.squares) count += square.team == team;
    return count;
  }

  void ExpectResigned() {
    EXPECT_TRUE(game.kingdomFallen[kWhite - 1]);
    EXPECT_EQ(KingColumn(game, kWhite), 0);
    EXPECT_TRUE(game.history[0].Empty());
    EXPECT_EQ(game.history[1].team, kRed) << "the moves shown stand one place back";
    EXPECT_EQ(outside.sounds, std::vector<std::string>{"sfx_captureking"});
    EXPECT_FALSE(game.gameSaved);
    EXPECT_EQ(game.currentTeam, kBlue);
    EXPECT_EQ(game.gameMode, ModeChoosePiece);
    for (const Dungeon& dungeon : game.dungeons) EXPECT_EQ(dungeon.PrisonerCount(), 0);
  }
};

TEST_F(ResignTest, OnlyStandingEnemiesMayGainThePieces) {
  game.gameType = kCrossroadAllies;
  EXPECT_EQ(ConcedeOffers(game), (std::vector<int>{kBlue, kRed}));
  game.gameType = kAlliedNeighbors;
  game.currentTeam = kRed;
  EXPECT_EQ(ConcedeOffers(game), (std::vector<int>{kWhite, kBlue}));
  game.gameType = kAnarchy;
  game.kingdomFallen[kBlue - 1] = true;
  EXPECT_EQ(ConcedeOffers(game), (std::vector<int>{kWhite, kBlack}));
}

TEST_F(ResignTest, KingdomGainedGoesToTheChosenTeam) {
  game.netRole = kNetHosting;
  outside.concedePicks.push_back(kRed);
  DoResign(game, outside, -1);
  EXPECT_EQ(outside.concedeDialogs, (std::vector<std::vector<int>>{{kBlue, kBlack, kRed}}));
  EXPECT_EQ(PiecesOf(kWhite), 0);
  EXPECT_EQ(At(8, 14).team, kRed);
  EXPECT_EQ(At(8, 13).realm, kRed);
  ExpectResigned();
  EXPECT_EQ(SentMessages(), std::vector<std::string>{"GRES}4"});
}

TEST_F(ResignTest, WithdrawingChangesNothing) {
  Game before = game;
  outside.concedePicks.push_back(0);
  DoResign(game, outside, -1);
  EXPECT_EQ(game.board, before.board);
  EXPECT_EQ(game.kingdomFallen, before.kingdomFallen);
  EXPECT_EQ(game.moveablePieces, before.moveablePieces);
  EXPECT_EQ(game.currentTeam, kWhite);
  EXPECT_TRUE(game.gameSaved);
  EXPECT_TRUE(outside.sent.empty());
}

TEST_F(ResignTest, KingdomLostAsksFirst) {
  game.kingCaptureRule = kKingdomLost;
  game.netRole = kNetClient;
  Board before = game.board;
  outside.yesNoAnswers = {false, true};
  DoResign(game, outside, -1);
  EXPECT_EQ(game.board, before);
  EXPECT_EQ(game.currentTeam, kWhite);

  DoResign(game, outside, -1);
  ASSERT_EQ(outside.messages.size(), 2u);
  EXPECT_EQ(outside.messages[1].title, "Request to Resign");
  EXPECT_EQ(outside.messages[1].text, "Are you sure you wish to resign from the game?");
  EXPECT_EQ(PiecesOf(kWhite), 0);
  EXPECT_EQ(At(8, 13).realm, kNoTeam);
  ExpectResigned();
  ASSERT_EQ(outside.sent.size(), 1u);
  EXPECT_EQ(outside.sent[0].message, "GRES}0");
  EXPECT_FALSE(outside.sent[0].toAll);
}

TEST_F(ResignTest, KingdomFrozenLeavesFrozenPiecesWithoutTheKing) {
  game.kingCaptureRule = kKingdomFrozen;
  DoResign(game, outside, -1);
  EXPECT_EQ(At(8, 14).piece, -kQueen);
  EXPECT_EQ(At(8, 15).piece, kNoPiece);
  ExpectResigned();
}

TEST_F(ResignTest, AReceivedResignationNeitherAsksNorTells) {
  game.netRole = kNetHosting;
  DoResign(game, outside, kRed);
  EXPECT_EQ(At(8, 14).team, kRed);
  EXPECT_TRUE(outside.concedeDialogs.empty());

  DoResign(game, outside, kWhite);  // a fallen team: a damaged message
  EXPECT_EQ(At(2, 8).team, kBlack) << "the first team that may gain them";

  game.kingCaptureRule = kKingdomLost;
  DoResign(game, outside, 0);
  EXPECT_TRUE(game.kingdomFallen[kBlack - 1]);
  EXPECT_EQ(game.winner, kRed);
  EXPECT_TRUE(outside.messages.empty());
  EXPECT_TRUE(outside.sent.empty());
}

TEST_F(ResignTest, TheLastOfASideEndsTheGame) {
  game.gameType = kAlliedNeighbors;
  game.kingdomFallen[kBlue - 1] = true;
  outside.SetMenuEnabled(Menu::Resign, true);
  DoResign(game, outside, -1);
  EXPECT_EQ(game.winner, kBlack);
  EXPECT_EQ(game.coWinner, kRed);
  EXPECT_EQ(game.gameMode, ModeVictorySetUp);
  EXPECT_FALSE(outside.IsMenuEnabled(Menu::Resign));
}

}  // namespace
}  // namespace varkesh::testing
