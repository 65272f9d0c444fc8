// Prisoners: captured pieces kept in the captor's dungeon.
#pragma once

#include "core/game.h"

namespace varkesh {

void AddPieceToDungeon(Game& game, int captorTeam, int pieceTeam, int pieceKind);
// Removes the earliest equal prisoner, if the dungeon holds one.
void RemovePieceFromDungeon(Game& game, int captorTeam, int pieceTeam, int pieceKind);

}  // namespace varkesh
