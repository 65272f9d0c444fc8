// The searching computer: iterative deepening over an alpha-beta search of
// the two sides of the game (in Anarchy the lone team against the best
// reply of the three others), with a transposition table, quiescence over
// captures, null moves and late move reductions.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <vector>

#include "ai/search/transposition_table.h"
#include "core/move.h"
#include "core/position.h"

namespace varkesh::search {

inline constexpr int kMaxDepth = 64;

// 0 for no limit of that kind; with none at all the search stops at kMaxDepth.
// A search limited by depth or nodes alone plays the same move every time.
struct SearchLimits {
  int depth = 0;
  std::uint64_t nodes = 0;
  int movetimeMs = 0;
};

struct SearchSettings {
  int personality = kBalanced;
  SearchLimits limits;
  bool nullMove = true;
  bool reductions = true;
  // Positions the game has already passed through: reaching one again in
  // the tree is no progress.
  std::vector<std::uint64_t> seenKeys;
};

// What one finished depth found, for a progress line.
struct SearchInfo {
  int depth = 0;
  int score = 0;  // from the searching team's side
  std::uint64_t nodes = 0;
  double seconds = 0.0;
  std::vector<Move> pv;
};

struct SearchResult {
  bool found = false;  // false: the team on turn has no move
  Move best;
  int score = 0;
  int depth = 0;
  std::uint64_t nodes = 0;
  double seconds = 0.0;
};

using InfoCallback = std::function<void(const SearchInfo&)>;

// A searcher keeps its table from move to move.
class Searcher {
 public:
  explicit Searcher(int tableMegabytes = 16) : table_(tableMegabytes) {}
  // Searches for the team on turn of position. stop, when given, ends the
  // search at once from another thread; the best move found so far stands.
  SearchResult Think(const Position& position, const SearchSettings& settings,
                     const InfoCallback& onInfo = {}, const std::atomic<bool>* stop = nullptr);
  void ClearTable() { table_.Clear(); }

 private:
  TranspositionTable table_;
};

}  // namespace varkesh::search
