#include <algorithm>

#include "cli.h"
#include "core/resign.h"
#include "flow/resign.h"
#include "load_for_play.h"

namespace varkesh::cli {

namespace {

constexpr const char* kUsage = "resign FILE [--to TEAM] [--no]";

}  // namespace

int CmdResign(const Args& args) {
  Options options = ParseOptions(args, {"to"}, {"no"}, kUsage);
  if (options.positional.size() != 1) Usage(kUsage);
  int concedeTeam = options.Has("to") ? ParseInt(options.Value("to"), kUsage) : kNoTeam;

  ToolOutside outside;
  UseToolFolder(outside);
  Game game = LoadForPlay(options.positional[0], outside);
  if (game.match.position.kingCaptureRule == kKingdomGained && options.Has("to")) {
    std::vector<int> offers = ConcedeOffers(game.match.position);
    if (std::find(offers.begin(), offers.end(), concedeTeam) == offers.end())
      BadInput("varkesh-cli: " + std::string(TeamName(game.match.position.currentTeam)) +
               " cannot concede to team " + std::to_string(concedeTeam));
    outside.concedePicks.push_back(concedeTeam);
  }
  outside.yesNoAnswers.push_back(!options.Has("no"));
  DoResign(game, outside, -1);
  PrintGame(game);
  return 0;
}

}  // namespace varkesh::cli
