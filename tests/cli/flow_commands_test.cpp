// varkesh-cli new, apply and resign: a game started, a human move played and
// a resignation made through the same code as the window's.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>

#include "core/dungeon.h"
#include "core/new_game_data.h"
#include "persist/game_text.h"
#include "persist/temp_folder.h"

namespace varkesh {
namespace {

using testing::FileText;
using testing::PutFile;

class FlowCommandsTest : public ::testing::Test {
 protected:
  struct Run {
    int code = -1;
    std::string out;
    std::string err;
  };

  Run Cli(const std::string& arguments) const {
    std::string command = std::string("'") + VARKESH_CLI + "' " + arguments + " >'" +
                          folder_.File("out.txt") + "' 2>'" + folder_.File("err.txt") + "'";
    int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, FileText(folder_.File("out.txt")),
            FileText(folder_.File("err.txt"))};
  }

  // Runs the command and reads the game that it prints.
  Game Played(const std::string& arguments) const {
    Run run = Cli(arguments);
    EXPECT_EQ(run.code, 0) << arguments << ": " << run.err;
    Game game;
    auto problem = ReadGameText(run.out, game);
    EXPECT_FALSE(problem.has_value()) << *problem;
    return game;
  }

  // The quoted path of a file holding the text.
  std::string Saved(const std::string& text) {
    std::string path = folder_.File("game" + std::to_string(++files_) + ".txt");
    PutFile(path, text);
    return "'" + path + "'";
  }
  std::string NewGame(const std::string& arguments) {
    Run run = Cli("new " + arguments);
    EXPECT_EQ(run.code, 0) << run.err;
    return Saved(run.out);
  }

  void ExpectFailure(int code, const std::string& arguments, const std::string& words) const {
    Run run = Cli(arguments);
    EXPECT_EQ(run.code, code) << arguments;
    EXPECT_NE(run.err.find(words), std::string::npos) << arguments << ": " << run.err;
    EXPECT_TRUE(run.out.empty());
  }

