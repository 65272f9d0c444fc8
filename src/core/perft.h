// Counting the tree of moves to a depth: the regression anchor of the rules
// and the measure of their speed.
#pragma once

#include <cstdint>

#include "core/position.h"

namespace varkesh {

// perft(P, 0) = 1; perft(P, d) = the sum of perft(child, d - 1) over the
// branches of P (ListBranches). The last ply is counted without playing it.
std::uint64_t Perft(Position& position, int depth);
// The same, playing every leaf: the measure of playing and taking back.
std::uint64_t PerftPlayingLeaves(Position& position, int depth);

}  // namespace varkesh
