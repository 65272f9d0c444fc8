#include "ai/threats.h"

#include <gtest/gtest.h>

#include "ai_fixture.h"

namespace varkesh {
namespace {

using test::EmptyScratch;
using test::Put;

TEST(TestThreat, EmptyAndFrozenTargetsAreNeverAttacked) {
  Game game = EmptyScratch();
  Put(game.scratchBoard, 8, 7, kBlack, kQueen);
  EXPECT_FALSE(TestThreat(game, 8, 8));
  EXPECT_FALSE(TestMoatlessThreat(game, 8, 8));
  Put(game.scratchBoard, 8, 8, kWhite, -kRook);
  EXPECT_FALSE(TestThreat(game, 8, 8));
  EXPECT_FALSE(TestMoatlessThreat(game, 8, 8));
  EXPECT_FALSE(TestThreat(game, -1, 8));
  EXPECT_FALSE(TestThreat(game, 8, 17));
}

TEST(TestThreat, PawnStrikesOnEveryDiagonalButNotStraight) {
  Game game = EmptyScratch();
  Put(game.scratchBoard, 8, 8, kWhite, kRook);
  Put(game.scratchBoard, 8, 9, kBlack, kPawn);
  Put(game.scratchBoard, 7, 8, kBlack, kPawn);
  EXPECT_FALSE(TestThreat(game, 8, 8));
  for (auto [x, y] : {std::pair{7, 7}, {9, 7}, {7, 9}, {9, 9}}) {
    Game probe = game;
    Put(probe.scratchBoard, x, y, kBlack, kPawn);
    EXPECT_TRUE(TestThreat(probe, 8, 8)) << x << "," << y;
  }
}

// The exception goes by the moat of the target's side, not by where the pawn stands.
TEST(TestThreat, PawnCannotStrikeOnTheTargetsOwnSideMoat) {
  Game game = EmptyScratch(kAlliedNeighbors);
  Put(game.scratchBoard, 8, 13, kWhite, kPawn);  // White's moat
  Put(game.scratchBoard, 7, 12, kBlack, kPawn);
  EXPECT_FALSE(TestThreat(game, 8, 13));

  Put(game.scratchBoard, 8, 3, kWhite, kPawn);  // Black's moat
  Put(game.scratchBoard, 7, 4, kBlack, kPawn);
  EXPECT_TRUE(TestThreat(game, 8, 3));

  Put(game.scratchBoard, 3, 8, kWhite, kPawn);  // Blue's moat: an ally's
  Put(game.scratchBoard, 4, 7, kBlack, kPawn);
  EXPECT_FALSE(TestThreat(game, 3, 8));
  game.gameType = kAnarchy;
  EXPECT_TRUE(TestThreat(game, 3, 8));
}

TEST(TestThreat, CastlePawnIgnoresTheMoatException) {
  Game game = EmptyScratch(kAlliedNeighbors);
  Put(game.scratchBoard, 8, 13, kWhite, kPawn);
  Put(game.scratchBoard, 7, 12, kBlack, kCastlePawn);
  EXPECT_TRUE(TestThreat(game, 8, 13));
  EXPECT_TRUE(TestMoatlessThreat(game, 8, 13));
}

TEST(TestThreat, KeepWallStopsLinesFromTheBattlefieldOnly) {
  Game game = EmptyScratch();
  Put(game.scratchBoard, 8, 8, kBlack, kRook);
  Put(game.scratchBoard, 8, 14, kWhite, kQueen);  // White's keep, over White's moat
  EXPECT_FALSE(TestThreat(game, 8, 14));
  EXPECT_TRUE(TestMoatlessThreat(game, 8, 14));

  Game blocked = game;
  Put(blocked.scratchBoard, 8, 11, kRed, -kPawn);
  EXPECT_FALSE(TestThreat(blocked, 8, 14));
  EXPECT_FALSE(TestMoatlessThreat(blocked, 8, 14));

  // Outward the line is open: a Rook in Black's keep strikes over Black's moat.
  Game outward = EmptyScratch();
  Put(outward.scratchBoard, 8, 2, kBlack, kRook);
  Put(outward.scratchBoard, 8, 8, kWhite, kQueen);
  EXPECT_TRUE(TestThreat(outward, 8, 8));
}

TEST(TestThreat, SlidersStrikeOnlyAlongTheirOwnLines) {
  Game game = EmptyScratch();
  Put(game.scratchBoard, 8, 8, kWhite, kKnight);
  Put(game.scratchBoard, 11, 11, kBlack, kRook);
  Put(game.scratchBoard, 8, 4, kBlack, kBishop);
  EXPECT_FALSE(TestThreat(game, 8, 8));
  Put(game.scratchBoard, 11, 5, kBlack, kQueen);
  EXPECT_TRUE(TestThreat(game, 8, 8));
  Put(game.scratchBoard, 10, 6, kWhite, kPawn);  // the own piece shields it
  EXPECT_FALSE(TestThreat(game, 8, 8));
}

TEST(TestThreat, KingsStrikeNextDoorButGiveNoWeakThreat) {
  Game game = EmptyScratch();
  Put(game.scratchBoard, 8, 8, kWhite, kKing);
  Put(game.scratchBoard, 9, 9, kBlack, kKing);
  Attacker attacker;
  EXPECT_TRUE(TestThreat(game, 8, 8, &attacker));
  EXPECT_EQ(attacker.x, 9);
  EXPECT_EQ(attacker.y, 9);
  EXPECT_EQ(attacker.piece, kKing);
  EXPECT_TRUE(TestThreat(game, 9, 9));
  EXPECT_FALSE(TestMoatlessThreat(game, 8, 8));

  Put(game.scratchBoard, 9, 9, kNoTeam, kNoPiece);
  Put(game.scratchBoard, 8, 9, kBlack, kKing);
  EXPECT_TRUE(TestThreat(game, 8, 8));
}

TEST(TestThreat, KnightJumpsIntoKeepsAndIsNamed) {
  Game game = EmptyScratch();
  Put(game.scratchBoard, 8, 14, kWhite, kQueen);
  Put(game.scratchBoard, 7, 12, kRed, kKnight);
  Put(game.scratchBoard, 8, 13, kWhite, kPawn);
  Attacker attacker;
  ASSERT_TRUE(TestThreat(game, 8, 14, &attacker));
  EXPECT_EQ(attacker.x, 7);
  EXPECT_EQ(attacker.y, 12);
  EXPECT_EQ(attacker.team, kRed);
  EXPECT_EQ(attacker.piece, kKnight);
}

TEST(TestThreat, AlliesNeverThreatenEachOther) {
  Game game = EmptyScratch(kCrossroadAllies);
  Put(game.scratchBoard, 8, 8, kWhite, kQueen);
  Put(game.scratchBoard, 8, 7, kBlack, kRook);
  Put(game.scratchBoard, 7, 6, kBlack, kKnight);
  Put(game.scratchBoard, 9, 9, kBlack, kPawn);
  EXPECT_FALSE(TestThreat(game, 8, 8));
  EXPECT_FALSE(TestMoatlessThreat(game, 8, 8));
  game.gameType = kAnarchy;
  EXPECT_TRUE(TestThreat(game, 8, 8));
}

TEST(AdvancesPawn, NearerToAStandingEnemyKeep) {
  Game game = test::EmptyGame(kAlliedNeighbors);
  game.currentTeam = kBlack;
  EXPECT_TRUE(AdvancesPawn(game, 8, 12, 8, 13));
  EXPECT_FALSE(AdvancesPawn(game, 8, 13, 9, 13));  // along the moat, away from Blue
  game.kingdomFallen = {true, true, false, false};
  EXPECT_FALSE(AdvancesPawn(game, 8, 12, 8, 13));
}

TEST(AdvancesPawn, CountsEnemiesOnly) {
  Game game = test::EmptyGame(kAnarchy);
  game.currentTeam = kWhite;
  EXPECT_TRUE(AdvancesPawn(game, 8, 8, 7, 8));  // towards Blue's keep
  game.gameType = kAlliedNeighbors;             // Blue is an ally now
  EXPECT_FALSE(AdvancesPawn(game, 8, 8, 7, 8));
  game.gameType = 7;
  EXPECT_FALSE(AdvancesPawn(game, 8, 8, 8, 7));
}

}  // namespace
}  // namespace varkesh
