#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>

#include "core/new_game_data.h"
#include "persist/game_text.h"
#include "persist/temp_folder.h"

namespace varkesh {
namespace {

struct MovesRun {
  int code = -1;
  std::string out;
  std::string err;
};

class MovesCommand : public ::testing::Test {
 protected:
  MovesRun Run(const std::string& arguments) const {
    std::string command = std::string("'") + VARKESH_CLI + "' moves " + arguments + " >'" +
                          folder_.File("out.txt") + "' 2>'" + folder_.File("err.txt") + "'";
    int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1,
            testing::FileText(folder_.File("out.txt")), testing::FileText(folder_.File("err.txt"))};
  }

  std::string Write(const Game& game) const {
    std::string path = folder_.File("game.txt");
    testing::PutFile(path, WriteGameText(game));
    return "'" + path + "'";
  }

  testing::TempFolder folder_;
};

void Put(Game& game, int x, int y, int team, int piece) {
  game.board.at(x, y).team = team;
  game.board.at(x, y).piece = piece;
}

TEST_F(MovesCommand, ListsEveryLivePieceWithItsDestinationsInScanOrder) {
  Game game;
  game.gameType = kAlliedNeighbors;
  game.castleRight = {true, false, false, true};
  LayOutTerrain(game.board);
  Put(game, 7, 3, kBlack, kKnight);
  Put(game, 9, 3, kBlue, kRook);  // on Black's moat: runs along it, passes White's
  Put(game, 8, 4, kWhite, kPawn);
  Put(game, 6, 10, kRed, -kQueen);  // frozen: not listed
  Put(game, 15, 8, kRed, kKing);    // empty corner beside it: listed twice
  Put(game, 8, 15, kWhite, kKing);
  Put(game, 8, 16, kWhite, kCastlePawn);

  MovesRun run = Run(Write(game));
  ASSERT_EQ(run.code, 0) << run.err;
  EXPECT_EQ(run.out,
            "7,3: 8,1 9,2 5,4 9,4 6,5 8,5\n"
            "9,3: 9,2 9,1 9,4 9,5 9,6 9,7 9,8 9,9 9,10 9,11 9,12 9,13 9,14 9,15 8,3 7,3 10,3 "
            "11,3\n"
            "8,4: 7,3 8,3 7,4 9,4 8,5\n"
            "15,8: 14,7 15,7 14,8 16,8 14,9 15,9 16,8\n"
            "8,15: 7,14 8,14 9,14 7,15 9,15 8,16\n"
            "8,16:\n");
}

TEST_F(MovesCommand, WrongArgumentsAndMissingFiles) {
  MovesRun none = Run("");
  EXPECT_EQ(none.code, 2);
  EXPECT_NE(none.err.find("usage: varkesh-cli moves FILE"), std::string::npos) << none.err;
  EXPECT_EQ(Run("a b").code, 2);
  EXPECT_EQ(Run("'" + folder_.File("missing.txt") + "'").code, 1);
}

}  // namespace
}  // namespace varkesh
