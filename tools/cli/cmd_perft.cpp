#include <chrono>
#include <cstdio>
#include <string>

#include "cli.h"
#include "core/apply_move.h"
#include "core/perft.h"
#include "core/rules.h"
#include "move_text.h"

namespace varkesh::cli {

namespace {

constexpr const char* kUsage = "perft FILE DEPTH [--divide]";
constexpr int kDeepest = 64;

}  // namespace

int CmdPerft(const Args& args) {
  const Options options = ParseOptions(args, {}, {"divide"}, kUsage);
  if (options.positional.size() != 2) Usage(kUsage);
  const int depth = ParseBetween(options.positional[1], 0, kDeepest, kUsage);
  Game game = ReadGameFile(options.positional[0]);
  Position& position = game.match.position;

  const auto start = std::chrono::steady_clock::now();
  std::uint64_t nodes = 0;
  if (options.Has("divide") && depth > 0) {
    MoveList branches;
    ListBranches(position, branches);
    Undo undo;
    for (const Move& move : branches) {
      ApplyMove(position, move, &undo);
      const std::uint64_t count = Perft(position, depth - 1);
      UndoMove(position, move, undo);
      nodes += count;
      std::printf("%s %llu\n", MoveText(move).c_str(), static_cast<unsigned long long>(count));
    }
  } else {
    nodes = Perft(position, depth);
  }
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  std::printf("perft %d %llu\n", depth, static_cast<unsigned long long>(nodes));
  std::fflush(stdout);
  std::fprintf(stderr, "%.3f s, %.0f nodes a second\n", seconds,
               seconds > 0.0 ? static_cast<double>(nodes) / seconds : 0.0);
  return 0;
}

}  // namespace varkesh::cli
