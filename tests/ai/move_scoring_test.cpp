#include "ai/move_scoring.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ai/ai_values.h"
#include "ai_fixture.h"
#include "flow/scripted_outside.h"

namespace varkesh {
namespace {

using test::EmptyGame;
using test::Put;

struct LabelRecorder : ScriptedOutside {
  std::vector<std::string> labels;
  void SetPieceLabel(const std::string& text) override {
    labels.push_back(text);
    ScriptedOutside::SetPieceLabel(text);
  }
};

ScoreSummary Score(Game& game, std::vector<MoveRec> moves, int personality) {
  game.moveList.Clear();
  for (const MoveRec& move : moves) game.moveList.Add(move);
  ScriptedOutside outside;
  return ScoreAiMoves(game, outside, personality, AiLog{});
}

TEST(MoveScoring, CaptureWithOwnPieceLeftAttacked) {
  Game game = EmptyGame(kAnarchy);
  Put(game.board, 8, 8, kWhite, kKnight);
  Put(game.board, 9, 10, kBlack, kQueen);
  Put(game.board, 4, 12, kWhite, kRook);
  Put(game.board, 6, 10, kBlack, kBishop);  // strikes the Rook along the diagonal

  Score(game, {test::Scored(8, 8, 9, 10)}, kAggressive);
  const MoveRec& move = game.moveList[1];
  EXPECT_EQ(move.captureScore, 1000);
  EXPECT_EQ(move.dangerScore, 500);
  EXPECT_EQ(ImmediateScore(move), 500);
  EXPECT_EQ(FullScore(move), 500);

  Score(game, {test::Scored(8, 8, 9, 10)}, kDefensive);
  EXPECT_EQ(ImmediateScore(game.moveList[1]), 300);
}

TEST(MoveScoring, CastleMoveExchangesWithoutCapture) {
  Game game = EmptyGame(kAlliedNeighbors);
  Put(game.board, 8, 15, kWhite, kKing);
  Put(game.board, 8, 16, kWhite, kCastlePawn);
  Score(game, {test::Scored(8, 15, 8, 16)}, kBalanced);
  const MoveRec& move = game.moveList[1];
  EXPECT_EQ(move.captureScore, 0);
  EXPECT_EQ(move.threatScore, 0);
  EXPECT_EQ(move.weakThreatScore, 0);
  EXPECT_EQ(move.dangerScore, 0);
  EXPECT_EQ(game.scratchBoard.at(8, 16).piece, kKing);
  EXPECT_EQ(game.scratchBoard.at(8, 15).piece, kCastlePawn);
  EXPECT_EQ(game.scratchBoard.at(8, 15).team, kWhite);
  EXPECT_EQ(game.board.at(8, 15).piece, kKing);  // the real board stays
}

TEST(MoveScoring, PawnTakesPawnAndStandsAttacked) {
  Game game = EmptyGame(kAlliedNeighbors);
  Put(game.board, 8, 8, kWhite, kPawn);
  Put(game.board, 9, 7, kBlack, kPawn);
  Put(game.board, 10, 6, kBlack, kPawn);
  Score(game, {test::Scored(8, 8, 9, 7)}, kBalanced);
  const MoveRec& move = game.moveList[1];
  EXPECT_EQ(ImmediateScore(move), 40 - 50);
  EXPECT_EQ(move.threatScore, 5);  // the pawns strike each other
  EXPECT_EQ(FullScore(move), 40 + 5 - 50);
}

TEST(MoveScoring, OnlyEnemiesAndOwnPiecesCount) {
  Game game = EmptyGame(kAlliedNeighbors);
  Put(game.board, 12, 12, kWhite, kRook);
  Put(game.board, 10, 10, kBlue, kRook);
  Put(game.board, 11, 9, kBlack, kPawn);  // strikes the ally's Rook
  Put(game.board, 6, 6, kBlue, kRook);
  Put(game.board, 6, 4, kRed, kKnight);  // attacked by the ally
  const std::vector<MoveRec> moves{test::Scored(12, 12, 12, 11)};
  Score(game, moves, kAggressive);
  EXPECT_EQ(game.moveList[1].dangerScore, 0);
  EXPECT_EQ(game.moveList[1].threatScore, 50);  // Red's Knight, whoever attacks it

  game.gameType = kAnarchy;  // now Blue is an enemy too, and Blue's Rook is attacked
  Score(game, moves, kAggressive);
  EXPECT_EQ(game.moveList[1].threatScore, 50 + 100);
}

TEST(MoveScoring, WeakThreatOnAPieceInItsKeep) {
  Game game = EmptyGame(kAnarchy);
  game.currentTeam = kBlack;
  Put(game.board, 8, 8, kBlack, kRook);
  Put(game.board, 8, 14, kWhite, kQueen);
  Put(game.board, 4, 4, kBlack, kKnight);
  Score(game, {test::Scored(4, 4, 5, 6)}, kAggressive);
  EXPECT_EQ(game.moveList[1].threatScore, 0);
  EXPECT_EQ(game.moveList[1].weakThreatScore, 83);
}

TEST(MoveScoring, BestScoresAndTieBreaks) {
  Game game = EmptyGame(kAnarchy);
  Put(game.board, 8, 8, kWhite, kRook);
  Put(game.board, 8, 4, kBlack, kPawn);
  const std::vector<MoveRec> moves{test::Scored(8, 8, 8, 9), test::Scored(8, 8, 8, 10),
                                   test::Scored(8, 8, 8, 4), test::Scored(8, 8, 8, 11)};
  ScoreSummary summary = Score(game, moves, kBalanced);
  EXPECT_EQ(summary.bestImmediate, 40);
  EXPECT_EQ(summary.bestImmediateMove, 3);
  EXPECT_EQ(summary.bestFullMove, 3);
  EXPECT_EQ(summary.pieceCount, 2);

  // With every draw a 1, each tie lifts the later move above the leader.
  std::uint64_t seed = 0;
  for (;; ++seed) {
    Random probe(seed);
    if (probe.Next() >= 0.5 && probe.Next() >= 0.5) break;
  }
  game.random = Random(seed);
  summary = Score(game, {moves[0], moves[1]}, kBalanced);
  EXPECT_EQ(summary.bestImmediateMove, 2);
  EXPECT_EQ(game.moveList[2].captureScore, 1);
  EXPECT_EQ(summary.bestImmediate, 1);
  EXPECT_EQ(summary.bestFullMove, 2);
  EXPECT_EQ(game.moveList[2].threatScore, 5);  // Black's Pawn, not raised: 1 beats 0
}

TEST(MoveScoring, FrozenPiecesAreNotCounted) {
  Game game = EmptyGame(kAnarchy);
  Put(game.board, 8, 8, kWhite, kRook);
  Put(game.board, 8, 4, kBlack, -kQueen);
  Put(game.board, 8, 3, kBlack, kPawn);
  EXPECT_EQ(Score(game, {test::Scored(8, 8, 8, 9)}, kBalanced).pieceCount, 2);
  EXPECT_EQ(game.moveList[1].threatScore, 0);  // the frozen Queen shields the Pawn
}

TEST(MoveScoring, ProgressIsShownAfterEachMoveInWholePercent) {
  Game game = EmptyGame(kAnarchy);
  Put(game.board, 8, 8, kWhite, kRook);
  game.moveList.Clear();
  for (int y = 9; y <= 16; ++y) game.moveList.Add(test::Scored(8, 8, 8, y));
  LabelRecorder outside;
  ScoreAiMoves(game, outside, kAggressive, AiLog{});
  EXPECT_EQ(outside.labels,
            (std::vector<std::string>{"Evaluating Moves (13%)", "Evaluating Moves (25%)",
                                      "Evaluating Moves (38%)", "Evaluating Moves (50%)",
                                      "Evaluating Moves (63%)", "Evaluating Moves (75%)",
                                      "Evaluating Moves (88%)", "Evaluating Moves (100%)"}));
  EXPECT_EQ(outside.yieldCount, 8);
}

TEST(MoveScoring, ListHoldsTheTeamsMovesInBoardOrder) {
  Game game = test::StartGame();
  game.computerPieces.Add({1, 1});
  game.moveList.Add(test::Scored(1, 1, 1, 2));
  BuildAiMoveList(game);
  ASSERT_GT(game.moveList.Count(), 0);
  EXPECT_TRUE(game.computerPieces.Empty());
  int previous = -1;
  for (const MoveRec& move : game.moveList) {
    EXPECT_EQ(game.board.at(move.fromX, move.fromY).team, kWhite);
    const int order = move.fromY * kBoardSide + move.fromX;
    EXPECT_GE(order, previous);
    previous = order;
  }
}

}  // namespace
}  // namespace varkesh
