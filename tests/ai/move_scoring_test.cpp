#include "ai/move_scoring.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ai_fixture.h"
#include "flow/scripted_outside.h"

namespace varkesh {
namespace {

using test::Move;

struct LabelRecorder : ScriptedOutside {
  std::vector<std::string> labels;
  void SetPieceLabel(const std::string& text) override { labels.push_back(text); }
};

ScoreSummary Score(Game& game, std::initializer_list<MoveRec> moves, int personality) {
  game.moveList.Clear();
  for (const MoveRec& move : moves) game.moveList.Add(move);
  ScriptedOutside outside;
  return ScoreAiMoves(game, outside, personality, AiLog{});
}

struct Scores {
  int capture, threat, weak, danger;
  bool operator==(const Scores&) const = default;
};
Scores Of(const MoveRec& m) {
  return {m.captureScore, m.threatScore, m.weakThreatScore, m.dangerScore};
}

TEST(MoveScoring, WorkedCases) {
  // A Knight takes the Queen while the Bishop strikes the Rook left behind.
  Game queen = test::EmptyGame(kAnarchy, {{8, 8, kWhite, kKnight},
                                          {9, 10, kBlack, kQueen},
                                          {4, 12, kWhite, kRook},
                                          {6, 10, kBlack, kBishop}});
  Score(queen, {Move(8, 8, 9, 10)}, kAggressive);
  EXPECT_EQ(Of(queen.moveList[1]), (Scores{1000, 0, 0, 500}));

  Game castle = test::EmptyGame(kAnarchy, {{8, 15, kWhite, kKing}, {8, 16, kWhite, kCastlePawn}});
  Score(castle, {Move(8, 15, 8, 16)}, kBalanced);
  EXPECT_EQ(Of(castle.moveList[1]), (Scores{0, 0, 0, 0}));
  EXPECT_EQ(castle.scratchBoard.at(8, 16).piece, kKing);
  EXPECT_EQ(castle.scratchBoard.at(8, 15).piece, kCastlePawn);
  EXPECT_EQ(castle.board.at(8, 15).piece, kKing);

  // Pawn takes pawn and stands face to face with the next one.
  Game pawns = test::EmptyGame(
      kAnarchy, {{8, 8, kWhite, kPawn}, {9, 7, kBlack, kPawn}, {10, 6, kBlack, kPawn}});
  Score(pawns, {Move(8, 8, 9, 7)}, kBalanced);
  EXPECT_EQ(Of(pawns.moveList[1]), (Scores{40, 5, 0, 50}));
}

TEST(MoveScoring, EveryAttackOnEnemiesCountsAndAlliesNever) {
  // Black strikes Blue's Rook on (10, 10), Blue strikes Red's Knight, and
  // Blue's Rook on (9, 8) and Red's Queen in her keep face each other
  // along row 8: the Rook stands attacked, the Queen behind her wall only
  // weakly. The moving Knight is no part of it.
  Game game = test::EmptyGame(kAlliedNeighbors, {{4, 10, kWhite, kKnight},
                                                 {10, 10, kBlue, kRook},
                                                 {11, 9, kBlack, kPawn},
                                                 {6, 6, kBlue, kRook},
                                                 {6, 4, kRed, kKnight},
                                                 {9, 8, kBlue, kRook},
                                                 {15, 8, kRed, kQueen}});
  Score(game, {Move(4, 10, 5, 12)}, kAggressive);
  EXPECT_EQ(Of(game.moveList[1]), (Scores{0, 50, 83, 0}));
  game.gameType = kAnarchy;  // now both of Blue's Rooks are an enemy's
  Score(game, {Move(4, 10, 5, 12)}, kAggressive);
  EXPECT_EQ(Of(game.moveList[1]), (Scores{0, 50 + 100 + 100, 83, 0}));
}

TEST(MoveScoring, TiesRiseOnlyOnADrawOfOne) {
  Game game = test::EmptyGame(
      kAnarchy, {{8, 8, kWhite, kRook}, {8, 4, kBlack, kPawn}, {5, 5, kRed, -kQueen}});
  ScoreSummary summary =
      Score(game, {Move(8, 8, 8, 9), Move(8, 8, 8, 10), Move(8, 8, 8, 4)}, kBalanced);
  EXPECT_EQ(summary.bestImmediateMove, 3);
  EXPECT_EQ(summary.bestFullMove, 3);
  EXPECT_EQ(summary.pieceCount, 2);                       // frozen pieces do not count
  EXPECT_EQ(Of(game.moveList[2]), (Scores{0, 5, 0, 0}));  // equal, and drew a 0

  std::uint64_t seed = 0;
  while (Random(seed).Next() < 0.5) ++seed;
  game.random = Random(seed);
  summary = Score(game, {Move(8, 8, 8, 9), Move(8, 8, 8, 10)}, kBalanced);
  EXPECT_EQ(summary.bestImmediateMove, 2);
  EXPECT_EQ(summary.bestFullMove, 2);  // already ahead by the first rise
  EXPECT_EQ(Of(game.moveList[2]), (Scores{1, 5, 0, 0}));
}

TEST(MoveScoring, ShowsProgressInWholePercentAfterEachMove) {
  Game game = test::EmptyGame(kAnarchy, {{8, 8, kWhite, kRook}});
  for (int y = 9; y <= 16; ++y) game.moveList.Add(Move(8, 8, 8, y));
  LabelRecorder outside;
  ScoreAiMoves(game, outside, kAggressive, AiLog{});
  ASSERT_EQ(outside.labels.size(), 8u);
  EXPECT_EQ(outside.labels[0], "Evaluating Moves (13%)");
  EXPECT_EQ(outside.labels[2], "Evaluating Moves (38%)");
  EXPECT_EQ(outside.labels[7], "Evaluating Moves (100%)");
  EXPECT_EQ(outside.yieldCount, 8);
}

}  // namespace
}  // namespace varkesh
