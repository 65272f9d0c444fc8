// The program's command line: the log level, the frame rate switch and the
// path of a saved game to open at once.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace varkesh {

struct CommandLine {
  int logLevel = 0;           // "/log" and the digits after it; 0 without
  bool showFps = false;       // "/fps"
  std::string savedGamePath;  // what is left once the switches are taken out
};

CommandLine ParseCommandLine(std::string_view text);
// The words after the program's name, joined by blanks.
CommandLine ParseCommandLine(int argc, const char* const* argv);

// The saved game to load at start: the path, if it names an existing file.
std::optional<std::string> SavedGameToLoad(const CommandLine& commandLine);

}  // namespace varkesh
