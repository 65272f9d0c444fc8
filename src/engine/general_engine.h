// The service module under everything: the program folder, the clock and the
// framed logs. It knows nothing of the game.
#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace varkesh {

struct GeneralEngine {
  std::string appPath;  // the program's folder of what ships with it, ending in '/'
  // What the program writes, each ending in '/'; empty means appPath.
  std::string logPath;
  std::string tempPath;
  std::string documentsPath;  // where the file dialogs start
  bool logsOff = false;       // no folder could be written: every log line is dropped
  int logLevel = 0;
  int engineLogNumber = 0;
  std::vector<std::string> logPaths{std::string()};  // from index 1; empty = closed
  std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
};

// Fixes the folders, starts the clock and, from level 1, opens "engine.log"
// in the log folder. An empty logPath turns the logs off.
void StartGeneralEngine(GeneralEngine& engine, int logLevel, const std::string& appPath);
void StartGeneralEngine(GeneralEngine& engine, int logLevel, const std::string& appPath,
                        const std::string& logPath, const std::string& tempPath);
void ShutdownGeneralEngine(GeneralEngine& engine);

// Seconds since StartGeneralEngine; never goes back.
double EngineClock(const GeneralEngine& engine);

// Opens (or, with append false, starts anew) a framed log; 0 for an empty path.
// A log is a side effect: a file that cannot be written loses the lines, and
// nothing throws.
int OpenLog(GeneralEngine& engine, const std::string& path, bool append);
// A number out of range or of a closed log swallows the line.
void WriteLog(GeneralEngine& engine, int number, const std::string& text, bool stamped);
void CloseLog(GeneralEngine& engine, int number);

// The path of a log named fileName in the log folder; empty when logs are off.
std::string LogFile(const GeneralEngine& engine, const std::string& fileName);
// The path of a temporary file named fileName.
std::string TempFile(const GeneralEngine& engine, const std::string& fileName);
// The path of a document named fileName in the folder where the dialogs start.
std::string DocumentFile(const GeneralEngine& engine, const std::string& fileName);

// "5-Feb-2003, 14:02:09", the stamp of log lines.
std::string LogStamp();

}  // namespace varkesh
