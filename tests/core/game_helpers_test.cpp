#include <gtest/gtest.h>

#include "rules_fixture.h"

namespace varkesh {
namespace {

using test::EmptyGame;
using test::Put;

TEST(LackOfMaterial, CountsLivePiecesOfTheTeamBelowFive) {
  Game game = EmptyGame();
  for (int x = 5; x <= 8; ++x) Put(game, x, 13, kWhite, kPawn);
  Put(game, 8, 15, kWhite, kKing);
  Put(game, 8, 8, kBlack, kQueen);
  EXPECT_TRUE(LackOfMaterial(game, kWhite));  // 4

  Put(game, 5, 13, kWhite, kBishop);  // 3 + 2
  EXPECT_FALSE(LackOfMaterial(game, kWhite));

  Put(game, 5, 13, kWhite, -kQueen);  // frozen pieces count nothing
  EXPECT_TRUE(LackOfMaterial(game, kWhite));

  Game pieces = EmptyGame();
  Put(pieces, 8, 8, kRed, kQueen);
  Put(pieces, 9, 8, kRed, kRook);
  EXPECT_TRUE(LackOfMaterial(pieces, kRed));  // 4
  Put(pieces, 10, 8, kRed, kCastlePawn);
  EXPECT_FALSE(LackOfMaterial(pieces, kRed));
  EXPECT_TRUE(LackOfMaterial(pieces, kNoTeam));
}

TEST(KingScan, FindsTheFirstLiveKingInScanOrder) {
  Game game = EmptyGame();
  EXPECT_EQ(KingColumn(game, kWhite), 0);
  EXPECT_EQ(KingRow(game, kWhite), 0);

  Put(game, 8, 15, kWhite, kKing);
  Put(game, 9, 9, kWhite, -kKing);  // frozen: not found
  Put(game, 7, 7, kBlack, kKing);
  EXPECT_EQ(KingColumn(game, kWhite), 8);
  EXPECT_EQ(KingRow(game, kWhite), 15);
  EXPECT_EQ(KingColumn(game, kBlack), 7);
  EXPECT_EQ(KingRow(game, kBlack), 7);

  Put(game, 10, 14, kWhite, kKing);  // row 14 comes before row 15
  EXPECT_EQ(KingColumn(game, kWhite), 10);
  EXPECT_EQ(KingRow(game, kWhite), 14);
  EXPECT_EQ(KingColumn(game, 9), 0);
}

TEST(History, NewestFirstAndTheFourthDropsTheFirst) {
  Game game;
  AddToHistory(game, 8, 13, 8, 11, kWhite, false);
  AddToHistory(game, 3, 8, 5, 8, kBlue, false);
  AddToHistory(game, 8, 3, 8, 5, kBlack, true);
  EXPECT_EQ(game.history[0], (HistoryMove{8, 3, 8, 5, kBlack, true}));
  EXPECT_EQ(game.history[2], (HistoryMove{8, 13, 8, 11, kWhite, false}));
  AddToHistory(game, 13, 8, 11, 8, kRed, false);
  EXPECT_EQ(game.history[0], (HistoryMove{13, 8, 11, 8, kRed, false}));
  EXPECT_EQ(game.history[1], (HistoryMove{8, 3, 8, 5, kBlack, true}));
  EXPECT_EQ(game.history[2], (HistoryMove{3, 8, 5, 8, kBlue, false}));
}

TEST(Names, ErrorForAnyOtherValueAFrozenKindIncluded) {
  EXPECT_STREQ(TeamName(kRed), "Red");
  EXPECT_STREQ(TeamName(kNoTeam), "~~error~~");
  EXPECT_STREQ(TeamName(5), "~~error~~");
  EXPECT_STREQ(PieceName(kCastlePawn), "Castle Pawn");
  EXPECT_STREQ(PieceName(kKing), "King");
  EXPECT_STREQ(PieceName(kNoPiece), "~~error~~");
  EXPECT_STREQ(PieceName(-kQueen), "~~error~~");
  EXPECT_STREQ(PieceName(8), "~~error~~");
}

}  // namespace
}  // namespace varkesh
