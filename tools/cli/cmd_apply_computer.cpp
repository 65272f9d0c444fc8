#include <algorithm>

#include "cli.h"
#include "core/rules.h"
#include "flow/accept_move.h"
#include "load_for_play.h"

namespace varkesh::cli {

namespace {

constexpr const char* kUsage = "apply --computer FILE FX FY TX TY";

}  // namespace

int CmdApplyComputer(const Args& args) {
  const Options options = ParseOptions(args, {}, {"computer"}, kUsage);
  if (options.positional.size() != 5) Usage(kUsage);
  const int fromX = ParseInt(options.positional[1], kUsage);
  const int fromY = ParseInt(options.positional[2], kUsage);
  const int toX = ParseInt(options.positional[3], kUsage);
  const int toY = ParseInt(options.positional[4], kUsage);

  ToolOutside outside;
  UseToolFolder(outside);
  Game game = LoadForPlay(options.positional[0], outside);
  game.net.netRole = kNetNone;
  if (!IsListedMove(game.match.position, fromX, fromY, toX, toY))
    BadInput("varkesh-cli: " + std::string(TeamName(game.match.position.currentTeam)) +
             " has no move from (" + std::to_string(fromX) + ", " + std::to_string(fromY) +
             ") to (" + std::to_string(toX) + ", " + std::to_string(toY) + ")");
  game.turn.moveFromX = fromX;
  game.turn.moveFromY = fromY;
  game.turn.moveToX = toX;
  game.turn.moveToY = toY;
  CarryOutAImove(game, outside);
  PrintGame(game);
  return 0;
}

}  // namespace varkesh::cli
