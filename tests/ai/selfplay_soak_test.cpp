// Whole games of computer seats through the main loop, one for each game type
// and rule, every personality on every side. Each must play exactly as the
// program always has: the winners, the rounds and the moves below are those
// of the program before its state became plain values, and a single move
// chosen otherwise would change them. Every pass leaves the board sound, and
// the record replays to the same end.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "core/record.h"
#include "flow/main_loop.h"
#include "flow/new_game.h"
#include "support/scripted_outside.h"

namespace varkesh {
namespace {

// Pieces only on the board, each with a team, at most one King a team, and
// the sets of each team's pieces in step with the board.
::testing::AssertionResult BoardHolds(const Position& position) {
  std::array<int, kRed + 1> kings{};
  for (std::size_t i = 0; i < position.board.squares.size(); ++i) {
    const Square& square = position.board.squares[i];
    const bool occupied = square.piece != kNoPiece;
    if ((square.team == kNoTeam) == occupied ||
        (occupied && (square.terrain == kOffBoard || TeamIndex(square.team) < 0)) ||
        (square.piece == kKing && ++kings[static_cast<std::size_t>(square.team)] > 1))
      return ::testing::AssertionFailure()
             << "square " << i << ": team " << square.team << ", piece " << square.piece;
  }
  Position counted = position;
  counted.Refresh();
  if (!(counted.pieces == position.pieces))
    return ::testing::AssertionFailure() << "the sets of pieces are out of step with the board";
  return ::testing::AssertionSuccess();
}

struct SeededGame {
  int seed, gameType, rule;
  PerTeam<int> players;
  int winner, coWinner, rounds, moves;
};

// clang-format off
constexpr SeededGame kGames[] = {
  {21, kAlliedNeighbors, kKingdomGained, {1, 2, 2, 2}, kBlack, kRed, 70, 248},
  {12, kAlliedNeighbors, kKingdomLost, {1, 3, 3, 2}, kWhite, kBlue, 122, 466},
  {11, kAlliedNeighbors, kKingdomFrozen, {2, 3, 1, 1}, kWhite, kBlue, 97, 324},
  {3, kCrossroadAllies, kKingdomGained, {2, 2, 2, 2}, kWhite, kBlack, 75, 296},
  {9, kCrossroadAllies, kKingdomLost, {3, 3, 1, 1}, kWhite, kBlack, 77, 303},
  {10, kCrossroadAllies, kKingdomFrozen, {1, 2, 1, 3}, kBlue, kRed, 131, 469},
  {5, kAnarchy, kKingdomGained, {1, 3, 1, 1}, kBlue, kNoTeam, 114, 334},
  {4, kAnarchy, kKingdomLost, {2, 1, 2, 1}, kBlue, kNoTeam, 110, 349},
  {2, kAnarchy, kKingdomFrozen, {3, 3, 1, 1}, kWhite, kNoTeam, 96, 364},
};
// clang-format on

TEST(SelfPlay, SeededGamesPlayAsTheyAlwaysHave) {
  for (const SeededGame& expected : kGames) {
    SCOPED_TRACE("seed " + std::to_string(expected.seed));
    ScriptedOutside outside;
    outside.entryPaths["newgamedata"] = VARKESH_PACK_DIR "/newgamedata.txt";
    outside.SetMenuChecked(Menu::OptionsShowComp, false);
    outside.newGameChoices.push_back(
        {true, expected.gameType, expected.rule, expected.players, "Self-play"});
    Game game;
    game.random.Seed(static_cast<std::uint64_t>(expected.seed));
    NewGameCommand(game, outside);
    ASSERT_EQ(game.turn.gameMode, ModeComputerThinks);

    // A game that goes on past its known end has already gone astray.
    GameView view;
    int moves = 0;
    while ((game.turn.gameMode == ModeComputerThinks || game.turn.gameMode == ModeComputerMoves) &&
           game.match.position.roundNumber <= expected.rounds) {
      if (game.turn.gameMode == ModeComputerMoves) ++moves;
      RunPass(game, outside, view);
      ASSERT_TRUE(BoardHolds(game.match.position)) << "round " << game.match.position.roundNumber;
    }
    for (const HeadlessOutside::Box& box : outside.boxes)
      ADD_FAILURE() << box.title << ": " << box.text;
    EXPECT_EQ(game.turn.gameMode, ModeVictorySetUp);
    EXPECT_EQ(game.match.position.winner, expected.winner);
    EXPECT_EQ(game.match.position.coWinner, expected.coWinner);
    EXPECT_EQ(game.match.position.roundNumber, expected.rounds);
    EXPECT_EQ(moves, expected.moves);
    const Record& record = game.match.record;
    EXPECT_EQ(static_cast<int>(record.events.size()), expected.moves);
    Position replayed;
    EXPECT_EQ(Replay(record, expected.moves, replayed), expected.moves);
    EXPECT_TRUE(replayed == game.match.position) << "the record replays to the end as played";
  }
}

}  // namespace
}  // namespace varkesh
