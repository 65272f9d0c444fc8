#include "persist/command_line.h"

#include <cctype>
#include <filesystem>

namespace varkesh {

namespace {

constexpr int kHighestLogLevel = 5;

// 0 to 5 for a text of one such digit, else nothing.
std::optional<int> LogLevelOf(std::string_view digits) {
  if (digits.size() != 1 || digits[0] < '0' || digits[0] > '0' + kHighestLogLevel)
    return std::nullopt;
  return digits[0] - '0';
}

}  // namespace

std::vector<std::string> SplitWords(std::string_view text) {
  std::vector<std::string> words;
  std::string word;
  bool quoted = false;
  bool inWord = false;
  for (char c : text) {
    if (c == '"') {
      quoted = !quoted;
      inWord = true;
    } else if (!quoted && std::isspace(static_cast<unsigned char>(c))) {
      if (inWord) words.push_back(word);
      word.clear();
      inWord = false;
    } else {
      word += c;
      inWord = true;
    }
  }
  if (inWord) words.push_back(word);
  return words;
}

CommandLine ParseCommandLine(const std::vector<std::string>& words) {
  CommandLine result;
  std::vector<std::string> rest;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (word.size() == 5 && word.compare(0, 4, "/log") == 0 && LogLevelOf(word.substr(4))) {
      result.logLevel = *LogLevelOf(word.substr(4));
    } else if (word == "/fps" || word == "--fps") {
      result.showFps = true;
    } else if (word == "--help" || word == "-h") {
      result.showHelp = true;
    } else if (word == "--version") {
      result.showVersion = true;
    } else if (word == "--log" || word.compare(0, 6, "--log=") == 0) {
      const bool joined = word.size() > 5;
      const std::string value = joined ? word.substr(6) : i + 1 < words.size() ? words[++i] : "";
      const std::optional<int> level = LogLevelOf(value);
      if (!level) {
        result.error = "--log takes a level from 0 to 5, not '" + value + "'";
        return result;
      }
      result.logLevel = *level;
    } else if (word.compare(0, 2, "--") == 0) {
      result.error = "unknown option '" + word + "'";
      return result;
    } else {
      rest.push_back(word);
    }
  }
  for (const std::string& word : rest) {
    if (!result.savedGamePath.empty()) result.savedGamePath += ' ';
    result.savedGamePath += word;
  }
  return result;
}

CommandLine ParseCommandLine(std::string_view text) {
  return ParseCommandLine(SplitWords(text));
}

CommandLine ParseCommandLine(int argc, const char* const* argv) {
  return ParseCommandLine(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
}

std::string CommandLineUsage(const std::string& programName) {
  return "usage: " + programName +
         " [--log N] [--fps] [SAVED-GAME.vsh]\n"
         "       " +
         programName +
         " --help | --version\n"
         "  --log N, /logN   write logs at level N, 0 (none) to 5\n"
         "  --fps, /fps      show the frame rate\n"
         "  SAVED-GAME.vsh   open this saved game at start\n";
}

std::optional<std::string> SavedGameToLoad(const CommandLine& commandLine) {
  std::error_code ignored;
  if (commandLine.savedGamePath.empty() ||
      !std::filesystem::is_regular_file(commandLine.savedGamePath, ignored))
    return std::nullopt;
  return commandLine.savedGamePath;
}

}  // namespace varkesh
