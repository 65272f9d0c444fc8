// varkesh-cli bestmove and match: the lines scripts read, and the records a
// match leaves for a game to be looked at again.
#include <regex>
#include <string>
#include <tuple>

#include "cli/cli_fixture.h"

namespace varkesh::testing {
namespace {

const std::string kMove = "\\d+,\\d+-\\d+,\\d+(/(\\d+|none))?";

class SearchCommands : public CliTest {
 protected:
  void SetUp() override {
    Put("start.txt", StartGame({kBalanced, kBalanced, kBalanced, kBalanced}));
    Put("frozen.txt", WhiteFrozenStart({kBalanced, kBalanced, kBalanced, kBalanced}));
  }
};

// The numbers of every info line but nps, which is a speed and varies.
std::string WithoutSpeed(const std::string& text) {
  return std::regex_replace(text, std::regex(" nps \\d+"), "");
}

TEST_F(SearchCommands, BestmoveDeepensOnePlyALineAndEndsWithTheFirstMoveOfTheLastLine) {
  const CliRun run = Cli("bestmove start.txt --level club --depth 3");
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
  EXPECT_EQ(WithoutSpeed(Cli("bestmove start.txt --level 2 --depth 3").out), WithoutSpeed(run.out));
  const std::string byNodes = Cli("bestmove start.txt --nodes 3000").out;
  EXPECT_EQ(WithoutSpeed(Cli("bestmove start.txt --level master --nodes 3000").out),
            WithoutSpeed(byNodes));

  EXPECT_EQ(Cli("bestmove frozen.txt --depth 2").out, "bestmove none\n");
}

TEST_F(SearchCommands, MatchRotatesTheSidesScoresAndWritesRecords) {
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

// The host's thinking time is a search limit too.
TEST_F(SearchCommands, BadArgumentsGiveTheUsage) {
  for (const auto& [arguments, usage] : {
           std::tuple{"bestmove start.txt --level 5", "bestmove FILE"},
           {"bestmove start.txt --level grandmaster", "bestmove FILE"},
           {"bestmove start.txt --depth x", "bestmove FILE"},
           {"match --levels club --games 2", "match --levels"},
           {"match --levels club,master --games 0", "match --levels"},
           {"match --levels club,master --games 1 --nodes 5 --movetime 5", "match --levels"},
           {"match --levels club,master --games 1 --records no-such-folder", "match --levels"},
           {"host --thinking-time 100", "host"},
           {"host --thinking-time soon", "host"},
       }) {
    const CliRun run = Cli(arguments);
    EXPECT_EQ(run.code, 2) << arguments;
    EXPECT_TRUE(run.err.starts_with(std::string("usage: varkesh-cli ") + usage))
        << arguments << ": " << run.err;
    EXPECT_EQ(run.out, "") << arguments;
  }
}

}  // namespace
}  // namespace varkesh::testing
