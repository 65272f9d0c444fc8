#include "flow/error_handler.h"

#include <array>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <vector>

#include "engine/general_engine.h"

namespace varkesh {

namespace {

// "2026-Nov-3 14:02:09", local time.
std::string ErrorStamp() {
  static constexpr std::array<const char*, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                          "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char stamp[48];
  std::snprintf(stamp, sizeof stamp, "%d-%s-%d %02d:%02d:%02d", local.tm_year + 1900,
                kMonths[static_cast<std::size_t>(local.tm_mon)], local.tm_mday, local.tm_hour,
                local.tm_min, local.tm_sec);
  return stamp;
}

}  // namespace

void AppendErrorBlock(GeneralEngine& engine, const std::string& fileName, const std::string& module,
                      const std::string& sub, int errNum, const std::string& description) {
  std::vector<std::string> lines = {"", "--------------------",
                                    "Error Generated at: " + ErrorStamp() + " ..."};
  if (!module.empty()) lines.push_back("Module = " + module);
  lines.insert(lines.end(), {"Sub = " + sub, "ErrNum = " + std::to_string(errNum),
                             "ErrDesc = " + description, "===================="});
  // A log that cannot be written must not hide the fault from the player.
  std::ofstream log(engine.appPath + fileName, std::ios::app | std::ios::binary);
  for (const std::string& line : lines) log << line << "\r\n";
}

void ReportError(Outside& outside, const std::string& module, const std::string& sub, int errNum,
                 const std::string& description) {
  AppendErrorBlock(outside.Engine(), "error_main.log", module, sub, errNum, description);
  outside.ShowMessage("Varkesh Error",
                      "An error has been detected with the game application.\n"
                      "Details are being written to a log file: 'error_main.log'");
}

}  // namespace varkesh
