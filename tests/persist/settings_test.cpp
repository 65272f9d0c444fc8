#include "persist/settings.h"

#include <gtest/gtest.h>

#include "persist/temp_folder.h"

namespace varkesh {
namespace {

class SettingsTest : public ::testing::Test {
 protected:
  std::string Path() const { return folder_.File("settings.ini"); }
  testing::TempFolder folder_;
};

TEST_F(SettingsTest, KeysMeetWhateverTheirCaseAndOutliveTheStore) {
  {
    SettingsStore store(Path());
    EXPECT_EQ(store.Read("MainLeft"), "");
    store.Write("MainLeft", "120");
    EXPECT_EQ(store.Read("MAINLEFT"), "120");
    store.Write("mainleft", "80");
  }
  SettingsStore next(Path());
  EXPECT_EQ(next.Read("Mainleft"), "80");
  QSettings file(QString::fromStdString(Path()), QSettings::IniFormat);
  EXPECT_EQ(file.allKeys(), QStringList{"Settings/mainleft"});
}

TEST_F(SettingsTest, WithNothingStoredTheWindowKeepsItsStart) {
  SettingsStore store(Path());
  WindowPlacement placement = ReadWindowPlacement(store, "Main");
  EXPECT_FALSE(placement.top || placement.left || placement.height || placement.width ||
               placement.state);
  OptionMarks marks = ReadOptionMarks(store);
  EXPECT_TRUE(marks.sfx && marks.indicator && marks.showComp && marks.hints);
  EXPECT_EQ(marks.history, 0);
}

TEST_F(SettingsTest, WindowPlacementComesBackAndBadNumbersReadAsZero) {
  SettingsStore store(Path());
  WriteWindowPlacement(store, "Chat", 10, -20, 480, 640, 2);
  WindowPlacement chat = ReadWindowPlacement(store, "Chat");
  EXPECT_EQ(chat.top, 10);
  EXPECT_EQ(chat.left, -20);
  EXPECT_EQ(chat.height, 480);
  EXPECT_EQ(chat.width, 640);
  EXPECT_EQ(chat.state, 2);

  store.Write("MainTop", "left");
  store.Write("MainWidth", " 640px");
  WindowPlacement main = ReadWindowPlacement(store, "Main");
  EXPECT_EQ(main.top, 0);
  EXPECT_EQ(main.width, 640);
  EXPECT_FALSE(main.left);
}

TEST_F(SettingsTest, OptionMarksAreWrittenAsMinusOneAndZero) {
  SettingsStore store(Path());
  WriteOptionMarks(store, {true, false, true, false, 1});
  EXPECT_EQ(store.Read("Sfx"), "-1");
  EXPECT_EQ(store.Read("Indicator"), "0");
  EXPECT_EQ(store.Read("History"), "1");
  OptionMarks marks = ReadOptionMarks(store);
  EXPECT_TRUE(marks.sfx && marks.showComp);
  EXPECT_FALSE(marks.indicator || marks.hints);
  EXPECT_EQ(marks.history, 1);
}

TEST_F(SettingsTest, AnyNonZeroNumberChecksAnOptionAndOddHistoryMeansThree) {
  SettingsStore store(Path());
  store.Write("Sfx", "5");
  store.Write("Indicator", "True");
  store.Write("ShowComp", "0.0");
  store.Write("Hints", " -1");
  store.Write("History", "2");
  OptionMarks marks = ReadOptionMarks(store);
  EXPECT_TRUE(marks.sfx);
  EXPECT_FALSE(marks.indicator);
  EXPECT_FALSE(marks.showComp);
  EXPECT_TRUE(marks.hints);
  EXPECT_EQ(marks.history, 3);
}

TEST_F(SettingsTest, OnlyTheFirstRunIsTheFirst) {
  SettingsStore store(Path());
  EXPECT_TRUE(TakeFirstRun(store));
  EXPECT_EQ(store.Read("first"), "Done");
  SettingsStore nextStart(Path());
  EXPECT_FALSE(TakeFirstRun(nextStart));
}

}  // namespace
}  // namespace varkesh
