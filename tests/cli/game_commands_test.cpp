// varkesh-cli new, apply, resign, decode, encode, record, replay and
// selfplay --records, run as a player runs them: what each prints, and its
// exit code.
#include <algorithm>
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

using CliCommandsTest = CliTest;

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
  Put("anarchy.txt", Played("new --type 3"));
  EXPECT_EQ(Pieces(Played("resign anarchy.txt --to 4"), kRed), 31);
  EXPECT_EQ(Pieces(Played("resign anarchy.txt"), kBlue), 31) << "the first team offered";
  Put("lost.txt", Played("new --rule 2"));
  EXPECT_EQ(Pieces(Played("resign lost.txt --no"), kWhite), 16);
  EXPECT_EQ(Pieces(Played("resign lost.txt"), kWhite), 0);
}

TEST_F(CliCommandsTest, EncodeThenDecodeGivesTheExactLayoutBack) {
  const Match match = SampleMatch();  // all a saved game carries
  const std::string text = WriteGameText(match.position, match.setup);
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
  Put("game.txt", Played("new"));
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

TEST_F(CliCommandsTest, SelfPlayRecordsReadBackAndReplay) {
  ASSERT_EQ(Cli("selfplay --games 2 --seed 5 --max-rounds 40 --records .").code, 0);
  for (const char* name : {"game-1.vrec", "game-2.vrec"}) {
    SCOPED_TRACE(name);
    const std::string record = FileText(folder_.File(name));
    ASSERT_NE(record.find("[Name \"Self-play "), std::string::npos) << record;

    const CliRun normalised = Cli(std::string("record ") + name);
    EXPECT_EQ(normalised.code, 0) << normalised.err;
    EXPECT_EQ(normalised.out, record);

    const CliRun whole = Cli(std::string("replay ") + name);
    EXPECT_EQ(whole.code, 0) << whole.err;
    int plies = 0;
    for (const char* team : {" White ", " Blue ", " Black ", " Red "})
      plies += Occurrences(record, team);
    ASSERT_GT(plies, 0);
    EXPECT_EQ(Cli(std::string("replay ") + name + " --ply " + std::to_string(plies)).out,
              whole.out);
    const CliRun earlier =
        Cli(std::string("replay ") + name + " --ply " + std::to_string(plies - 1));
    EXPECT_EQ(earlier.code, 0);
    EXPECT_NE(earlier.out, whole.out);
    EXPECT_EQ(Cli(std::string("replay ") + name + " --ply " + std::to_string(plies + 1)).code, 2);
  }
}

TEST_F(CliCommandsTest, ABadRecordExitsOneWithItsLine) {
  ASSERT_EQ(Cli("selfplay --games 1 --max-rounds 5 --records .").code, 0);
  std::string record = FileText(folder_.File("game-1.vrec"));
  const std::size_t round2 = record.find("\n2. ");
  ASSERT_NE(round2, std::string::npos);
  record.replace(round2 + 1, 2, "3.");
  PutFile(Path("bad.vrec"), record);
  const int line =
      1 + static_cast<int>(std::count(record.begin(), record.begin() + round2 + 1, '\n'));
  for (const char* command : {"record bad.vrec", "replay bad.vrec"}) {
    const CliRun run = Cli(command);
    EXPECT_EQ(run.code, 1) << command;
    EXPECT_NE(
        run.err.find("bad.vrec: line " + std::to_string(line) + ": the game is in round 2, not 3"),
        std::string::npos)
        << run.err;
  }
  EXPECT_EQ(Cli("replay").code, 2);
  EXPECT_EQ(Cli("replay game-1.vrec --ply -1").code, 2);
  EXPECT_EQ(Cli("selfplay --games 1 --records no-such-folder").code, 2);
}

TEST_F(CliCommandsTest, ASavedGameGivesItsRecord) {
  const Game saved = Played("new --players 0,1,2,3 --name Friday");
  PutFile(Path("friday.txt"), FileText(Path("out.txt")));
  const CliRun record = Cli("record friday.txt");
  EXPECT_EQ(record.code, 0) << record.err;
  EXPECT_NE(record.out.find("[Name \"Friday\"]\n"), std::string::npos);
  EXPECT_NE(record.out.find("[Blue \"Aggressive\"]\n[BlueLevel \"Classic\"]\n"), std::string::npos);
  EXPECT_NE(record.out.find("[Start \"standard\"]\n"), std::string::npos);
  PutFile(Path("friday.vrec"), record.out);
  // The same game, with no marks: they mean nothing once a game is read.
  const Game replayed = Played("replay friday.vrec");
  EXPECT_EQ(replayed.match.position, saved.match.position);
  EXPECT_EQ(replayed.match.setup, saved.match.setup);
}

}  // namespace
}  // namespace varkesh::testing
