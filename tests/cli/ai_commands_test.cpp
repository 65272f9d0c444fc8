#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "core/new_game_data.h"
#include "persist/game_text.h"
#include "persist/temp_folder.h"

namespace varkesh {
namespace {

struct CliRun {
  int code = -1;
  std::string out;
  std::string err;
};

std::vector<std::string> SplitLines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

class AiCommands : public ::testing::Test {
 protected:
  CliRun Run(const std::string& arguments) const {
    const std::string command = std::string("'") + VARKESH_CLI + "' " + arguments + " >'" +
                                folder_.File("out.txt") + "' 2>'" + folder_.File("err.txt") + "'";
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1,
            testing::FileText(folder_.File("out.txt")), testing::FileText(folder_.File("err.txt"))};
  }

  std::string Write(const Game& game, const std::string& name = "game.txt") const {
    const std::string path = folder_.File(name);
    testing::PutFile(path, WriteGameText(game));
    return "'" + path + "'";
  }

  static Game Start(PerTeam<int> players) {
    Game game;
    game.gameType = kAlliedNeighbors;
    game.playerKinds = players;
    LoadNewGameDataFile(game, VARKESH_PACK_DIR "/newgamedata.txt");
    return game;
  }

  // White with a King walled in by its own pawns in its keep: no move at all.
  static Game Stuck() {
    Game game;
    game.playerKinds = {kBalanced, kBalanced, kBalanced, kBalanced};
    game.castleRight = {false, false, false, false};
    LayOutTerrain(game.board);
    const auto put = [&](int x, int y, int team, int piece) {
      game.board.at(x, y).team = team;
      game.board.at(x, y).piece = piece;
    };
    put(8, 16, kWhite, kKing);
    for (int x = 7; x <= 9; ++x) put(x, 15, kWhite, kPawn);
    put(8, 0, kBlack, kKing);
    return game;
  }

