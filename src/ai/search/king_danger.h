// Whether a King stands where a hostile piece could take it on its team's
// next turn: the search does not pass its turn then.
#pragma once

#include "core/position.h"

namespace varkesh::search {

bool KingAttacked(const Position& position, int team);

}  // namespace varkesh::search
