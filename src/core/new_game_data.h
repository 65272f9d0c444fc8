// The start position: the records of the pack's "newgamedata" entry, and the
// fixed terrain and realms of the board.
#pragma once

#include <istream>
#include <string>

#include "core/game.h"

namespace varkesh {

// Whether (x, y) lies on the playable diamond.
bool OnDiamond(int x, int y);

// Sets terrain and realm of every square; pieces are left as they are.
void LayOutTerrain(Board& board);

// Replaces game.board by the pieces of the records on a fresh terrain.
// A malformed record throws std::runtime_error naming its line; the board is
// then left as it was.
void LoadNewGameData(Game& game, std::istream& records);
// The same from a file; a file that cannot be opened throws as well.
void LoadNewGameDataFile(Game& game, const std::string& path);

}  // namespace varkesh
