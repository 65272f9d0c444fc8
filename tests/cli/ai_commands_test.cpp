#include <regex>
#include <string>
#include <tuple>

#include "cli/cli_fixture.h"

namespace varkesh::testing {
namespace {

class AiCommands : public CliTest {
 protected:
  // The start position, with White's pieces frozen when asked.
  std::string Write(const std::string& name, PerTeam<int> players, bool frozen = false) const {
    Put(name, frozen ? WhiteFrozenStart(players) : StartGame(players));
    return name + " ";
  }

  const std::string start_ = Write("start.txt", {kAggressive, kBalanced, kDefensive, kAggressive});
};

TEST_F(AiCommands, ScoresAimoveAndApplyComputer) {
  const std::string scores = Cli("scores " + start_).out;
  EXPECT_TRUE(std::regex_match(scores, std::regex("1 5 13 5 12 0 0 0 0\n(\\d+( -?\\d+){8}\n)+")))
      << scores;
  EXPECT_NE(scores.find("\n9 9 13 9 12 0 6 0 0\n"), std::string::npos);  // opens a Bishop's line
  EXPECT_EQ(Cli("aimove " + start_).out, "9 starting pawn\n");
  EXPECT_EQ(Cli("aimove " + start_ + "--personality 3").out, "11 starting pawn\n");
  EXPECT_EQ(Cli("aimove " + Write("frozen.txt", {kBalanced, 0, 0, 0}, true)).out, "0 none\n");

  Game after;
  const CliRun castle = Cli("apply --computer " + start_ + "8 15 8 16");
  ASSERT_EQ(castle.code, 0) << castle.err;
  ASSERT_EQ(ReadGameText(castle.out, after.match.position, after.match.setup), std::nullopt);
  EXPECT_EQ(after.match.position.board.at(8, 16).piece, kKing);  // the castle move
  EXPECT_EQ(after.match.position.currentTeam, kBlue);
}

TEST_F(AiCommands, SelfplayLines) {
  const std::string rest =
      " type 3 rule 2 players 3,3,1,2 unfinished winner none cowinner none rounds 3 moves 12 "
      "seconds [0-9.]+\n";
  const std::string run =
      Cli("selfplay --games 2 --seed 5 --max-rounds 3 --type 3 --rule 2 --players 3,3,1,2").out;
  EXPECT_TRUE(std::regex_match(
      run, std::regex("game 1 seed 5" + rest + "game 2 seed 6" + rest +
                      "summary games 2 won 0 unfinished 2 average-rounds 3.0 games-per-second "
                      "[0-9.]+\nwins-by-team White 0 Blue 0 Black 0 Red 0\n"
                      "wins-by-personality Aggressive 0 Balanced 0 Defensive 0\n")))
      << run;
}

// Exit code 2 comes with the command's usage line.
TEST_F(AiCommands, ExitCodes) {
  const std::string human = Write("human.txt", {kHuman, kBalanced, kBalanced, kBalanced});
  for (const auto& [arguments, code, usage] : {
           std::tuple{"scores " + human, 2, "scores FILE [--personality P]"},
           {"aimove " + human + "--personality 4", 2, "aimove FILE [--personality P]"},
           {"aimove missing.txt", 1, ""},
           {"apply --computer " + start_ + "8 15 8 14", 1, ""},  // onto its own Queen
           {"apply --computer " + start_ + "8 3 8 4", 1, ""},    // Black's pawn
           {"apply --computer " + start_ + "8 15", 2, "apply --computer FILE FX FY TX TY"},
           {"selfplay --players 0,1,2,3", 2, "selfplay"},
           {"selfplay --games 0", 2, "selfplay"},
           {"selfplay extra", 2, "selfplay"},
       }) {
    const CliRun run = Cli(arguments);
    EXPECT_EQ(run.code, code) << arguments << ": " << run.err;
    EXPECT_EQ(run.err.starts_with(std::string("usage: varkesh-cli ") + usage), code == 2)
        << arguments;
    EXPECT_EQ(run.out, "") << arguments;
  }
}

}  // namespace
}  // namespace varkesh::testing
