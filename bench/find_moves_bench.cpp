// FindMoves without marks or lists, the way the computer asks it most often.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <sstream>
#include <vector>

#include "core/new_game_data.h"
#include "core/rules.h"

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

std::vector<BoardSquare> LivePieces(const Game& game) {
  std::vector<BoardSquare> pieces;
  for (int y = 0; y < kBoardSide; ++y)
    for (int x = 0; x < kBoardSide; ++x)
      if (game.match.position.board.at(x, y).piece > 0) pieces.push_back({x, y});
  return pieces;
}

void FindMovesOfEveryPiece(benchmark::State& state, Game& game) {
  const std::vector<BoardSquare> pieces = LivePieces(game);
  std::int64_t destinations = 0;
  for (auto _ : state) {
    for (const BoardSquare& piece : pieces) {
      int found = FindMoves(game, piece.x, piece.y, false, false);
      benchmark::DoNotOptimize(found);
      destinations += found;
    }
  }
  state.counters["destinations"] =
      benchmark::Counter(static_cast<double>(destinations), benchmark::Counter::kIsRate);
  state.counters["pieces"] = benchmark::Counter(
      static_cast<double>(state.iterations() * static_cast<std::int64_t>(pieces.size())),
      benchmark::Counter::kIsRate);
}

void BM_FindMovesStartPosition(benchmark::State& state) {
  Game game;
  game.match.position.gameType = kAnarchy;
  LoadNewGameDataFile(game, VARKESH_PACK_DIR "/newgamedata.txt");
  FindMovesOfEveryPiece(state, game);
}
BENCHMARK(BM_FindMovesStartPosition);

void BM_FindMovesMidgame(benchmark::State& state) {
  Game game;
  game.match.position.gameType = kAnarchy;
  game.match.position.castleRight = {false, false, true, false};
  std::istringstream records(kMidgameRecords);
  LoadNewGameData(game, records);
  FindMovesOfEveryPiece(state, game);
}
BENCHMARK(BM_FindMovesMidgame);

}  // namespace
}  // namespace varkesh

BENCHMARK_MAIN();
