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

using test::Placed;
using test::Scored;

struct ThreatCase {
  const char* name;
  int gameType;
  bool threat, moatless;
  std::vector<Placed> pieces;  // the first is the target
};

// The corners the seeded games of the self-play test never reach.
// clang-format off
const ThreatCase kThreatCases[] = {
  {"frozen target", kAnarchy, false, false, {{8, 8, kWhite, -kRook}, {8, 7, kBlack, kQueen}}},
  {"ally's moat", kAlliedNeighbors, false, false, {{3, 8, kWhite, kPawn}, {4, 7, kBlack, kPawn}}},
  {"frozen blocker", kAnarchy, false, false,
   {{8, 14, kWhite, kQueen}, {8, 8, kBlack, kRook}, {8, 11, kRed, -kPawn}}},
  {"king beside", kAnarchy, true, false, {{8, 8, kWhite, kKing}, {8, 9, kBlack, kKing}}},
};
// clang-format on

TEST(ThreatTests, OddCases) {
  for (const ThreatCase& c : kThreatCases) {
    const Board board = test::EmptyPosition(c.gameType, c.pieces).board;
    const Placed& target = c.pieces.front();
    EXPECT_EQ(TestThreat(board, c.gameType, target.x, target.y), c.threat) << c.name;
    EXPECT_EQ(TestMoatlessThreat(board, c.gameType, target.x, target.y), c.moatless) << c.name;
  }
}

using Scores = std::array<int, 4>;  // capture, threat, weak threat, danger

Scores Of(const MoveRec& m) {
  return {m.captureScore, m.threatScore, m.weakThreatScore, m.dangerScore};
}

ScoreSummary Score(const Position& position, AiMoveList& list, Random& random,
                   const std::vector<MoveRec>& moves, int personality, AiOutside& outside) {
  list.Clear();
  for (const MoveRec& move : moves) list.Add(move);
  return ScoreAiMoves(position, list, random, outside, personality, AiLog{});
}

struct ScoringCase {
  const char* name;
  int gameType, personality;
  std::vector<Placed> pieces;  // White's turn
  MoveRec move;
  Scores scores;
};

const std::vector<Placed> kQueenAndBishop = {{8, 8, kWhite, kKnight},
                                             {9, 10, kBlack, kQueen},
                                             {4, 12, kWhite, kRook},
                                             {6, 10, kBlack, kBishop}};
const std::vector<Placed> kCastle = {
    {8, 15, kWhite, kKing}, {8, 16, kWhite, kCastlePawn}, {7, 13, kBlack, kKnight}};

// The scores are those of the program before its state became plain values,
// as its command-line tool printed them.
// clang-format off
const ScoringCase kScoringCases[] = {
  {"queen taken, own rook left attacked", kAnarchy, kAggressive, kQueenAndBishop,
   Scored(8, 8, 9, 10), {1000, 0, 0, 500}},
  {"rook strikes queen and bishop", kAnarchy, kAggressive, kQueenAndBishop,
   Scored(4, 12, 4, 10), {0, 299, 0, 200}},
  {"castle move, Castle Pawn's new square struck", kAnarchy, kBalanced, kCastle,
   Scored(8, 15, 8, 16), {0, 0, 0, 60}},
  {"king into a knight's reach", kAnarchy, kBalanced, kCastle,
   Scored(8, 15, 9, 14), {0, 0, 0, 5000}},
  {"king strikes the knight", kAnarchy, kBalanced, kCastle,
   Scored(8, 15, 7, 14), {0, 62, 0, 0}},
  {"pawn takes pawn, faces the next", kAnarchy, kBalanced,
   {{8, 8, kWhite, kPawn}, {9, 7, kBlack, kPawn}, {10, 6, kBlack, kPawn}},
   Scored(8, 8, 9, 7), {40, 5, 0, 50}},
};
// clang-format on

TEST(MoveScoring, WorkedCases) {
  for (const ScoringCase& c : kScoringCases) {
    const Position position = test::EmptyPosition(c.gameType, c.pieces);
    AiMoveList list;
    Random random = Random::Zero();
    test::NotingAiOutside outside;
    Score(position, list, random, {c.move}, c.personality, outside);
    EXPECT_EQ(Of(list[1]), c.scores) << c.name;
  }
}

// Two equal steps along the file strike the pawn; taking it is best.
TEST(MoveScoring, TiesRiseOnlyOnADrawOfOneAndProgressShows) {
  const Position position = test::EmptyPosition(
      kAnarchy, {{8, 8, kWhite, kRook}, {8, 4, kBlack, kPawn}, {5, 5, kRed, -kQueen}});
  AiMoveList list;
  Random random = Random::Zero();
  test::NotingAiOutside outside;
  ScoreSummary summary =
      Score(position, list, random, {Scored(8, 8, 8, 9), Scored(8, 8, 8, 10), Scored(8, 8, 8, 4)},
            kBalanced, outside);
  EXPECT_EQ(summary.bestImmediateMove, 3);
  EXPECT_EQ(summary.bestFullMove, 3);
  EXPECT_EQ(summary.pieceCount, 2);              // frozen pieces do not count
  EXPECT_EQ(Of(list[2]), (Scores{0, 5, 0, 0}));  // equal, and drew a 0
  EXPECT_EQ(outside.labels,
            (std::vector<std::string>{"Evaluating Moves (33%)", "Evaluating Moves (67%)",
                                      "Evaluating Moves (100%)"}));
  EXPECT_EQ(outside.yields, 3);

  // Seed 2 draws 1 for the immediate tie, which also puts the full score ahead;
  // seed 0 draws 0 for it and then 1 for the full tie.
  for (auto [seed, immediateMove, second] :
       {std::tuple{2, 2, Scores{1, 5, 0, 0}}, std::tuple{0, 1, Scores{0, 6, 0, 0}}}) {
    random = Random(seed);
    summary = Score(position, list, random, {Scored(8, 8, 8, 9), Scored(8, 8, 8, 10)}, kBalanced,
                    outside);
    EXPECT_EQ(summary.bestImmediateMove, immediateMove) << seed;
    EXPECT_EQ(summary.bestFullMove, 2) << seed;
    EXPECT_EQ(Of(list[2]), second) << seed;
  }
}

}  // namespace
}  // namespace varkesh
