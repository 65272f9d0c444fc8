#include <algorithm>

#include "ai/computer.h"
#include "cli.h"
#include "core/rules.h"
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

  HeadlessOutside outside;
  UseToolFolder(outside);
  Game game = LoadForPlay(options.positional[0], outside);
  game.netRole = kNetNone;
  if (!IsListedMove(game, fromX, fromY, toX, toY))
    BadInput("varkesh-cli: " + std::string(TeamName(game.currentTeam)) + " has no move from (" +
             std::to_string(fromX) + ", " + std::to_string(fromY) + ") to (" + std::to_string(toX) +
             ", " + std::to_string(toY) + ")");
  game.moveFromX = fromX;
  game.moveFromY = fromY;
  game.moveToX = toX;
  game.moveToY = toY;
  CarryOutAImove(game, outside);
  PrintGame(game);
  return 0;
}

}  // namespace varkesh::cli
