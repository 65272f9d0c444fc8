#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "ai/choice_ladder.h"
#include "ai_fixture.h"
#include "flow/scripted_outside.h"

namespace varkesh {
namespace {

using test::Put;
using Lines = std::vector<std::string>;

class AiLogFile : public testing::Test {
 protected:
  void SetUp() override {
    folder_ = std::filesystem::temp_directory_path() /
              ("varkesh-ai-log-" + std::to_string(getpid()) + "-" +
               testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
    outside_.engine.appPath = folder_.string() + "/";
    outside_.engine.logLevel = 3;
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  std::filesystem::path LogPath() const { return folder_ / "ai.log"; }

  // The text of every stamped line but the frame's, in order.
  Lines StampedLines() const {
    std::ifstream file(LogPath(), std::ios::binary);
    std::stringstream content;
    content << file.rdbuf();
    Lines lines;
    std::string line;
    while (std::getline(content, line)) {
      if (!line.empty() && line.back() == '\r') line.pop_back();
      const std::size_t stamp = line.find(" ... ");
      if (stamp == std::string::npos) continue;
      line.erase(0, stamp + 5);
      if (line != "Log Opened" && line != "Log Closed") lines.push_back(line);
    }
    return lines;
  }

  std::filesystem::path folder_;
  ScriptedOutside outside_;
};

// White's pawn on its moat can step, double step or take Black's Knight,
// with Black's Rook watching the file and Black's Pawn striking an ally.
Game SmallTurn() {
  Game game = test::EmptyGame(kAlliedNeighbors);
  game.playerKinds = {kAggressive, kHuman, kHuman, kHuman};
  Put(game.board, 5, 13, kWhite, kPawn);
  Put(game.board, 6, 12, kBlack, kKnight);
  Put(game.board, 5, 5, kBlack, kRook);
  Put(game.board, 10, 10, kBlue, kRook);
  Put(game.board, 11, 9, kBlack, kPawn);
  return game;
}

TEST_F(AiLogFile, OneTurnLineByLine) {
  Game game = SmallTurn();
  const AiChoice choice = ChooseAImove(game, outside_);
  EXPECT_EQ(choice.index, 3);
  const Lines expected{
      "1st Round, White Player (Aggressive)",
      "Number of moves to evaluate: 3",
      "     Move #01: (5, 13) White's Pawn (5, 12)",
      "               *** Threat from Black Pawn at 11,9",
      "               *** Threat from Black Rook at 5,5",
      "          * Danger at 5, 12: 50 (White Pawn)",
      "                    »» Move #01 Immediate Score: -50",
      "                    »» Move #01 Full Score: -50",
      "     Move #02: (5, 13) White's Pawn (5, 11)",
      "               *** Threat from Black Pawn at 11,9",
      "               *** Threat from Black Rook at 5,5",
      "          * Danger at 5, 11: 50 (White Pawn)",
      "               *** Threat from White Pawn at 5,11",
      "          Threaten at 6, 12: 50 (Black Knight)",
      "                    »» Move #02 Immediate Score: -50",
      "                    »» Move #02 Full Score: 0",
      "     Move #03: (5, 13) White's Pawn »» Black's Knight (6, 12)",
      "          # Capture: 300 (Black Knight)",
      "               *** Threat from Black Pawn at 11,9",
      "                    »» Move #03 Immediate Score: 300",
      "                    »» Move #03 Full Score: 300",
      "               >>Move Chosen (top move): 3",
  };
  EXPECT_EQ(StampedLines(), expected);
  EXPECT_EQ(outside_.pieceLabel, "Evaluating Moves (100%)");
}

// The Rook on White's file leaves the Queen in her keep under a weak threat.
TEST_F(AiLogFile, WeakThreatsAndTheShortList) {
  Game game = test::EmptyGame(kAnarchy);
  game.currentTeam = kBlack;
  game.playerKinds = {kHuman, kHuman, kBalanced, kHuman};
  Put(game.board, 8, 9, kBlack, kRook);
  Put(game.board, 8, 14, kWhite, kQueen);
  EXPECT_EQ(ChooseAImove(game, outside_).tier, AiTier::AdvancesPawn);
  const Lines lines = StampedLines();
  EXPECT_NE(std::find(lines.begin(), lines.end(),
                      "          Give Weak Threat at 8, 14: 56 (White Queen)"),
            lines.end());
  ASSERT_GE(lines.size(), 2u);
  EXPECT_EQ(lines[lines.size() - 2].rfind("          + Number on Short List: ", 0), 0u);
  EXPECT_EQ(lines.back().rfind("               >>Move Chosen (advances pawn): ", 0), 0u);
}

TEST_F(AiLogFile, DefensiveStartingPawnLineHasNoArrows) {
  Game game = test::StartGame(kAlliedNeighbors, {kDefensive, 0, 0, 0});
  ChooseAImove(game, outside_);
  const Lines lines = StampedLines();
  ASSERT_GE(lines.size(), 3u);
  EXPECT_EQ(lines[lines.size() - 2].rfind("          + Number on Short List: ", 0), 0u);
  EXPECT_EQ(lines.back().rfind("     Move Chosen (starting pawn): ", 0), 0u) << lines.back();
}

TEST_F(AiLogFile, EachTurnAppendsAFramedBlock) {
  Game game = SmallTurn();
  ChooseAImove(game, outside_);
  ChooseAImove(game, outside_);
  const Lines lines = StampedLines();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "1st Round, White Player (Aggressive)"), 2);
  EXPECT_EQ(outside_.engine.logPaths.back(), "");  // closed after the turn
}

TEST_F(AiLogFile, NoFileBelowLevelThree) {
  outside_.engine.logLevel = 2;
  Game game = SmallTurn();
  EXPECT_EQ(ChooseAImove(game, outside_).index, 3);
  EXPECT_FALSE(std::filesystem::exists(LogPath()));
  EXPECT_EQ(outside_.pieceLabel, "Evaluating Moves (100%)");
}

TEST_F(AiLogFile, HumanSeatLogsItsTurnAndCloses) {
  Game game = SmallTurn();
  game.playerKinds[0] = kHuman;
  EXPECT_EQ(ChooseAImove(game, outside_).index, 0);
  EXPECT_EQ(StampedLines(), Lines{"1st Round, White Player (Human)"});
}

}  // namespace
}  // namespace varkesh
