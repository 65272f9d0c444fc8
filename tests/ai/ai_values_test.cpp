#include <gtest/gtest.h>

#include <array>

#include "ai/ai_values.h"

namespace varkesh {
namespace {

using Row = std::array<int, 4>;  // capture, threat, weak threat, danger

// The whole table as the personalities are documented, by piece kind.
constexpr std::array<std::array<Row, 7>, 3> kExpected{{
    {{{40, 6, 3, 50},
      {100, 16, 8, 60},
      {800, 133, 66, 700},
      {600, 100, 50, 500},
      {300, 50, 25, 200},
      {1000, 166, 83, 900},
      {2000, 333, 166, 5000}}},
    {{{40, 5, 2, 50},
      {100, 12, 6, 60},
      {800, 100, 50, 900},
      {600, 75, 37, 700},
      {500, 62, 31, 400},
      {900, 112, 56, 1000},
      {2000, 250, 125, 5000}}},
    {{{40, 4, 2, 50},
      {50, 5, 2, 60},
      {800, 80, 40, 1000},
      {600, 60, 30, 700},
      {300, 30, 15, 200},
      {1000, 100, 50, 2000},
      {2000, 200, 100, 5000}}},
}};

TEST(AiValues, DerivedColumnsDropTheFractions) {
  for (int personality = 1; personality <= 3; ++personality)
    for (int piece = 1; piece <= 7; ++piece)
      for (int kind = 0; kind < 4; ++kind)
        EXPECT_EQ(AiValue(personality, static_cast<ScoreKind>(kind), piece),
                  kExpected[personality - 1][piece - 1][kind])
            << "personality " << personality << " piece " << piece << " kind " << kind;
}

TEST(AiValues, ValuesOutsideTheTableReadAsZero) {
  EXPECT_EQ(AiValue(0, kCaptureValue, kQueen), 0);
  EXPECT_EQ(AiValue(4, kCaptureValue, kQueen), 0);
  EXPECT_EQ(AiValue(kBalanced, kCaptureValue, 0), 0);
  EXPECT_EQ(AiValue(kBalanced, kCaptureValue, -kQueen), 0);  // a frozen piece
  EXPECT_EQ(AiValue(kBalanced, kCaptureValue, 8), 0);
}

unsigned Teams(std::initializer_list<int> teams) {
  unsigned bits = 0;
  for (int team : teams) bits |= 1u << team;
  return bits;
}

TEST(AiValues, EnemyListFollowsTheGameType) {
  const std::array<std::array<unsigned, 4>, 3> expected{{
      {Teams({3, 4}), Teams({3, 4}), Teams({1, 2}), Teams({1, 2})},
      {Teams({2, 4}), Teams({1, 3}), Teams({2, 4}), Teams({1, 3})},
      {Teams({2, 3, 4}), Teams({1, 3, 4}), Teams({1, 2, 4}), Teams({1, 2, 3})},
  }};
  for (int type = 1; type <= 3; ++type)
    for (int team = 1; team <= 4; ++team)
      EXPECT_EQ(EnemyTeams(type, team), expected[type - 1][team - 1]) << type << "/" << team;
  EXPECT_EQ(EnemyTeams(0, kWhite), 0u);
  EXPECT_EQ(EnemyTeams(4, kWhite), 0u);
  EXPECT_EQ(EnemyTeams(kAnarchy, 0), 0u);
  EXPECT_EQ(EnemyTeams(kAnarchy, 5), 0u);
  EXPECT_FALSE(IsEnemy(~0u, 0));
  EXPECT_FALSE(IsEnemy(~0u, 31));
}

}  // namespace
}  // namespace varkesh
