// Keys of positions for the transposition table: every piece on its square,
// the prisoners of each dungeon, castle rights, fallen kingdoms and the team
// on turn.
#pragma once

#include <cstdint>

#include "core/position.h"

namespace varkesh::search {

std::uint64_t PositionKey(const Position& position);

}  // namespace varkesh::search
