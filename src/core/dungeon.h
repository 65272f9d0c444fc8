// Prisoners: captured pieces kept in the captor's dungeon.
#pragma once

#include "core/position.h"

namespace varkesh {

void AddPieceToDungeon(Position& position, int captorTeam, int pieceTeam, int pieceKind);
// Removes the earliest equal prisoner, if the dungeon holds one; its index, or 0.
int RemovePieceFromDungeon(Position& position, int captorTeam, int pieceTeam, int pieceKind);

}  // namespace varkesh
