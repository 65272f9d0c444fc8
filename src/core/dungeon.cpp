#include "core/dungeon.h"

namespace varkesh {

void AddPieceToDungeon(Game& game, int captorTeam, int pieceTeam, int pieceKind) {
  int index = TeamIndex(captorTeam);
  if (index < 0) return;  // no team, no dungeon
  game.dungeons[static_cast<std::size_t>(index)].prisoners.Add({pieceTeam, pieceKind});
}

void RemovePieceFromDungeon(Game& game, int captorTeam, int pieceTeam, int pieceKind) {
  int index = TeamIndex(captorTeam);
  if (index < 0) return;
  OneBasedList<DungeonPiece>& prisoners = game.dungeons[static_cast<std::size_t>(index)].prisoners;
  for (int i = 1; i <= prisoners.Count(); ++i) {
    if (prisoners[i] == DungeonPiece{pieceTeam, pieceKind}) {
      prisoners.RemoveAt(i);
      return;
    }
  }
}

}  // namespace varkesh
