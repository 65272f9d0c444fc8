#include "flow/save_load.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "flow/scripted_outside.h"
#include "persist/file_coder.h"
#include "persist/game_text.h"
#include "persist/sample_game.h"
#include "persist/temp_folder.h"

namespace varkesh {
namespace {

using testing::FileText;
using testing::SameStoredGame;
using testing::SampleGame;

constexpr const char* kFilter = "Game Files (*.vsh)|*.vsh|All Files (*.*)|*.*";

// The scripted fake, with the file dialogs' arguments kept.
class DialogRecorder : public ScriptedOutside {
 public:
  struct Dialog {
    std::string title, filter, initialName, defaultExtension;
  };
  std::vector<Dialog> dialogs;

  std::string LoadFileDialog(const std::string& title, const std::string& filter,
                             const std::string& initialName) override {
    dialogs.push_back({title, filter, initialName, ""});
    return ScriptedOutside::LoadFileDialog(title, filter, initialName);
  }
  std::string SaveFileDialog(const std::string& title, const std::string& filter,
                             const std::string& initialName,
                             const std::string& defaultExtension) override {
    dialogs.push_back({title, filter, initialName, defaultExtension});
    return ScriptedOutside::SaveFileDialog(title, filter, initialName, defaultExtension);
  }
};

class SaveLoadTest : public ::testing::Test {
 protected:
  SaveLoadTest() {
    outside_.engine.appPath = folder_.Slashed();
    outside_.clock = 12.5;
  }

  std::string Path(const std::string& name) const { return folder_.File(name); }

  // A game saved from mid-move, and a different game running when it is loaded.
  std::string SavedSample(int currentTeam) {
    Game saved = SampleGame();
    saved.currentTeam = currentTeam;
    saved.gameMode = ModeConfirmMove;
    saved.moveFromX = 8, saved.moveFromY = 3, saved.moveToX = 8, saved.moveToY = 5;
    SaveGame(saved, outside_, Path("friday.vsh"));
    return Path("friday.vsh");
  }

  // The last block of the error log names sub and holds description.
  bool Reported(const std::string& sub, const std::string& description) const {
    std::string log = FileText(Path("error_main.log"));
    std::size_t start = log.rfind("--------------------");
    if (outside_.messages.empty() || outside_.messages.back().title != "Varkesh Error" ||
        start == std::string::npos)
      return false;
    std::string block = log.substr(start);
    std::size_t errDesc = block.find("ErrDesc = ");
    return block.find("Sub = " + sub + "\r\n") != std::string::npos &&
           errDesc != std::string::npos && block.find(description, errDesc) != std::string::npos;
  }

  bool NoScratchLeft() const {
    return !std::filesystem::exists(Path("temp.sav")) &&
           !std::filesystem::exists(Path("friday.vsh.part"));
  }

