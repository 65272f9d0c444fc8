// What a confirmed move does: the outcomes of a move, the fall of a kingdom,
// lack of material, the end of the game and the hand-on of the turn.
#include "flow_fixture.h"

namespace varkesh::testing {
namespace {

class AcceptMoveTest : public FlowTest {
 protected:
  AcceptMoveTest() {
    PutArmies();
    Put(8, 8, kWhite, kRook);
  }

  DungeonPiece LastPrisoner(int captor) {
    const Dungeon& dungeon = game.dungeons[captor - 1];
    return dungeon.prisoners[dungeon.PrisonerCount()];
  }
  void Fall(int team) {
    game.kingdomFallen[team - 1] = true;
    ClearBoardOfTeam(game, team);
  }
};

TEST_F(AcceptMoveTest, MovesAndCapturesOfEachKind) {
  BeginTurn(kWhite);
  PlayMove(8, 8, 8, 10);
  EXPECT_EQ(game.history[0], (HistoryMove{8, 8, 8, 10, kWhite, false}));
  EXPECT_FALSE(game.gameSaved);
  EXPECT_EQ(game.pendingMoveMessage, "GAMV}" + Fields({0, 0, 0}));

  Put(4, 6, kWhite, kPawn);  // a pawn goes to no dungeon
  PlayMove(2, 6, 4, 6);
  EXPECT_EQ(game.dungeons[kBlue - 1].PrisonerCount(), 0);
  EXPECT_EQ(game.history[0], (HistoryMove{2, 6, 4, 6, kBlue, true}));

  Put(8, 4, kWhite, kBishop);  // other pieces are kept
  PlayMove(8, 2, 8, 4);
  EXPECT_EQ(LastPrisoner(kBlack), (DungeonPiece{kWhite, kBishop}));

  Put(12, 8, kBlack, kCastlePawn);  // taking a Castle Pawn ends the taker's castle move
  PlayMove(14, 8, 12, 8);
  EXPECT_FALSE(game.castleRight[kRed - 1]);
  EXPECT_TRUE(game.castleRight[kBlack - 1]);
  EXPECT_TRUE(game.castleRight[kWhite - 1]);
  EXPECT_EQ(outside.sounds, (std::vector<std::string>{"sfx_click", "sfx_capture",
                                                      "sfx_capturequeen", "sfx_capture"}));
}

TEST_F(AcceptMoveTest, CastleMoveExchangesKingAndCastlePawn) {
  Put(8, 16, kWhite, kCastlePawn);
  BeginTurn(kWhite);
  PlayMove(8, 15, 8, 16);
  EXPECT_EQ(At(8, 16).piece, kKing);
  EXPECT_EQ(At(8, 15).piece, kCastlePawn);
  EXPECT_EQ(At(8, 15).team, kWhite);
  EXPECT_FALSE(game.castleRight[kWhite - 1]);
  EXPECT_EQ(game.history[0], (HistoryMove{8, 15, 8, 16, kWhite, false}));
}

class KingCaptureTest : public AcceptMoveTest, public ::testing::WithParamInterface<int> {};

TEST_P(KingCaptureTest, TheFallenKingdomMeetsTheRuleInForce) {
  game.kingCaptureRule = GetParam();
  Put(8, 1, kNoTeam, kNoPiece);
  Put(8, 10, kBlack, kKing);
  BeginTurn(kWhite);
  PlayMove(8, 8, 8, 10);
  EXPECT_TRUE(game.kingdomFallen[kBlack - 1]);
  EXPECT_EQ(LastPrisoner(kWhite), (DungeonPiece{kBlack, kKing}));
  EXPECT_EQ(outside.sounds.back(), "sfx_captureking");
  const Square& rook = At(6, 2);
  const int expected[][2] = {{kWhite, kRook}, {kNoTeam, kNoPiece}, {kBlack, -kRook}};
  EXPECT_EQ(rook.team, expected[GetParam() - 1][0]);
  EXPECT_EQ(rook.piece, expected[GetParam() - 1][1]);
  EXPECT_EQ(game.gameMode, ModeChoosePiece) << "two kingdoms stand: the game goes on";
}

INSTANTIATE_TEST_SUITE_P(EachRule, KingCaptureTest,
                         ::testing::Values(kKingdomGained, kKingdomLost, kKingdomFrozen));

TEST_F(AcceptMoveTest, TheTurnSkipsFallenKingdomsAndCountsRounds) {
  Fall(kBlack);
  game.playerKinds[kWhite - 1] = kBalanced;
  BeginTurn(kBlue);
  PlayMove(2, 6, 4, 6);
  EXPECT_EQ(game.currentTeam, kRed);
  PlayMove(14, 6, 12, 6);
  EXPECT_EQ(game.currentTeam, kWhite);
  EXPECT_EQ(game.roundNumber, 2);
  EXPECT_EQ(game.gameMode, ModeComputerThinks);
  EXPECT_EQ(game.moveablePieces.Count(), 0);
}

TEST_F(AcceptMoveTest, LackOfMaterialRemovesTheKing) {
  // Blue: Queen, Rook and a Pawn make 5; losing the Pawn leaves 4.
  Put(2, 10, kNoTeam, kNoPiece);
  Put(8, 10, kBlue, kPawn);
  BeginTurn(kWhite);
  PlayMove(8, 8, 8, 10);
  ASSERT_EQ(outside.messages.size(), 1u);
  EXPECT_EQ(outside.messages[0].title, "Lack of Material");
  EXPECT_EQ(outside.messages[0].text,
            "Blue King is removed from the game due to lack of materials.");
  EXPECT_TRUE(game.kingdomFallen[kBlue - 1]);
  EXPECT_EQ(LastPrisoner(kWhite), (DungeonPiece{kBlue, kKing}));
  EXPECT_EQ(At(1, 8).piece, kNoPiece);
  EXPECT_EQ(At(2, 8).team, kWhite) << "Kingdom Gained: the taker gains the rest";
  EXPECT_EQ(outside.sounds, (std::vector<std::string>{"sfx_capture", "sfx_captureking"}));
  EXPECT_EQ(game.currentTeam, kBlack);
}

TEST_F(AcceptMoveTest, LackOfMaterialIsToldToHumansAndInSessions) {
  game.playerKinds = {kHuman, kAggressive, kHuman, kAggressive};
  Put(2, 10, kNoTeam, kNoPiece);
  Put(8, 10, kBlue, kBishop);
  BeginTurn(kWhite);
  PlayMove(8, 8, 8, 10);
  EXPECT_TRUE(game.kingdomFallen[kBlue - 1]);
  EXPECT_TRUE(outside.messages.empty()) << "a computer loses without a word on one machine";

  Put(14, 10, kNoTeam, kNoPiece);
  Put(8, 7, kRed, kPawn);
  game.netRole = kNetHosting;
  BeginTurn(kWhite);
  PlayMove(8, 10, 8, 7);
  EXPECT_TRUE(game.kingdomFallen[kRed - 1]);
  EXPECT_EQ(outside.messages.size(), 1u);
}

struct Victory {
  int gameType, alreadyFallen, kingTaken, winner, coWinner;
};

void PrintTo(const Victory& v, std::ostream* out) {
  *out << "type " << v.gameType << ", taking the King of " << v.kingTaken;
}

class VictoryConditionTest : public AcceptMoveTest,
                             public ::testing::WithParamInterface<Victory> {};

TEST_P(VictoryConditionTest, TheLastKingOfASideEndsTheGame) {
  const Victory& v = GetParam();
  game.gameType = v.gameType;
  game.kingCaptureRule = kKingdomLost;
  for (int team : {kBlue, kBlack, kRed})
    if (team == v.alreadyFallen || (v.gameType == kAnarchy && team != v.kingTaken)) Fall(team);
  Put(KingColumn(game, v.kingTaken), KingRow(game, v.kingTaken), kNoTeam, kNoPiece);
  Put(8, 10, v.kingTaken, kKing);
  BeginTurn(kWhite);
  PlayMove(8, 8, 8, 10);
  EXPECT_EQ(game.winner, v.winner);
  EXPECT_EQ(game.coWinner, v.coWinner);
  EXPECT_EQ(game.gameMode, ModeVictorySetUp);
  EXPECT_EQ(game.currentTeam, kWhite) << "the turn is not handed on";
  EXPECT_FALSE(outside.IsMenuEnabled(Menu::Resign));

  outside.pauseButtonVisible = true;
  game.paused = true;
  Pass();
  EXPECT_EQ(game.gameMode, ModeVictory);
  EXPECT_EQ(view.victories, 1);
  EXPECT_FALSE(outside.pauseButtonVisible);
  EXPECT_FALSE(game.paused);
  Pass();
  ASSERT_EQ(view.flagFrames.size(), 1u);
  EXPECT_EQ(view.flagFrames[0].second, v.coWinner > 0 ? 0 : -1) << "one flag for a lone winner";
  Click(3, 3);
  EXPECT_EQ(game.gameMode, ModeGameOver);
}

INSTANTIATE_TEST_SUITE_P(EachGameType, VictoryConditionTest,
                         ::testing::Values(Victory{kAnarchy, 0, kBlue, kWhite, kNoTeam},
                                           Victory{kAlliedNeighbors, kBlack, kRed, kWhite, kBlue},
                                           Victory{kCrossroadAllies, kBlue, kRed, kWhite, kBlack}));

TEST_F(AcceptMoveTest, VictoryFlagsWaveAtTheirOwnPace) {
  game.winner = kWhite;
  game.coWinner = kBlue;
  game.gameMode = ModeVictorySetUp;
  Pass();
  Pass();
  outside.clock = 100.12;
  Pass();
  EXPECT_EQ(game.flagTimers, (std::array<double, 2>{100.12, 100.0}));
  outside.clock = 100.16;
  Pass();
  EXPECT_EQ(game.flagTimers, (std::array<double, 2>{100.12, 100.16}));
}

}  // namespace
}  // namespace varkesh::testing
