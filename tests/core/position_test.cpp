#include <utility>

#include "core/apply_move.h"
#include "rules_fixture.h"

namespace varkesh {
namespace {

using test::Place;

// The pairs themselves show in the counts of the rule tests; here, the edges.
TEST(Alliance, NoTeamIsItsOwnAllyAndNoValueOutsideTheTeamsIsAnyonesAlly) {
  for (int gameType : {kAlliedNeighbors, kCrossroadAllies}) {
    for (int team = -1; team <= 5; ++team) {
      EXPECT_FALSE(IsAlly(gameType, team, team)) << "type " << gameType << " team " << team;
      EXPECT_FALSE(IsAlly(gameType, team, 5) || IsAlly(gameType, -1, team))
          << "type " << gameType << " team " << team;
    }
  }
}

TEST(LackOfMaterial, LivePawnsCountOneOtherPiecesTwoTheKingNothingBelowFiveLacks) {
  const std::string pawns = " WP 6,13 WP 7,13 WP 8,13 WK 8,15 KQ 8,8";
  EXPECT_TRUE(LackOfMaterial(Place(kAnarchy, "WP 5,13" + pawns), kWhite));   // 4
  EXPECT_FALSE(LackOfMaterial(Place(kAnarchy, "WN 5,13" + pawns), kWhite));  // 3 + 2
  EXPECT_TRUE(LackOfMaterial(Place(kAnarchy, "-WQ 5,13" + pawns), kWhite));  // 3
  EXPECT_TRUE(LackOfMaterial(Place(kAnarchy, "RQ 8,8 RR 9,8"), kRed));       // 4
  EXPECT_FALSE(LackOfMaterial(Place(kAnarchy, "RQ 8,8 RR 9,8 RC 10,8"), kRed));
}

// A team without a live King (a hand-made or damaged game) finds a square
// still on the board.
TEST(KingScan, NoLiveKingIsTheCorner) {
  const Position position = Place(kAnarchy, "KK 7,7 -WK 9,9");
  EXPECT_EQ(KingColumn(position, kWhite), 0);
  EXPECT_EQ(KingRow(position, kWhite), 0);
}

TEST(PassTurn, SkipsEveryFallenKingdomInARowAndCountsTheRoundAtTheWrap) {
  struct Case {
    const char* fallen;
    int from, round;
    int next, nextRound;
  };
  const Case cases[] = {
      {"", kWhite, 1, kBlue, 1},
      {"", kRed, 1, kWhite, 2},
      {"B", kWhite, 3, kBlack, 3},
      {"BK", kWhite, 3, kRed, 3},     // two in a row
      {"WB", kRed, 3, kBlack, 4},     // two across the wrap
      {"BKR", kWhite, 5, kWhite, 6},  // the last one standing plays on
      {"", kRed, kHighestRound, kWhite, kHighestRound},
  };
  for (const Case& c : cases) {
    Position position = Place(test::Layout{kAnarchy, kKingdomGained, "", "", c.fallen});
    position.currentTeam = c.from;
    position.roundNumber = c.round;
    PassTurn(position);
    EXPECT_EQ((std::pair{position.currentTeam, position.roundNumber}),
              (std::pair{c.next, c.nextRound}))
        << "fallen " << c.fallen << " from " << c.from;
  }
  // Every kingdom fallen (a damaged game): the search gives up after one lap.
  Position position = Place(test::Layout{kAnarchy, kKingdomGained, "", "", "WBKR"});
  PassTurn(position);
  EXPECT_EQ(position.roundNumber, 2);
}

}  // namespace
}  // namespace varkesh
