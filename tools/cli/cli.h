// varkesh-cli: commands for players who script and analyse games.
// Exit codes: 0 success, 2 usage error (with a usage line), 1 bad input file.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "flow/game.h"

namespace varkesh::cli {

using Args = std::vector<std::string>;  // the words after the command name

// Thrown by a command; main prints it and exits with its code.
struct CliError : std::runtime_error {
  CliError(int exitCode, const std::string& message)
      : std::runtime_error(message), code(exitCode) {}
  int code;
};

[[noreturn]] inline void Usage(const std::string& usageLine) {
  throw CliError(2, "usage: varkesh-cli " + usageLine);
}
[[noreturn]] inline void BadInput(const std::string& message) {
  throw CliError(1, message);
}

// The options of a command line: "--name value" pairs, bare "--flag"s and
// positional words. Unknown options are a usage error of the caller.
struct Options {
  std::vector<std::string> positional;
  std::vector<std::pair<std::string, std::string>> named;  // value "" for a flag
  bool Has(const std::string& name) const;
  std::string Value(const std::string& name, const std::string& fallback = "") const;
};
// valued: the options that take a value; flags: those that take none.
// Anything else starting with "--" is a usage error with usageLine.
Options ParseOptions(const Args& args, const std::vector<std::string>& valued,
                     const std::vector<std::string>& flags, const std::string& usageLine);
// A whole number, or a usage error with usageLine.
int ParseInt(const std::string& text, const std::string& usageLine);
// A whole number from low to high, or a usage error with usageLine.
int ParseBetween(const std::string& text, int low, int high, const std::string& usageLine);
// Four player kinds "a,b,c,d", each from lowestKind to the Defensive computer.
PerTeam<int> ParsePlayers(const std::string& text, int lowestKind, const std::string& usageLine);

// Reads a game from a plain game text or a coded .vsh file (told apart by the
// magic); a file that is neither is a bad input (exit 1).
Game ReadGameFile(const std::string& path);

int CmdNew(const Args& args);
int CmdMoves(const Args& args);
int CmdApply(const Args& args);
int CmdApplyComputer(const Args& args);  // apply --computer
int CmdResign(const Args& args);
int CmdDecode(const Args& args);
int CmdEncode(const Args& args);
int CmdScores(const Args& args);
int CmdAimove(const Args& args);
int CmdSelfplay(const Args& args);
int CmdPerft(const Args& args);
int CmdHost(const Args& args);
int CmdJoin(const Args& args);
int CmdRecord(const Args& args);
int CmdReplay(const Args& args);

}  // namespace varkesh::cli
