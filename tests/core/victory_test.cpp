#include <gtest/gtest.h>

#include "core/fate.h"

namespace varkesh {
namespace {

struct Outcome {
  bool ended;
  int winner;
  int coWinner;
};

Outcome RunVictoryTest(int gameType, PerTeam<bool> fallen) {
  Game game;
  game.gameType = gameType;
  game.gameMode = ModeChoosePiece;
  game.kingdomFallen = fallen;
  bool ended = VictoryTest(game);
  EXPECT_EQ(game.gameMode, ended ? ModeVictorySetUp : ModeChoosePiece);
  if (!ended) {
    EXPECT_EQ(game.winner, kNoTeam);
    EXPECT_EQ(game.coWinner, kNoTeam);
  }
  return {ended, game.winner, game.coWinner};
}

void ExpectWin(Outcome outcome, int winner, int coWinner) {
  EXPECT_TRUE(outcome.ended);
  EXPECT_EQ(outcome.winner, winner);
  EXPECT_EQ(outcome.coWinner, coWinner);
}

TEST(VictoryTest, AlliedNeighborsEndsWhenOnePairHasFallen) {
  EXPECT_FALSE(RunVictoryTest(kAlliedNeighbors, {true, false, true, false}).ended);
  EXPECT_FALSE(RunVictoryTest(kAlliedNeighbors, {false, true, false, true}).ended);
  ExpectWin(RunVictoryTest(kAlliedNeighbors, {true, true, false, false}), kBlack, kRed);
  ExpectWin(RunVictoryTest(kAlliedNeighbors, {false, false, true, true}), kWhite, kBlue);
  // White and Blue are tested first.
  ExpectWin(RunVictoryTest(kAlliedNeighbors, {true, true, true, true}), kBlack, kRed);
}

TEST(VictoryTest, CrossroadAlliesEndsWhenOnePairHasFallen) {
  EXPECT_FALSE(RunVictoryTest(kCrossroadAllies, {true, true, false, false}).ended);
  ExpectWin(RunVictoryTest(kCrossroadAllies, {true, false, true, false}), kBlue, kRed);
  ExpectWin(RunVictoryTest(kCrossroadAllies, {false, true, false, true}), kWhite, kBlack);
  ExpectWin(RunVictoryTest(kCrossroadAllies, {true, true, true, true}), kBlue, kRed);
}

TEST(VictoryTest, AnarchyEndsWithOneKingdomStanding) {
  EXPECT_FALSE(RunVictoryTest(kAnarchy, {false, false, false, false}).ended);
  EXPECT_FALSE(RunVictoryTest(kAnarchy, {true, false, true, false}).ended);
  for (int standing = kWhite; standing <= kRed; ++standing) {
    PerTeam<bool> fallen{true, true, true, true};
    fallen[static_cast<std::size_t>(standing - 1)] = false;
    ExpectWin(RunVictoryTest(kAnarchy, fallen), standing, kNoTeam);
  }
}

TEST(VictoryTest, AnUnknownGameTypeNeverEnds) {
  EXPECT_FALSE(RunVictoryTest(0, {true, true, true, false}).ended);
  EXPECT_FALSE(RunVictoryTest(7, {true, true, true, true}).ended);
}

}  // namespace
}  // namespace varkesh
