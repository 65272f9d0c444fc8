// The New Game, Save and Load commands: a fresh start, saved games resumed
// at the start of the turn and never half-loaded or half-saved, and the news
// a host gives its clients.
#include <filesystem>
#include <fstream>

#include "flow/new_game.h"
#include "flow/save_load.h"
#include "flow_fixture.h"
#include "persist/file_coder.h"
#include "persist/game_text.h"
#include "persist/sample_game.h"

namespace varkesh::testing {
namespace {

class GameCommandsTest : public FlowTest {
 protected:
  std::string Path(const std::string& name) const { return folder.File(name); }
  void Start(int gameType, int rule, PerTeam<int> players, const std::string& name) {
    outside.newGameChoices.push_back({true, gameType, rule, players, name});
    NewGameCommand(game, outside);
  }

  std::string Saved(Game saved) {
    SaveGame(saved, outside, Path("friday.vsh"));
    return Path("friday.vsh");
  }

  bool Reported(const std::string& sub, const std::string& description) const {
    std::string log = Log();
    return ErrorShown() && log.find("Sub = " + sub + "\r\n") != std::string::npos &&
           log.find(description) != std::string::npos;
  }
  bool NoScratchLeft() const {
    return !std::filesystem::exists(Path("temp.sav")) &&
           !std::filesystem::exists(Path("friday.vsh.part"));
  }
};

TEST_F(GameCommandsTest, AnUnsavedGameIsLeftOnlyOnYesForAFreshStart) {
  game.turn.saveFilePath = "old.vsh";
  game.turn.gameSaved = false;
  game.match.position.kingdomFallen[kRed - 1] = true;
  game.match.position.dungeons[0].prisoners.Add({kBlack, kQueen});
  game.match.position.history[0] = {8, 13, 8, 11, kWhite, false};
  outside.yesNoAnswers = {false};
  Start(kAnarchy, kKingdomLost, {kHuman, kHuman, kHuman, kDefensive}, "Friday");
  EXPECT_EQ(outside.messages.at(0).title, "Start New Game?");
  EXPECT_TRUE(outside.newGameDialogs.empty());
  NewGameCommand(game, outside);  // Yes, and the choice still waiting is taken
  EXPECT_EQ(outside.gameDescription, "Friday (Anarchy/Kingdom Lost)");
  EXPECT_EQ(game.turn.gameMode, ModeChoosePiece);
  EXPECT_EQ(game.match.position.kingdomFallen, (PerTeam<bool>{}));
  EXPECT_EQ(game.match.position.dungeons[0].PrisonerCount(), 0);
  EXPECT_TRUE(game.match.position.history[0].Empty());
  EXPECT_TRUE(game.turn.saveFilePath.empty() && game.turn.gameSaved);
  EXPECT_TRUE(outside.IsMenuEnabled(Menu::Resign) && outside.pauseButtonVisible);
}

TEST_F(GameCommandsTest, ABrokenStartPositionLeavesTheRunningGameWhole) {
  game.match.setup.gameName = "Friday";
  game.turn.gameSaved = false;
  game.turn.saveFilePath = "friday.vsh";
  game.match.position.dungeons[0].prisoners.Add({kBlack, kQueen});
  Board before = game.match.position.board;
  std::ofstream(Path("broken.txt")) << "WK,8\n";
  outside.entryPaths["newgamedata"] = Path("broken.txt");
  Start(kAnarchy, kKingdomLost, {}, "Saturday");
  EXPECT_TRUE(Reported("mnuGameNew.Click", "newgamedata line"));
  EXPECT_EQ(game.match.setup.gameName, "Friday");
  EXPECT_FALSE(game.turn.gameSaved);
  EXPECT_EQ(game.turn.saveFilePath, "friday.vsh");
  EXPECT_EQ(game.match.position.dungeons[0].PrisonerCount(), 1);
  EXPECT_EQ(game.match.position.board, before);
}

struct Resume {
  int savedMode, team, mode;  // mode: after loading
};

class ResumeTest : public GameCommandsTest, public ::testing::WithParamInterface<Resume> {};

TEST_P(ResumeTest, ALoadedGameResumesAtTheStartOfTheTurn) {
  const Resume& r = GetParam();
  Game saved = SampleGame();
  saved.currentTeam = r.team;
  saved.gameMode = r.savedMode;
  game.turn.moveFromX = game.turn.moveToY = 8;
  game.turn.saveFilePath = "elsewhere.vsh";
  game.turn.paused = true;
  LoadGame(game, outside, Saved(saved));
  EXPECT_EQ(game.turn.gameMode, r.mode);
  EXPECT_EQ(game.turn.moveFromX + game.turn.moveToY, 0);
  EXPECT_EQ(game.view.moveablePieces.Empty(), r.mode == ModeComputerThinks);
  for (const BoardSquare& square : game.view.moveablePieces)
    EXPECT_EQ(At(square.x, square.y).team, r.team);
  EXPECT_TRUE(outside.pauseButtonVisible && !game.turn.paused);
  EXPECT_EQ(game.turn.saveFilePath, "elsewhere.vsh") << "the command, not the load, keeps the path";
  ClearMarks(game);
  EXPECT_TRUE(SameStoredGame(game, saved));
}

INSTANTIATE_TEST_SUITE_P(SavedInModes3And8, ResumeTest,
                         ::testing::Values(Resume{ModeConfirmMove, kBlack, ModeChoosePiece},
                                           Resume{ModeComputerThinks, kBlue, ModeComputerThinks}));

TEST_F(GameCommandsTest, AFailedLoadLeavesTheRunningGameAndReports) {
  std::string coded = FileText(Saved(SampleGame()));
  coded[coded.size() / 2] ^= 0x20;
  PutFile(Path("damaged.vsh"), coded);
  PutFile(Path("bad.vsh"), EncodeText("\"Bad\"\r\n9,9\r\n"));
  game = SampleGame();
  game.turn.gameMode = ModeChooseDestination;
  game.turn.moveFromX = 8;
  const std::string before = WriteGameText(game);
  for (auto [name, description] : {std::pair{"damaged.vsh", "This saved game is damaged"},
                                   {"bad.vsh", "line 2: game type 9 is out of range (1 to 3)"},
                                   {"missing.vsh", "missing.vsh"}}) {
    LoadGame(game, outside, Path(name));
    EXPECT_TRUE(Reported("LoadGame", description)) << name;
  }
  EXPECT_EQ(WriteGameText(game), before);
  EXPECT_EQ(game.turn.gameMode, ModeChooseDestination);
  EXPECT_EQ(game.turn.moveFromX, 8);
  EXPECT_TRUE(NoScratchLeft());
}

TEST_F(GameCommandsTest, AGameAtTheLastRoundPlaysOnAndStaysLoadable) {
  Game last = SampleGame();
  last.roundNumber = kHighestRound;
  last.currentTeam = kRed;
  last.kingdomFallen = {false, false, false, false};
  PassTurn(last, outside);
  EXPECT_EQ(last.currentTeam, kWhite);
  EXPECT_EQ(last.roundNumber, kHighestRound);
  const std::string path = Saved(last);
  LoadGame(game, outside, path);
  EXPECT_FALSE(ErrorShown());
  EXPECT_EQ(game.match.position.roundNumber, kHighestRound);
}

TEST_F(GameCommandsTest, ASaveCutOffBeforeTheRenameKeepsTheOldFile) {
  std::string path = Saved(SampleGame());
  Game other = SampleGame();
  other.gameName = "Other";
  std::filesystem::create_directory(path + ".part");  // the coded file cannot be written
  SaveGame(other, outside, path);
  EXPECT_TRUE(Reported("SaveGame", "Cannot create the file"));
  std::filesystem::remove(path + ".part");
  PutFile(path + ".part", "half a file from a save that was cut off");
  LoadGame(game, outside, path);
  EXPECT_EQ(game.match.setup.gameName, "Friday");

  SaveGame(other, outside, path);
  EXPECT_TRUE(NoScratchLeft());
  LoadGame(game, outside, path);
  EXPECT_EQ(game.match.setup.gameName, "Other");
}

TEST_F(GameCommandsTest, SaveCommandAsksForAPathOnceAndOnlyASaveMarksTheGameSaved) {
  game = SampleGame();
  game.turn.gameSaved = false;
  outside.savePaths = {Path("no folder/mine.vsh"), Path("mine.vsh")};
  SaveGameCommand(game, outside);
  EXPECT_FALSE(game.turn.gameSaved);
  SaveGameCommand(game, outside);
  EXPECT_EQ(game.turn.saveFilePath, Path("mine.vsh"));
  game.turn.gameSaved = false;
  SaveGameCommand(game, outside);  // a dialog now would be cancelled: none is shown
  EXPECT_TRUE(game.turn.gameSaved);
}

TEST_F(GameCommandsTest, AHostTellsItsClientsOfEachNewOrLoadedGame) {
  std::string path = Saved(SampleGame());
  game.net.netRole = kNetHosting;
  game.net.localPlayerName = "Ann";
  game.net.seatNode = {3, 2, 1, 0};
  Start(kAlliedNeighbors, kKingdomGained, {kHuman, kAggressive, kHuman, kHuman}, "Duel");
  EXPECT_EQ(game.net.seatNode, (PerTeam<int>{3, 0, 1, 0})) << "a computer seat is the host's";
  EXPECT_EQ(SentMessages(),
            (std::vector<std::string>{
                "GMSG}*** Ann (host) has started a new game: 'Duel (Allied Neighbors/Kingdom "
                "Gained)",
                "GLGF}" + WriteGameText(game)}));
  outside.sent.clear();
  outside.loadPaths = {Path("missing.vsh"), path};
  LoadGameCommand(game, outside);
  EXPECT_TRUE(outside.sent.empty()) << "a failed load is not passed on";
  LoadGameCommand(game, outside);
  EXPECT_EQ(game.turn.saveFilePath, path);
  EXPECT_EQ(SentMessages(),
            (std::vector<std::string>{
                "GMSG}*** Ann (host) has loaded a game: 'Friday (Anarchy/Kingdom Frozen)",
                "GLGF}" + WriteGameText(game)}));
  EXPECT_TRUE(outside.sent[0].toAll);
}

}  // namespace
}  // namespace varkesh::testing
