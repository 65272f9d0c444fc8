#include "core/perft.h"

#include <vector>

#include "core/apply_move.h"
#include "core/rules.h"

namespace varkesh {

namespace {

// One list and one undo a ply, made once for the whole count.
struct Frame {
  MoveList moves;
  Undo undo;
};

std::uint64_t Count(Position& position, int depth, bool bulk, Frame* frames) {
  if (depth == 0) return 1;
  if (bulk && depth == 1) return static_cast<std::uint64_t>(CountBranches(position));
  Frame& frame = frames[0];
  ListBranches(position, frame.moves);
  std::uint64_t nodes = 0;
  for (const Move& move : frame.moves) {
    ApplyMove(position, move, &frame.undo);
    nodes += Count(position, depth - 1, bulk, frames + 1);
    UndoMove(position, move, frame.undo);
  }
  return nodes;
}

std::uint64_t Run(Position& position, int depth, bool bulk) {
  if (depth <= 0) return 1;
  std::vector<Frame> frames(static_cast<std::size_t>(depth));
  return Count(position, depth, bulk, frames.data());
}

}  // namespace

std::uint64_t Perft(Position& position, int depth) {
  return Run(position, depth, true);
}

std::uint64_t PerftPlayingLeaves(Position& position, int depth) {
  return Run(position, depth, false);
}

}  // namespace varkesh
