// varkesh-cli scores, aimove, apply --computer, selfplay, bestmove and
// match: the lines scripts read, and the records a match leaves for a game
// to be looked at again.
#include <regex>
#include <string>
#include <tuple>

#include "cli/cli_fixture.h"

namespace varkesh::testing {
namespace {

const std::string kMove = "\\d+,\\d+-\\d+,\\d+(/(\\d+|none))?";

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

  const Game after = Played("apply --computer " + start_ + "8 15 8 16");
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
           {"bestmove " + start_ + "--level 5", 2, "bestmove FILE"},
           {"bestmove " + start_ + "--level grandmaster", 2, "bestmove FILE"},
           {"bestmove " + start_ + "--depth x", 2, "bestmove FILE"},
           {"match --levels club --games 2", 2, "match --levels"},
           {"match --levels club,master --games 0", 2, "match --levels"},
           {"match --levels club,master --games 1 --nodes 5 --movetime 5", 2, "match --levels"},
           {"match --levels club,master --games 1 --records no-such-folder", 2, "match --levels"},
           // The host's thinking time is a search limit too.
           {"host --thinking-time 100", 2, "host"},
           {"host --thinking-time soon", 2, "host"},
       }) {
    const CliRun run = Cli(arguments);
    EXPECT_EQ(run.code, code) << arguments << ": " << run.err;
    EXPECT_EQ(run.err.starts_with(std::string("usage: varkesh-cli ") + usage), code == 2)
        << arguments;
    EXPECT_EQ(run.out, "") << arguments;
  }
}

// The numbers of every info line but nps, which is a speed and varies.
std::string WithoutSpeed(const std::string& text) {
  return std::regex_replace(text, std::regex(" nps \\d+"), "");
}

TEST_F(AiCommands, BestmoveDeepensOnePlyALineAndEndsWithTheFirstMoveOfTheLastLine) {
  const CliRun run = Cli("bestmove " + start_ + "--level club --depth 3");
  ASSERT_EQ(run.code, 0) << run.err;
  const std::regex shape("(info depth (\\d) score -?\\d+ nodes \\d+ nps \\d+ pv (" + kMove + ")( " +
                         kMove + ")*\n){3}bestmove (" + kMove + ")\n");
  ASSERT_TRUE(std::regex_match(run.out, shape)) << run.out;

  int depth = 0;
  std::string firstOfLine;
  const std::regex info("info depth (\\d) .* pv (\\S+)");
  for (auto it = std::sregex_iterator(run.out.begin(), run.out.end(), info);
       it != std::sregex_iterator(); ++it) {
    EXPECT_EQ(std::stoi((*it)[1]), ++depth);
    firstOfLine = (*it)[2];
  }
  EXPECT_EQ(run.out.substr(run.out.rfind("bestmove ")), "bestmove " + firstOfLine + "\n");

  // A fixed depth or node count plays the same every time; a level is named or numbered.
  EXPECT_EQ(WithoutSpeed(Cli("bestmove " + start_ + "--level 2 --depth 3").out),
            WithoutSpeed(run.out));
  const std::string byNodes = Cli("bestmove " + start_ + "--nodes 3000").out;
  EXPECT_EQ(WithoutSpeed(Cli("bestmove " + start_ + "--level master --nodes 3000").out),
            WithoutSpeed(byNodes));

  const std::string frozen = Write("frozen.txt", {kBalanced, 0, 0, 0}, true);
  EXPECT_EQ(Cli("bestmove " + frozen + "--depth 2").out, "bestmove none\n");
}

TEST_F(AiCommands, MatchRotatesTheSidesScoresAndWritesRecords) {
  const CliRun run = Cli("match --levels club,classic --games 2 --nodes 400 --seed 3 --records .");
  ASSERT_EQ(run.code, 0) << run.err;
  const std::string rest =
      " winner (White|Blue|Black|Red|none) result (win|loss|draw) rounds \\d+ moves \\d+ "
      "seconds [0-9.]+\n";
  EXPECT_TRUE(std::regex_match(
      run.out, std::regex("game 1 A White,Blue" + rest + "game 2 A Black,Red" + rest +
                          "score club \\d+\\.\\d% \u00b1 \\d+\\.\\d% over 2 games, elo -?\\d+ "
                          "\u00b1 \\d+\n")))
      << run.out;

  // Each record names the levels as they sat and replays to the end.
  for (const auto& [name, whiteLevel, blackLevel] :
       {std::tuple{"game-1.vrec", "Club", "Classic"}, {"game-2.vrec", "Classic", "Club"}}) {
    const std::string record = FileText(Path(name));
    EXPECT_NE(record.find(std::string("[WhiteLevel \"") + whiteLevel + "\"]"), std::string::npos)
        << name;
    EXPECT_NE(record.find(std::string("[BlackLevel \"") + blackLevel + "\"]"), std::string::npos)
        << name;
    EXPECT_EQ(Cli(std::string("replay ") + name).code, 0) << name;
  }

  // In Anarchy a game stops as a loss once A's seat has fallen, as the
  // second one here does.
  const std::string anarchy = Cli("match --levels club,classic --games 2 --nodes 200 --type 3").out;
  EXPECT_TRUE(std::regex_search(anarchy, std::regex("^game 1 A White .*\ngame 2 A Blue ")))
      << anarchy;
  EXPECT_TRUE(std::regex_search(anarchy, std::regex("winner none result loss rounds \\d+ ")))
      << anarchy;
}

}  // namespace
}  // namespace varkesh::testing
