// The New Game, Save and Load commands: a fresh start, saved games resumed
// at the start of the turn and never half-loaded or half-saved, and the news
// a host gives its clients.
#include <filesystem>
#include <fstream>

#include "flow/new_game.h"
#include "flow/save_load.h"
#include "flow_fixture.h"
#include "persist/file_coder.h"
#include "persist/sample_game.h"

namespace varkesh::testing {
namespace {

Game SampleGame() {
  Game game;
  game.match = SampleMatch();
  return game;
}

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
    const std::string log = Log();
    return outside.faultReported && log.find("Sub = " + sub + "\r\n") != std::string::npos &&
           log.find(description) != std::string::npos;
  }
  bool NoScratchLeft() const { return !std::filesystem::exists(Path("friday.vsh.part")); }
};

TEST_F(GameCommandsTest, AnUnsavedGameIsLeftOnlyOnYesForAFreshStart) {
  game.turn.saveFilePath = "old.vsh";
  game.turn.gameSaved = false;
  Pos().kingdomFallen[kRed - 1] = true;
  Pos().dungeons[0].prisoners.Add({kBlack, kQueen});
  Pos().history[0] = {8, 13, 8, 11, kWhite, false};
  game.match.record.events.push_back(RecordEvent::Resignation(kBlue));
  outside.yesNoAnswers = {false};
  Start(kAnarchy, kKingdomLost, {kHuman, kHuman, kHuman, kDefensive}, "Friday");
  EXPECT_EQ(outside.boxes.at(0).title, "Start New Game?");
  EXPECT_TRUE(outside.newGameDialogs.empty());
  NewGameCommand(game, outside);  // Yes, and the choice still waiting is taken
  EXPECT_EQ(outside.gameDescription, "Friday (Anarchy/Kingdom Lost)");
  EXPECT_EQ(game.turn.gameMode, ModeChoosePiece);
  EXPECT_EQ(Pos().kingdomFallen, (PerTeam<bool>{}));
  EXPECT_EQ(Pos().dungeons[0].PrisonerCount(), 0);
  EXPECT_TRUE(Pos().history[0].Empty());
  EXPECT_EQ(At(8, 15).piece, kKing);
  EXPECT_TRUE(game.match.record.events.empty());
  EXPECT_EQ(game.match.record.start, Pos());
  EXPECT_TRUE(game.turn.saveFilePath.empty() && game.turn.gameSaved);
  EXPECT_TRUE(outside.IsMenuEnabled(Menu::Resign) && outside.pauseButtonVisible);
}

TEST_F(GameCommandsTest, ABrokenStartPositionLeavesTheRunningGameWhole) {
  game = SampleGame();
  game.turn.gameSaved = false;
  game.turn.saveFilePath = "friday.vsh";
  const Match before = game.match;
  std::ofstream(Path("broken.txt")) << "WK,8\n";
  outside.entryPaths["newgamedata"] = Path("broken.txt");
  Start(kAnarchy, kKingdomLost, {}, "Saturday");
  EXPECT_TRUE(Reported("mnuGameNew.Click", "newgamedata line"));
  EXPECT_TRUE(SameMatch(game.match, before));
  EXPECT_FALSE(game.turn.gameSaved);
  EXPECT_EQ(game.turn.saveFilePath, "friday.vsh");
}

struct Resume {
  int team, mode;  // mode: after loading
};

class ResumeTest : public GameCommandsTest, public ::testing::WithParamInterface<Resume> {};

// Saved with a move chosen and its destinations marked.
TEST_P(ResumeTest, ALoadedGameResumesAtTheStartOfTheTurn) {
  const Resume& r = GetParam();
  Game saved = SampleGame();
  saved.match.position.currentTeam = r.team;
  saved.match.BeginRecord();
  MarkMoveablePieces(saved, false);
  MarkDestinations(saved, 8, 3);
  game.turn.moveFromX = game.turn.moveToY = 8;
  game.turn.saveFilePath = "elsewhere.vsh";
  game.turn.paused = true;
  LoadGame(game, outside, Saved(saved));
  EXPECT_EQ(game.turn.gameMode, r.mode);
  EXPECT_EQ(game.turn.moveFromX + game.turn.moveToY, 0);
  EXPECT_EQ(game.view.moveablePieces.Empty(), r.mode == ModeComputerThinks);
  for (const BoardSquare& square : game.view.moveablePieces)
    EXPECT_EQ(At(square.x, square.y).team, r.team);
  EXPECT_NE(Mark(8, 4), kMarkDestination);
  EXPECT_TRUE(outside.pauseButtonVisible && !game.turn.paused);
  EXPECT_EQ(game.turn.saveFilePath, "elsewhere.vsh") << "the command, not the load, keeps the path";
  EXPECT_TRUE(SameMatch(game.match, saved.match));
}

INSTANTIATE_TEST_SUITE_P(HumanAndComputer, ResumeTest,
                         ::testing::Values(Resume{kBlack, ModeChoosePiece},
                                           Resume{kBlue, ModeComputerThinks}));

TEST_F(GameCommandsTest, AFailedLoadLeavesTheRunningGameAndReports) {
  std::string coded = FileText(Saved(SampleGame()));
  coded[coded.size() / 2] ^= 0x20;
  PutFile(Path("damaged.vsh"), coded);
  PutFile(Path("bad.vsh"), EncodeText("\"Bad\"\r\n9,9\r\n"));
  game = SampleGame();
  game.turn.gameMode = ModeChooseDestination;
  game.turn.moveFromX = 8;
  const Match before = game.match;
  for (auto [name, description] : {std::pair{"damaged.vsh", "This saved game is damaged"},
                                   {"bad.vsh", "line 2: game type 9 is out of range (1 to 3)"},
                                   {"missing.vsh", "missing.vsh"}}) {
    LoadGame(game, outside, Path(name));
    EXPECT_TRUE(Reported("LoadGame", description)) << name;
    outside.faultReported = false;
  }
  EXPECT_TRUE(SameMatch(game.match, before));
  EXPECT_EQ(game.turn.gameMode, ModeChooseDestination);
  EXPECT_EQ(game.turn.moveFromX, 8);
  EXPECT_TRUE(NoScratchLeft());
}

TEST_F(GameCommandsTest, ASaveCutOffBeforeTheRenameKeepsTheOldFile) {
  const std::string path = Saved(SampleGame());
  Game other = SampleGame();
  other.match.setup.gameName = "Other";
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

TEST_F(GameCommandsTest, AHostTellsOfEachNewOrLoadedGameAndKeepsTheComputerSeats) {
  const std::string path = Saved(SampleGame());
  game.net.netRole = kNetHosting;
  game.net.seatNode = {3, 2, 1, 0};
  Start(kAlliedNeighbors, kKingdomGained, {kHuman, kAggressive, kHuman, kHuman}, "Duel");
  EXPECT_EQ(game.net.seatNode, (PerTeam<int>{3, 0, 1, 0})) << "a computer seat is the host's";
  EXPECT_EQ(outside.told, std::vector<std::string>{"game started"});
  outside.told.clear();
  outside.loadPaths = {Path("missing.vsh"), path};
  LoadGameCommand(game, outside);
  EXPECT_TRUE(outside.told.empty()) << "a failed load is not passed on";
  LoadGameCommand(game, outside);
  EXPECT_EQ(game.turn.saveFilePath, path);
  EXPECT_EQ(outside.told, std::vector<std::string>{"game loaded"});
}

}  // namespace
}  // namespace varkesh::testing
