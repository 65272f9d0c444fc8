#include "cli.h"
#include "net/wire.h"
#include "node_program.h"

namespace varkesh::cli {

namespace {

constexpr const char* kHostUsage =
    "host [--port P] [--name NAME] [--game FILE] [--thinking-time MS]";
// As the Options menu's choices reach: half a second to ten.
constexpr int kFewestThinkingMs = 500;
constexpr int kMostThinkingMs = 10000;
constexpr const char* kJoinUsage = "join [--address A] [--port P] [--name NAME]";

std::string Trimmed(const std::string& text) {
  std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// As the connect dialog: the name and the address are trimmed and must not
// be empty.
NodeSettings ReadSettings(const Options& options, bool host, const std::string& usageLine) {
  if (!options.positional.empty()) Usage(usageLine);
  NodeSettings settings;
  settings.host = host;
  settings.port =
      ParseBetween(options.Value("port", std::to_string(net::kDefaultPort)), 1, 65535, usageLine);
  settings.name = Trimmed(options.Value("name", host ? "Host" : "Player"));
  settings.address = Trimmed(options.Value("address", net::kDefaultHost));
  settings.gameFile = options.Value("game");
  if (options.Has("thinking-time"))
    settings.thinkingTimeMs =
        ParseBetween(options.Value("thinking-time"), kFewestThinkingMs, kMostThinkingMs, usageLine);
  if (settings.name.empty() || settings.address.empty()) Usage(usageLine);
  return settings;
}

}  // namespace

int CmdHost(const Args& args) {
  return RunNode(
      ReadSettings(ParseOptions(args, {"port", "name", "game", "thinking-time"}, {}, kHostUsage),
                   true, kHostUsage));
}

int CmdJoin(const Args& args) {
  return RunNode(ReadSettings(ParseOptions(args, {"address", "port", "name"}, {}, kJoinUsage),
                              false, kJoinUsage));
}

}  // namespace varkesh::cli
