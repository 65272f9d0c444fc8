#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>

#include "core/rules_fixture.h"
#include "persist/game_text.h"
#include "persist/temp_folder.h"

namespace varkesh {
namespace {

class MovesCommand : public ::testing::Test {
 protected:
  // The exit code; what the command wrote is left in out_ and err_.
  int Run(const std::string& arguments) {
    std::string command = std::string("'") + VARKESH_CLI + "' moves " + arguments + " >'" +
                          folder_.File("out.txt") + "' 2>'" + folder_.File("err.txt") + "'";
    int status = std::system(command.c_str());
    out_ = testing::FileText(folder_.File("out.txt"));
    err_ = testing::FileText(folder_.File("err.txt"));
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  testing::TempFolder folder_;
  std::string out_, err_;
};

TEST_F(MovesCommand, ListsEveryLivePieceWithItsDestinationsRowByRow) {
  Game game = test::Position(kAlliedNeighbors, "WP 8,4 -RQ 6,10 RK 15,8 WK 8,15 WC 8,16");
  game.match.position.castleRight = {true, false, false, true};
  testing::PutFile(folder_.File("game.txt"), GameImage(game));
  ASSERT_EQ(Run("'" + folder_.File("game.txt") + "'"), 0) << err_;
  // The frozen Queen is left out; the corner beside Red's King stands twice.
  EXPECT_EQ(out_,
            "8,4: 8,3 7,4 9,4 8,5\n"
            "15,8: 14,7 15,7 14,8 16,8 14,9 15,9 16,8\n"
            "8,15: 7,14 8,14 9,14 7,15 9,15 8,16\n"
            "8,16:\n");
}

TEST_F(MovesCommand, WrongArgumentsAndMissingFiles) {
  EXPECT_EQ(Run(""), 2);
  EXPECT_NE(err_.find("usage: varkesh-cli moves FILE"), std::string::npos) << err_;
  EXPECT_EQ(Run("a b"), 2);
  EXPECT_EQ(Run("'" + folder_.File("missing.txt") + "'"), 1);
}

}  // namespace
}  // namespace varkesh
