#include <gtest/gtest.h>

#include "core/rules.h"

namespace varkesh {
namespace {

TEST(Alliance, PairsByGameTypeInBothDirections) {
  struct Pair {
    int gameType, team, other;
  };
  const Pair allied[] = {{kAlliedNeighbors, kWhite, kBlue},
                         {kAlliedNeighbors, kBlack, kRed},
                         {kCrossroadAllies, kWhite, kBlack},
                         {kCrossroadAllies, kBlue, kRed}};
  for (int gameType : {kAlliedNeighbors, kCrossroadAllies, kAnarchy}) {
    for (int team = kWhite; team <= kRed; ++team) {
      for (int other = kWhite; other <= kRed; ++other) {
        bool expected = false;
        for (const Pair& pair : allied) {
          expected |= pair.gameType == gameType && ((pair.team == team && pair.other == other) ||
                                                    (pair.team == other && pair.other == team));
        }
        EXPECT_EQ(IsAlly(gameType, team, other), expected)
            << "type " << gameType << " teams " << team << ", " << other;
        EXPECT_EQ(IsHostile(gameType, team, other), team != other && !expected);
      }
    }
  }
}

TEST(Alliance, NoTeamAndStrangeValuesAreNobodysAlly) {
  for (int gameType : {kAlliedNeighbors, kCrossroadAllies, 0, 9}) {
    for (int odd : {0, -1, 5}) {
      EXPECT_FALSE(IsAlly(gameType, kWhite, odd));
      EXPECT_FALSE(IsAlly(gameType, odd, kBlue));
      EXPECT_FALSE(IsAlly(gameType, odd, odd));
    }
  }
}

}  // namespace
}  // namespace varkesh
