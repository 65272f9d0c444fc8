#include "persist/command_line.h"

#include <gtest/gtest.h>

#include "persist/temp_folder.h"

namespace varkesh {
namespace {

TEST(CommandLine, LogLevelIsTheNumberAfterTheSwitch) {
  EXPECT_EQ(ParseCommandLine("").logLevel, 0);
  EXPECT_EQ(ParseCommandLine("/fps /log3").logLevel, 3);
  EXPECT_EQ(ParseCommandLine("/log").logLevel, 0);
  EXPECT_EQ(ParseCommandLine("/log x").logLevel, 0);
  EXPECT_EQ(ParseCommandLine("/log12").logLevel, 12);
  EXPECT_EQ(ParseCommandLine("/log99999999999999999999").logLevel, 2147483647);
}

TEST(CommandLine, WhatIsLeftOfTheSwitchesIsTheGamePath) {
  CommandLine line = ParseCommandLine("/log2 /fps  /home/Ann/Games/Friday Night.vsh ");
  EXPECT_EQ(line.logLevel, 2);
  EXPECT_TRUE(line.showFps);
  EXPECT_EQ(line.savedGamePath, "/home/Ann/Games/Friday Night.vsh");

  EXPECT_FALSE(ParseCommandLine("game.vsh").showFps);
  EXPECT_EQ(ParseCommandLine("/fps/log1game.vsh").savedGamePath, "game.vsh");
  EXPECT_EQ(ParseCommandLine("\"/tmp/My Game.vsh\" /log1").savedGamePath, "/tmp/My Game.vsh");
  EXPECT_EQ(ParseCommandLine("/log7").savedGamePath, "/log7");  // only six levels are switches

  const char* argv[] = {"varkesh", "/log1", "/tmp/a game.vsh", "/fps"};
  line = ParseCommandLine(4, argv);
  EXPECT_EQ(line.logLevel, 1);
  EXPECT_TRUE(line.showFps);
  EXPECT_EQ(line.savedGamePath, "/tmp/a game.vsh");
}

TEST(CommandLine, OnlyAnExistingFileIsLoadedAtStart) {
  testing::TempFolder folder;
  testing::PutFile(folder.File("Friday.vsh"), "coded");
  EXPECT_EQ(SavedGameToLoad(ParseCommandLine("/log1 " + folder.File("Friday.vsh"))),
            folder.File("Friday.vsh"));
  EXPECT_EQ(SavedGameToLoad(ParseCommandLine(folder.File("FRIDAY.VSH"))), std::nullopt);
  EXPECT_EQ(SavedGameToLoad(ParseCommandLine(folder.Slashed())), std::nullopt);
  EXPECT_EQ(SavedGameToLoad(ParseCommandLine("/fps")), std::nullopt);
}

}  // namespace
}  // namespace varkesh
