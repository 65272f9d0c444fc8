// The computer opponent's cost: one turn at the start, one in a crowded
// midgame, and whole games of computer seats through the main loop's passes.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <new>
#include <string>

#include "ai/choice_ladder.h"
#include "core/match.h"
#include "core/new_game_data.h"
#include "engine/general_engine.h"
#include "flow/game_view.h"
#include "flow/headless_outside.h"
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

// Shows nothing and writes no log: only the thinking is timed.
class SilentThinking : public AiOutside {
 public:
  void SetPieceLabel(const std::string&) override {}
  void Yield() override {}
  GeneralEngine& Engine() override { return engine_; }

 private:
  GeneralEngine engine_;
};

Match StartMatch() {
  Match match;
  match.position.gameType = kAnarchy;
  match.position.board = LoadNewGameDataFile(kStartPosition);
  match.position.Refresh();
  match.setup.playerKinds = {kAggressive, kBalanced, kDefensive, kBalanced};
  match.BeginRecord();
  return match;
}

// Fifteen rounds of a seeded game: pieces are out and lines open, few taken.
Match CrowdedMidgame() {
  Match match = StartMatch();
  Random random(11);
  SilentThinking outside;
  AiMoveList moves;
  while (match.position.roundNumber <= 15 && !match.position.Finished()) {
    const AiChoice choice = ChooseAImove(match.position, match.setup, moves, random, outside);
    if (choice.index == 0) break;
    PlayMove(match, ChosenMove(moves, choice));
  }
  return match;
}

int LivePieces(const Position& position) {
  int live = 0;
  for (const Square& square : position.board.squares) live += square.piece > 0 ? 1 : 0;
  return live;
}

void TimeOneTurn(benchmark::State& state, const Match& match) {
  SilentThinking outside;
  Random random(7);
  AiMoveList moves;
  ChooseAImove(match.position, match.setup, moves, random, outside);  // lists grow once
  const long before = allocations;
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        ChooseAImove(match.position, match.setup, moves, random, outside).index);
  }
  state.counters["allocs/turn"] =
      static_cast<double>(allocations - before) / static_cast<double>(state.iterations());
  state.counters["moves"] = moves.Count();
  state.counters["pieces"] = LivePieces(match.position);
}

void BM_ChooseAImoveStartPosition(benchmark::State& state) {
  TimeOneTurn(state, StartMatch());
}
BENCHMARK(BM_ChooseAImoveStartPosition)->Unit(benchmark::kMicrosecond);

void BM_ChooseAImoveCrowdedMidgame(benchmark::State& state) {
  TimeOneTurn(state, CrowdedMidgame());
}
BENCHMARK(BM_ChooseAImoveCrowdedMidgame)->Unit(benchmark::kMicrosecond);

// Whole games, New Game to the victory screen, at most 300 rounds each.
void BM_SelfPlayGames(benchmark::State& state) {
  HeadlessOutside outside({});
  outside.entryPaths["newgamedata"] = kStartPosition;
  // A clock that each yield moves on by far, so that no preview waits.
  outside.manualClock = true;
  outside.yieldStep = 60.0;
  GameView view;
  std::uint64_t seed = 1;
  std::int64_t moves = 0;
  for (auto _ : state) {
    outside.newGameChoices.push_back(
        {true, kAnarchy, kKingdomLost, {kAggressive, kBalanced, kDefensive, kBalanced}, "Bench"});
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
