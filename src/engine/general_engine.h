// The service module under everything: the program folder, the clock and the
// framed logs. It knows nothing of the game.
#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace varkesh {

struct GeneralEngine {
  std::string appPath;  // the program folder, always ending in '/'
  int logLevel = 0;
  int engineLogNumber = 0;
  std::vector<std::string> logPaths{std::string()};  // from index 1; empty = closed
  std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
};

// Fixes the folder, starts the clock and, from level 1, opens "engine.log".
void StartGeneralEngine(GeneralEngine& engine, int logLevel, const std::string& appPath);
void ShutdownGeneralEngine(GeneralEngine& engine);

// Seconds since StartGeneralEngine; never goes back.
double EngineClock(const GeneralEngine& engine);

// Opens (or, with append false, starts anew) a framed log; 0 for an empty path.
int OpenLog(GeneralEngine& engine, const std::string& path, bool append);
// A number out of range or of a closed log swallows the line.
void WriteLog(GeneralEngine& engine, int number, const std::string& text, bool stamped);
void CloseLog(GeneralEngine& engine, int number);

// "5-Feb-2003, 14:02:09", the stamp of log lines.
std::string LogStamp();

}  // namespace varkesh
