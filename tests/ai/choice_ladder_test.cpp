#include "ai/choice_ladder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ai/computer.h"
#include "ai_fixture.h"
#include "flow/scripted_outside.h"

namespace varkesh {
namespace {

using test::Move;

// White: a moat pawn off the defensive squares and one on them, a Knight at
// home, one Knight out, a Rook, and two pawns in Black's moat.
Game Position() {
  return test::EmptyGame(kAnarchy, {{5, 13, kWhite, kPawn},
                                    {6, 13, kWhite, kPawn},
                                    {7, 14, kWhite, kKnight},
                                    {7, 12, kWhite, kKnight},
                                    {8, 8, kWhite, kRook},
                                    {7, 3, kWhite, kPawn},
                                    {9, 3, kWhite, kPawn}});
}

const MoveRec kRook = Move(8, 8, 9, 8);  // towards Red's keep
const MoveRec kRookBack = Move(8, 8, 8, 9);
const MoveRec kSidePawn = Move(5, 13, 5, 12);
const MoveRec kMiddlePawn = Move(6, 13, 6, 12);
const MoveRec kKnightOut = Move(7, 14, 6, 12);
const MoveRec kKnightMoves = Move(7, 12, 6, 10);
const MoveRec kPawnIn = Move(7, 3, 7, 2);

MoveRec Full(MoveRec move, int threat) {
  move.threatScore = threat;
  return move;
}

constexpr int kOpening = 60, kMiddle = 40, kEndgame = 20;

// The chosen index and tier for a list at a stage and personality.
struct LadderCase {
  const char* name;
  int pieceCount, personality, index;
  AiTier tier;
  std::vector<MoveRec> moves;
};

using enum AiTier;

// clang-format off
const LadderCase kLadderCases[] = {
  {"immediate 100", kMiddle, kBalanced, 2, BestOfWhatsLeft, {kRook, Move(8, 8, 8, 4, 100)}},
  {"immediate 101", kMiddle, kBalanced, 2, TopMove, {kRook, Move(8, 8, 8, 4, 101)}},
  {"immediate -100", kMiddle, kBalanced, 1, BestOfTheWorst, {Move(8, 8, 9, 8, 0, 0, 100)}},
  {"immediate -101", kMiddle, kBalanced, 2, TopMove,
   {Move(8, 8, 9, 8, 0, 0, 102), Move(8, 8, 7, 8, 0, 0, 101)}},
  {"full 100", kMiddle, kBalanced, 2, BestOfWhatsLeft, {kRook, Full(kRookBack, 100)}},
  {"full 101", kMiddle, kBalanced, 2, TopThreat, {kRook, Full(kRookBack, 101)}},
  {"full -70 off the list", kMiddle, kBalanced, 2, BestOfTheWorst,
   {Move(8, 8, 9, 8, 0, 30, 100), Move(8, 8, 7, 8, 0, 0, 90)}},
  {"full -69 on it", kMiddle, kBalanced, 2, BestOfWhatsLeft,
   {Move(8, 8, 9, 8, 0, 30, 100), Move(8, 8, 7, 8, 0, 31, 100)}},
  {"first raid, not best", kEndgame, kAggressive, 2, PawnIntoKeep,
   {Full(kRook, 90), kPawnIn, Full(Move(9, 3, 9, 2), 50)}},
  {"raid off the list", kOpening, kDefensive, 1, RandomMove, {kRook, Move(7, 3, 7, 2, 0, 0, 70)}},
  {"51 pieces: opening", 51, kBalanced, 2, StartingPawn, {Full(kRook, 20), kMiddlePawn}},
  {"50 pieces: middle", 50, kBalanced, 1, BestOfWhatsLeft, {Full(kRook, 20), kMiddlePawn}},
  {"30 pieces: middle", 30, kBalanced, 2, BestOfWhatsLeft, {kRookBack, Full(kMiddlePawn, 20)}},
  {"29 pieces: endgame", 29, kBalanced, 2, AdvancesPawn, {Full(kRookBack, 20), kRook}},
  {"endgame, nothing advances", kEndgame, kBalanced, 1, RandomMove,
   {kRookBack, Full(Move(8, 8, 8, 10), 9)}},
  {"aggressive pawns", kOpening, kAggressive, 2, StartingPawn,
   {Full(kRook, 20), kSidePawn, kMiddlePawn, kKnightOut}},
  {"defensive pawn squares", kOpening, kDefensive, 3, StartingPawn,
   {Full(kRook, 20), kSidePawn, kMiddlePawn, kKnightOut}},
  {"defensive knights", kOpening, kDefensive, 4, StartingKnight,
   {Full(kRook, 20), kSidePawn, kKnightMoves, Full(kKnightOut, 5)}},
  {"balanced knights", kOpening, kBalanced, 3, StartingKnight,
   {Full(kRook, 20), kKnightMoves, Full(kKnightOut, 5)}},
  {"aggressive never knights", kOpening, kAggressive, 1, RandomMove, {kRook, Full(kKnightOut, 50)}},
  {"defensive, all moved", kOpening, kDefensive, 1, RandomMove, {kRook, kSidePawn, kKnightMoves}},
  {"no move at all", kMiddle, kBalanced, 0, TopMove, {}},
};
// clang-format on

// The best scores as the scoring phase leaves them, then the ladder.
AiChoice Climb(Game& game, const std::vector<MoveRec>& moves, int pieceCount, int personality) {
  game.moveList.Clear();
  ScoreSummary scores;
  scores.pieceCount = pieceCount;
  for (const MoveRec& move : moves) {
    game.moveList.Add(move);
    if (ImmediateScore(move) > scores.bestImmediate) {
      scores.bestImmediate = ImmediateScore(move);
      scores.bestImmediateMove = game.moveList.Count();
    }
    if (FullScore(move) > scores.bestFull) {
      scores.bestFull = FullScore(move);
      scores.bestFullMove = game.moveList.Count();
    }
  }
  return ClimbLadder(game, scores, personality, AiLog{});
}

TEST(ChoiceLadder, ThresholdsStagesAndOpenings) {
  for (const LadderCase& c : kLadderCases) {
    Game game = Position();
    const AiChoice choice = Climb(game, c.moves, c.pieceCount, c.personality);
    EXPECT_EQ(choice.index, c.index) << c.name;
    EXPECT_EQ(TierName(choice.tier), std::string(TierName(c.tier))) << c.name;
  }
}

TEST(ChoiceLadder, KnightHomesAreTheTeamsOwn) {
  Game game = Position();
  game.currentTeam = kBlue;
  EXPECT_EQ(Climb(game, {kRook, kKnightOut}, kOpening, kBalanced).tier, AiTier::RandomMove);
}

TEST(ChoiceLadder, RandomMoveReachesEveryEntryAndTiesDraw) {
  Game game = Position();
  game.random = Random(7);
  std::vector<int> seen(4, 0);
  for (int round = 0; round < 60; ++round)
    ++seen[Climb(game, {kRook, kRookBack, Move(8, 8, 7, 8)}, kOpening, kAggressive).index];
  EXPECT_EQ(seen[0], 0);
  EXPECT_TRUE(seen[1] > 0 && seen[2] > 0 && seen[3] > 0) << seen[1] << seen[2] << seen[3];

  std::uint64_t seed = 0;
  while (Random(seed).Next() < 0.5) ++seed;
  game.random = Random(seed);
  EXPECT_EQ(Climb(game, {kRook, kRookBack}, kMiddle, kBalanced).index, 2);
  EXPECT_EQ(game.moveList[2].threatScore, 1);
}

TEST(ChooseAImove, OpensTheStartPositionByPersonality) {
  for (int personality : {kAggressive, kBalanced, kDefensive}) {
    Game game = test::StartGame({personality, 0, 0, 0});
    ScriptedOutside outside;
    const AiChoice choice = ChooseAImove(game, outside);
    ASSERT_EQ(choice.tier, AiTier::StartingPawn) << personality;
    const MoveRec& move = game.moveList[choice.index];
    EXPECT_EQ(game.board.at(move.fromX, move.fromY).piece, kPawn);
    if (personality == kDefensive) {
      EXPECT_TRUE(move.fromX == 6 || move.fromX == 8 || move.fromX == 10) << move.fromX;
    }
    EXPECT_EQ(GetAImove(game, outside), choice.index);
  }
  Game human = test::StartGame({kHuman, 0, 0, 0});
  ScriptedOutside outside;
  EXPECT_EQ(GetAImove(human, outside), 0);
  EXPECT_GT(ChooseAImove(human, outside, kBalanced).index, 0);
  EXPECT_TRUE(human.computerPieces.Empty());
}

}  // namespace
}  // namespace varkesh
