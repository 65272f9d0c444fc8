// The program's command line: the log level, the frame rate switch and the
// path of a saved game to open at once.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varkesh {

struct CommandLine {
  int logLevel = 0;           // "/log0" to "/log5", or "--log N"; 0 without
  bool showFps = false;       // "/fps" or "--fps"
  std::string savedGamePath;  // the other words, joined by blanks
  bool showHelp = false;      // "--help" or "-h"
  bool showVersion = false;   // "--version"
  std::string error;          // a wrong argument, told to the player
};

// Switches count only as whole words, so a path such as
// "/home/ann/log2024/x.vsh" stays whole.
CommandLine ParseCommandLine(const std::vector<std::string>& words);
// A command line as one text: words are split at blanks, and a part in
// double quotes is one word.
CommandLine ParseCommandLine(std::string_view text);
// The words after the program's name.
CommandLine ParseCommandLine(int argc, const char* const* argv);

// Words split at blanks; a stretch in double quotes is one word.
std::vector<std::string> SplitWords(std::string_view text);

// The usage lines printed by "--help".
std::string CommandLineUsage(const std::string& programName);

// The saved game to load at start: the path, if it names an existing file.
std::optional<std::string> SavedGameToLoad(const CommandLine& commandLine);

}  // namespace varkesh
