#include <algorithm>
#include <atomic>
#include <cctype>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <memory>
#include <mutex>
#include <optional>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "ai/choice_ladder.h"
#include "ai/search/levels.h"
#include "ai/search/zobrist.h"
#include "cli.h"
#include "core/apply_move.h"
#include "core/resign.h"
#include "core/rules.h"
#include "flow/new_game.h"
#include "flow/thinking_outside.h"
#include "load_for_play.h"
#include "record_file.h"
#include "search_options.h"

namespace varkesh::cli {

namespace {

constexpr const char* kUsage =
    "match --levels A,B --games N [--type T] [--rule R] [--movetime MS | --nodes N] [--seed S]\n"
    "      [--records DIR]\n"
    "  Plays N games of level A against level B (classic, club, expert, master or 1 to 4),\n"
    "  every seat Balanced. In game types 1 and 2 (1 by default) A holds one alliance and B\n"
    "  the other; in type 3 A holds one seat and B the three others. Seats rotate from game\n"
    "  to game, and the games of one rotation open with the same random first round (seed S,\n"
    "  1 by default). The limits are the Master's (1 second a move by default); lower levels\n"
    "  take their share. A game still running after 300 rounds is a draw (in type 3 a fair\n"
    "  share for A); in type 3 a game is lost once A's seat has fallen. Two games run at once.\n"
    "  With --records, game G's record goes to DIR/game-G.vrec.";

constexpr int kMaxRounds = 300;
constexpr int kOpeningPlies = 4;
constexpr int kTableMegabytes = 8;

struct Settings {
  int levelA = kLevelMaster;
  int levelB = kLevelClassic;
  int games = 0;
  int gameType = kAlliedNeighbors;
  int rule = kKingdomGained;
  search::SearchLimits limits;
  int seed = 1;
  std::string recordsDir;  // empty: no records written
};

struct GameResult {
  std::string line;
  double points = 0.0;  // A's
};

Settings ParseSettings(const Args& args) {
  const Options options = ParseOptions(
      args, {"levels", "games", "type", "rule", "movetime", "nodes", "seed", "records"}, {},
      kUsage);
  if (!options.positional.empty() || !options.Has("levels") || !options.Has("games")) Usage(kUsage);
  if (options.Has("movetime") && options.Has("nodes")) Usage(kUsage);
  Settings settings;
  const std::string levels = options.Value("levels");
  const std::size_t comma = levels.find(',');
  if (comma == std::string::npos) Usage(kUsage);
  settings.levelA = ParseLevelOption(levels.substr(0, comma), kUsage);
  settings.levelB = ParseLevelOption(levels.substr(comma + 1), kUsage);
  settings.games = ParseBetween(options.Value("games"), 1, 1000000, kUsage);
  settings.gameType = ParseBetween(options.Value("type", "1"), kAlliedNeighbors, kAnarchy, kUsage);
  settings.rule = ParseBetween(options.Value("rule", "1"), kKingdomGained, kKingdomFrozen, kUsage);
  settings.limits = ParseLimits(options, kUsage);
  if (options.Has("seed")) settings.seed = ParseInt(options.Value("seed"), kUsage);
  settings.recordsDir = RecordsFolderOption(options, kUsage);
  return settings;
}

// Which teams level A plays in game g (counted from 0), as bits 1 << team.
unsigned TeamsOfA(const Settings& settings, int g) {
  if (settings.gameType == kAnarchy) return 1u << (kWhite + g % kTeamCount);
  // White's alliance in even games, the other in odd ones.
  int first = kWhite;
  if (g % 2 == 1)
    while (first < kRed && !IsHostile(settings.gameType, kWhite, first)) ++first;
  unsigned teams = 1u << first;
  for (int team = kWhite; team <= kRed; ++team)
    if (IsAlly(settings.gameType, first, team)) teams |= 1u << team;
  return teams;
}

int OpeningSeed(const Settings& settings, int g) {
  return settings.seed + g / (settings.gameType == kAnarchy ? kTeamCount : 2);
}

// The first round drawn at random, the same for the games of one rotation.
void PlayOpening(Match& game, int seed) {
  Random draw(static_cast<std::uint64_t>(seed));
  MoveList moves;
  for (int ply = 0; ply < kOpeningPlies && !game.position.Finished(); ++ply) {
    ListMoves(game.position, moves);
    if (moves.Empty()) return;
    Move move = moves[draw.Below(moves.Count())];
    move.option = kOptionComputer;
    PlayMove(game, move);
  }
}

class Player {
 public:
  Player(int level, const Settings& settings)
      : level_(level), limits_(settings.limits), searcher_(kTableMegabytes) {}

