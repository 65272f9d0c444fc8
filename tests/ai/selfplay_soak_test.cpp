#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <string>

#include "flow/main_loop.h"
#include "flow/new_game.h"
#include "flow/scripted_outside.h"

namespace varkesh {
namespace {

constexpr int kGames = 50;

// White's pieces of a thin start position, where Kings fall within a few
// dozen rounds; the other teams get its quarter turns.
constexpr struct {
  char piece;
  int x, y;
} kThinWhite[] = {{'K', 8, 15}, {'C', 8, 16}, {'Q', 8, 14}, {'R', 6, 14},
                  {'N', 7, 14}, {'P', 6, 13}, {'P', 8, 13}, {'P', 10, 13}};

std::filesystem::path WriteThinStart() {
  const std::filesystem::path path = std::filesystem::temp_directory_path() /
                                     ("varkesh-thin-start-" + std::to_string(getpid()) + ".txt");
  std::ofstream records(path);
  const char teams[] = {'W', 'B', 'K', 'R'};
  for (int turn = 0; turn < kTeamCount; ++turn) {
    for (auto [piece, x, y] : kThinWhite) {
      for (int quarter = 0; quarter < turn; ++quarter) {
        const int oldX = x;
        x = 16 - y;  // a quarter turn clockwise about (8, 8)
        y = oldX;
      }
      records << teams[turn] << piece << ',' << x << ',' << y << '\n';
    }
  }
  return path;
}

// Seed s plays game type, rule and seats that change with it, so the games
// cover every combination of the three and every personality on every seat.
NewGameChoice ChoiceFor(int seed) {
  NewGameChoice choice;
  choice.accepted = true;
  choice.gameType = 1 + seed % 3;
  choice.kingCaptureRule = 1 + (seed / 3) % 3;
  for (int seat = 0; seat < kTeamCount; ++seat)
    choice.players[static_cast<std::size_t>(seat)] = 1 + (seed / 9 + seat) % 3;
  choice.name = "Soak " + std::to_string(seed);
  return choice;
}

// The invariants the rest of the program relies on.
testing::AssertionResult BoardHolds(const Game& game) {
  std::array<int, kTeamCount> kings{};
  for (int y = 0; y < kBoardSide; ++y) {
    for (int x = 0; x < kBoardSide; ++x) {
      const Square& square = game.board.at(x, y);
      const bool occupied = square.piece != kNoPiece;
      const int team = TeamIndex(square.team);
      if ((square.team == kNoTeam) == occupied ||
          (occupied && (square.terrain == kOffBoard || team < 0)) ||
          (square.piece == kKing && ++kings[static_cast<std::size_t>(team)] > 1))
        return testing::AssertionFailure()
               << "at " << x << "," << y << ": team " << square.team << ", piece " << square.piece;
    }
  }
  return testing::AssertionSuccess();
}

// Odd seeds play the full start position through its opening, even seeds
// the thin one, mostly to the end.
TEST(SelfPlaySoak, SeededGamesEndOrReachTheRoundLimitWithTheBoardSound) {
  const std::filesystem::path thinStart = WriteThinStart();
  int finished = 0;
  for (int seed = 1; seed <= kGames; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const bool thin = seed % 2 == 0;
    const int roundLimit = thin ? 50 : 6;
    ScriptedOutside outside;
    outside.entryPaths["newgamedata"] =
        thin ? thinStart.string() : std::string(VARKESH_PACK_DIR "/newgamedata.txt");
    outside.SetMenuChecked(Menu::OptionsShowComp, false);
    outside.SetMenuChecked(Menu::OptionsSfx, false);
    outside.newGameChoices.push_back(ChoiceFor(seed));
    Game game;
    game.random.Seed(static_cast<std::uint64_t>(seed));
    NewGameCommand(game, outside);
    ASSERT_EQ(game.gameMode, ModeComputerThinks);

    GameView view;
    while ((game.gameMode == ModeComputerThinks || game.gameMode == ModeComputerMoves) &&
           game.roundNumber <= roundLimit) {
      RunPass(game, outside, view);
      ASSERT_TRUE(BoardHolds(game)) << "round " << game.roundNumber;
    }
    for (const ScriptedOutside::Message& message : outside.messages)
      ADD_FAILURE() << message.title << ": " << message.text;
    if (game.gameMode == ModeVictorySetUp) {
      ++finished;
      EXPECT_GT(game.winner, kNoTeam);
    } else {
      EXPECT_GT(game.roundNumber, roundLimit);
    }
  }
  std::filesystem::remove(thinStart);
  EXPECT_GE(finished, kGames / 4);  // the thin games do come to an end
  RecordProperty("finished", finished);
}

}  // namespace
}  // namespace varkesh
