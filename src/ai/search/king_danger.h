// Whether a King stands where a hostile piece could take it on its team's
// next turn: the search does not pass its turn then.
#pragma once

#include "core/position.h"

namespace varkesh::search {

// Exact: some hostile piece has the King's square among its moves.
bool KingAttacked(const Position& position, int team);

// Quick and on the safe side: looks outward from the King for a hostile
// piece that could reach it, ignoring what moats do to sliders and where
// pawns stand, so it may say yes where the rules say no, never the reverse.
bool KingMayBeAttacked(const Position& position, int team);

}  // namespace varkesh::search
