#include "core/dungeon.h"

namespace varkesh {

void AddPieceToDungeon(Position& position, int captorTeam, int pieceTeam, int pieceKind) {
  int index = TeamIndex(captorTeam);
  if (index < 0) return;  // no team, no dungeon
  position.dungeons[static_cast<std::size_t>(index)].prisoners.Add(
      {static_cast<std::int8_t>(pieceTeam), static_cast<std::int8_t>(pieceKind)});
}

int RemovePieceFromDungeon(Position& position, int captorTeam, int pieceTeam, int pieceKind) {
  int index = TeamIndex(captorTeam);
  if (index < 0) return 0;
  auto& prisoners = position.dungeons[static_cast<std::size_t>(index)].prisoners;
  for (int i = 1; i <= prisoners.Count(); ++i) {
    if (prisoners[i].team == pieceTeam && prisoners[i].piece == pieceKind) {
      prisoners.RemoveAt(i);
      return i;
    }
  }
  return 0;
}

}  // namespace varkesh
