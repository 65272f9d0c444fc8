// The start position: the records of the pack's "newgamedata" entry, and the
// fixed terrain and realms of the board.
#pragma once

#include <istream>
#include <string>

#include "core/geometry.h"
#include "core/position.h"

namespace varkesh {

// Sets terrain and realm of every square; pieces are left as they are.
void LayOutTerrain(Board& board);

// The board of the records: their pieces on a fresh terrain. A malformed
// record throws std::runtime_error naming its line.
Board LoadNewGameData(std::istream& records);
// The same from a file; a file that cannot be opened throws as well.
Board LoadNewGameDataFile(const std::string& path);

// A game at its start on that board: round 1, White on turn.
Position StartPosition(const Board& board, int gameType, int kingCaptureRule = kKingdomGained);

}  // namespace varkesh
