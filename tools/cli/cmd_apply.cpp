#include <algorithm>

#include "cli.h"
#include "flow/main_loop.h"
#include "flow/turn.h"
#include "load_for_play.h"

namespace varkesh::cli {

namespace {

constexpr const char* kUsage = "apply FILE FX FY TX TY [--option K]";

BoardSquare ParseSquare(const std::string& x, const std::string& y) {
  return {ParseInt(x, kUsage), ParseInt(y, kUsage)};
}

int MarkOf(const Game& game, BoardSquare square) {
  return game.view.MarkAt(square.x, square.y);
}

// One pass of the loop after a click, as the window reports it.
void Click(Game& game, ToolOutside& outside, BoardSquare square, bool left) {
  game.view.clickPending = true;
  game.view.clickX = square.x;
  game.view.clickY = square.y;
  game.view.clickLeft = left;
  game.view.clickRight = !left;
  GameView headless;
  RunPass(game, outside, headless);
}

}  // namespace

int CmdApply(const Args& args) {
  if (std::find(args.begin(), args.end(), "--computer") != args.end())
    return CmdApplyComputer(args);
  Options options = ParseOptions(args, {"option"}, {}, kUsage);
  if (options.positional.size() != 5) Usage(kUsage);
  BoardSquare from = ParseSquare(options.positional[1], options.positional[2]);
  BoardSquare to = ParseSquare(options.positional[3], options.positional[4]);
  int optionLine = -1;
  if (options.Has("option")) {
    optionLine = ParseInt(options.Value("option"), kUsage);
    if (optionLine < 0) Usage(kUsage);
  }

  ToolOutside outside;
  UseToolFolder(outside);
  Game game = LoadForPlay(options.positional[0], outside);
  game.net.netRole = kNetNone;
  // The human selection, whoever holds the seat.
  MarkMoveablePieces(game, true);
  game.turn.gameMode = ModeChoosePiece;
  if (MarkOf(game, from) != kMarkMoveable)
    BadInput("varkesh-cli: (" + std::to_string(from.x) + ", " + std::to_string(from.y) +
             ") holds no piece of " + TeamName(game.match.position.currentTeam) + " that can move");
  Click(game, outside, from, true);
  if (MarkOf(game, to) != kMarkDestination)
    BadInput("varkesh-cli: the piece on (" + std::to_string(from.x) + ", " +
             std::to_string(from.y) + ") cannot move to (" + std::to_string(to.x) + ", " +
             std::to_string(to.y) + ")");
  Click(game, outside, to, true);
  if (optionLine >= 0) outside.pawnOptionPicks.push_back(optionLine);
  Click(game, outside, to, false);
  FailOnReportedFault(outside);
  if (optionLine >= 0 && !outside.pawnOptionDialogs.empty() &&
      optionLine >= static_cast<int>(outside.pawnOptionDialogs.back().size()))
    BadInput("varkesh-cli: the pawn has no option " + std::to_string(optionLine));
  PrintGame(game);
  return 0;
}

}  // namespace varkesh::cli
