// One ply of the search: its moves with their order and movers, and the
// undo of the one being played. In Anarchy the three other teams' replies
// are pooled into one ply, so each move carries the team that makes it.
#pragma once

#include <array>
#include <cstdint>

#include "ai/search/move_order.h"
#include "ai/search/sides.h"
#include "core/apply_move.h"
#include "core/move.h"
#include "core/position.h"

namespace varkesh::search {

struct Frame {
  MoveList moves;
  MoveList scratch;
  std::array<int, kMaxMoves> order;
  std::array<std::int8_t, kMaxMoves> movers;
  int savedTeam = kNoTeam;
  Undo undo;
};

// The moves of the team on turn; when pooled, those of every standing team
// of side 1. tacticalOnly keeps captures and the lines of a pawn's options.
void GenerateMoves(Position& position, const Sides& sides, bool pooled, bool tacticalOnly,
                   Frame& frame);

// Brings the best-ordered of the moves from i on to place i.
void PickNext(Frame& frame, int i);

}  // namespace varkesh::search
