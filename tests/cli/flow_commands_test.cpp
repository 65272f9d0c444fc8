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

struct CliRun {
  int code = -1;
  std::string out;
  std::string err;
};

class FlowCommandsTest : public ::testing::Test {
 protected:
  std::string Path(const std::string& name) const { return folder_.File(name); }

  CliRun Cli(const std::string& arguments) const {
    std::string command = std::string("'") + VARKESH_CLI + "' " + arguments + " >'" +
                          Path("out.txt") + "' 2>'" + Path("err.txt") + "'";
    int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, FileText(Path("out.txt")),
            FileText(Path("err.txt"))};
  }

  // Runs the command and reads the game that it prints.
  Game Played(const std::string& arguments) const {
    CliRun run = Cli(arguments);
    EXPECT_EQ(run.code, 0) << run.err;
    Game game;
    auto problem = ReadGameText(run.out, game);
    EXPECT_FALSE(problem.has_value()) << *problem;
    return game;
  }

  std::string Saved(const std::string& name, const Game& game) const {
    PutFile(Path(name), WriteGameText(game));
    return "'" + Path(name) + "'";
  }

  std::string NewGame(const std::string& arguments) const {
    CliRun run = Cli("new " + arguments);
    EXPECT_EQ(run.code, 0) << run.err;
    PutFile(Path("new.txt"), run.out);
    return "'" + Path("new.txt") + "'";
  }

  void ExpectUsage(const std::string& arguments, const std::string& command) const {
    CliRun run = Cli(arguments);
    EXPECT_EQ(run.code, 2) << arguments;
    EXPECT_EQ(run.err.rfind("usage: varkesh-cli " + command, 0), 0u) << arguments << run.err;
    EXPECT_TRUE(run.out.empty());
  }

  void ExpectBadInput(const std::string& arguments, const std::string& words) const {
    CliRun run = Cli(arguments);
    EXPECT_EQ(run.code, 1) << arguments;
    EXPECT_NE(run.err.find(words), std::string::npos) << run.err;
    EXPECT_TRUE(run.out.empty());
  }

  testing::TempFolder folder_;
};

int Pieces(const Game& game, int team) {
  int count = 0;
  for (const Square& square : game.board.squares) count += square.team == team;
  return count;
}

TEST_F(FlowCommandsTest, NewStartsTheDefaultGame) {
  Game game = Played("new");
  EXPECT_EQ(game.gameName, "Varkesh Game");
  EXPECT_EQ(game.gameType, kAlliedNeighbors);
  EXPECT_EQ(game.kingCaptureRule, kKingdomGained);
  EXPECT_EQ(game.playerKinds, (PerTeam<int>{}));
  EXPECT_EQ(game.currentTeam, kWhite);
  EXPECT_EQ(game.roundNumber, 1);
  for (int team = kWhite; team <= kRed; ++team) EXPECT_EQ(Pieces(game, team), 16);
  EXPECT_EQ(game.board.at(8, 13).mark, kMarkMoveable) << "White's turn has begun";
}

TEST_F(FlowCommandsTest, NewTakesTheChoices) {
  Game game = Played("new --type 3 --rule 2 --players 0,1,2,3 --name '  Duel  '");
  EXPECT_EQ(game.gameName, "Duel");
  EXPECT_EQ(game.gameType, kAnarchy);
  EXPECT_EQ(game.kingCaptureRule, kKingdomLost);
  EXPECT_EQ(game.playerKinds, (PerTeam<int>{0, 1, 2, 3}));
}

TEST_F(FlowCommandsTest, NewRefusesWrongChoices) {
  for (const char* arguments :
       {"new --type 4", "new --rule 0", "new --players 0,1,2", "new --players 0,1,2,3,0",
        "new --players 0,1,2,", "new --players 0,4,0,0", "new --name '   '", "new --colour 2",
        "new extra", "new --type"})
    ExpectUsage(arguments, "new");
}

