#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <sstream>

#include "cli.h"
#include "flow/main_loop.h"
#include "flow/new_game.h"
#include "load_for_play.h"
#include "record_file.h"
#include "search_options.h"

namespace varkesh::cli {

namespace {

constexpr const char* kUsage =
    "selfplay [--games N] [--seed S] [--type T] [--rule R] [--players a,b,c,d] [--max-rounds M]\n"
    "         [--levels a,b,c,d] [--records DIR]\n"
    "  Plays N whole games (10) of computer seats, personalities 1 to 3, through the main\n"
    "  loop. Game g plays with seed S+g-1 (S is 1); its type, rule and players, unless\n"
    "  given, are drawn from that seed. A game still running after M rounds (500) is\n"
    "  unfinished. --levels gives each seat's level (classic, club, expert, master or 1 to 4;\n"
    "  Classic by default). With --records, game G's record goes to DIR/game-G.vrec.\n"
    "  One line a game, then three lines of summary:\n"
    "    game G seed S type T rule R players a,b,c,d won|unfinished winner TEAM|none"
    " cowinner TEAM|none rounds R moves M seconds X\n"
    "    summary games N won W unfinished U average-rounds X games-per-second X\n"
    "    wins-by-team White N Blue N Black N Red N\n"
    "    wins-by-personality Aggressive N Balanced N Defensive N";

struct Settings {
  int games = 10;
  int seed = 1;
  int gameType = 0;  // 0: drawn for each game
  int rule = 0;
  PerTeam<int> players{};  // all 0: drawn for each game
  int maxRounds = 500;
  PerTeam<int> levels{kLevelClassic, kLevelClassic, kLevelClassic, kLevelClassic};
  std::string recordsDir;  // empty: no records written
};

struct Result {
  bool won = false;
  int winner = kNoTeam;
  int coWinner = kNoTeam;
  int rounds = 0;
  int moves = 0;
  double seconds = 0.0;
};

Settings ParseSettings(const Args& args) {
  const Options options = ParseOptions(
      args, {"games", "seed", "type", "rule", "players", "max-rounds", "levels", "records"}, {},
      kUsage);
  if (!options.positional.empty()) Usage(kUsage);
  Settings settings;
  if (options.Has("games"))
    settings.games = ParseBetween(options.Value("games"), 1, 1000000, kUsage);
  if (options.Has("seed")) settings.seed = ParseInt(options.Value("seed"), kUsage);
  if (options.Has("type"))
    settings.gameType = ParseBetween(options.Value("type"), kAlliedNeighbors, kAnarchy, kUsage);
  if (options.Has("rule"))
    settings.rule = ParseBetween(options.Value("rule"), kKingdomGained, kKingdomFrozen, kUsage);
  if (options.Has("players"))
    settings.players = ParsePlayers(options.Value("players"), kAggressive, kUsage);
  if (options.Has("max-rounds"))
    settings.maxRounds = ParseBetween(options.Value("max-rounds"), 1, 1000000, kUsage);
  if (options.Has("levels")) settings.levels = ParseSeatLevels(options.Value("levels"), kUsage);
  settings.recordsDir = RecordsFolderOption(options, kUsage);
  return settings;
}

NewGameChoice ChoiceFor(const Settings& settings, std::uint64_t seed) {
  Random draw(seed);
  NewGameChoice choice;
  choice.accepted = true;
  choice.gameType = settings.gameType > 0 ? settings.gameType : 1 + draw.Below(3);
  choice.kingCaptureRule = settings.rule > 0 ? settings.rule : 1 + draw.Below(3);
  choice.players = settings.players;
  choice.levels = settings.levels;
  if (settings.players[0] == 0)
    for (int& seat : choice.players) seat = 1 + draw.Below(3);
  choice.name = "Self-play " + std::to_string(seed);
  return choice;
}

bool ComputerOnTurn(const Game& game) {
  return game.turn.gameMode == ModeComputerThinks || game.turn.gameMode == ModeComputerMoves;
}

Result PlayGame(ToolOutside& outside, const NewGameChoice& choice, std::uint64_t seed,
                int maxRounds, const std::string& recordPath) {
  const auto start = std::chrono::steady_clock::now();
  outside.newGameChoices.push_back(choice);
  Game game;
  game.random.Seed(seed);
  NewGameCommand(game, outside);
  GameView headless;
  Result result;
  while (ComputerOnTurn(game) && game.match.position.roundNumber <= maxRounds) {
    if (game.turn.gameMode == ModeComputerMoves) ++result.moves;
    RunPass(game, outside, headless);
  }
  FailOnReportedFault(outside);
  if (!recordPath.empty()) WriteRecordFile(game.match, recordPath);
  result.won = game.turn.gameMode == ModeVictorySetUp;
  result.winner = result.won ? game.match.position.winner : kNoTeam;
  result.coWinner = result.won ? game.match.position.coWinner : kNoTeam;
  result.rounds = std::min(game.match.position.roundNumber, maxRounds);
  result.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  return result;
}

const char* TeamOrNone(int team) {
  return team == kNoTeam ? "none" : TeamName(team);
}

}  // namespace

int CmdSelfplay(const Args& args) {
  const Settings settings = ParseSettings(args);
  ToolOutside outside;
  UseToolFolder(outside);

  int won = 0;
  long long rounds = 0;
  double seconds = 0.0;
  std::array<int, kTeamCount + 1> winsByTeam{};
  std::array<int, kDefensive + 1> winsByPersonality{};
  for (int g = 1; g <= settings.games; ++g) {
    const long long gameSeed = static_cast<long long>(settings.seed) + g - 1;
    const NewGameChoice choice = ChoiceFor(settings, static_cast<std::uint64_t>(gameSeed));
    const std::string recordPath =
        settings.recordsDir.empty() ? std::string() : GameRecordPath(settings.recordsDir, g);
    const Result result = PlayGame(outside, choice, static_cast<std::uint64_t>(gameSeed),
                                   settings.maxRounds, recordPath);
    std::printf(
        "game %d seed %lld type %d rule %d players %d,%d,%d,%d %s winner %s cowinner %s rounds %d "
        "moves %d seconds %.3f\n",
        g, gameSeed, choice.gameType, choice.kingCaptureRule, choice.players[0], choice.players[1],
        choice.players[2], choice.players[3], result.won ? "won" : "unfinished",
        TeamOrNone(result.winner), TeamOrNone(result.coWinner), result.rounds, result.moves,
        result.seconds);
    won += result.won ? 1 : 0;
    rounds += result.rounds;
    seconds += result.seconds;
    for (int team : {result.winner, result.coWinner}) {
      if (TeamIndex(team) < 0) continue;
      ++winsByTeam[static_cast<std::size_t>(team)];
      ++winsByPersonality[static_cast<std::size_t>(TeamEntry(choice.players, team))];
    }
  }
  std::printf("summary games %d won %d unfinished %d average-rounds %.1f games-per-second %.2f\n",
              settings.games, won, settings.games - won,
              static_cast<double>(rounds) / settings.games,
              seconds > 0.0 ? settings.games / seconds : 0.0);
  std::printf("wins-by-team White %d Blue %d Black %d Red %d\n", winsByTeam[kWhite],
              winsByTeam[kBlue], winsByTeam[kBlack], winsByTeam[kRed]);
  std::printf("wins-by-personality Aggressive %d Balanced %d Defensive %d\n",
              winsByPersonality[kAggressive], winsByPersonality[kBalanced],
              winsByPersonality[kDefensive]);
  return 0;
}

}  // namespace varkesh::cli
