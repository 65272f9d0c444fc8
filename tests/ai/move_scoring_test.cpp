#include "ai/move_scoring.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <tuple>
#include <vector>

#include "ai/threats.h"
#include "ai_fixture.h"

namespace varkesh {
namespace {

using test::Move;
using test::Placed;

struct ThreatCase {
  const char* name;
  int gameType;
  bool threat, moatless;
  std::vector<Placed> pieces;  // the first is the target
};

// clang-format off
const ThreatCase kThreatCases[] = {
  {"frozen target", kAnarchy, false, false, {{8, 8, kWhite, -kRook}, {8, 7, kBlack, kQueen}}},
  {"pawn on a diagonal", kAnarchy, true, true, {{8, 8, kWhite, kRook}, {7, 9, kBlack, kPawn}}},
  {"pawn straight on", kAnarchy, false, false, {{8, 8, kWhite, kRook}, {8, 9, kBlack, kPawn}}},
  {"own moat", kAlliedNeighbors, false, false, {{8, 13, kWhite, kPawn}, {7, 12, kBlack, kPawn}}},
  {"enemy moat", kAlliedNeighbors, true, true, {{8, 3, kWhite, kPawn}, {7, 4, kBlack, kPawn}}},
  {"ally's moat", kAlliedNeighbors, false, false, {{3, 8, kWhite, kPawn}, {4, 7, kBlack, kPawn}}},
  {"anarchy moat", kAnarchy, true, true, {{3, 8, kWhite, kPawn}, {4, 7, kBlack, kPawn}}},
  {"castle pawn at own moat", kAlliedNeighbors, true, true,
   {{8, 13, kWhite, kPawn}, {7, 12, kBlack, kCastlePawn}}},
  {"line into a keep", kAnarchy, false, true, {{8, 14, kWhite, kQueen}, {8, 8, kBlack, kRook}}},
  {"frozen blocker", kAnarchy, false, false,
   {{8, 14, kWhite, kQueen}, {8, 8, kBlack, kRook}, {8, 11, kRed, -kPawn}}},
  {"moat into a keep", kAnarchy, true, true, {{8, 15, kWhite, kQueen}, {6, 13, kBlack, kBishop}}},
  {"line out of a keep", kAnarchy, true, true, {{8, 8, kWhite, kQueen}, {8, 2, kBlack, kRook}}},
  {"rook diagonal", kAnarchy, false, false, {{8, 8, kWhite, kKnight}, {11, 11, kBlack, kRook}}},
  {"king diagonal", kAnarchy, true, false, {{8, 8, kWhite, kKing}, {9, 9, kBlack, kKing}}},
  {"king beside", kAnarchy, true, false, {{8, 8, kWhite, kKing}, {8, 9, kBlack, kKing}}},
  {"knight into a keep", kAnarchy, true, true, {{8, 14, kWhite, kQueen}, {7, 12, kRed, kKnight}}},
  {"allies", kCrossroadAllies, false, false,
   {{8, 8, kWhite, kQueen}, {8, 7, kBlack, kRook}, {7, 6, kBlack, kKnight}, {9, 9, kBlack, kPawn}}},
};
// clang-format on

TEST(ThreatTests, OddCases) {
  for (const ThreatCase& c : kThreatCases) {
    const Game game = test::EmptyGame(c.gameType, c.pieces);
    const Placed& target = c.pieces.front();
    EXPECT_EQ(TestThreat(game, target.x, target.y), c.threat) << c.name;
    EXPECT_EQ(TestMoatlessThreat(game, target.x, target.y), c.moatless) << c.name;
  }
}

bool Advances(int gameType, int team, PerTeam<bool> fallen, int fromX, int fromY, int toX,
              int toY) {
  Game game = test::EmptyGame(gameType);
  game.match.position.currentTeam = team;
  game.match.position.kingdomFallen = fallen;
  return AdvancesPawn(game, fromX, fromY, toX, toY);
}

TEST(AdvancesPawn, NearerToTheKeepOfAStandingEnemy) {
  EXPECT_TRUE(Advances(kAlliedNeighbors, kBlack, {}, 8, 12, 8, 13));
  EXPECT_FALSE(Advances(kAlliedNeighbors, kBlack, {true, true, false, false}, 8, 12, 8, 13));
  EXPECT_FALSE(Advances(kAlliedNeighbors, kBlack, {}, 8, 13, 9, 13));  // along White's moat
  EXPECT_TRUE(Advances(kAlliedNeighbors, kBlack, {}, 4, 12, 5, 12));   // towards its front
  EXPECT_TRUE(Advances(kAnarchy, kWhite, {}, 8, 8, 7, 8));             // towards Blue's keep
  EXPECT_FALSE(Advances(kAlliedNeighbors, kWhite, {}, 8, 8, 7, 8));    // Blue is an ally
  EXPECT_FALSE(Advances(7, kWhite, {}, 8, 8, 8, 7));
}

using Scores = std::array<int, 4>;  // capture, threat, weak threat, danger

Scores Of(const MoveRec& m) {
  return {m.captureScore, m.threatScore, m.weakThreatScore, m.dangerScore};
}

ScoreSummary Score(Game& game, const std::vector<MoveRec>& moves, int personality,
                   Outside& outside) {
  game.moveList.Clear();
  for (const MoveRec& move : moves) game.moveList.Add(move);
  const Board before = game.match.position.board;
  const ScoreSummary summary = ScoreAiMoves(game, outside, personality, AiLog{});
  EXPECT_TRUE(game.match.position.board.squares == before.squares) << "moves are played on the scratch board";
  return summary;
}

struct ScoringCase {
  const char* name;
  int gameType, personality;
  std::vector<Placed> pieces;
  MoveRec move;
  Scores scores;
};

// clang-format off
const ScoringCase kScoringCases[] = {
  {"queen taken, own rook left attacked", kAnarchy, kAggressive,
   {{8, 8, kWhite, kKnight}, {9, 10, kBlack, kQueen}, {4, 12, kWhite, kRook},
    {6, 10, kBlack, kBishop}}, Move(8, 8, 9, 10), {1000, 0, 0, 500}},
  {"castle move, Castle Pawn's new square struck", kAnarchy, kBalanced,
   {{8, 15, kWhite, kKing}, {8, 16, kWhite, kCastlePawn}, {7, 13, kBlack, kKnight}},
   Move(8, 15, 8, 16), {0, 0, 0, 60}},
  {"pawn takes pawn, faces the next", kAnarchy, kBalanced,
   {{8, 8, kWhite, kPawn}, {9, 7, kBlack, kPawn}, {10, 6, kBlack, kPawn}},
   Move(8, 8, 9, 7), {40, 5, 0, 50}},
};
// clang-format on

TEST(MoveScoring, WorkedCasesOnTheScratchBoardOnly) {
  for (const ScoringCase& c : kScoringCases) {
    Game game = test::EmptyGame(c.gameType, c.pieces);
    ScriptedOutside outside;
    Score(game, {c.move}, c.personality, outside);
    EXPECT_EQ(Of(game.moveList[1]), c.scores) << c.name;
  }
}

struct LabelRecorder : ScriptedOutside {
  std::vector<std::string> labels;
  void SetPieceLabel(const std::string& text) override { labels.push_back(text); }
};

// Two equal steps along the file strike the pawn; taking it is best.
TEST(MoveScoring, TiesRiseOnlyOnADrawOfOneAndProgressShows) {
  Game game = test::EmptyGame(
      kAnarchy, {{8, 8, kWhite, kRook}, {8, 4, kBlack, kPawn}, {5, 5, kRed, -kQueen}});
  LabelRecorder outside;
  ScoreSummary summary =
      Score(game, {Move(8, 8, 8, 9), Move(8, 8, 8, 10), Move(8, 8, 8, 4)}, kBalanced, outside);
  EXPECT_EQ(summary.bestImmediateMove, 3);
  EXPECT_EQ(summary.bestFullMove, 3);
  EXPECT_EQ(summary.pieceCount, 2);                       // frozen pieces do not count
  EXPECT_EQ(Of(game.moveList[2]), (Scores{0, 5, 0, 0}));  // equal, and drew a 0
  EXPECT_EQ(outside.labels,
            (std::vector<std::string>{"Evaluating Moves (33%)", "Evaluating Moves (67%)",
                                      "Evaluating Moves (100%)"}));
  EXPECT_EQ(outside.yieldCount, 3);

  // Seed 2 draws 1 for the immediate tie, which also puts the full score ahead;
  // seed 0 draws 0 for it and then 1 for the full tie.
  for (auto [seed, immediateMove, second] :
       {std::tuple{2, 2, Scores{1, 5, 0, 0}}, std::tuple{0, 1, Scores{0, 6, 0, 0}}}) {
    game.random = Random(seed);
    summary = Score(game, {Move(8, 8, 8, 9), Move(8, 8, 8, 10)}, kBalanced, outside);
    EXPECT_EQ(summary.bestImmediateMove, immediateMove) << seed;
    EXPECT_EQ(summary.bestFullMove, 2) << seed;
    EXPECT_EQ(Of(game.moveList[2]), second) << seed;
  }
}

}  // namespace
}  // namespace varkesh