  // The move of the team on turn; false when it has none.
  bool Choose(const Match& game, Random& random, Move& move) {
    const Position& position = game.position;
    if (level_ == kLevelClassic) {
      AiMoveList moves;
      ThinkingOutside thinking(outside_);
      const AiChoice choice =
          ChooseAImove(position, game.setup, moves, random, thinking, kBalanced);
      if (choice.index == 0) return false;
      move = ChosenMove(moves, choice);
      return true;
    }
    search::SearchSettings settings = LevelSettings(level_, kBalanced, limits_);
    settings.seenKeys = search::RecordKeys(game.record);
    const search::SearchResult result = searcher_.Think(position, settings);
    move = result.best;
    return result.found;
  }

 private:
  int level_;
  search::SearchLimits limits_;
  search::Searcher searcher_;
  ToolOutside outside_;
};

std::string TeamList(unsigned teams) {
  std::string list;
  for (int team = kWhite; team <= kRed; ++team)
    if (teams >> team & 1u) list += (list.empty() ? "" : ",") + std::string(TeamName(team));
  return list;
}

GameResult PlayGame(const Settings& settings, const Position& start, const Setup& setup, int g) {
  const auto began = std::chrono::steady_clock::now();
  const unsigned teamsOfA = TeamsOfA(settings, g);
  Match game{setup, start, {}};
  game.BeginRecord();
  const Position& position = game.position;
  PlayOpening(game, OpeningSeed(settings, g));
  Random random(static_cast<std::uint64_t>(settings.seed) * 7919u + static_cast<unsigned>(g));
  // One player a seat, so that each keeps its own table.
  std::vector<std::unique_ptr<Player>> players;
  for (int team = kWhite; team <= kRed; ++team) {
    const int level = teamsOfA >> team & 1u ? settings.levelA : settings.levelB;
    game.setup.levels[static_cast<std::size_t>(team - 1)] = level;
    players.push_back(std::make_unique<Player>(level, settings));
  }
  // Whether a seat of A still stands: once none does, A has lost, whoever plays on.
  const auto aStands = [&] {
    for (int team = kWhite; team <= kRed; ++team)
      if ((teamsOfA >> team & 1u) != 0 && !TeamEntry(position.kingdomFallen, team)) return true;
    return false;
  };
  int moves = 0;
  while (!position.Finished() && aStands() && position.roundNumber <= kMaxRounds) {
    Move move;
    Player& player = *players[static_cast<std::size_t>(position.currentTeam - 1)];
    if (!player.Choose(game, random, move)) {
      // A seat with no move gives up, as the computer does in a game.
      const std::vector<int> offers = ConcedeOffers(position);
      const int concede =
          position.kingCaptureRule == kKingdomGained && !offers.empty() ? offers.front() : kNoTeam;
      if (!PlayResign(game, concede).done) break;
      continue;
    }
    if (!IsLegal(position, move)) break;
    PlayMove(game, move);
    ++moves;
  }
  if (!settings.recordsDir.empty())
    WriteRecordFile(game, GameRecordPath(settings.recordsDir, g + 1));

  GameResult result;
  const bool won = position.Finished();
  const bool aWon = won && (teamsOfA >> position.winner & 1u) != 0;
  const char* outcome = "draw";
  if (won || !aStands()) {
    result.points = aWon ? 1.0 : 0.0;
    outcome = aWon ? "win" : "loss";
  } else if (settings.gameType == kAnarchy) {
    int standing = 0;
    for (int team = kWhite; team <= kRed; ++team)
      standing += TeamEntry(position.kingdomFallen, team) ? 0 : 1;
    result.points = 1.0 / standing;
  } else {
    result.points = 0.5;
  }
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - began).count();
  std::ostringstream line;
  line << "game " << g + 1 << " A " << TeamList(teamsOfA) << " winner "
       << (won ? TeamName(position.winner) : "none") << " result " << outcome << " rounds "
       << std::min(position.roundNumber, kMaxRounds) << " moves " << moves << " seconds ";
  char secondsText[32];
  std::snprintf(secondsText, sizeof secondsText, "%.1f", seconds);
  line << secondsText;
  result.line = line.str();
  return result;
}

double EloOf(double score) {
  return -400.0 * std::log10(1.0 / score - 1.0);
}

void PrintSummary(const Settings& settings, const std::vector<GameResult>& results) {
  const double n = static_cast<double>(results.size());
  double sum = 0.0;
  for (const GameResult& result : results) sum += result.points;
  const double mean = sum / n;
  double variance = 0.0;
  for (const GameResult& result : results)
    variance += (result.points - mean) * (result.points - mean);
  variance = results.size() > 1 ? variance / (n - 1.0) : 0.0;
  const double margin = 1.96 * std::sqrt(variance / n);
  // A clean sweep has no finite rating: the score is held half a game from the edge.
  const double edge = 0.5 / n;
  const auto clamp = [&](double s) { return std::clamp(s, edge, 1.0 - edge); };
  const double elo = EloOf(clamp(mean));
  const double eloMargin = (EloOf(clamp(mean + margin)) - EloOf(clamp(mean - margin))) / 2.0;
  std::string name = LevelName(settings.levelA);
  for (char& c : name) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  std::printf("score %s %.1f%% \u00b1 %.1f%% over %d games, elo %.0f \u00b1 %.0f\n", name.c_str(),
              mean * 100.0, margin * 100.0, static_cast<int>(results.size()), elo, eloMargin);
}

}  // namespace

