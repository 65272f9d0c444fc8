#include "ai/choice_ladder.h"

#include <gtest/gtest.h>

#include <vector>

#include "ai/computer.h"
#include "ai_fixture.h"
#include "flow/scripted_outside.h"

namespace varkesh {
namespace {

using test::Put;
using test::Scored;

// A White team with a moat pawn off the defensive squares (5, 13), one on
// them (6, 13), a Knight at home (7, 14), a Rook on the battlefield and a
// pawn in Black's moat.
Game Position() {
  Game game = test::EmptyGame(kAnarchy);
  Put(game.board, 5, 13, kWhite, kPawn);
  Put(game.board, 6, 13, kWhite, kPawn);
  Put(game.board, 7, 14, kWhite, kKnight);
  Put(game.board, 8, 8, kWhite, kRook);
  Put(game.board, 7, 3, kWhite, kPawn);
  return game;
}

const MoveRec kRookMove = Scored(8, 8, 9, 8);
const MoveRec kSidePawnStep = Scored(5, 13, 5, 12);
const MoveRec kMiddlePawnStep = Scored(6, 13, 6, 12);
const MoveRec kKnightOut = Scored(7, 14, 6, 12);
const MoveRec kPawnIntoKeep = Scored(7, 3, 7, 2);

MoveRec WithFull(MoveRec move, int threat) {
  move.threatScore = threat;
  return move;
}

// Fills the list and the best scores as the scoring leaves them, then climbs.
AiChoice Climb(Game& game, const std::vector<MoveRec>& moves, int pieceCount,
               int personality = kBalanced) {
  game.moveList.Clear();
  ScoreSummary scores;
  scores.pieceCount = pieceCount;
  for (const MoveRec& move : moves) {
    game.moveList.Add(move);
    const int i = game.moveList.Count();
    if (ImmediateScore(move) > scores.bestImmediate) {
      scores.bestImmediate = ImmediateScore(move);
      scores.bestImmediateMove = i;
    }
    if (FullScore(move) > scores.bestFull) {
      scores.bestFull = FullScore(move);
      scores.bestFullMove = i;
    }
  }
  return ClimbLadder(game, scores, personality, AiLog{});
}

constexpr int kMiddle = 40;
constexpr int kOpening = 60;
constexpr int kEndgame = 20;

TEST(ChoiceLadder, TopMoveNeedsMoreThan100EitherWay) {
  Game game = Position();
  const MoveRec plain = kRookMove;
  EXPECT_EQ(Climb(game, {plain, Scored(8, 8, 8, 4, 100)}, kMiddle).tier, AiTier::BestOfWhatsLeft);
  AiChoice choice = Climb(game, {plain, Scored(8, 8, 8, 4, 101)}, kMiddle);
  EXPECT_EQ(choice.tier, AiTier::TopMove);
  EXPECT_EQ(choice.index, 2);

  EXPECT_EQ(Climb(game, {Scored(8, 8, 9, 8, 0, 0, 0, 100)}, kMiddle).tier, AiTier::BestOfTheWorst);
  choice =
      Climb(game, {Scored(8, 8, 9, 8, 0, 0, 0, 102), Scored(8, 8, 7, 8, 0, 0, 0, 101)}, kMiddle);
  EXPECT_EQ(choice.tier, AiTier::TopMove);
  EXPECT_EQ(choice.index, 2);  // the least bad, threats aside
}

TEST(ChoiceLadder, TopThreatNeedsAFullScoreAbove100) {
  Game game = Position();
  AiChoice choice = Climb(game, {kRookMove, WithFull(Scored(8, 8, 7, 8), 101)}, kMiddle);
  EXPECT_EQ(choice.tier, AiTier::TopThreat);
  EXPECT_EQ(choice.index, 2);
  EXPECT_EQ(Climb(game, {kRookMove, WithFull(Scored(8, 8, 7, 8), 100)}, kMiddle).tier,
            AiTier::BestOfWhatsLeft);
}

TEST(ChoiceLadder, ShortListTakesFullScoresFromMinus69) {
  Game game = Position();
  const MoveRec atFloor = Scored(8, 8, 9, 8, 0, 30, 0, 100);  // full -70
  const MoveRec aboveFloor = Scored(8, 8, 7, 8, 0, 31, 0, 100);
  AiChoice choice = Climb(game, {atFloor, Scored(8, 8, 8, 9, 0, 0, 0, 90)}, kMiddle);
  EXPECT_EQ(choice.tier, AiTier::BestOfTheWorst);
  EXPECT_EQ(choice.index, 2);  // the best immediate score
  choice = Climb(game, {atFloor, aboveFloor}, kMiddle);
  EXPECT_EQ(choice.tier, AiTier::BestOfWhatsLeft);
  EXPECT_EQ(choice.index, 2);
}

TEST(ChoiceLadder, PawnIntoKeepTakesTheFirstInAnyStage) {
  for (int pieces : {kOpening, kMiddle, kEndgame}) {
    for (int personality : {kAggressive, kBalanced, kDefensive}) {
      Game game = Position();
      Put(game.board, 9, 3, kWhite, kPawn);
      const AiChoice choice = Climb(game,
                                    {WithFull(kRookMove, 90), kPawnIntoKeep,
                                     WithFull(Scored(9, 3, 9, 2), 50), kMiddlePawnStep},
                                    pieces, personality);
      EXPECT_EQ(choice.tier, AiTier::PawnIntoKeep) << pieces << "/" << personality;
      EXPECT_EQ(choice.index, 2);
    }
  }
  Game game = Position();  // off the short list it does not count
  EXPECT_EQ(Climb(game, {kRookMove, Scored(7, 3, 7, 2, 0, 0, 0, 70)}, kMiddle).index, 1);
}

TEST(ChoiceLadder, StageThresholds) {
  Game game = Position();
  const std::vector<MoveRec> moves{WithFull(kRookMove, 20), kMiddlePawnStep};
  EXPECT_EQ(Climb(game, moves, 51).tier, AiTier::StartingPawn);
  EXPECT_EQ(Climb(game, moves, 50).tier, AiTier::BestOfWhatsLeft);
  EXPECT_EQ(Climb(game, moves, 30).tier, AiTier::BestOfWhatsLeft);
  EXPECT_EQ(Climb(game, moves, 29).tier, AiTier::AdvancesPawn);
}

TEST(ChoiceLadder, OpeningTiersByPersonality) {
  Game game = Position();
  const std::vector<MoveRec> all{WithFull(kRookMove, 20), kSidePawnStep, kMiddlePawnStep,
                                 WithFull(kKnightOut, 5)};
  AiChoice choice = Climb(game, all, kOpening, kAggressive);
  EXPECT_EQ(choice.tier, AiTier::StartingPawn);
  EXPECT_EQ(choice.index, 2);
  EXPECT_EQ(Climb(game, all, kOpening, kBalanced).index, 2);
  choice = Climb(game, all, kOpening, kDefensive);
  EXPECT_EQ(choice.tier, AiTier::StartingPawn);
  EXPECT_EQ(choice.index, 3);  // only three squares of a moat line

  const std::vector<MoveRec> noMiddlePawn{WithFull(kRookMove, 20), kSidePawnStep,
                                          WithFull(kKnightOut, 5)};
  choice = Climb(game, noMiddlePawn, kOpening, kDefensive);
  EXPECT_EQ(choice.tier, AiTier::StartingKnight);
  EXPECT_EQ(choice.index, 3);

  const std::vector<MoveRec> noPawn{WithFull(kRookMove, 20), WithFull(kKnightOut, 5)};
  choice = Climb(game, noPawn, kOpening, kBalanced);
  EXPECT_EQ(choice.tier, AiTier::StartingKnight);
  EXPECT_EQ(choice.index, 2);
  // Aggressive never brings out its Knights: a random pick, even below the best.
  const std::vector<MoveRec> lowFirst{kRookMove, WithFull(kKnightOut, 50)};
  choice = Climb(game, lowFirst, kOpening, kAggressive);
  EXPECT_EQ(choice.tier, AiTier::RandomMove);
  EXPECT_EQ(choice.index, 1);
}

TEST(ChoiceLadder, KnightMustStandOnAHomeSquareOfTheTeamInTheKeep) {
  Game game = Position();
  Put(game.board, 7, 14, kNoTeam, kNoPiece);
  Put(game.board, 9, 15, kWhite, kKnight);  // the other home square
  Put(game.board, 7, 12, kWhite, kKnight);  // out already
  const std::vector<MoveRec> moves{kRookMove, Scored(7, 12, 6, 10), Scored(9, 15, 8, 13)};
  AiChoice choice = Climb(game, moves, kOpening, kDefensive);
  EXPECT_EQ(choice.tier, AiTier::StartingKnight);
  EXPECT_EQ(choice.index, 3);
  game.currentTeam = kBlue;  // White's home squares are not Blue's
  EXPECT_EQ(Climb(game, moves, kOpening, kDefensive).tier, AiTier::RandomMove);
}

TEST(ChoiceLadder, RandomMoveReachesEveryEntry) {
  Game game = Position();
  const std::vector<MoveRec> moves{kRookMove, Scored(8, 8, 7, 8), Scored(8, 8, 8, 7)};
  std::vector<int> seen(4, 0);
  game.random = Random(7);
  for (int round = 0; round < 60; ++round) {
    const AiChoice choice = Climb(game, moves, kOpening, kAggressive);
    ASSERT_EQ(choice.tier, AiTier::RandomMove);
    ++seen[static_cast<std::size_t>(choice.index)];
  }
  EXPECT_EQ(seen[0], 0);
  EXPECT_GT(seen[1], 0);
  EXPECT_GT(seen[2], 0);
  EXPECT_GT(seen[3], 0);
}

TEST(ChoiceLadder, EndgameFallsBackOnChanceAndTheMiddleNever) {
  Game game = Position();
  game.currentTeam = kBlack;  // moves towards Black's own keep advance nothing
  const std::vector<MoveRec> retreats{Scored(8, 8, 8, 7), WithFull(Scored(8, 8, 8, 6), 30)};
  AiChoice choice = Climb(game, retreats, kEndgame);
  EXPECT_EQ(choice.tier, AiTier::RandomMove);
  EXPECT_EQ(choice.index, 1);
  choice = Climb(game, retreats, kMiddle);
  EXPECT_EQ(choice.tier, AiTier::BestOfWhatsLeft);
  EXPECT_EQ(choice.index, 2);
  choice = Climb(game, {Scored(8, 8, 8, 7), Scored(8, 8, 9, 8)}, kEndgame);
  EXPECT_EQ(choice.tier, AiTier::AdvancesPawn);  // any piece's move, towards Red
  EXPECT_EQ(choice.index, 2);
}

TEST(ChoiceLadder, TieInATierGoesToTheLaterMoveOnADrawOfOne) {
  Game game = Position();
  const std::vector<MoveRec> equal{kRookMove, Scored(8, 8, 7, 8)};
  EXPECT_EQ(Climb(game, equal, kMiddle).index, 1);
  std::uint64_t seed = 0;
  while (Random(seed).Next() < 0.5) ++seed;
  game.random = Random(seed);
  EXPECT_EQ(Climb(game, equal, kMiddle).index, 2);
  EXPECT_EQ(game.moveList[2].threatScore, 1);
}

TEST(ChoiceLadder, NoMoveGivesIndexZero) {
  Game game = Position();
  EXPECT_EQ(Climb(game, {}, kMiddle).index, 0);
}

TEST(ChooseAImove, HumanSeatWithoutOverrideHasNoMove) {
  Game game = test::StartGame(kAlliedNeighbors, {0, 0, 0, 0});
  ScriptedOutside outside;
  EXPECT_EQ(ChooseAImove(game, outside).index, 0);
  EXPECT_GT(ChooseAImove(game, outside, kDefensive).index, 0);
}

TEST(ChooseAImove, StartPositionOpensByPersonality) {
  for (int personality : {kAggressive, kBalanced, kDefensive}) {
    Game game = test::StartGame(kAlliedNeighbors, {personality, 0, 0, 0});
    ScriptedOutside outside;
    const AiChoice choice = ChooseAImove(game, outside);
    ASSERT_EQ(choice.tier, AiTier::StartingPawn) << personality;
    const MoveRec& move = game.moveList[choice.index];
    EXPECT_EQ(game.board.at(move.fromX, move.fromY).piece, kPawn);
    EXPECT_EQ(move.fromY, 13);
    if (personality == kDefensive) {
      EXPECT_TRUE(move.fromX == 6 || move.fromX == 8 || move.fromX == 10);
    }
    EXPECT_EQ(GetAImove(game, outside), choice.index);
  }
}

}  // namespace
}  // namespace varkesh
