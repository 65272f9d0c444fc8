// The speed of the rules: counting the tree of branches, with the last ply
// counted in bulk (the move generator alone) and with every leaf played and
// taken back (generating, playing and undoing).
#include <benchmark/benchmark.h>

#include <cstdint>
#include <sstream>

#include "core/new_game_data.h"
#include "core/perft.h"

namespace varkesh {
namespace {

// Anarchy, 58 pieces a hundred plies into a seeded random game: most pieces
// are out, the sliders have long rays, and only Black keeps its castle move.
constexpr const char* kMidgameRecords =
    "KC,8,0,KN,7,1,KK,8,1,KB,9,1,KR,6,2,KN,9,2,KR,10,2,KP,6,3,KP,6,4,KP,8,4,KP,9,4,KP,11,4,"
    "KP,5,5,KP,8,5,RQ,12,5,BQ,13,5,BR,2,6,BP,3,6,KB,7,6,BB,8,6,RP,11,6,BN,2,7,BP,3,7,BP,4,7,"
    "RN,15,7,BC,0,8,BB,1,8,BP,4,8,RB,5,8,WR,8,8,RP,11,8,RP,12,8,RP,13,8,RR,14,8,RC,15,8,"
    "RK,16,8,BN,3,9,BK,4,9,RB,15,9,BR,2,10,BP,3,10,WP,12,10,RP,13,10,BP,3,11,WP,5,11,WP,7,11,"
    "WQ,10,11,WP,5,12,WP,6,12,WB,7,12,RP,12,12,WN,5,13,WP,9,13,WR,6,14,WB,7,15,WC,8,15,"
    "WN,9,15,WK,8,16";

Position StartPosition() {
  return varkesh::StartPosition(LoadNewGameDataFile(VARKESH_PACK_DIR "/newgamedata.txt"), kAnarchy);
}

Position CrowdedMidgame() {
  Position position;
  position.gameType = kAnarchy;
  position.castleRight = {false, false, true, false};
  std::istringstream records(kMidgameRecords);
  position.board = LoadNewGameData(records);
  position.Refresh();
  return position;
}

template <std::uint64_t (*Count)(Position&, int)>
void CountTree(benchmark::State& state, Position position) {
  const int depth = static_cast<int>(state.range(0));
  std::uint64_t nodes = 0;
  for (auto _ : state) {
    const std::uint64_t counted = Count(position, depth);
    benchmark::DoNotOptimize(counted);
    nodes += counted;
  }
  state.counters["nodes/s"] =
      benchmark::Counter(static_cast<double>(nodes), benchmark::Counter::kIsRate);
  state.counters["nodes"] = static_cast<double>(nodes) / static_cast<double>(state.iterations());
}

void BM_PerftStart(benchmark::State& state) {
  CountTree<Perft>(state, StartPosition());
}
BENCHMARK(BM_PerftStart)->Arg(5)->Unit(benchmark::kMillisecond);

void BM_PerftPlayingLeavesStart(benchmark::State& state) {
  CountTree<PerftPlayingLeaves>(state, StartPosition());
}
BENCHMARK(BM_PerftPlayingLeavesStart)->Arg(5)->Unit(benchmark::kMillisecond);

void BM_PerftMidgame(benchmark::State& state) {
  CountTree<Perft>(state, CrowdedMidgame());
}
BENCHMARK(BM_PerftMidgame)->Arg(4)->Unit(benchmark::kMillisecond);

void BM_PerftPlayingLeavesMidgame(benchmark::State& state) {
  CountTree<PerftPlayingLeaves>(state, CrowdedMidgame());
}
BENCHMARK(BM_PerftPlayingLeavesMidgame)->Arg(4)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace varkesh

BENCHMARK_MAIN();
