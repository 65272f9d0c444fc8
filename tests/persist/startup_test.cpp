#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>
#include <tuple>

#include "persist/command_line.h"
#include "persist/pack_reader.h"
#include "persist/settings.h"
#include "persist/temp_folder.h"

namespace varkesh {
namespace {

TEST(CommandLine, SwitchesCountOnlyAsWholeWords) {
  const std::tuple<const char*, int, bool, const char*> cases[] = {
      {"", 0, false, ""},
      {"/log2 /fps  /home/Ann/Games/Friday.vsh ", 2, true, "/home/Ann/Games/Friday.vsh"},
      {"/home/ann/log2024/fps.vsh", 0, false, "/home/ann/log2024/fps.vsh"},
      {"/fps/log1game.vsh", 0, false, "/fps/log1game.vsh"},
      {"\"/tmp/My  Game.vsh\" /log1", 1, false, "/tmp/My  Game.vsh"},
      {"/log x", 0, false, "/log x"},
      {"/log7", 0, false, "/log7"},  // only levels 0 to 5 are switches
      {"--log 3 --fps game.vsh", 3, true, "game.vsh"},
      {"--log=4", 4, false, ""}};
  for (const auto& [text, logLevel, showFps, path] : cases) {
    CommandLine line = ParseCommandLine(text);
    EXPECT_EQ(std::tie(line.logLevel, line.showFps, line.savedGamePath, line.error),
              std::make_tuple(logLevel, showFps, std::string(path), std::string()))
        << text;
  }
  const char* argv[] = {"varkesh", "/log1", "/tmp/a game.vsh", "/fps"};
  EXPECT_EQ(ParseCommandLine(4, argv).savedGamePath, "/tmp/a game.vsh");
}

TEST(CommandLine, WrongOptionsAreToldAndHelpIsOffered) {
  for (const char* text : {"--log", "--log 9", "--log=x", "--frames"})
    EXPECT_FALSE(ParseCommandLine(text).error.empty()) << text;
  EXPECT_TRUE(ParseCommandLine("--help").showHelp);
  EXPECT_TRUE(ParseCommandLine("-h").showHelp);
  EXPECT_TRUE(ParseCommandLine("--version").showVersion);
  EXPECT_NE(CommandLineUsage("varkesh").find("--log N"), std::string::npos);
}

TEST(CommandLine, OnlyAnExistingFileIsLoadedAtStart) {
  testing::TempFolder folder;
  testing::PutFile(folder.File("Friday.vsh"), "coded");
  EXPECT_EQ(SavedGameToLoad(ParseCommandLine("/log1 " + folder.File("Friday.vsh"))),
            folder.File("Friday.vsh"));
  EXPECT_EQ(SavedGameToLoad(ParseCommandLine(folder.File("FRIDAY.VSH"))), std::nullopt);
  EXPECT_EQ(SavedGameToLoad(ParseCommandLine(folder.Slashed())), std::nullopt);
}

TEST(PackReader, ExtractsOnlyWhatThePackHoldsIntoTheTemporaryFolderClearedAtStart) {
  testing::TempFolder app;
  const std::string temp = app.File("temp");
  PrepareTempFolder(temp);
  testing::PutFile(temp + "/gameboard.otm", "an earlier run's");
  testing::PutFile(temp + "/notes.txt", "kept");
  PrepareTempFolder(temp);
  EXPECT_FALSE(std::filesystem::exists(temp + "/gameboard.otm"));
  EXPECT_TRUE(std::filesystem::exists(temp + "/notes.txt"));

  PackReader reader;
  EXPECT_THROW(reader.OpenPack(app.File("r.opk"), temp), std::runtime_error);
  reader.OpenPack(VARKESH_BIN_DIR "/r.opk", temp);
  std::string path = reader.ExtractEntry("newgamedata");
  EXPECT_EQ(path, temp + "/newgamedata.otm");
  EXPECT_EQ(testing::FileText(path), testing::FileText(VARKESH_PACK_DIR "/newgamedata.txt"));
  EXPECT_EQ(reader.ExtractEntry("newgamedata"), path);
  EXPECT_THROW(reader.ExtractEntry("no such entry"), std::runtime_error);
  EXPECT_THROW(reader.ExtractEntry("./newgamedata"), std::runtime_error);
  reader.ClosePack();
  EXPECT_THROW(reader.ExtractEntry("newgamedata"), std::runtime_error);
}

class SettingsTest : public ::testing::Test {
 protected:
  testing::TempFolder folder_;
  const std::string path_ = folder_.File("settings.ini");
  SettingsStore store_{path_};
};

// That keys meet whatever their case the window's tests show; here, a key
// written again in another case.
TEST_F(SettingsTest, AKeyWrittenInAnotherCaseReplacesTheStoredOneForGood) {
  store_.Write("MainLeft", "120");
  store_.Write("mainleft", "80");
  EXPECT_EQ(SettingsStore(path_).Read("Mainleft"), "80");
  QSettings file(QString::fromStdString(path_), QSettings::IniFormat);
  EXPECT_EQ(file.allKeys(), QStringList{"Settings/mainleft"});
}

TEST_F(SettingsTest, MissingValuesKeepTheDefaultsAndOthersReadAsTheirLeadingNumber) {
  WindowPlacement main = ReadWindowPlacement(store_, "Main");
  EXPECT_FALSE(main.top || main.left || main.height || main.width || main.state);
  OptionMarks marks = ReadOptionMarks(store_);
  EXPECT_TRUE(marks.sfx && marks.indicator && marks.showComp && marks.hints);
  EXPECT_EQ(marks.history, 0);

  const std::pair<const char*, const char*> stored[] = {
      {"MainTop", "left"}, {"MainWidth", " 640px"}, {"Sfx", "5"},    {"Indicator", "True"},
      {"ShowComp", "0.0"}, {"Hints", " -1"},        {"History", "2"}};
  for (const auto& [key, text] : stored) store_.Write(key, text);
  main = ReadWindowPlacement(store_, "Main");
  EXPECT_EQ(main.top, 0);
  EXPECT_EQ(main.width, 640);
  marks = ReadOptionMarks(store_);
  EXPECT_TRUE(marks.sfx && marks.hints);
  EXPECT_FALSE(marks.indicator || marks.showComp);
  EXPECT_EQ(marks.history, 3);  // anything but 0 and 1 checks the third entry
}

}  // namespace
}  // namespace varkesh
