#include <gtest/gtest.h>

#include <filesystem>
#include <regex>

#include "engine/general_engine.h"
#include "persist/temp_folder.h"

namespace varkesh {
namespace {

const std::regex kStamp(
    R"(\d{1,2}-(Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec)-\d{4}, \d{2}:\d{2}:\d{2})");
const std::string kOpened = "\r\n====================\r\n<S> ... Log Opened\r\n\r\n";
const std::string kClosed = "\r\n<S> ... Log Closed\r\n--------------------\r\n\r\n";

std::string Framed(const std::string& path) {
  return std::regex_replace(testing::FileText(path), kStamp, "<S>");
}

TEST(Logs, BlocksAreFramedAndNumbersNeverReused) {
  std::string stamp = LogStamp();
  EXPECT_TRUE(std::regex_match(stamp, kStamp)) << stamp;
  EXPECT_NE(stamp[0], '0') << "the day has no leading zero";

  testing::TempFolder folder;
  const std::string path = folder.File("ai.log");
  GeneralEngine engine;
  EXPECT_EQ(OpenLog(engine, "", false), 0);
  int first = OpenLog(engine, path, false);
  WriteLog(engine, first, "Move chosen", true);
  WriteLog(engine, first, "  details", false);
  CloseLog(engine, first);
  int second = OpenLog(engine, path, true);
  EXPECT_EQ(std::pair(first, second), std::pair(1, 2));
  for (int closedOrWrong : {first, 0, -1, 3, 1 << 30}) {
    WriteLog(engine, closedOrWrong, "lost", true);
    CloseLog(engine, closedOrWrong);
  }
  CloseLog(engine, second);
  EXPECT_EQ(Framed(path),
            kOpened + "<S> ... Move chosen\r\n  details\r\n" + kClosed + kOpened + kClosed);

  EXPECT_EQ(OpenLog(engine, path, false), 3);
  EXPECT_EQ(Framed(path), kOpened);
}

TEST(Logs, TheEngineLogsFromLevelOneAndTheClockStartsWithIt) {
  testing::TempFolder folder;
  std::string app = folder.Slashed();
  app.pop_back();
  GeneralEngine engine;
  StartGeneralEngine(engine, 1, app);
  ShutdownGeneralEngine(engine);
  EXPECT_EQ(Framed(folder.File("engine.log")),
            kOpened + "<S> ... > OstrelGames General Engine Started <\r\n" +
                "<S> ...      Log Level = 1\r\n\r\n" +
                "\r\n<S> ... > OstrelGames General Engine Shutdown <\r\n" + kClosed);

  testing::TempFolder quiet;
  engine.start -= std::chrono::hours(1);
  StartGeneralEngine(engine, 0, quiet.Slashed());
  EXPECT_LT(EngineClock(engine), 60.0) << "the clock starts with the engine";
  ShutdownGeneralEngine(engine);
  EXPECT_TRUE(std::filesystem::is_empty(quiet.Slashed()));
}

TEST(Logs, GoToTheLogFolderAndAFolderThatCannotBeWrittenStopsNothing) {
  testing::TempFolder app, logs, temp;
  GeneralEngine engine;
  StartGeneralEngine(engine, 3, app.Slashed(), logs.File("player"), temp.Slashed());
  EXPECT_EQ(LogFile(engine, "ai.log"), logs.File("player/ai.log"));
  EXPECT_EQ(TempFile(engine, "temp.sav"), temp.File("temp.sav"));
  EXPECT_EQ(engine.appPath, app.Slashed()) << "what ships with the program stays where it is";
  // The folder "player" was never made: each line is lost, and nothing throws.
  const int ai = OpenLog(engine, LogFile(engine, "ai.log"), true);
  WriteLog(engine, ai, "a thought", true);
  CloseLog(engine, ai);
  ShutdownGeneralEngine(engine);
  EXPECT_TRUE(std::filesystem::is_empty(app.Slashed()));
  EXPECT_TRUE(std::filesystem::is_empty(logs.Slashed()));

  StartGeneralEngine(engine, 3, app.Slashed(), "", temp.Slashed());
  EXPECT_EQ(LogFile(engine, "engine.log"), "") << "no log folder: logs are off";
  EXPECT_EQ(OpenLog(engine, LogFile(engine, "ai.log"), true), 0);
  ShutdownGeneralEngine(engine);
  EXPECT_TRUE(std::filesystem::is_empty(app.Slashed()));
}

}  // namespace
}  // namespace varkesh