int CmdMatch(const Args& args) {
  const Settings settings = ParseSettings(args);
  ToolOutside outside;
  UseToolFolder(outside);
  NewGameChoice choice;
  choice.accepted = true;
  choice.gameType = settings.gameType;
  choice.kingCaptureRule = settings.rule;
  choice.players = {kBalanced, kBalanced, kBalanced, kBalanced};
  choice.name = "Match";
  outside.newGameChoices.push_back(choice);
  Game game;
  NewGameCommand(game, outside);
  FailOnReportedFault(outside);
  const Position start = game.match.position;
  const Setup setup = game.match.setup;

  std::vector<std::optional<GameResult>> results(static_cast<std::size_t>(settings.games));
  std::atomic<int> next{0};
  std::mutex printing;
  std::size_t printed = 0;
  const auto work = [&] {
    for (int g = next++; g < settings.games; g = next++) {
      GameResult result = PlayGame(settings, start, setup, g);
      const std::lock_guard<std::mutex> lock(printing);
      results[static_cast<std::size_t>(g)] = std::move(result);
      while (printed < results.size() && results[printed]) {
        std::puts(results[printed]->line.c_str());
        std::fflush(stdout);
        ++printed;
      }
    }
  };
  std::thread helper(work);
  work();
  helper.join();

  std::vector<GameResult> all;
  for (const auto& result : results) all.push_back(*result);
  PrintSummary(settings, all);
  return 0;
}

}  // namespace varkesh::cli
