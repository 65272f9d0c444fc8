// The computer opponent's cost: one turn at the start, one in a crowded
// midgame, and whole games of computer seats through the main loop's passes.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <new>
#include <string>

#include "ai/computer.h"
#include "core/new_game_data.h"
#include "core/quiet_outside.h"
#include "engine/general_engine.h"
#include "flow/main_loop.h"
#include "flow/new_game.h"

// Every heap allocation of the program is counted, to show what a turn costs.
namespace {
long allocations = 0;
}  // namespace

void* operator new(std::size_t size) {
  ++allocations;
  if (void* block = std::malloc(size == 0 ? 1 : size)) return block;
  throw std::bad_alloc();
}
void operator delete(void* block) noexcept {
  std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}

namespace varkesh {
namespace {

constexpr const char* kStartPosition = VARKESH_PACK_DIR "/newgamedata.txt";

// Answers every question at once and shows nothing: only the logic is timed.
class SilentOutside : public QuietOutside {
 public:
  NewGameChoice choice;

  bool AskYesNo(const std::string&, const std::string&) override { return true; }
  NewGameChoice RunNewGameDialog(const PerTeam<int>&, const std::string&) override {
    return choice;
  }
  int RunConcedeDialog(const std::vector<int>& teams) override {
    return teams.empty() ? 0 : teams.front();
  }
  std::string ExtractEntry(const std::string&) override { return kStartPosition; }
};

Game StartPosition() {
  Game game;
  game.match.position.gameType = kAnarchy;
  game.match.setup.playerKinds = {kAggressive, kBalanced, kDefensive, kBalanced};
  game.random.Seed(11);
  LoadNewGameDataFile(game, kStartPosition);
  return game;
}

// Fifteen rounds of a seeded game: pieces are out and lines open, few taken.
Game CrowdedMidgame() {
  Game game = StartPosition();
  SilentOutside outside;
  while (game.match.position.roundNumber <= 15) {
    const int chosen = GetAImove(game, outside);
    if (chosen == 0) break;
    const MoveRec move = game.moveList[chosen];
    game.turn.moveFromX = move.fromX;
    game.turn.moveFromY = move.fromY;
    game.turn.moveToX = move.toX;
    game.turn.moveToY = move.toY;
    CarryOutAImove(game, outside);
  }
  return game;
}

int LivePieces(const Game& game) {
  int live = 0;
  for (const Square& square : game.match.position.board.squares) live += square.piece > 0 ? 1 : 0;
  return live;
}

void TimeOneTurn(benchmark::State& state, const Game& position) {
  Game game = position;
  SilentOutside outside;
  GetAImove(game, outside);  // the lists grow to their size once
  const long before = allocations;
  for (auto _ : state) {
    benchmark::DoNotOptimize(GetAImove(game, outside));
  }
  state.counters["allocs/turn"] =
      static_cast<double>(allocations - before) / static_cast<double>(state.iterations());
  state.counters["moves"] = game.moveList.Count();
  state.counters["pieces"] = LivePieces(game);
}

void BM_GetAImoveStartPosition(benchmark::State& state) {
  TimeOneTurn(state, StartPosition());
}
BENCHMARK(BM_GetAImoveStartPosition)->Unit(benchmark::kMicrosecond);

void BM_GetAImoveCrowdedMidgame(benchmark::State& state) {
  TimeOneTurn(state, CrowdedMidgame());
}
BENCHMARK(BM_GetAImoveCrowdedMidgame)->Unit(benchmark::kMicrosecond);

// Whole games, New Game to the victory screen, at most 300 rounds each.
void BM_SelfPlayGames(benchmark::State& state) {
  SilentOutside outside;
  outside.choice = {
      true, kAnarchy, kKingdomLost, {kAggressive, kBalanced, kDefensive, kBalanced}, "Bench"};
  GameView view;
  std::uint64_t seed = 1;
  std::int64_t moves = 0;
  for (auto _ : state) {
    Game game;
    game.random.Seed(seed++);
    NewGameCommand(game, outside);
    while ((game.turn.gameMode == ModeComputerThinks || game.turn.gameMode == ModeComputerMoves) &&
           game.match.position.roundNumber <= 300) {
      moves += game.turn.gameMode == ModeComputerMoves ? 1 : 0;
      RunPass(game, outside, view);
    }
  }
  state.counters["games/s"] =
      benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
  state.counters["moves/game"] =
      static_cast<double>(moves) / static_cast<double>(state.iterations());
}
BENCHMARK(BM_SelfPlayGames)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace varkesh

BENCHMARK_MAIN();
