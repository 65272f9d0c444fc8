#include "cli/cli_fixture.h"

namespace varkesh::testing {
namespace {

using MovesCommand = CliTest;

TEST_F(MovesCommand, ListsEveryLivePieceWithItsDestinationsRowByRow) {
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

TEST_F(MovesCommand, WrongArgumentsAndFilesThatCannotBeRead) {
  PutFile(Path("bad.txt"), "\"Bad\"\r\n3\r\n");
  for (const auto& [arguments, code, err] : {
           std::tuple{"", 2, "usage: varkesh-cli moves FILE\n"},
           {"a b", 2, "usage: varkesh-cli moves FILE\n"},
           {"missing.txt", 1, "varkesh-cli: missing.txt: Cannot open the file 'missing.txt'\n"},
           {"bad.txt", 1, "varkesh-cli: bad.txt: line 2: expected 2 fields, found 1\n"},
       })
    ExpectRefused(std::string("moves ") + arguments, code, err);
}

}  // namespace
}  // namespace varkesh::testing
