#include "core/computer_pawn_option.h"

#include "core/alliances.h"
#include "core/pawn_options.h"

namespace varkesh {

namespace {

// Not the order of the values: Kings are never taken this way, Pawns never held.
constexpr int kRaidOrder[] = {kQueen, kBishop, kRook, kKnight, kCastlePawn};

}  // namespace

ComputerPawnChoice ChooseComputerPawnOption(const Position& position, int toX, int toY) {
  ComputerPawnChoice choice;
  if (!Board::InBounds(toX, toY)) return choice;
  const Square& pawn = position.board.at(toX, toY);
  // A piece of the keep's owner at home, an enemy's: a keep just gained by
  // taking its King holds the mover's own pieces.
  const KeepArea area = KeepAround(toX, toY);
  for (int kind : kRaidOrder) {
    for (int y = area.y0; y <= area.y1; ++y) {
      for (int x = area.x0; x <= area.x1; ++x) {
        const Square& square = position.board.at(x, y);
        if (square.piece == kind && square.team == square.realm &&
            IsHostile(position.gameType, pawn.team, square.team))
          return {true, x, y, 0};
      }
    }
  }
  const int holder = TeamIndex(pawn.realm);
  if (holder < 0) return choice;
  const auto& prisoners = position.dungeons[static_cast<std::size_t>(holder)].prisoners;
  for (int kind : kRaidOrder) {
    for (int i = 1; i <= prisoners.Count(); ++i) {
      if (prisoners[i].piece == kind && prisoners[i].team == position.currentTeam)
        return {false, 0, 0, i};
    }
  }
  return choice;
}

}  // namespace varkesh