  testing::TempFolder folder_;
  int files_ = 0;
};

int Pieces(const Game& game, int team) {
  int count = 0;
  for (const Square& square : game.board.squares) count += square.team == team;
  return count;
}

TEST_F(FlowCommandsTest, NewStartsTheChosenGame) {
  Game game = Played("new");
  EXPECT_EQ(game.gameName, "Varkesh Game");
  EXPECT_EQ(game.gameType, kAlliedNeighbors);
  EXPECT_EQ(game.kingCaptureRule, kKingdomGained);
  EXPECT_EQ(game.playerKinds, (PerTeam<int>{}));
  for (int team = kWhite; team <= kRed; ++team) EXPECT_EQ(Pieces(game, team), 16);
  EXPECT_EQ(game.board.at(8, 13).mark, kMarkMoveable) << "White's turn has begun";

  game = Played("new --type 3 --rule 2 --players 0,1,2,3 --name '  Duel  '");
  EXPECT_EQ(game.gameName, "Duel");
  EXPECT_EQ(game.gameType, kAnarchy);
  EXPECT_EQ(game.kingCaptureRule, kKingdomLost);
  EXPECT_EQ(game.playerKinds, (PerTeam<int>{0, 1, 2, 3}));

  for (const char* wrong :
       {"--type 4", "--rule 0", "--players 0,1,2", "--players 0,1,2,3,0", "--players 0,1,2,",
        "--players 0,4,0,0", "--name '   '", "--colour 2", "extra", "--type"})
    ExpectFailure(2, std::string("new ") + wrong, "usage: varkesh-cli new");
}

TEST_F(FlowCommandsTest, ApplyPlaysAHumanMoveWhoeverHoldsTheSeat) {
  std::string file = NewGame("--players 1,0,0,0");
  Game game = Played("apply " + file + " 8 13 8 11");
  EXPECT_EQ(game.board.at(8, 11).piece, kPawn);
  EXPECT_EQ(game.board.at(8, 13).piece, kNoPiece);
  EXPECT_EQ(game.history[0], (HistoryMove{8, 13, 8, 11, kWhite, false}));
  EXPECT_EQ(game.currentTeam, kBlue);
}

TEST_F(FlowCommandsTest, ApplyRefusesMovesThatAreNotOnOffer) {
  std::string file = NewGame("");
  ExpectFailure(1, "apply " + file + " 8 8 8 7", "(8, 8) holds no piece of White that can move");
  ExpectFailure(1, "apply " + file + " 3 8 4 8", "(3, 8) holds no piece of White");
  ExpectFailure(1, "apply " + file + " 8 13 8 10", "cannot move to (8, 10)");
  ExpectFailure(1, "apply " + file + " 8 13 30 -4", "cannot move to (30, -4)");
  ExpectFailure(1, "apply '" + folder_.File("missing.txt") + "' 8 13 8 11", "missing.txt");
  for (const char* wrong : {" 8 13 8", " 8 x 8 11", " 8 13 8 11 --option -1", " 8 13 8 11 --no"})
    ExpectFailure(2, "apply " + file + wrong, "usage: varkesh-cli apply");
}

TEST_F(FlowCommandsTest, ApplyPicksThePawnsOption) {
  // A White Pawn about to enter Black's keep, where a Black Rook stands and
  // Black holds a White Knight.
  Game raid;
  LayOutTerrain(raid.board);
  raid.gameType = kAnarchy;
  for (auto [x, y, team, piece] : {std::array{8, 15, kWhite, kKing},
                                   {8, 14, kWhite, kQueen},
                                   {6, 14, kWhite, kRook},
                                   {9, 3, kWhite, kPawn},
                                   {7, 1, kBlack, kRook},
                                   {8, 0, kBlack, kKing}}) {
    raid.board.at(x, y).team = team;
    raid.board.at(x, y).piece = piece;
  }
  AddPieceToDungeon(raid, kBlack, kWhite, kKnight);
  std::string file = Saved(WriteGameText(raid));

  Game game = Played("apply " + file + " 9 3 9 2 --option 1");
  EXPECT_EQ(game.board.at(9, 2).piece, kKnight);
  EXPECT_EQ(game.dungeons[kBlack - 1].PrisonerCount(), 0);
  game = Played("apply " + file + " 9 3 9 2 --option 0");
  EXPECT_EQ(game.board.at(7, 1).piece, kNoPiece);
  EXPECT_EQ(game.board.at(9, 2).piece, kNoPiece);
  game = Played("apply " + file + " 9 3 9 2");
  EXPECT_EQ(game.board.at(9, 2).piece, kPawn) << "without --option the dialog is closed";
  ExpectFailure(1, "apply " + file + " 9 3 9 2 --option 2", "no option 2");
}

TEST_F(FlowCommandsTest, ResignUnderKingdomGainedConcedesToTheChosenTeam) {
  std::string file = NewGame("--type 3 --rule 1");
  Game game = Played("resign " + file + " --to 4");
  EXPECT_EQ(Pieces(game, kWhite), 0);
  EXPECT_EQ(Pieces(game, kRed), 31) << "White's King leaves the board";
  EXPECT_TRUE(game.kingdomFallen[kWhite - 1]);
  EXPECT_EQ(game.currentTeam, kBlue);
  game = Played("resign " + file);
  EXPECT_EQ(Pieces(game, kBlue), 31) << "without --to, the first team offered";

  std::string allied = NewGame("--type 1 --rule 1");
  ExpectFailure(1, "resign " + allied + " --to 2", "cannot concede to team 2");
  ExpectFailure(1, "resign " + allied + " --to 9", "cannot concede to team 9");
  ExpectFailure(2, "resign " + allied + " --to Red", "usage: varkesh-cli resign");
  ExpectFailure(2, "resign", "usage: varkesh-cli resign");
}

TEST_F(FlowCommandsTest, ResignUnderTheOtherRulesAsksFirst) {
  std::string file = NewGame("--rule 2");
  Game kept = Played("resign " + file + " --no");
  EXPECT_EQ(Pieces(kept, kWhite), 16);
  EXPECT_FALSE(kept.kingdomFallen[kWhite - 1]);
  Game lost = Played("resign " + file);
  EXPECT_EQ(Pieces(lost, kWhite), 0);
  EXPECT_TRUE(lost.history[0].Empty());

  Game frozen = Played("resign " + NewGame("--rule 3"));
  EXPECT_EQ(frozen.board.at(8, 14).piece, -kQueen);
  EXPECT_EQ(frozen.board.at(8, 15).piece, kNoPiece);
}

}  // namespace
}  // namespace varkesh
