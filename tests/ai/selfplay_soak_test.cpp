#include <gtest/gtest.h>

#include <array>
#include <string>

#include "flow/main_loop.h"
#include "flow/new_game.h"
#include "support/scripted_outside.h"

namespace varkesh {
namespace {

// Pieces only on the board, each with a team, and at most one King a team.
::testing::AssertionResult BoardHolds(const Game& game) {
  std::array<int, kRed + 1> kings{};
  for (std::size_t i = 0; i < game.match.position.board.squares.size(); ++i) {
    const Square& square = game.match.position.board.squares[i];
    const bool occupied = square.piece != kNoPiece;
    if ((square.team == kNoTeam) == occupied ||
        (occupied && (square.terrain == kOffBoard || TeamIndex(square.team) < 0)) ||
        (square.piece == kKing && ++kings[static_cast<std::size_t>(square.team)] > 1))
      return ::testing::AssertionFailure()
             << "square " << i << ": team " << square.team << ", piece " << square.piece;
  }
  return ::testing::AssertionSuccess();
}

// The seed sets type, rule and seats, so that the games cover every mix of the
// three and every personality on every seat. Odd seeds play the opening of the
// start position, even seeds a thinned board, mostly to the end.
TEST(SelfPlaySoak, SeededGamesEndOrReachTheRoundLimitWithTheBoardSound) {
  int finished = 0;
  for (int seed = 1; seed <= 50; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const bool thin = seed % 2 == 0;
    const int roundLimit = thin ? 50 : 6;
    ScriptedOutside outside;
    outside.entryPaths["newgamedata"] = VARKESH_PACK_DIR "/newgamedata.txt";
    outside.SetMenuChecked(Menu::OptionsShowComp, false);
    outside.SetMenuChecked(Menu::OptionsSfx, false);
    NewGameChoice choice{true, 1 + seed % 3, 1 + seed / 3 % 3, {}, "Soak"};
    for (int seat = 0; seat < kTeamCount; ++seat)
      choice.players[static_cast<std::size_t>(seat)] = 1 + (seed / 9 + seat) % 3;
    outside.newGameChoices.push_back(choice);
    Game game;
    game.random.Seed(static_cast<std::uint64_t>(seed));
    NewGameCommand(game, outside);
    ASSERT_EQ(game.turn.gameMode, ModeComputerThinks);
    for (std::size_t i = 0; thin && i < game.match.position.board.squares.size(); ++i) {
      Square& square = game.match.position.board.squares[i];
      if (square.piece == kBishop || square.piece == kRook || (i % 2 == 1 && square.piece != kKing))
        square = {kNoTeam, kNoPiece, square.mark, square.terrain, square.realm};
    }

    GameView view;
    while ((game.turn.gameMode == ModeComputerThinks || game.turn.gameMode == ModeComputerMoves) &&
           game.match.position.roundNumber <= roundLimit) {
      RunPass(game, outside, view);
      ASSERT_TRUE(BoardHolds(game)) << "round " << game.match.position.roundNumber;
    }
    for (const ScriptedOutside::Message& message : outside.messages)
      ADD_FAILURE() << message.title << ": " << message.text;
    const bool won = game.turn.gameMode == ModeVictorySetUp;
    finished += won ? 1 : 0;
    EXPECT_TRUE(won ? game.match.position.winner > kNoTeam : game.match.position.roundNumber > roundLimit);
  }
  EXPECT_GE(finished, 12) << "the thinned games do come to an end";
}

}  // namespace
}  // namespace varkesh
