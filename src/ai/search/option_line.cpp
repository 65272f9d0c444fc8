#include "ai/search/option_line.h"

#include "core/apply_move.h"
#include "core/pawn_options.h"

namespace varkesh {

int ComputerOptionLine(const Position& position, const Move& move) {
  const MoveOptions options =
      PawnOptionsOfMove(position, move.fromX, move.fromY, move.toX, move.toY);
  const int lines = static_cast<int>(options.options.size());
  if (lines == 0) return kOptionNone;
  Position byRule = position;
  ApplyMove(byRule, Move::Of(move.fromX, move.fromY, move.toX, move.toY, kOptionComputer));
  for (int line = 0; line < lines; ++line) {
    Position byLine = position;
    ApplyMove(byLine, Move::Of(move.fromX, move.fromY, move.toX, move.toY, line));
    if (byLine == byRule) return line;
  }
  return kOptionClosed;
}

}  // namespace varkesh
