#include "ai/choice_ladder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "ai_fixture.h"
#include "persist/temp_folder.h"

namespace varkesh {
namespace {

using test::Scored;

// White: a moat pawn off the defensive squares and one on them, a Knight at
// home and one out, a Rook, and two pawns in Black's moat.
const std::vector<test::Placed> kWhitesPieces = {{5, 13, kWhite, kPawn},   {6, 13, kWhite, kPawn},
                                                 {7, 14, kWhite, kKnight}, {7, 12, kWhite, kKnight},
                                                 {8, 8, kWhite, kRook},    {7, 3, kWhite, kPawn},
                                                 {9, 3, kWhite, kPawn}};

const MoveRec kAhead = Scored(8, 8, 9, 8);  // the Rook towards Red's keep
const MoveRec kSidePawn = Scored(5, 13, 5, 12);
const MoveRec kMiddlePawn = Scored(6, 13, 6, 12);
const MoveRec kKnightOut = Scored(7, 14, 6, 12);

MoveRec Full(MoveRec move, int threat) {
  move.threatScore = threat;
  return move;
}
const MoveRec kBetter = Full(kAhead, 20);  // scored above the moves a tier looks for

// The Rook's step back, with the given scores.
MoveRec Back(int capture = 0, int threat = 0, int danger = 0) {
  return Scored(8, 8, 8, 9, capture, threat, danger);
}

constexpr int kOpening = 60, kMiddle = 40, kEndgame = 20;

struct LadderCase {
  const char* name;
  int pieceCount, personality, index;
  AiTier tier;
  std::vector<MoveRec> moves;
};

using enum AiTier;

// The thresholds, the stages and the openings of each personality show in
// the seeded games of the self-play test; these are the rungs they miss.
// clang-format off
const LadderCase kLadderCases[] = {
  {"immediate -100", kMiddle, kBalanced, 1, BestOfTheWorst, {Back(0, 0, 100)}},
  {"first raid, not best", kEndgame, kAggressive, 2, PawnIntoKeep,
   {Full(kAhead, 90), Scored(7, 3, 7, 2), Full(Scored(9, 3, 9, 2), 50)}},
  {"30 pieces: middle", 30, kBalanced, 2, BestOfWhatsLeft, {Back(), Full(kMiddlePawn, 20)}},
  {"29 pieces: endgame", 29, kBalanced, 2, AdvancesPawn, {Full(Back(), 20), kAhead}},
  {"endgame, nothing advances", kEndgame, kBalanced, 1, RandomMove, {Back(), Back(0, 9, 0)}},
  {"aggressive pawns", kOpening, kAggressive, 2, StartingPawn, {kBetter, kSidePawn, kMiddlePawn}},
  {"aggressive: no knights", kOpening, kAggressive, 1, RandomMove, {kAhead, Full(kKnightOut, 50)}},
  {"no move at all", kMiddle, kBalanced, 0, TopMove, {}},
};
// clang-format on

// The best scores as the scoring phase leaves them, then the ladder.
AiChoice Climb(const Position& position, AiMoveList& list, Random& random,
               const std::vector<MoveRec>& moves, int pieceCount, int personality) {
  list.Clear();
  ScoreSummary best{.pieceCount = pieceCount};
  for (const MoveRec& move : moves) {
    list.Add(move);
    const int i = list.Count();
    if (ImmediateScore(move) > best.bestImmediate)
      std::tie(best.bestImmediate, best.bestImmediateMove) = std::pair{ImmediateScore(move), i};
    if (FullScore(move) > best.bestFull)
      std::tie(best.bestFull, best.bestFullMove) = std::pair{FullScore(move), i};
  }
  return ClimbLadder(position, list, random, best, personality, AiLog{});
}

TEST(ChoiceLadder, ThresholdsStagesAndOpenings) {
  const Position white = test::EmptyPosition(kAnarchy, kWhitesPieces);
  AiMoveList list;
  Random random = Random::Zero();
  for (const LadderCase& c : kLadderCases) {
    const AiChoice choice = Climb(white, list, random, c.moves, c.pieceCount, c.personality);
    EXPECT_EQ(choice.index, c.index) << c.name;
    EXPECT_EQ(TierName(choice.tier), std::string(TierName(c.tier))) << c.name;
  }
  Position blue = white;
  blue.currentTeam = kBlue;  // a home of White's Knights is none of Blue's
  EXPECT_EQ(Climb(blue, list, random, {kAhead, kKnightOut}, kOpening, kBalanced).tier, RandomMove);
}

TEST(ChoiceLadder, RandomMoveReachesEveryEntryAndTiesDraw) {
  const Position white = test::EmptyPosition(kAnarchy, kWhitesPieces);
  AiMoveList list;
  Random random(7);
  std::vector<int> seen(4, 0);
  for (int round = 0; round < 60; ++round)
    ++seen[Climb(white, list, random, {kAhead, Back(), Scored(8, 8, 7, 8)}, kOpening, kAggressive)
               .index];
  EXPECT_TRUE(seen[1] > 0 && seen[2] > 0 && seen[3] > 0) << seen[1] << seen[2] << seen[3];

  random = Random(2);  // its first draw is above one half: a tie-break's 1
  EXPECT_EQ(Climb(white, list, random, {kAhead, Back()}, kMiddle, kBalanced).index, 2);
  EXPECT_EQ(list[2].threatScore, 1);
}

// The stamped lines of ai.log without their stamps, less the frame's own.
std::vector<std::string> LogLines(const testing::TempFolder& folder) {
  const std::string text = testing::FileText(folder.File("ai.log"));
  const std::regex stamped(R"( \.\.\. (?!Log )([^\r\n]*))");
  std::vector<std::string> lines;
  for (std::sregex_iterator it(text.begin(), text.end(), stamped), end; it != end; ++it)
    lines.push_back((*it)[1]);
  return lines;
}

class AiLogFile : public ::testing::Test {
 protected:
  void SetUp() override {
    outside_.engine.appPath = folder_.Slashed();
    outside_.engine.logLevel = 3;
  }
  AiChoice Choose(const Position& position, const varkesh::Setup& setup) {
    Random random = Random::Zero();
    return ChooseAImove(position, setup, moves_, random, outside_);
  }
  testing::TempFolder folder_;
  test::NotingAiOutside outside_;
  AiMoveList moves_;
};

// White's moat pawn can step into the reach of Black's Rook or take Black's
// Knight; Black strikes both of Blue's Rooks, and one of them has Black's
// Queen in her keep under a weak threat.
TEST_F(AiLogFile, OneTurnLineByLine) {
  const std::vector<test::Placed> pieces = {{5, 13, kWhite, kPawn}, {6, 12, kBlack, kKnight},
                                            {5, 11, kBlack, kRook}, {10, 10, kBlue, kRook},
                                            {11, 9, kBlack, kPawn}, {8, 1, kBlack, kQueen},
                                            {8, 6, kBlue, kRook}};
  const Position position = test::EmptyPosition(kAlliedNeighbors, pieces);
  EXPECT_EQ(Choose(position, {"", {kAggressive, kHuman, kHuman, kHuman}}).index, 2);
  const std::string weak = "          Give Weak Threat at 8, 1: 83 (Black Queen)";
  const std::string byQueen = "               *** Threat from Black Queen at 8,1";
  const std::string byPawn = "               *** Threat from Black Pawn at 11,9";
  const std::vector<std::string> expected{
      "1st Round, White Player (Aggressive)",
      "Number of moves to evaluate: 2",
      "     Move #01: (5, 13) White's Pawn (5, 12)",
      weak,
      byQueen,
      byPawn,
      "               *** Threat from Black Rook at 5,11",
      "          * Danger at 5, 12: 50 (White Pawn)",
      "                    »» Move #01 Immediate Score: -50",
      "                    »» Move #01 Full Score: 33",
      "     Move #02: (5, 13) White's Pawn »» Black's Knight (6, 12)",
      "          # Capture: 300 (Black Knight)",
      weak,
      byQueen,
      byPawn,
      "               *** Threat from White Pawn at 6,12",
      "          Threaten at 5, 11: 100 (Black Rook)",
      "                    »» Move #02 Immediate Score: 300",
      "                    »» Move #02 Full Score: 483",
      "               >>Move Chosen (top move): 2",
  };
  EXPECT_EQ(LogLines(folder_), expected);
  EXPECT_EQ(outside_.engine.logPaths.back(), "");  // closed with the turn
}

TEST_F(AiLogFile, FromLevelThreeATurnAtATime) {
  outside_.engine.logLevel = 2;
  Position position = test::EmptyPosition(kAlliedNeighbors);
  position.board = LoadNewGameDataFile(VARKESH_PACK_DIR "/newgamedata.txt");
  position.Refresh();
  const varkesh::Setup setup{"", {kDefensive, kHuman, kHuman, kHuman}};
  Choose(position, setup);
  EXPECT_FALSE(std::filesystem::exists(folder_.File("ai.log")));

  outside_.engine.logLevel = 3;
  Choose(position, setup);
  position.currentTeam = kBlue;
  EXPECT_EQ(Choose(position, setup).index, 0);
  const std::vector<std::string> lines = LogLines(folder_);
  ASSERT_GE(lines.size(), 4u);
  EXPECT_EQ(lines.front(), "1st Round, White Player (Defensive)");
  // The Defensive starting pawn's line alone has no arrows.
  EXPECT_EQ(lines[lines.size() - 2].rfind("     Move Chosen (starting pawn): ", 0), 0u);
  EXPECT_EQ(lines.back(), "1st Round, Blue Player (Human)");
  EXPECT_EQ(outside_.engine.logPaths.back(), "");  // closed at once
}

}  // namespace
}  // namespace varkesh
