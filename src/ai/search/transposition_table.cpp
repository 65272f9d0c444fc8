#include "ai/search/transposition_table.h"

#include "ai/search/evaluation.h"

namespace varkesh::search {

TranspositionTable::TranspositionTable(int megabytes) {
  std::size_t count = 1;
  const std::size_t wanted =
      static_cast<std::size_t>(megabytes > 0 ? megabytes : 1) * 1024 * 1024 / sizeof(TableEntry);
  while (count * 2 <= wanted) count *= 2;
  entries_.resize(count);
  mask_ = count - 1;
}

const TableEntry* TranspositionTable::Probe(std::uint64_t key) const {
  const TableEntry& entry = entries_[key & mask_];
  return entry.bound != Bound::None && entry.key == key ? &entry : nullptr;
}

void TranspositionTable::Store(std::uint64_t key, const Move& move, int score, int depth,
                               Bound bound) {
  TableEntry& entry = entries_[key & mask_];
  if (entry.key != key && entry.age == age_ && entry.depth > depth && entry.bound != Bound::None)
    return;
  // A bound with no move keeps the move already known for this position.
  const Move kept = entry.key == key && move == Move{} ? entry.move : move;
  entry = {key, kept, score, static_cast<std::int16_t>(depth), bound, age_};
}

void TranspositionTable::Clear() {
  for (TableEntry& entry : entries_) entry = {};
}

int ScoreToTable(int score, int ply) {
  if (score > kWinBound) return score + ply;
  if (score < -kWinBound) return score - ply;
  return score;
}

int ScoreFromTable(int score, int ply) {
  if (score > kWinBound) return score - ply;
  if (score < -kWinBound) return score + ply;
  return score;
}

}  // namespace varkesh::search
