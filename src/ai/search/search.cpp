#include "ai/search/search.h"

#include <memory>

#include "ai/search/node_search.h"

namespace varkesh::search {

namespace {

// A deeper search is begun only while less than this share of the time has
// gone. One cut short still counts: its first move is the last depth's best,
// and any move that beat it was searched in full.
constexpr double kDeeperWhileUsed = 0.6;

SearchResult Deepen(NodeSearch& tree, const SearchSettings& settings, const InfoCallback& onInfo) {
  SearchResult result;
  // Should the first depth not finish, the likeliest capture stands.
  result.found = tree.FirstGuess(result.best);
  if (!result.found) return result;

  const SearchLimits& limits = settings.limits;
  const int maxDepth = limits.depth > 0 && limits.depth < kMaxDepth ? limits.depth : kMaxDepth;
  for (int depth = 1; depth <= maxDepth; ++depth) {
    bool finished = true;
    try {
      tree.SearchRoot(depth);
    } catch (const SearchAborted&) {
      finished = false;
    }
    if (tree.RootHasBest()) {
      result.best = tree.RootBest();
      result.score = tree.RootScore();
    }
    if (!finished) break;
    result.depth = depth;
    if (onInfo) {
      SearchInfo info;
      info.depth = depth;
      info.score = result.score;
      info.nodes = tree.Nodes();
      info.seconds = tree.Seconds();
      info.pv = tree.PrincipalVariation();
      onInfo(info);
    }
    if (result.score > kWinBound || result.score < -kWinBound) break;
    if (limits.movetimeMs > 0 && tree.Seconds() * 1000.0 > kDeeperWhileUsed * limits.movetimeMs)
      break;
  }
  result.nodes = tree.Nodes();
  result.seconds = tree.Seconds();
  return result;
}

}  // namespace

SearchResult Searcher::Think(const Position& position, const SearchSettings& settings,
                             const InfoCallback& onInfo, const std::atomic<bool>* stop) {
  table_.NewSearch();
  auto tree = std::make_unique<NodeSearch>(position, settings, table_, stop);
  return Deepen(*tree, settings, onInfo);
}

}  // namespace varkesh::search
