// What the search has learnt of positions it met before: a score with its
// depth and bound, and the best move, in a table of fixed size.
#pragma once

#include <cstdint>
#include <vector>

#include "core/move.h"

namespace varkesh::search {

enum class Bound : std::uint8_t { None, Upper, Lower, Exact };

struct TableEntry {
  std::uint64_t key = 0;
  Move move;
  std::int32_t score = 0;
  std::int16_t depth = 0;
  Bound bound = Bound::None;
  std::uint8_t age = 0;
};

class TranspositionTable {
 public:
  explicit TranspositionTable(int megabytes = 16);
  // The entry for key, or null.
  const TableEntry* Probe(std::uint64_t key) const;
  // Replaces an entry of another key only when it is older or shallower.
  void Store(std::uint64_t key, const Move& move, int score, int depth, Bound bound);
  void NewSearch() { ++age_; }
  void Clear();

 private:
  std::vector<TableEntry> entries_;
  std::uint64_t mask_ = 0;
  std::uint8_t age_ = 0;
};

// Win scores count plies from the root; the table keeps them from the node.
int ScoreToTable(int score, int ply);
int ScoreFromTable(int score, int ply);

}  // namespace varkesh::search
