#include <cstdio>
#include <exception>
#include <string_view>

#include "cli.h"

namespace {

struct Command {
  std::string_view name;
  int (*run)(const varkesh::cli::Args&);
  const char* usage;  // the arguments, as --help lists them
};

constexpr Command kCommands[] = {
    {"new", varkesh::cli::CmdNew, "[--type T] [--rule R] [--players a,b,c,d] [--name NAME]"},
    {"moves", varkesh::cli::CmdMoves, "FILE"},
    {"apply", varkesh::cli::CmdApply,
     "FILE FX FY TX TY [--option K] | --computer FILE FX FY TX TY"},
    {"resign", varkesh::cli::CmdResign, "FILE [--to TEAM] [--no]"},
    {"decode", varkesh::cli::CmdDecode, "FILE.vsh"},
    {"encode", varkesh::cli::CmdEncode, "FILE OUT.vsh"},
    {"scores", varkesh::cli::CmdScores, "FILE [--personality P]"},
    {"aimove", varkesh::cli::CmdAimove, "FILE [--personality P]"},
    {"bestmove", varkesh::cli::CmdBestmove,
     "FILE [--level L] [--personality P] [--movetime MS] [--depth D] [--nodes N]"},
    {"match", varkesh::cli::CmdMatch,
     "--levels A,B --games N [--type T] [--rule R] [--movetime MS | --nodes N] [--seed S]"},
    {"selfplay", varkesh::cli::CmdSelfplay,
     "[--games N] [--seed S] [--type T] [--rule R] [--players a,b,c,d] [--max-rounds M] [--levels "
     "a,b,c,d] [--records DIR]"},
    {"record", varkesh::cli::CmdRecord, "FILE"},
    {"replay", varkesh::cli::CmdReplay, "RECORD [--ply N]"},
    {"perft", varkesh::cli::CmdPerft, "FILE DEPTH [--divide]"},
    {"host", varkesh::cli::CmdHost, "[--port P] [--name NAME] [--game FILE] [--thinking-time MS]"},
    {"join", varkesh::cli::CmdJoin, "[--address A] [--port P] [--name NAME]"},
};

int PrintUsage(std::FILE* out, int code) {
  std::fputs(
      "usage: varkesh-cli COMMAND [ARGS]\n       varkesh-cli --help | --version\n"
      "commands:\n",
      out);
  for (const Command& command : kCommands)
    std::fprintf(out, "  %.*s %s\n", static_cast<int>(command.name.size()), command.name.data(),
                 command.usage);
  return code;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) return PrintUsage(stderr, 2);
  std::string_view name = argv[1];
  if (name == "--help" || name == "-h") return PrintUsage(stdout, 0);
  if (name == "--version") {
    std::puts("varkesh-cli " VARKESH_VERSION);
    return 0;
  }
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
  return PrintUsage(stderr, 2);
}
