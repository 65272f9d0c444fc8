#include <cstdio>
#include <exception>
#include <string_view>

#include "cli.h"

namespace {

struct Command {
  std::string_view name;
  int (*run)(const varkesh::cli::Args&);
};

constexpr Command kCommands[] = {
    {"new", varkesh::cli::CmdNew},           {"moves", varkesh::cli::CmdMoves},
    {"apply", varkesh::cli::CmdApply},       {"resign", varkesh::cli::CmdResign},
    {"decode", varkesh::cli::CmdDecode},     {"encode", varkesh::cli::CmdEncode},
    {"scores", varkesh::cli::CmdScores},     {"aimove", varkesh::cli::CmdAimove},
    {"selfplay", varkesh::cli::CmdSelfplay}, {"host", varkesh::cli::CmdHost},
    {"join", varkesh::cli::CmdJoin},
};

int PrintUsage() {
  std::fputs("usage: varkesh-cli COMMAND [ARGS]\ncommands:", stderr);
  for (const Command& command : kCommands)
    std::fprintf(stderr, " %.*s", static_cast<int>(command.name.size()), command.name.data());
  std::fputc('\n', stderr);
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) return PrintUsage();
  std::string_view name = argv[1];
  for (const Command& command : kCommands) {
    if (command.name != name) continue;
    try {
      return command.run(varkesh::cli::Args(argv + 2, argv + argc));
    } catch (const varkesh::cli::CliError& error) {
      std::fprintf(stderr, "%s\n", error.what());
      return error.code;
    } catch (const std::exception& error) {
      std::fprintf(stderr, "varkesh-cli: %s\n", error.what());
      return 1;
    }
  }
  std::fprintf(stderr, "varkesh-cli: unknown command '%s'\n", argv[1]);
  return PrintUsage();
}
