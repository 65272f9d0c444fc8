#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ai/choice_ladder.h"
#include "ai_fixture.h"
#include "flow/scripted_outside.h"
#include "persist/temp_folder.h"

namespace varkesh {
namespace {

using Lines = std::vector<std::string>;

class AiLogFile : public ::testing::Test {
 protected:
  void SetUp() override {
    outside_.engine.appPath = folder_.Slashed();
    outside_.engine.logLevel = 3;
  }

  // The text of every stamped line but the frame's, in order.
  Lines StampedLines() const {
    Lines lines;
    std::istringstream content(testing::FileText(folder_.File("ai.log")));
    for (std::string line; std::getline(content, line);) {
      if (!line.empty() && line.back() == '\r') line.pop_back();
      const std::size_t stamp = line.find(" ... ");
      if (stamp == std::string::npos) continue;
      line.erase(0, stamp + 5);
      if (line != "Log Opened" && line != "Log Closed") lines.push_back(line);
    }
    return lines;
  }

  testing::TempFolder folder_;
  ScriptedOutside outside_;
};

// White's pawn on its moat can step, double step or take Black's Knight;
// Black's Rook watches the file, Black's Pawn strikes an ally's Rook, and
// the ally's other Rook has Black's Queen in her keep under a weak threat.
Game SmallTurn() {
  Game game = test::EmptyGame(kAlliedNeighbors, {{5, 13, kWhite, kPawn},
                                                 {6, 12, kBlack, kKnight},
                                                 {5, 5, kBlack, kRook},
                                                 {10, 10, kBlue, kRook},
                                                 {11, 9, kBlack, kPawn},
                                                 {8, 1, kBlack, kQueen},
                                                 {8, 6, kBlue, kRook}});
  game.playerKinds = {kAggressive, kHuman, kHuman, kHuman};
  return game;
}

TEST_F(AiLogFile, OneTurnLineByLine) {
  Game game = SmallTurn();
  EXPECT_EQ(ChooseAImove(game, outside_).index, 3);
  const std::string weak = "          Give Weak Threat at 8, 1: 83 (Black Queen)";
  const std::string byQueen = "               *** Threat from Black Queen at 8,1";
  const std::string byPawn = "               *** Threat from Black Pawn at 11,9";
  const std::string byRook = "               *** Threat from Black Rook at 5,5";
  const Lines expected{
      "1st Round, White Player (Aggressive)",
      "Number of moves to evaluate: 3",
      "     Move #01: (5, 13) White's Pawn (5, 12)",
      weak,
      byQueen,
      byPawn,
      byRook,
      "          * Danger at 5, 12: 50 (White Pawn)",
      "                    »» Move #01 Immediate Score: -50",
      "                    »» Move #01 Full Score: 33",
      "     Move #02: (5, 13) White's Pawn (5, 11)",
      weak,
      byQueen,
      byPawn,
      byRook,
      "          * Danger at 5, 11: 50 (White Pawn)",
      "               *** Threat from White Pawn at 5,11",
      "          Threaten at 6, 12: 50 (Black Knight)",
      "                    »» Move #02 Immediate Score: -50",
      "                    »» Move #02 Full Score: 83",
      "     Move #03: (5, 13) White's Pawn »» Black's Knight (6, 12)",
      "          # Capture: 300 (Black Knight)",
      weak,
      byQueen,
      byPawn,
      "                    »» Move #03 Immediate Score: 300",
      "                    »» Move #03 Full Score: 383",
      "               >>Move Chosen (top move): 3",
  };
  EXPECT_EQ(StampedLines(), expected);
  EXPECT_EQ(outside_.pieceLabel, "Evaluating Moves (100%)");
  EXPECT_EQ(outside_.engine.logPaths.back(), "");  // closed with the turn
}

TEST_F(AiLogFile, DefensiveStartingPawnLineHasNoArrows) {
  Game game = test::StartGame({kDefensive, 0, 0, 0});
  ChooseAImove(game, outside_);
  ChooseAImove(game, outside_);
  const Lines lines = StampedLines();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "1st Round, White Player (Defensive)"), 2);
  ASSERT_GE(lines.size(), 3u);
  EXPECT_EQ(lines[lines.size() - 2].rfind("          + Number on Short List: ", 0), 0u);
  EXPECT_EQ(lines.back().rfind("     Move Chosen (starting pawn): ", 0), 0u) << lines.back();
}

TEST_F(AiLogFile, NothingBelowLevelThreeAndOnlyTheTurnForAHuman) {
  outside_.engine.logLevel = 2;
  Game game = SmallTurn();
  EXPECT_EQ(ChooseAImove(game, outside_).index, 3);
  EXPECT_FALSE(std::filesystem::exists(folder_.File("ai.log")));

  outside_.engine.logLevel = 3;
  game.playerKinds[0] = kHuman;
  EXPECT_EQ(ChooseAImove(game, outside_).index, 0);
  EXPECT_EQ(StampedLines(), Lines{"1st Round, White Player (Human)"});
}

}  // namespace
}  // namespace varkesh