  testing::TempFolder folder_;
  DialogRecorder outside_;
  Game game_;
};

TEST_F(SaveLoadTest, AHumansTurnResumesWithItsPiecesToChoose) {
  std::string path = SavedSample(kBlack);
  EXPECT_TRUE(LooksCoded(FileText(path)));
  EXPECT_TRUE(NoScratchLeft());
  game_.saveFilePath = "elsewhere.vsh";
  game_.gameSaved = false;
  game_.paused = true;
  game_.boardChanged = false;

  LoadGame(game_, outside_, path);

  EXPECT_EQ(game_.gameMode, ModeChoosePiece);
  EXPECT_EQ(game_.moveFromX + game_.moveFromY + game_.moveToX + game_.moveToY, 0);
  EXPECT_FALSE(game_.moveablePieces.Empty());
  for (const BoardSquare& square : game_.moveablePieces) {
    EXPECT_EQ(game_.board.at(square.x, square.y).team, kBlack);
    EXPECT_EQ(game_.board.at(square.x, square.y).mark, kMarkMoveable);
  }
  EXPECT_EQ(game_.turnClock, 12.5);
  EXPECT_EQ(outside_.gameDescription, "Friday (Anarchy/Kingdom Frozen)");
  EXPECT_NE(outside_.turnLabel, "");
  EXPECT_EQ(outside_.pieceLabel, "");
  EXPECT_TRUE(outside_.IsMenuEnabled(Menu::Resign));
  EXPECT_TRUE(outside_.pauseButtonVisible);
  EXPECT_FALSE(game_.paused);
  EXPECT_TRUE(game_.boardChanged);
  EXPECT_EQ(game_.saveFilePath, "elsewhere.vsh");
  EXPECT_FALSE(game_.gameSaved);
  EXPECT_TRUE(NoScratchLeft());
  EXPECT_TRUE(outside_.messages.empty());

  ClearMarks(game_);
  EXPECT_TRUE(SameStoredGame(game_, SampleGame()));
}

TEST_F(SaveLoadTest, AComputersTurnResumesWithTheComputerThinking) {
  LoadGame(game_, outside_, SavedSample(kBlue));
  EXPECT_EQ(game_.gameMode, ModeComputerThinks);
  EXPECT_TRUE(game_.moveablePieces.Empty());
  for (const Square& square : game_.board.squares) EXPECT_EQ(square.mark, kUnmarked);
}

TEST_F(SaveLoadTest, PauseIsHiddenForHumansOnlyAndOnAClient) {
  Game humans = SampleGame();
  humans.playerKinds = {kHuman, kHuman, kHuman, kHuman};
  SaveGame(humans, outside_, Path("humans.vsh"));
  outside_.pauseButtonVisible = true;
  LoadGame(game_, outside_, Path("humans.vsh"));
  EXPECT_FALSE(outside_.pauseButtonVisible);

  std::string mixed = SavedSample(kBlack);
  game_.netRole = kNetClient;
  outside_.pauseButtonVisible = true;
  LoadGame(game_, outside_, mixed);
  EXPECT_FALSE(outside_.pauseButtonVisible);
}

TEST_F(SaveLoadTest, AFailedLoadLeavesTheRunningGameAndReports) {
  game_ = SampleGame();
  game_.gameName = "Running";
  game_.gameMode = ModeChooseDestination;
  game_.moveFromX = 8;
  const std::string before = WriteGameText(game_);

  std::string coded = FileText(SavedSample(kBlack));
  coded[coded.size() / 2] ^= 0x20;
  testing::PutFile(Path("damaged.vsh"), coded);
  LoadGame(game_, outside_, Path("damaged.vsh"));
  EXPECT_TRUE(Reported("LoadGame", "This saved game is damaged"));

  testing::PutFile(Path("bad.vsh"), EncodeText("\"Bad\"\r\n9,9\r\n"));
  LoadGame(game_, outside_, Path("bad.vsh"));
  EXPECT_TRUE(Reported("LoadGame", "line 2: game type 9 is out of range (1 to 3)"));

  LoadGame(game_, outside_, Path("missing.vsh"));
  EXPECT_TRUE(Reported("LoadGame", "missing.vsh"));

  EXPECT_EQ(WriteGameText(game_), before);
  EXPECT_EQ(game_.gameMode, ModeChooseDestination);
  EXPECT_EQ(game_.moveFromX, 8);
  EXPECT_FALSE(std::filesystem::exists(Path("temp.sav")));
}

TEST_F(SaveLoadTest, ASaveCutOffBeforeTheRenameKeepsTheOldFile) {
  std::string path = SavedSample(kBlack);
  Game other = SampleGame();
  other.gameName = "Other";

  std::filesystem::create_directory(path + ".part");  // the coded file cannot be written
  SaveGame(other, outside_, path);
  EXPECT_TRUE(Reported("SaveGame", "Cannot create the file"));
  LoadGame(game_, outside_, path);
  EXPECT_EQ(game_.gameName, "Friday");

  std::filesystem::remove(path + ".part");
  testing::PutFile(path + ".part", "half a file from a save that was cut off");
  LoadGame(game_, outside_, path);
  EXPECT_EQ(game_.gameName, "Friday");
  SaveGame(other, outside_, path);
  EXPECT_TRUE(NoScratchLeft());
  LoadGame(game_, outside_, path);
  EXPECT_EQ(game_.gameName, "Other");
}

TEST_F(SaveLoadTest, SaveCommandProposesTheNamesLettersInTheProgramFolder) {
  game_ = SampleGame();
  game_.gameName = "Moat Keep-2_b!";
  game_.gameSaved = false;
  SaveGameCommand(game_, outside_);  // cancelled
  ASSERT_EQ(outside_.dialogs.size(), 1u);
  EXPECT_EQ(outside_.dialogs[0].title, "Save Game ...");
  EXPECT_EQ(outside_.dialogs[0].filter, kFilter);
  EXPECT_EQ(outside_.dialogs[0].initialName, folder_.Slashed() + "MoatKeep2_b.vsh");
  EXPECT_EQ(outside_.dialogs[0].defaultExtension, ".vsh");
  EXPECT_FALSE(game_.gameSaved);
  EXPECT_EQ(game_.saveFilePath, "");

  game_.gameName = "- -";
  SaveGameCommand(game_, outside_);
  EXPECT_EQ(outside_.dialogs[1].initialName, folder_.Slashed() + ".vsh");
}

TEST_F(SaveLoadTest, SaveCommandAsksOnceThenSavesToTheSamePath) {
  game_ = SampleGame();
  game_.gameSaved = false;
  outside_.savePaths = {Path("no folder/mine.vsh"), Path("mine.vsh")};
  SaveGameCommand(game_, outside_);
  EXPECT_TRUE(Reported("SaveGame", "Cannot create the file"));
  EXPECT_FALSE(game_.gameSaved);
  EXPECT_EQ(game_.saveFilePath, "");

  SaveGameCommand(game_, outside_);
  EXPECT_EQ(game_.saveFilePath, Path("mine.vsh"));
  EXPECT_TRUE(game_.gameSaved);

  game_.roundNumber = 9;
  game_.gameSaved = false;
  SaveGameCommand(game_, outside_);
  EXPECT_EQ(outside_.dialogs.size(), 2u);
  EXPECT_TRUE(game_.gameSaved);
  Game loaded;
  LoadGame(loaded, outside_, Path("mine.vsh"));
  EXPECT_EQ(loaded.roundNumber, 9);
}

TEST_F(SaveLoadTest, LoadCommandAsksAboutAnUnsavedGame) {
  std::string path = SavedSample(kBlack);
  game_.gameSaved = false;
  outside_.yesNoAnswers.push_back(false);
  outside_.loadPaths.push_back(path);
  LoadGameCommand(game_, outside_);
  ASSERT_EQ(outside_.messages.size(), 1u);
  EXPECT_EQ(outside_.messages[0].title, "Load Different Game?");
  EXPECT_EQ(outside_.messages[0].text,
            "The current game is not saved ... are you sure you wish to load a different game "
            "without saving the current one?\n\n"
            "          \u00BB Click 'Yes' to load a different game.\n"
            "          \u00BB Click 'No' to continue with the current game.");
  EXPECT_TRUE(outside_.dialogs.empty());

  LoadGameCommand(game_, outside_);  // Yes
  EXPECT_EQ(outside_.dialogs.at(0).title, "Load Game ...");
  EXPECT_EQ(outside_.dialogs.at(0).filter, kFilter);
  EXPECT_EQ(outside_.dialogs.at(0).initialName, "");
  EXPECT_EQ(game_.gameName, "Friday");
  EXPECT_EQ(game_.saveFilePath, path);
  EXPECT_TRUE(game_.gameSaved);
}

TEST_F(SaveLoadTest, AHostPassesOnlyALoadedGameToItsClients) {
  std::string path = SavedSample(kBlack);
  game_.netRole = kNetHosting;
  game_.localPlayerName = "Ann";
  outside_.loadPaths = {"", Path("missing.vsh"), path};
  LoadGameCommand(game_, outside_);  // cancelled
  LoadGameCommand(game_, outside_);  // failed
  EXPECT_TRUE(outside_.sent.empty());
  EXPECT_EQ(game_.saveFilePath, "");

  LoadGameCommand(game_, outside_);
  ASSERT_EQ(outside_.sent.size(), 2u);
  EXPECT_TRUE(outside_.sent[0].toAll);
  EXPECT_EQ(outside_.sent[0].node, 0);
  EXPECT_EQ(outside_.sent[0].message,
            "GMSG}*** Ann (host) has loaded a game: 'Friday (Anarchy/Kingdom Frozen)");
  ASSERT_EQ(outside_.sent[1].message.rfind("GLGF}", 0), 0u);
  Game client;
  ASSERT_EQ(ReadGameText(outside_.sent[1].message.substr(5), client), std::nullopt);
  EXPECT_EQ(WriteGameText(client), WriteGameText(game_));
}

}  // namespace
}  // namespace varkesh
