#include "engine/general_engine.h"

#include <cstdio>
#include <ctime>
#include <fstream>

namespace varkesh {

namespace {

constexpr const char* kLineEnd = "\r\n";

// Every write opens and closes the file, so a crash never loses a logged line;
// a write that fails is dropped, as a log must never stop the game.
void AppendToFile(const std::string& path, const std::string& text, bool append) {
  std::ofstream file(path, std::ios::binary | (append ? std::ios::app : std::ios::trunc));
  file << text;
}

std::string WithSlash(std::string folder) {
  if (!folder.empty() && folder.back() != '/') folder += '/';
  return folder;
}

// The path of an open log, or nullptr for a number out of range or closed.
const std::string* OpenLogPath(const GeneralEngine& engine, int number) {
  if (number < 1 || number >= static_cast<int>(engine.logPaths.size())) return nullptr;
  const std::string& path = engine.logPaths[static_cast<std::size_t>(number)];
  return path.empty() ? nullptr : &path;
}

}  // namespace

std::string LogStamp() {
  static constexpr const char* kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                            "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char text[40];
  std::snprintf(text, sizeof text, "%d-%s-%04d, %02d:%02d:%02d", local.tm_mday,
                kMonths[local.tm_mon % 12], local.tm_year + 1900, local.tm_hour, local.tm_min,
                local.tm_sec);
  return text;
}

std::string LogFile(const GeneralEngine& engine, const std::string& fileName) {
  if (engine.logsOff) return {};
  return (engine.logPath.empty() ? engine.appPath : engine.logPath) + fileName;
}

std::string TempFile(const GeneralEngine& engine, const std::string& fileName) {
  return (engine.tempPath.empty() ? engine.appPath : engine.tempPath) + fileName;
}

std::string DocumentFile(const GeneralEngine& engine, const std::string& fileName) {
  return (engine.documentsPath.empty() ? engine.appPath : engine.documentsPath) + fileName;
}

void StartGeneralEngine(GeneralEngine& engine, int logLevel, const std::string& appPath) {
  const std::string folder = appPath.empty() ? "/" : WithSlash(appPath);
  StartGeneralEngine(engine, logLevel, folder, folder, folder);
}

void StartGeneralEngine(GeneralEngine& engine, int logLevel, const std::string& appPath,
                        const std::string& logPath, const std::string& tempPath) {
  engine.appPath = appPath.empty() ? "/" : WithSlash(appPath);
  engine.logPath = WithSlash(logPath);
  engine.logsOff = logPath.empty();
  engine.tempPath = WithSlash(tempPath);
  engine.start = std::chrono::steady_clock::now();
  engine.logLevel = logLevel;
  engine.engineLogNumber = 0;
  if (logLevel <= 0) return;
  engine.engineLogNumber = OpenLog(engine, LogFile(engine, "engine.log"), false);
  WriteLog(engine, engine.engineLogNumber, "> OstrelGames General Engine Started <", true);
  WriteLog(engine, engine.engineLogNumber, "     Log Level = " + std::to_string(logLevel), true);
  WriteLog(engine, engine.engineLogNumber, "", false);
}

void ShutdownGeneralEngine(GeneralEngine& engine) {
  if (engine.logLevel > 0) {
    WriteLog(engine, engine.engineLogNumber, "", false);
    WriteLog(engine, engine.engineLogNumber, "> OstrelGames General Engine Shutdown <", true);
    CloseLog(engine, engine.engineLogNumber);
  }
  engine.logPaths.assign(1, std::string());
  engine.engineLogNumber = 0;
}

double EngineClock(const GeneralEngine& engine) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - engine.start).count();
}

int OpenLog(GeneralEngine& engine, const std::string& path, bool append) {
  if (path.empty()) return 0;
  if (engine.logPaths.empty()) engine.logPaths.emplace_back();
  engine.logPaths.push_back(path);
  AppendToFile(path,
               std::string(kLineEnd) + "====================" + kLineEnd + LogStamp() +
                   " ... Log Opened" + kLineEnd + kLineEnd,
               append);
  return static_cast<int>(engine.logPaths.size()) - 1;
}

void WriteLog(GeneralEngine& engine, int number, const std::string& text, bool stamped) {
  const std::string* path = OpenLogPath(engine, number);
  if (!path) return;
  AppendToFile(*path, (stamped ? LogStamp() + " ... " + text : text) + kLineEnd, true);
}

void CloseLog(GeneralEngine& engine, int number) {
  const std::string* path = OpenLogPath(engine, number);
  if (!path) return;
  AppendToFile(*path,
               std::string(kLineEnd) + LogStamp() + " ... Log Closed" + kLineEnd +
                   "--------------------" + kLineEnd + kLineEnd,
               true);
  engine.logPaths[static_cast<std::size_t>(number)].clear();
}

}  // namespace varkesh
