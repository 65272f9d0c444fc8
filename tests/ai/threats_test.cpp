#include "ai/threats.h"

#include <gtest/gtest.h>

#include <vector>

#include "ai/ai_values.h"
#include "ai_fixture.h"

namespace varkesh {
namespace {

using test::Placed;

struct ThreatCase {
  const char* name;
  int gameType;
  bool threat, moatless;
  std::vector<Placed> pieces;  // the first is the target
};

// clang-format off
const ThreatCase kThreatCases[] = {
  {"empty square", kAnarchy, false, false, {{8, 8, 0, 0}, {8, 7, kBlack, kQueen}}},
  {"frozen target", kAnarchy, false, false, {{8, 8, kWhite, -kRook}, {8, 7, kBlack, kQueen}}},
  {"pawn on a diagonal", kAnarchy, true, true, {{8, 8, kWhite, kRook}, {7, 9, kBlack, kPawn}}},
  {"pawn straight on", kAnarchy, false, false, {{8, 8, kWhite, kRook}, {8, 9, kBlack, kPawn}}},
  {"pawn at own moat", kAlliedNeighbors, false, false,
   {{8, 13, kWhite, kPawn}, {7, 12, kBlack, kPawn}}},
  {"pawn at enemy moat", kAlliedNeighbors, true, true,
   {{8, 3, kWhite, kPawn}, {7, 4, kBlack, kPawn}}},
  {"pawn at ally's moat", kAlliedNeighbors, false, false,
   {{3, 8, kWhite, kPawn}, {4, 7, kBlack, kPawn}}},
  {"no ally in anarchy", kAnarchy, true, true, {{3, 8, kWhite, kPawn}, {4, 7, kBlack, kPawn}}},
  {"castle pawn at own moat", kAlliedNeighbors, true, true,
   {{8, 13, kWhite, kPawn}, {7, 12, kBlack, kCastlePawn}}},
  {"line into a keep", kAnarchy, false, true, {{8, 14, kWhite, kQueen}, {8, 8, kBlack, kRook}}},
  {"frozen blocker", kAnarchy, false, false,
   {{8, 14, kWhite, kQueen}, {8, 8, kBlack, kRook}, {8, 11, kRed, -kPawn}}},
  {"line out of a keep", kAnarchy, true, true, {{8, 8, kWhite, kQueen}, {8, 2, kBlack, kRook}}},
  {"rook on a diagonal", kAnarchy, false, false,
   {{8, 8, kWhite, kKnight}, {11, 11, kBlack, kRook}}},
  {"bishop on a file", kAnarchy, false, false, {{8, 8, kWhite, kKnight}, {8, 4, kBlack, kBishop}}},
  {"own piece shields", kAnarchy, false, false,
   {{8, 8, kWhite, kKnight}, {11, 5, kBlack, kQueen}, {10, 6, kWhite, kPawn}}},
  {"king diagonal", kAnarchy, true, false, {{8, 8, kWhite, kKing}, {9, 9, kBlack, kKing}}},
  {"king beside", kAnarchy, true, false, {{8, 8, kWhite, kKing}, {8, 9, kBlack, kKing}}},
  {"knight into a keep", kAnarchy, true, true, {{8, 14, kWhite, kQueen}, {7, 12, kRed, kKnight}}},
  {"allies", kCrossroadAllies, false, false,
   {{8, 8, kWhite, kQueen}, {8, 7, kBlack, kRook}, {7, 6, kBlack, kKnight}, {9, 9, kBlack, kPawn}}},
};
// clang-format on

TEST(ThreatTests, OddCases) {
  for (const ThreatCase& c : kThreatCases) {
    Game game = test::EmptyGame(c.gameType);
    for (const Placed& p : c.pieces) test::Put(game.board, {p});
    game.scratchBoard = game.board;
    const Placed& target = c.pieces.front();
    EXPECT_EQ(TestThreat(game, target.x, target.y), c.threat) << c.name;
    EXPECT_EQ(TestMoatlessThreat(game, target.x, target.y), c.moatless) << c.name;
  }
}

TEST(ThreatTests, NamesTheAttackerFound) {
  Game game = test::EmptyGame(kAnarchy, {{8, 14, kWhite, kQueen}, {7, 12, kRed, kKnight}});
  game.scratchBoard = game.board;
  Attacker attacker;
  ASSERT_TRUE(TestThreat(game, 8, 14, &attacker));
  EXPECT_EQ(attacker.x, 7);
  EXPECT_EQ(attacker.y, 12);
  EXPECT_EQ(attacker.team, kRed);
  EXPECT_EQ(attacker.piece, kKnight);
  EXPECT_FALSE(TestThreat(game, 17, 8));
}

TEST(AdvancesPawn, NearerToTheKeepOfAStandingEnemy) {
  struct Case {
    int gameType, team;
    PerTeam<bool> fallen;
    int fromX, fromY, toX, toY;
    bool advances;
  };
  for (const Case& c : {
           Case{kAlliedNeighbors, kBlack, {}, 8, 12, 8, 13, true},
           Case{kAlliedNeighbors, kBlack, {true, true, false, false}, 8, 12, 8, 13, false},
           Case{kAlliedNeighbors, kBlack, {}, 8, 13, 9, 13, false},  // along White's moat
           Case{kAnarchy, kWhite, {}, 8, 8, 7, 8, true},             // towards Blue's keep
           Case{kAlliedNeighbors, kWhite, {}, 8, 8, 7, 8, false},    // Blue is an ally
           Case{7, kWhite, {}, 8, 8, 8, 7, false},
       }) {
    Game game = test::EmptyGame(c.gameType);
    game.currentTeam = c.team;
    game.kingdomFallen = c.fallen;
    EXPECT_EQ(AdvancesPawn(game, c.fromX, c.fromY, c.toX, c.toY), c.advances)
        << c.gameType << ": " << c.fromX << "," << c.fromY << " to " << c.toX << "," << c.toY;
  }
}

TEST(AiValues, DerivedValuesDropTheFraction) {
  EXPECT_EQ(AiValue(kBalanced, kThreatValue, kKnight), 62);
  EXPECT_EQ(AiValue(kBalanced, kWeakThreatValue, kKnight), 31);
  EXPECT_EQ(AiValue(kAggressive, kThreatValue, kBishop), 133);
  EXPECT_EQ(AiValue(kAggressive, kWeakThreatValue, kBishop), 66);
  EXPECT_EQ(AiValue(kDefensive, kThreatValue, kCastlePawn), 5);
  EXPECT_EQ(AiValue(kBalanced, kThreatValue, kQueen), 112);
  EXPECT_EQ(AiValue(kBalanced, kCaptureValue, -kQueen), 0);
  EXPECT_EQ(AiValue(4, kCaptureValue, kQueen), 0);
  EXPECT_EQ(EnemyTeams(kCrossroadAllies, kBlue), (1u << kWhite) | (1u << kBlack));
  EXPECT_EQ(EnemyTeams(0, kWhite), 0u);
}

}  // namespace
}  // namespace varkesh
