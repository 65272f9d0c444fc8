#include <cstdio>
#include <string>

#include "ai/choice_ladder.h"
#include "ai/search/levels.h"
#include "ai/search/option_line.h"
#include "cli.h"
#include "flow/thinking_outside.h"
#include "move_text.h"
#include "search_options.h"
#include "tool_outside.h"

namespace varkesh::cli {

namespace {

constexpr const char* kUsage =
    "bestmove FILE [--level L] [--personality P] [--movetime MS] [--depth D] [--nodes N]\n"
    "  The move of the team on turn. L is classic, club, expert or master (1 to 4; master by\n"
    "  default); P the personality 1 to 3 (the seat's own, Balanced for a human seat). The\n"
    "  limits are the Master's (1 second by default); a lower level takes its share of them.";

void PrintInfo(const search::SearchInfo& info) {
  const double nps = info.seconds > 0.0 ? static_cast<double>(info.nodes) / info.seconds : 0.0;
  std::string line = "info depth " + std::to_string(info.depth) + " score " +
                     std::to_string(info.score) + " nodes " + std::to_string(info.nodes) + " nps " +
                     std::to_string(static_cast<long long>(nps)) + " pv";
  for (const Move& move : info.pv) line += " " + MoveText(move);
  std::puts(line.c_str());
  std::fflush(stdout);
}

// The evaluator's move, with the line its rule takes for a pawn in a keep.
bool ClassicMove(Game& game, int personality, Move& move) {
  ToolOutside outside;
  ThinkingOutside thinking(outside);
  AiMoveList moves;
  game.random = Random::Zero();
  const AiChoice choice = ChooseAImove(game.match.position, game.match.setup, moves, game.random,
                                       thinking, personality);
  if (choice.index == 0) return false;
  move = ChosenMove(moves, choice);
  move.option = static_cast<std::int16_t>(ComputerOptionLine(game.match.position, move));
  return true;
}

}  // namespace

int CmdBestmove(const Args& args) {
  const Options options =
      ParseOptions(args, {"level", "personality", "movetime", "depth", "nodes"}, {}, kUsage);
  if (options.positional.size() != 1) Usage(kUsage);
  const int level =
      options.Has("level") ? ParseLevelOption(options.Value("level"), kUsage) : kLevelMaster;
  int requested = 0;
  if (options.Has("personality"))
    requested = ParseBetween(options.Value("personality"), kAggressive, kDefensive, kUsage);
  const search::SearchLimits limits = ParseLimits(options, kUsage);

  Game game = ReadGameFile(options.positional[0]);
  int personality = ResolvePersonality(game.match.position, game.match.setup, requested);
  if (personality == kHuman) personality = kBalanced;

  Move move;
  bool found = false;
  if (level == kLevelClassic) {
    found = ClassicMove(game, personality, move);
  } else {
    search::Searcher searcher;
    const search::SearchResult result =
        searcher.Think(game.match.position, LevelSettings(level, personality, limits), PrintInfo);
    found = result.found;
    move = result.best;
  }
  std::printf("bestmove %s\n", found ? MoveText(move).c_str() : "none");
  return 0;
}

}  // namespace varkesh::cli