  testing::TempFolder folder_;
};

TEST_F(AiCommands, ScoresListsEveryMoveWithItsFourScores) {
  const std::string file = Write(Start({kAggressive, 0, 0, 0}));
  const CliRun run = Run("scores " + file);
  ASSERT_EQ(run.code, 0) << run.err;
  const std::vector<std::string> lines = SplitLines(run.out);
  ASSERT_FALSE(lines.empty());
  const std::regex entry(R"((\d+) (\d+) (\d+) (\d+) (\d+) (-?\d+) (-?\d+) (-?\d+) (-?\d+))");
  for (std::size_t i = 0; i < lines.size(); ++i) {
    std::smatch match;
    ASSERT_TRUE(std::regex_match(lines[i], match, entry)) << lines[i];
    EXPECT_EQ(std::stoi(match[1]), static_cast<int>(i + 1));
  }
  // A pawn's double step out of White's moat, nothing attacked on either side.
  EXPECT_NE(std::find(lines.begin(), lines.end(), "2 5 13 5 11 0 0 0 0"), lines.end()) << run.out;
}

TEST_F(AiCommands, ScoresOfACaptureFollowThePersonality) {
  Game game = Start({kHuman, 0, 0, 0});
  game.board.at(6, 12) = {kBlack, kQueen, 0, kBattlefield, kNoTeam};  // in the Knight's reach
  const std::string file = Write(game);
  const CliRun aggressive = Run("scores " + file + " --personality 1");
  const CliRun balanced = Run("scores " + file + " --personality 2");
  ASSERT_EQ(aggressive.code, 0) << aggressive.err;
  ASSERT_EQ(balanced.code, 0) << balanced.err;
  const std::regex knightTakesQueen(R"(\d+ 7 14 6 12 (\d+) .*)");
  std::smatch match;
  ASSERT_TRUE(std::regex_search(aggressive.out, match, knightTakesQueen)) << aggressive.out;
  EXPECT_EQ(match[1], "1000");
  ASSERT_TRUE(std::regex_search(balanced.out, match, knightTakesQueen)) << balanced.out;
  EXPECT_EQ(match[1], "900");
}

TEST_F(AiCommands, ScoresAndAimoveRefuseAHumanSeatWithoutAPersonality) {
  const std::string file = Write(Start({kHuman, 0, 0, 0}));
  for (const std::string command : {"scores", "aimove"}) {
    const CliRun run = Run(command + " " + file);
    EXPECT_EQ(run.code, 2) << command;
    EXPECT_NE(run.err.find("usage: varkesh-cli " + command + " FILE [--personality P]"),
              std::string::npos)
        << run.err;
    EXPECT_EQ(Run(command + " " + file + " --personality 4").code, 2);
    EXPECT_EQ(Run(command + " " + file + " --personality x").code, 2);
    EXPECT_EQ(Run(command).code, 2);
    EXPECT_EQ(Run(command + " '" + folder_.File("missing.txt") + "'").code, 1);
    EXPECT_EQ(Run(command + " " + file + " --personality 3").code, 0);
  }
}

TEST_F(AiCommands, AimoveNamesTheTier) {
  const CliRun run = Run("aimove " + Write(Start({kDefensive, 0, 0, 0})));
  ASSERT_EQ(run.code, 0) << run.err;
  std::smatch match;
  ASSERT_TRUE(std::regex_match(run.out, match, std::regex("(\\d+) starting pawn\n"))) << run.out;

  // The index names a line of the scores, a pawn on one of three moat squares.
  const CliRun scores = Run("scores " + Write(Start({kDefensive, 0, 0, 0})));
  const std::vector<std::string> lines = SplitLines(scores.out);
  const std::size_t index = std::stoul(match[1]);
  ASSERT_LE(index, lines.size());
  EXPECT_TRUE(std::regex_match(lines[index - 1], std::regex("\\d+ (6|8|10) 13 .*")))
      << lines[index - 1];

  EXPECT_EQ(Run("aimove " + Write(Stuck())).out, "0 none\n");
}

TEST_F(AiCommands, ApplyComputerPlaysTheMoveAndPassesTheTurn) {
  const CliRun run = Run("apply --computer " + Write(Start({1, 2, 3, 1})) + " 8 15 8 16");
  ASSERT_EQ(run.code, 0) << run.err;
  Game after;
  ASSERT_FALSE(ReadGameText(run.out, after).has_value());
  EXPECT_EQ(after.board.at(8, 16).piece, kKing);
  EXPECT_EQ(after.board.at(8, 15).piece, kCastlePawn);
  EXPECT_FALSE(after.castleRight[0]);
  EXPECT_EQ(after.currentTeam, kBlue);
}

TEST_F(AiCommands, ApplyComputerRefusesWhatTheTeamCannotPlay) {
  const std::string file = Write(Start({1, 2, 3, 1}));
  EXPECT_EQ(Run("apply --computer " + file + " 8 15 8 14").code, 1);  // own Queen there
  EXPECT_EQ(Run("apply --computer " + file + " 8 3 8 4").code, 1);    // Black's pawn
  EXPECT_EQ(Run("apply --computer " + file + " 40 3 8 4").code, 1);
  const CliRun run = Run("apply --computer " + file + " 8 15");
  EXPECT_EQ(run.code, 2);
  EXPECT_NE(run.err.find("usage: varkesh-cli apply --computer FILE FX FY TX TY"), std::string::npos)
      << run.err;
}

std::string WithoutTimes(const std::string& text) {
  return std::regex_replace(std::regex_replace(text, std::regex(" seconds [0-9.]+"), ""),
                            std::regex(" games-per-second [0-9.]+"), "");
}

TEST_F(AiCommands, SelfplayPrintsAGameLineEachAndASummary) {
  const CliRun run = Run("selfplay --games 2 --seed 5 --max-rounds 3");
  ASSERT_EQ(run.code, 0) << run.err;
  const std::vector<std::string> lines = SplitLines(run.out);
  ASSERT_EQ(lines.size(), 5u) << run.out;
  const std::regex game(
      "game ([12]) seed ([56]) type [123] rule [123] players [123],[123],[123],[123] "
      "(won|unfinished) winner (White|Blue|Black|Red|none) cowinner "
      "(White|Blue|Black|Red|none) rounds \\d+ moves \\d+ seconds [0-9.]+");
  for (int g = 0; g < 2; ++g) EXPECT_TRUE(std::regex_match(lines[g], game)) << lines[g];
  EXPECT_TRUE(std::regex_match(
      lines[0], std::regex(".* unfinished winner none cowinner none rounds 3 moves 12 .*")));
  EXPECT_TRUE(
      std::regex_match(lines[2], std::regex("summary games 2 won 0 unfinished 2 average-rounds 3.0 "
                                            "games-per-second [0-9.]+")))
      << lines[2];
  EXPECT_EQ(lines[3], "wins-by-team White 0 Blue 0 Black 0 Red 0");
  EXPECT_EQ(lines[4], "wins-by-personality Aggressive 0 Balanced 0 Defensive 0");

  // The same seed plays the same games.
  EXPECT_EQ(WithoutTimes(Run("selfplay --games 2 --seed 5 --max-rounds 3").out),
            WithoutTimes(run.out));
  const CliRun given =
      Run("selfplay --games 1 --seed 6 --max-rounds 2 --type 3 --rule 2 "
          "--players 3,3,1,2");
  EXPECT_EQ(given.out.rfind("game 1 seed 6 type 3 rule 2 players 3,3,1,2 unfinished", 0), 0u)
      << given.out;
}

TEST_F(AiCommands, SelfplayRefusesHumansAndBadNumbers) {
  for (const char* arguments :
       {"--players 0,1,2,3", "--players 1,2,3", "--players 1,2,3,1,", "--games 0", "--type 4",
        "--rule 0", "--max-rounds 0", "--seed x", "extra", "--colour 2"}) {
    const CliRun run = Run(std::string("selfplay ") + arguments);
    EXPECT_EQ(run.code, 2) << arguments;
    EXPECT_EQ(run.err.rfind("usage: varkesh-cli selfplay", 0), 0u) << run.err;
  }
}

}  // namespace
}  // namespace varkesh
