#include <map>

#include "rules_fixture.h"

namespace varkesh {
namespace {

using test::Position;

TEST(Alliance, PairsByGameTypeInBothDirectionsAndNobodyElse) {
  // The ally of White, Blue, Black and Red; none in Anarchy. Team 0 and
  // values outside the teams are nobody's ally, not even their own.
  const std::map<int, PerTeam<int>> allyOf = {{kAlliedNeighbors, {kBlue, kWhite, kRed, kBlack}},
                                              {kCrossroadAllies, {kBlack, kRed, kWhite, kBlue}}};
  for (int gameType : {0, kAlliedNeighbors, kCrossroadAllies, kAnarchy}) {
    for (int team = -1; team <= 5; ++team) {
      for (int other = -1; other <= 5; ++other) {
        bool expected = allyOf.count(gameType) && TeamIndex(team) >= 0 &&
                        allyOf.at(gameType)[static_cast<std::size_t>(team - 1)] == other;
        EXPECT_EQ(IsAlly(gameType, team, other), expected)
            << "type " << gameType << " teams " << team << ", " << other;
        EXPECT_EQ(IsHostile(gameType, team, other), team != other && !expected);
      }
    }
  }
}

TEST(LackOfMaterial, LivePawnsCountOneOtherPiecesTwoTheKingNothingBelowFiveLacks) {
  const std::string pawns = " WP 6,13 WP 7,13 WP 8,13 WK 8,15 KQ 8,8";
  EXPECT_TRUE(LackOfMaterial(Position(kAnarchy, "WP 5,13" + pawns), kWhite));   // 4
  EXPECT_FALSE(LackOfMaterial(Position(kAnarchy, "WN 5,13" + pawns), kWhite));  // 3 + 2
  EXPECT_TRUE(LackOfMaterial(Position(kAnarchy, "-WQ 5,13" + pawns), kWhite));  // 3
  EXPECT_TRUE(LackOfMaterial(Position(kAnarchy, "RQ 8,8 RR 9,8"), kRed));       // 4
  EXPECT_FALSE(LackOfMaterial(Position(kAnarchy, "RQ 8,8 RR 9,8 RC 10,8"), kRed));
}

BoardSquare King(const Game& game, int team) {
  return {KingColumn(game, team), KingRow(game, team)};
}

TEST(KingScan, FindsTheFirstLiveKingRowByRow) {
  EXPECT_EQ(King(Position(kAnarchy, "KK 7,7"), kWhite), (BoardSquare{0, 0}));
  Game game = Position(kAnarchy, "WK 8,15 -WK 9,9 KK 7,7");
  EXPECT_EQ(King(game, kWhite), (BoardSquare{8, 15}));
  EXPECT_EQ(King(game, kBlack), (BoardSquare{7, 7}));
  // Row 14 comes before row 15, though further right.
  EXPECT_EQ(King(Position(kAnarchy, "WK 8,15 WK 10,14"), kWhite), (BoardSquare{10, 14}));
}

TEST(History, NewestFirstAndTheFourthDropsTheFirst) {
  Game game;
  for (int n = 1; n <= 4; ++n) AddToHistory(game, n, n + 1, n + 2, n + 3, n, n == 2);
  EXPECT_EQ(game.match.position.history, (std::array<HistoryMove, 3>{HistoryMove{4, 5, 6, 7, 4, false},
                                                      HistoryMove{3, 4, 5, 6, 3, false},
                                                      HistoryMove{2, 3, 4, 5, 2, true}}));
}

}  // namespace
}  // namespace varkesh
