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

// A team without a live King (a hand-made or damaged game) finds a square
// still on the board.
TEST(KingScan, NoLiveKingIsTheCorner) {
  const Position position = Place(kAnarchy, "KK 7,7 -WK 9,9");
  EXPECT_EQ(KingColumn(position, kWhite), 0);
  EXPECT_EQ(KingRow(position, kWhite), 0);
}

// Passing the turn shows in every count and game; here, the edges they never
// reach.
TEST(PassTurn, TheRoundStopsAtItsHighestAndEveryKingdomFallenEndsTheSearchAfterALap) {
  Position position = Place(kAnarchy, "");
  position.currentTeam = kRed;
  position.roundNumber = kHighestRound;
  PassTurn(position);
  EXPECT_EQ((std::pair{position.currentTeam, position.roundNumber}),
            (std::pair{kWhite, kHighestRound}));
  position = Place(test::Layout{kAnarchy, kKingdomGained, "", "", "WBKR"});
  PassTurn(position);
  EXPECT_EQ(position.roundNumber, 2);
}

}  // namespace
}  // namespace varkesh
