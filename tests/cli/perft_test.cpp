// varkesh-cli perft: the count of the tree of moves, split by the branches
// of the root on request.
#include <regex>
#include <sstream>
#include <string>
#include <tuple>

#include "cli/cli_fixture.h"
#include "core/dungeon.h"

namespace varkesh::testing {
namespace {

constexpr const char* kUsage = "usage: varkesh-cli perft FILE DEPTH [--divide]\n";

class PerftCommand : public CliTest {
 protected:
  // A White Pawn about to enter Black's keep, where a Black Rook stands and
  // Black holds a White Knight: its one move gives three branches (take the
  // Rook, free the Knight, close the dialog). Each team has its King.
  PerftCommand() {
    Game raid = Placed(kAnarchy, "WP 9,3 KR 7,1 WK 8,15 BK 1,8 KK 8,1 RK 15,8");
    AddPieceToDungeon(raid.match.position, kBlack, kWhite, kKnight);
    Put("raid.txt", raid);
    // The same pawn with nothing to take or free: one branch, the pawn lost.
    Put("bare.txt", Placed(kAnarchy, "WP 9,3 WK 8,15 BK 1,8 KK 8,1 RK 15,8"));
  }
};

TEST_F(PerftCommand, DivideNamesEachBranchInOrderThenTheTotal) {
  const std::string kingSteps =
      "8,15-7,14 1\n8,15-8,14 1\n8,15-9,14 1\n8,15-7,15 1\n8,15-9,15 1\n8,15-8,16 1\n";
  for (const auto& [arguments, out] : {
           std::tuple{"raid.txt 1 --divide",
                      "9,3-9,2/0 1\n9,3-9,2/1 1\n9,3-9,2/none 1\n" + kingSteps + "perft 1 9\n"},
           {"--divide raid.txt 1",
            "9,3-9,2/0 1\n9,3-9,2/1 1\n9,3-9,2/none 1\n" + kingSteps + "perft 1 9\n"},
           {"bare.txt 1 --divide", "9,3-9,2 1\n" + kingSteps + "perft 1 7\n"},
           {"raid.txt 1", std::string("perft 1 9\n")},
           {"raid.txt 0", std::string("perft 0 1\n")},
           {"raid.txt 0 --divide", std::string("perft 0 1\n")},
       }) {
    const CliRun run = Cli(std::string("perft ") + arguments);
    EXPECT_EQ(run.code, 0) << arguments << ": " << run.err;
    EXPECT_EQ(run.out, out) << arguments;
    EXPECT_TRUE(run.err.ends_with(" nodes a second\n")) << arguments << ": " << run.err;
  }
}

// Each branch counts the tree below the game that playing it leaves, and the
// branches add up to the count without --divide.
TEST_F(PerftCommand, EachBranchCountsTheGameItLeadsTo) {
  const CliRun divide = Cli("perft raid.txt 3 --divide");
  ASSERT_EQ(divide.code, 0) << divide.err;
  const std::regex line("(\\d+),(\\d+)-(\\d+),(\\d+)(/(\\d+|none))? (\\d+)");
  std::istringstream lines(divide.out);
  std::string text, last;
  unsigned long long sum = 0;
  int branches = 0;
  while (std::getline(lines, text)) {
    std::smatch branch;
    if (!std::regex_match(text, branch, line)) {
      last = text;
      EXPECT_FALSE(std::getline(lines, text)) << "a line after the total: " << text;
      break;
    }
    ++branches;
    sum += std::stoull(branch[7]);
    std::string move = "apply raid.txt " + branch[1].str() + " " + branch[2].str() + " " +
                       branch[3].str() + " " + branch[4].str();
    if (branch[6].matched && branch[6] != "none") move += " --option " + branch[6].str();
    const CliRun child = Cli(move);
    ASSERT_EQ(child.code, 0) << move << ": " << child.err;
    PutFile(Path("child.txt"), child.out);
    EXPECT_EQ(Cli("perft child.txt 2").out, "perft 2 " + branch[7].str() + "\n") << text;
  }
  EXPECT_EQ(branches, 9);
  EXPECT_EQ(last, "perft 3 " + std::to_string(sum));
  EXPECT_EQ(Cli("perft raid.txt 3").out, last + "\n");
}

TEST_F(PerftCommand, RefusalsSayWhyAndExitWithOneForBadInputAndTwoForUsage) {
  PutFile(Path("bad.txt"), "\"Bad\"\r\n3\r\n");
  for (const auto& [arguments, code, err] : {
           std::tuple{"", 2, std::string(kUsage)},
           {"raid.txt", 2, kUsage},
           {"raid.txt 1 2", 2, kUsage},
           {"raid.txt x", 2, kUsage},
           {"raid.txt 2x", 2, kUsage},
           {"raid.txt -1", 2, kUsage},
           {"raid.txt 65", 2, kUsage},
           {"raid.txt 1 --bogus", 2, kUsage},
           {"missing.txt x", 2, kUsage},  // the arguments before the file
           {"missing.txt 1", 1, "varkesh-cli: missing.txt: Cannot open the file 'missing.txt'\n"},
           {"bad.txt 1 --divide", 1, "varkesh-cli: bad.txt: line 2: expected 2 fields, found 1\n"},
       })
    ExpectRefused(std::string("perft ") + arguments, code, err);
}

}  // namespace
}  // namespace varkesh::testing
