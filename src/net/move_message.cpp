#include "net/move_message.h"

#include "core/pawn_options.h"
#include "net/wire.h"

namespace varkesh::net {

std::string MoveMessage(const MoveEffects& effects) {
  switch (effects.pawn) {
    case PawnOutcome::CapturedInKeep:
      return NumberMessage("GAMV", {kMoveCaptureInKeep, effects.optionX, effects.optionY});
    case PawnOutcome::Freed:
      return NumberMessage("GAMV", {kMoveFreePrisoner, effects.optionIndex, 0});
    default:
      return NumberMessage("GAMV", {kMovePlain, 0, 0});
  }
}

std::optional<Move> MoveOfMessage(const Game& game, int kind, int argA, int argB) {
  const TurnState& turn = game.turn;
  Move move = Move::Of(turn.moveFromX, turn.moveFromY, turn.moveToX, turn.moveToY);
  const MoveOptions options = PawnOptionsOfMove(game.match.position, turn.moveFromX, turn.moveFromY,
                                                turn.moveToX, turn.moveToY);
  const std::vector<PawnOption>& lines = options.options;
  if (kind == kMovePlain) {
    move.option = static_cast<std::int16_t>(lines.empty() ? kOptionNone : kOptionClosed);
    return move;
  }
  if (kind != kMoveCaptureInKeep && kind != kMoveFreePrisoner) return std::nullopt;
  for (std::size_t line = 0; line < lines.size(); ++line) {
    const PawnOption& option = lines[line];
    const bool onBoard = kind == kMoveCaptureInKeep;
    if (option.onBoard == onBoard && option.argA == argA && (!onBoard || option.argB == argB)) {
      move.option = static_cast<std::int16_t>(line);
      return move;
    }
  }
  return std::nullopt;
}

}  // namespace varkesh::net
