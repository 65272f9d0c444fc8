#include "persist/command_line.h"

#include <algorithm>
#include <climits>
#include <filesystem>

namespace varkesh {

namespace {

constexpr std::string_view kLogSwitch = "/log";
constexpr std::string_view kFpsSwitch = "/fps";
constexpr std::string_view kRemovedSwitches[] = {"/log0", "/log1", "/log2",   "/log3",
                                                 "/log4", "/log5", kFpsSwitch};

int LogLevelOf(std::string_view text) {
  std::size_t at = text.find(kLogSwitch);
  if (at == std::string_view::npos) return 0;
  long long level = 0;
  for (std::size_t i = at + kLogSwitch.size(); i < text.size(); ++i) {
    if (text[i] < '0' || text[i] > '9') break;
    level = std::min<long long>(level * 10 + (text[i] - '0'), INT_MAX);
  }
  return static_cast<int>(level);
}

void RemoveAll(std::string& text, std::string_view what) {
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at))
    text.erase(at, what.size());
}

std::string Trimmed(const std::string& text) {
  std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return "";
  std::size_t last = text.find_last_not_of(" \t");
  return text.substr(first, last - first + 1);
}

}  // namespace

CommandLine ParseCommandLine(std::string_view text) {
  CommandLine result;
  result.logLevel = LogLevelOf(text);
  result.showFps = text.find(kFpsSwitch) != std::string_view::npos;
  std::string rest(text);
  for (std::string_view name : kRemovedSwitches) RemoveAll(rest, name);
  // The path keeps its case: file names on this system are case-sensitive.
  rest = Trimmed(rest);
  // A launcher may pass a path with blanks inside quotes.
  if (rest.size() >= 2 && rest.front() == '"' && rest.back() == '"')
    rest = rest.substr(1, rest.size() - 2);
  result.savedGamePath = rest;
  return result;
}

CommandLine ParseCommandLine(int argc, const char* const* argv) {
  std::string text;
  for (int i = 1; i < argc; ++i) {
    if (i > 1) text += ' ';
    text += argv[i];
  }
  return ParseCommandLine(text);
}

std::optional<std::string> SavedGameToLoad(const CommandLine& commandLine) {
  std::error_code ignored;
  if (commandLine.savedGamePath.empty() ||
      !std::filesystem::is_regular_file(commandLine.savedGamePath, ignored))
    return std::nullopt;
  return commandLine.savedGamePath;
}

}  // namespace varkesh
