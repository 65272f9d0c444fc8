// The computer's pawn in a keep: a fixed order, no scores and no chance, so
// that every machine of a session makes the same choice.
#include "ai/computer.h"
#include "core/dungeon.h"
#include "core/pawn_options.h"
#include "core/rules.h"

namespace varkesh {
namespace {

// Not the order of the values: Kings are never taken this way, Pawns never held.
constexpr int kRaidOrder[] = {kQueen, kBishop, kRook, kKnight, kCastlePawn};

// The first piece of the kind that stands in its own team's keep, an enemy's:
// a keep just gained by taking its King holds the mover's own pieces.
Square* FindTarget(Game& game, const KeepArea& area, int kind, int mover) {
  for (int y = area.y0; y <= area.y1; ++y)
    for (int x = area.x0; x <= area.x1; ++x) {
      Square& square = game.board.at(x, y);
      if (square.piece == kind && square.team == square.realm &&
          IsHostile(game.gameType, mover, square.team))
        return &square;
    }
  return nullptr;
}

bool TakeKeepPiece(Game& game, Outside& outside, Square& pawn) {
  const KeepArea area = KeepAround(game.moveToX, game.moveToY);
  for (int kind : kRaidOrder) {
    Square* target = FindTarget(game, area, kind, pawn.team);
    if (target == nullptr) continue;
    AddPieceToDungeon(game, pawn.team, target->team, target->piece);
    target->team = kNoTeam;
    target->piece = kNoPiece;
    pawn.team = kNoTeam;
    pawn.piece = kNoPiece;
    PlaySfx(outside, "sfx_capturequeen");
    return true;
  }
  return false;
}

// Frees one of the mover's own pieces from the keep owner's dungeon.
void FreePrisoner(Game& game, Outside& outside, Square& pawn) {
  const int holder = pawn.realm;
  const int h = TeamIndex(holder);
  if (h < 0) return;
  const Dungeon& dungeon = game.dungeons[static_cast<std::size_t>(h)];
  for (int kind : kRaidOrder) {
    for (const DungeonPiece& prisoner : dungeon.prisoners) {
      if (prisoner.piece != kind || prisoner.team != game.currentTeam) continue;
      const DungeonPiece freed = prisoner;
      pawn.team = freed.team;
      pawn.piece = freed.piece;
      RemovePieceFromDungeon(game, holder, freed.team, freed.piece);
      PlaySfx(outside, "sfx_newgame");
      return;
    }
  }
}

}  // namespace

void AIpawnOptions(Game& game, Outside& outside) {
  if (!Board::InBounds(game.moveToX, game.moveToY)) return;
  Square& pawn = game.board.at(game.moveToX, game.moveToY);
  // With nothing to take or free the pawn simply stays.
  if (!TakeKeepPiece(game, outside, pawn)) FreePrisoner(game, outside, pawn);
}

}  // namespace varkesh
