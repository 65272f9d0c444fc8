#include "flow/search_turn.h"

#include <atomic>
#include <chrono>
#include <exception>
#include <string>
#include <thread>

#include "ai/search/levels.h"
#include "ai/search/option_line.h"
#include "ai/search/zobrist.h"

namespace varkesh {

namespace {

// Events are served this often while the worker searches: well above the
// thirty repaints a second the board needs.
constexpr auto kServeEvery = std::chrono::milliseconds(5);

std::string ProgressText(int level, int depth) {
  std::string text = std::string(LevelName(level)) + " thinking";
  if (depth > 0) text += ": depth " + std::to_string(depth);
  return text;
}

}  // namespace

SearchedMove SearchComputerMove(const Game& game, Outside& outside, int level, int personality) {
  const Position position = game.match.position;
  search::SearchLimits master;
  master.movetimeMs = outside.ThinkingTimeMs();
  search::SearchSettings settings = LevelSettings(level, personality, master);
  settings.seenKeys = search::RecordKeys(game.match.record);
  std::atomic<bool> stop{false};
  std::atomic<bool> done{false};
  std::atomic<int> depth{0};
  search::SearchResult result;
  std::exception_ptr failure;
  std::thread worker([&] {
    // A failure goes to this thread's error handler, as the evaluator's would.
    try {
      search::Searcher searcher;
      result = searcher.Think(
          position, settings, [&](const search::SearchInfo& info) { depth = info.depth; }, &stop);
    } catch (...) {
      failure = std::current_exception();
    }
    done = true;
  });
  int shown = -1;
  while (!done) {
    if (game.turn.quitRequested || game.turn.searchAbandoned) stop = true;
    if (depth != shown) {
      shown = depth;
      outside.SetPieceLabel(ProgressText(level, shown));
    }
    outside.Yield();
    std::this_thread::sleep_for(kServeEvery);
  }
  worker.join();
  if (failure) std::rethrow_exception(failure);

  SearchedMove searched;
  searched.stopped = game.turn.quitRequested || game.turn.searchAbandoned;
  searched.found = result.found;
  searched.move = result.best;
  // The fixed rule where it agrees, so that the move plays, and goes over
  // the network, as the evaluator's would. Any other option stays a line.
  if (searched.found && searched.move.option != kOptionNone &&
      ComputerOptionLine(position, searched.move) == searched.move.option)
    searched.move.option = kOptionComputer;
  return searched;
}

}  // namespace varkesh
