#include <sstream>

#include "cli.h"
#include "flow/new_game.h"
#include "load_for_play.h"

namespace varkesh::cli {

namespace {

constexpr const char* kUsage = "new [--type T] [--rule R] [--players a,b,c,d] [--name NAME]";

std::string Trimmed(const std::string& text) {
  std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

int CmdNew(const Args& args) {
  Options options = ParseOptions(args, {"type", "rule", "players", "name"}, {}, kUsage);
  if (!options.positional.empty()) Usage(kUsage);

  NewGameChoice choice;
  choice.accepted = true;
  choice.gameType = ParseBetween(options.Value("type", "1"), kAlliedNeighbors, kAnarchy, kUsage);
  choice.kingCaptureRule =
      ParseBetween(options.Value("rule", "1"), kKingdomGained, kKingdomFrozen, kUsage);
  choice.players = ParsePlayers(options.Value("players", "0,0,0,0"), kHuman, kUsage);
  // As in the dialog: the name is trimmed, and one of blanks only is refused.
  choice.name = Trimmed(options.Value("name", "Varkesh Game"));
  if (choice.name.empty()) Usage(kUsage);

  ToolOutside outside;
  UseToolFolder(outside);
  outside.newGameChoices.push_back(choice);
  Game game;
  NewGameCommand(game, outside);
  FailOnReportedFault(outside);
  PrintGame(game);
  return 0;
}

}  // namespace varkesh::cli
