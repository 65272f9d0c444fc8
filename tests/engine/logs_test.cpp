#include <gtest/gtest.h>

#include <filesystem>
#include <regex>

#include "engine/general_engine.h"
#include "persist/temp_folder.h"

namespace varkesh {
namespace {

using testing::FileText;
using testing::TempFolder;

const std::regex kStamp(
    R"(\d{1,2}-(Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec)-\d{4}, \d{2}:\d{2}:\d{2})");

// The file's text with every stamp written as <S>.
std::string Framed(const std::string& path) {
  return std::regex_replace(FileText(path), kStamp, "<S>");
}

constexpr const char* kOpened = "\r\n====================\r\n<S> ... Log Opened\r\n\r\n";
constexpr const char* kClosed = "\r\n<S> ... Log Closed\r\n--------------------\r\n\r\n";

TEST(Logs, ALogIsFramedAndItsLinesStampedOnRequest) {
  std::string stamp = LogStamp();
  EXPECT_TRUE(std::regex_match(stamp, kStamp)) << stamp;
  EXPECT_NE(stamp[0], '0') << "the day has no leading zero";

  TempFolder folder;
  GeneralEngine engine;
  int number = OpenLog(engine, folder.File("ai.log"), false);
  EXPECT_EQ(number, 1);
  WriteLog(engine, number, "Move chosen", true);
  WriteLog(engine, number, "  details", false);
  CloseLog(engine, number);
  EXPECT_EQ(Framed(folder.File("ai.log")),
            std::string(kOpened) + "<S> ... Move chosen\r\n  details\r\n" + kClosed);
}

TEST(Logs, NumbersAreNeverReusedAndAppendKeepsEarlierBlocks) {
  TempFolder folder;
  std::string path = folder.File("ai.log");
  GeneralEngine engine;
  int first = OpenLog(engine, path, false);
  CloseLog(engine, first);
  int second = OpenLog(engine, path, true);
  EXPECT_EQ(second, first + 1);
  WriteLog(engine, first, "dropped: that log is closed", false);
  CloseLog(engine, first);
  CloseLog(engine, second);
  EXPECT_EQ(Framed(path), std::string(kOpened) + kClosed + kOpened + kClosed);

  EXPECT_EQ(OpenLog(engine, path, false), second + 1);
  EXPECT_EQ(Framed(path), kOpened);
}

TEST(Logs, AnEmptyPathOrAWrongNumberChangesNothing) {
  TempFolder folder;
  GeneralEngine engine;
  EXPECT_EQ(OpenLog(engine, "", false), 0);
  EXPECT_EQ(engine.logPaths.size(), 1u);
  int number = OpenLog(engine, folder.File("a.log"), false);
  std::string before = FileText(folder.File("a.log"));
  for (int wrong : {0, -1, number + 1, 1 << 30}) {
    WriteLog(engine, wrong, "lost", true);
    CloseLog(engine, wrong);
  }
  EXPECT_EQ(FileText(folder.File("a.log")), before);
}

TEST(Logs, EngineLogFromLevelOne) {
  TempFolder folder;
  std::string app = folder.Slashed();
  app.pop_back();
  GeneralEngine engine;
  StartGeneralEngine(engine, 1, app);
  EXPECT_EQ(engine.appPath, folder.Slashed());
  const std::string started = std::string(kOpened) +
                              "<S> ... > OstrelGames General Engine Started <\r\n"
                              "<S> ...      Log Level = 1\r\n\r\n";
  EXPECT_EQ(Framed(folder.File("engine.log")), started);

  ShutdownGeneralEngine(engine);
  EXPECT_EQ(Framed(folder.File("engine.log")),
            started + "\r\n<S> ... > OstrelGames General Engine Shutdown <\r\n" + kClosed);
  EXPECT_EQ(engine.logPaths.size(), 1u);
}

TEST(Logs, LevelZeroWritesNothingAndTheClockStartsWithTheEngine) {
  TempFolder folder;
  GeneralEngine engine;
  engine.start -= std::chrono::hours(1);
  StartGeneralEngine(engine, 0, folder.Slashed());
  double first = EngineClock(engine);
  EXPECT_GE(first, 0.0);
  EXPECT_LT(first, 60.0);
  EXPECT_GE(EngineClock(engine), first);
  ShutdownGeneralEngine(engine);
  EXPECT_TRUE(std::filesystem::is_empty(folder.Slashed()));
}

}  // namespace
}  // namespace varkesh
