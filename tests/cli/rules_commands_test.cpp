// varkesh-cli moves and perft: the moves of each piece, and the count of the
// tree of moves, split by the branches of the root on request.
#include <regex>
#include <string>
#include <tuple>

#include "cli/cli_fixture.h"
#include "core/dungeon.h"

namespace varkesh::testing {
namespace {

constexpr const char* kUsage = "usage: varkesh-cli perft FILE DEPTH [--divide]\n";

class RulesCommands : public CliTest {
 protected:
  // A White Pawn about to enter Black's keep, where a Black Rook stands and
  // Black holds a White Knight: its one move gives three branches (take the
  // Rook, free the Knight, close the dialog). Each team has its King.
  RulesCommands() {
    Game raid = Placed(kAnarchy, "WP 9,3 KR 7,1 WK 8,15 BK 1,8 KK 8,1 RK 15,8");
    AddPieceToDungeon(raid.match.position, kBlack, kWhite, kKnight);
    Put("raid.txt", raid);
    // The same pawn with nothing to take or free: one branch, the pawn lost.
    Put("bare.txt", Placed(kAnarchy, "WP 9,3 WK 8,15 BK 1,8 KK 8,1 RK 15,8"));
  }
};

TEST_F(RulesCommands, DivideNamesEachBranchInOrderThenTheTotal) {
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

// The branches, each played and taken back in turn, add up to the count
// without --divide.
TEST_F(RulesCommands, TheBranchesAddUpToTheWholeCount) {
  const std::string out = Cli("perft raid.txt 3 --divide").out;
  const std::regex branch("\\d+,\\d+-\\S+ (\\d+)\n");
  unsigned long long sum = 0;
  int branches = 0;
  for (auto it = std::sregex_iterator(out.begin(), out.end(), branch); it != std::sregex_iterator();
       ++it, ++branches)
    sum += std::stoull((*it)[1]);
  EXPECT_EQ(branches, 9);
  const std::string total = "perft 3 " + std::to_string(sum) + "\n";
  EXPECT_TRUE(out.ends_with(total)) << out;
  EXPECT_EQ(Cli("perft raid.txt 3").out, total);
}

TEST_F(RulesCommands, WrongArgumentsGiveTheUsage) {
  const std::string movesUsage = "usage: varkesh-cli moves FILE\n";
  for (const auto& [arguments, code, err] : {
           std::tuple{"moves", 2, movesUsage},
           {"moves a b", 2, movesUsage},
           {"perft", 2, kUsage},
           {"perft raid.txt", 2, kUsage},
           {"perft raid.txt 1 2", 2, kUsage},
           {"perft raid.txt x", 2, kUsage},
           {"perft raid.txt 2x", 2, kUsage},
           {"perft raid.txt -1", 2, kUsage},
           {"perft raid.txt 65", 2, kUsage},
           {"perft raid.txt 1 --bogus", 2, kUsage},
           {"perft missing.txt x", 2, kUsage},  // the arguments before the file
       })
    ExpectRefused(arguments, code, err);
}

TEST_F(RulesCommands, ListsEveryLivePieceWithItsDestinationsRowByRow) {
  Game game = Placed(kAlliedNeighbors, "WP 8,4 -RQ 6,10 RK 15,8 WK 8,15 WC 8,16");
  game.match.position.castleRight = {true, false, false, true};
  Put("game.txt", game);
  const CliRun run = Cli("moves game.txt");
  ASSERT_EQ(run.code, 0) << run.err;
  // The frozen Queen is left out; the corner beside Red's King stands twice.
  EXPECT_EQ(run.out,
            "8,4: 8,3 7,4 9,4 8,5\n"
            "15,8: 14,7 15,7 14,8 16,8 14,9 15,9 16,8\n"
            "8,15: 7,14 8,14 9,14 7,15 9,15 8,16\n"
            "8,16:\n");
}

}  // namespace
}  // namespace varkesh::testing
