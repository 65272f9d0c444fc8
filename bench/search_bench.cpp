// The searching computer's speed: nodes a second in a midgame of each game
// type, and the depth it finishes in one second from the start of game type 1.
#include <benchmark/benchmark.h>

#include "ai/search/levels.h"
#include "ai/search/search.h"
#include "core/apply_move.h"
#include "core/new_game_data.h"

namespace varkesh {
namespace {

Position StartPosition(int gameType) {
  return varkesh::StartPosition(LoadNewGameDataFile(VARKESH_PACK_DIR "/newgamedata.txt"), gameType);
}

// Four rounds of the Club against itself: pieces out, nothing settled.
Position Midgame(int gameType) {
  Position position = StartPosition(gameType);
  search::Searcher searcher(4);
  search::SearchLimits limits;
  limits.nodes = 20000;
  for (int ply = 0; ply < 16 && !position.Finished(); ++ply) {
    const search::SearchResult result =
        searcher.Think(position, LevelSettings(kLevelClub, kBalanced, limits));
    if (!result.found) break;
    ApplyMove(position, result.best);
  }
  return position;
}

void BM_SearchMidgame(benchmark::State& state) {
  const Position position = Midgame(static_cast<int>(state.range(0)));
  search::SearchLimits limits;
  limits.nodes = 300000;
  std::uint64_t nodes = 0;
  for (auto _ : state) {
    search::Searcher searcher(16);
    const search::SearchResult result =
        searcher.Think(position, LevelSettings(kLevelMaster, kBalanced, limits));
    nodes += result.nodes;
    benchmark::DoNotOptimize(result.best);
  }
  state.counters["nodes/s"] =
      benchmark::Counter(static_cast<double>(nodes), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_SearchMidgame)
    ->Arg(kAlliedNeighbors)
    ->Arg(kCrossroadAllies)
    ->Arg(kAnarchy)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

void BM_DepthInOneSecond(benchmark::State& state) {
  const Position position = StartPosition(kAlliedNeighbors);
  search::SearchLimits limits;
  limits.movetimeMs = 1000;
  int depth = 0;
  std::uint64_t nodes = 0;
  for (auto _ : state) {
    search::Searcher searcher(16);
    const search::SearchResult result =
        searcher.Think(position, LevelSettings(kLevelMaster, kBalanced, limits));
    depth = result.depth;
    nodes += result.nodes;
  }
  state.counters["depth"] = depth;
  state.counters["nodes/s"] =
      benchmark::Counter(static_cast<double>(nodes), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_DepthInOneSecond)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
}  // namespace varkesh

BENCHMARK_MAIN();
