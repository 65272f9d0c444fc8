// varkesh-cli new, apply, resign, decode and encode, run as a player runs
// them: what each prints, and its exit code.
#include <algorithm>
#include <array>
#include <filesystem>

#include "cli/cli_fixture.h"
#include "core/dungeon.h"
#include "persist/file_coder.h"
#include "persist/sample_game.h"

namespace varkesh::testing {
namespace {

constexpr const char* kNewUsage =
    "usage: varkesh-cli new [--type T] [--rule R] [--players a,b,c,d] [--name NAME]\n";
constexpr const char* kApplyUsage = "usage: varkesh-cli apply FILE FX FY TX TY [--option K]\n";
constexpr const char* kResignUsage = "usage: varkesh-cli resign FILE [--to TEAM] [--no]\n";

class CliCommandsTest : public CliTest {
 protected:
  Game Played(const std::string& arguments) const {
    const CliRun run = Cli(arguments);
    EXPECT_EQ(run.code, 0) << arguments << ": " << run.err;
    Game game;
    EXPECT_EQ(ReadGameText(run.out, game.match.position, game.match.setup), std::nullopt)
        << arguments;
    return game;
  }
  void Keep(const std::string& name, const std::string& arguments) const {
    const CliRun run = Cli(arguments);
    ASSERT_EQ(run.code, 0) << run.err;
    PutFile(Path(name), run.out);
  }
};

// A game in the middle of play with all a saved game carries.
Game MidGame() {
  Game game = StartGame({kHuman, kAggressive, kHuman, kDefensive});
  game.match = SampleMatch();
  return game;
}

int Pieces(const Game& game, int team) {
  const auto& squares = game.match.position.board.squares;
  return static_cast<int>(std::count_if(squares.begin(), squares.end(),
                                        [&](const Square& s) { return s.team == team; }));
}

TEST_F(CliCommandsTest, NewStartsTheChosenGameAndApplyPlaysAHumanMoveWhoeverHoldsTheSeat) {
  Game game = Played("new");
  EXPECT_EQ(game.match.setup.gameName, "Varkesh Game");
  EXPECT_EQ(game.match.position.gameType, kAlliedNeighbors);
  EXPECT_EQ(game.match.position.kingCaptureRule, kKingdomGained);
  for (int team = kWhite; team <= kRed; ++team) EXPECT_EQ(Pieces(game, team), 16);
  game = Played("new --type 3 --rule 2 --players 1,0,2,3 --name '  Duel  '");
  EXPECT_EQ(game.match.setup.gameName, "Duel");
  EXPECT_EQ(game.match.position.gameType, kAnarchy);
  EXPECT_EQ(game.match.position.kingCaptureRule, kKingdomLost);
  EXPECT_EQ(game.match.setup.playerKinds, (PerTeam<int>{1, 0, 2, 3}));

  Put("duel.txt", game);
  game = Played("apply duel.txt 8 13 8 11");
  EXPECT_EQ(game.match.position.board.at(8, 11).piece, kPawn);
  EXPECT_EQ(game.match.position.history[0], (HistoryMove{8, 13, 8, 11, kWhite, false}));
  EXPECT_EQ(game.match.position.currentTeam, kBlue);
}

TEST_F(CliCommandsTest, ApplyPicksThePawnsOption) {
  // A White Pawn about to enter Black's keep, where a Black Rook stands and
  // Black holds a White Knight: the options are the Rook and the Knight.
  Game raid = Placed(kAnarchy, "WP 9,3 KR 7,1");
  AddPieceToDungeon(raid.match.position, kBlack, kWhite, kKnight);
  Put("raid.txt", raid);
  EXPECT_EQ(Played("apply raid.txt 9 3 9 2 --option 1").match.position.board.at(9, 2).piece,
            kKnight);
  EXPECT_EQ(Played("apply raid.txt 9 3 9 2 --option 0").match.position.board.at(7, 1).piece,
            kNoPiece);
  EXPECT_EQ(Played("apply raid.txt 9 3 9 2").match.position.board.at(9, 2).piece, kPawn)
      << "without --option the dialog is closed";
  const CliRun none = Cli("apply raid.txt 9 3 9 2 --option 2");
  EXPECT_EQ(none.code, 1);
  EXPECT_EQ(none.err, "varkesh-cli: the pawn has no option 2\n");
}

TEST_F(CliCommandsTest, ResignConcedesToTheChosenTeamOrAsksFirst) {
  Keep("anarchy.txt", "new --type 3");
  EXPECT_EQ(Pieces(Played("resign anarchy.txt --to 4"), kRed), 31);
  EXPECT_EQ(Pieces(Played("resign anarchy.txt"), kBlue), 31) << "the first team offered";
  Keep("lost.txt", "new --rule 2");
  EXPECT_EQ(Pieces(Played("resign lost.txt --no"), kWhite), 16);
  EXPECT_EQ(Pieces(Played("resign lost.txt"), kWhite), 0);
}

TEST_F(CliCommandsTest, EncodeThenDecodeGivesTheExactLayoutBack) {
  const Game game = MidGame();
  const std::string text = WriteGameText(game.match.position, game.match.setup);
  std::string loose;  // line feeds alone are read, and stored as CR LF
  for (char c : text)
    if (c != '\r') loose += c;
  PutFile(Path("loose.txt"), loose);
  EXPECT_EQ(Cli("encode loose.txt game.vsh").code, 0);
  const CliRun decode = Cli("decode game.vsh");
  EXPECT_EQ(decode.code, 0);
  EXPECT_EQ(decode.out, text);
}

TEST_F(CliCommandsTest, RefusalsSayWhyAndExitWithOneForBadInputAndTwoForUsage) {
  Keep("game.txt", "new");
  std::string coded = EncodeText(FileText(Path("game.txt")));
  PutFile(Path("cut.vsh"), coded.substr(0, coded.size() - 10));
  PutFile(Path("bad.txt"), "\"Bad\"\r\n3\r\n");
  const struct {
    const char* arguments;
    int code;
    std::string err;
  } refusals[] = {
      {"new --type 4", 2, kNewUsage},
      {"new --players 0,4,0,0", 2, kNewUsage},
      {"new --name '   '", 2, kNewUsage},
      {"apply game.txt 8 8 8 7", 1, "varkesh-cli: (8, 8) holds no piece of White that can move\n"},
      {"apply game.txt 8 13 8 10", 1, "varkesh-cli: the piece on (8, 13) cannot move to (8, 10)\n"},
      {"apply missing.txt 8 13 8 11", 1,
       "varkesh-cli: missing.txt: Cannot open the file 'missing.txt'\n"},
      {"apply game.txt 8 13x 8 11", 2, kApplyUsage},
      {"apply game.txt 8 13 8 11 --option -1", 2, kApplyUsage},
      {"resign game.txt --to 2", 1, "varkesh-cli: White cannot concede to team 2\n"},
      {"resign game.txt --to Red", 2, kResignUsage},
      {"decode game.txt", 1, "varkesh-cli: game.txt: This file is not a Varkesh saved game\n"},
      {"decode cut.vsh", 1, "varkesh-cli: cut.vsh: This saved game is damaged\n"},
      {"encode bad.txt bad.vsh", 1, "varkesh-cli: bad.txt: line 2: expected 2 fields, found 1\n"},
      {"decode", 2, "usage: varkesh-cli decode FILE.vsh\n"},
      {"encode game.txt", 2, "usage: varkesh-cli encode FILE OUT.vsh\n"},
  };
  for (const auto& refusal : refusals) ExpectRefused(refusal.arguments, refusal.code, refusal.err);
  EXPECT_FALSE(std::filesystem::exists(Path("bad.vsh")));
}

TEST_F(CliCommandsTest, HelpListsEveryCommandWithItsUsageAndVersionNamesTheTool) {
  const CliRun help = Cli("--help");
  EXPECT_EQ(help.code, 0);
  for (const std::string usage : {kNewUsage, kApplyUsage, kResignUsage}) {
    const std::string line = usage.substr(std::string("usage: varkesh-cli ").size());
    EXPECT_NE(help.out.find("  " + line.substr(0, line.size() - 1)), std::string::npos) << line;
  }
  const CliRun version = Cli("--version");
  EXPECT_EQ(version.code, 0);
  EXPECT_EQ(version.out.rfind("varkesh-cli ", 0), 0u) << version.out;
  EXPECT_EQ(Cli("").code, 2) << "no command: the usage, as a refusal";
}

}  // namespace
}  // namespace varkesh::testing