TEST_F(FlowCommandsTest, ApplyPlaysAHumanMove) {
  std::string file = NewGame("--players 1,0,0,0");  // the seat's owner does not matter
  Game game = Played("apply " + file + " 8 13 8 11");
  EXPECT_EQ(game.board.at(8, 11).piece, kPawn);
  EXPECT_EQ(game.board.at(8, 13).piece, kNoPiece);
  EXPECT_EQ(game.history[0], (HistoryMove{8, 13, 8, 11, kWhite, false}));
  EXPECT_EQ(game.currentTeam, kBlue);
}

TEST_F(FlowCommandsTest, ApplyRefusesMovesThatAreNotOnOffer) {
  std::string file = NewGame("");
  ExpectBadInput("apply " + file + " 8 8 8 7", "(8, 8) holds no piece of White that can move");
  ExpectBadInput("apply " + file + " 3 8 4 8", "(3, 8) holds no piece of White");
  ExpectBadInput("apply " + file + " 8 13 8 10", "cannot move to (8, 10)");
  ExpectBadInput("apply " + file + " 8 13 30 -4", "cannot move to (30, -4)");
  ExpectBadInput("apply '" + Path("missing.txt") + "' 8 13 8 11", "missing.txt");
  ExpectUsage("apply " + file + " 8 13 8", "apply");
  ExpectUsage("apply " + file + " 8 x 8 11", "apply");
  ExpectUsage("apply " + file + " 8 13 8 11 --option -1", "apply");
  ExpectUsage("apply " + file + " 8 13 8 11 --nope", "apply");
}

class PawnOptionsCommandTest : public FlowCommandsTest {
 protected:
  // A White Pawn about to enter Black's keep, where a Black Rook stands
  // and Black holds a White Knight.
  PawnOptionsCommandTest() {
    LayOutTerrain(game_.board);
    game_.gameType = kAnarchy;
    game_.gameName = "Raid";
    Put(8, 15, kWhite, kKing);
    Put(8, 14, kWhite, kQueen);
    Put(6, 14, kWhite, kRook);
    Put(9, 3, kWhite, kPawn);
    Put(7, 1, kBlack, kRook);
    Put(8, 0, kBlack, kKing);
    AddPieceToDungeon(game_, kBlack, kWhite, kKnight);
    file_ = Saved("raid.txt", game_);
  }
  void Put(int x, int y, int team, int piece) {
    game_.board.at(x, y).team = team;
    game_.board.at(x, y).piece = piece;
  }
  Game game_;
  std::string file_;
};

TEST_F(PawnOptionsCommandTest, TheChosenLineIsPlayed) {
  Game game = Played("apply " + file_ + " 9 3 9 2 --option 1");
  EXPECT_EQ(game.board.at(9, 2).piece, kKnight);
  EXPECT_EQ(game.dungeons[kBlack - 1].PrisonerCount(), 0);

  game = Played("apply " + file_ + " 9 3 9 2 --option 0");
  EXPECT_EQ(game.board.at(7, 1).piece, kNoPiece);
  EXPECT_EQ(game.board.at(9, 2).piece, kNoPiece);
}

TEST_F(PawnOptionsCommandTest, WithoutAChoiceThePawnStays) {
  Game game = Played("apply " + file_ + " 9 3 9 2");
  EXPECT_EQ(game.board.at(9, 2).piece, kPawn);
  EXPECT_EQ(game.dungeons[kBlack - 1].PrisonerCount(), 1);
}

TEST_F(PawnOptionsCommandTest, ALineThatIsNotOfferedIsRefused) {
  ExpectBadInput("apply " + file_ + " 9 3 9 2 --option 2", "no option 2");
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
}

TEST_F(FlowCommandsTest, ResignRefusesATeamThatIsNotOffered) {
  std::string file = NewGame("--type 1 --rule 1");
  ExpectBadInput("resign " + file + " --to 2", "cannot concede to team 2");
  ExpectBadInput("resign " + file + " --to 9", "cannot concede to team 9");
  ExpectUsage("resign " + file + " --to Red", "resign");
  ExpectUsage("resign", "resign");
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
