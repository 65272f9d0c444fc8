// Keys of positions for the transposition table: every piece on its square,
// the prisoners of each dungeon, castle rights, fallen kingdoms and the team
// on turn.
#pragma once

#include <cstdint>
#include <vector>

#include "core/position.h"
#include "core/record.h"

namespace varkesh::search {

std::uint64_t PositionKey(const Position& position);

// The key of every position the game of record has stood in, its start and
// the present one included.
std::vector<std::uint64_t> RecordKeys(const Record& record);

}  // namespace varkesh::search
