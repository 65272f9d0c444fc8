#include <gtest/gtest.h>

#include <array>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "ai/computer.h"
#include "ai_fixture.h"

namespace varkesh {
namespace {

using Sounds = std::vector<std::string>;

void Play(Game& game, Outside& outside, int fromX, int fromY, int toX, int toY) {
  std::tie(game.turn.moveFromX, game.turn.moveFromY, game.turn.moveToX, game.turn.moveToY) =
      std::tie(fromX, fromY, toX, toY);
  CarryOutAImove(game, outside);
}

// Every machine of a session plays the move alike: nothing is drawn, asked or
// sent, and the pending click is the main loop's business.
TEST(CarryOutAImove, PawnOptionWithoutDialogMessageOrDraw) {
  Game game = test::EmptyGame(
      kAlliedNeighbors, {{8, 3, kWhite, kPawn}, {7, 1, kBlack, kQueen}, {9, 1, kBlack, kKing}});
  game.net.netRole = kNetHosting;
  game.pendingMoveMessage = "untouched";
  game.view.clickPending = true;
  game.random = Random(5);
  ScriptedOutside outside;
  Play(game, outside, 8, 3, 8, 2);
  EXPECT_EQ(game.match.position.dungeons[0].prisoners[1], (DungeonPiece{kBlack, kQueen}));
  EXPECT_EQ(outside.sounds, (Sounds{"sfx_click", "sfx_capturequeen"}));
  EXPECT_TRUE(outside.pawnOptionDialogs.empty() && outside.sent.empty());
  EXPECT_EQ(game.pendingMoveMessage, "untouched");
  EXPECT_EQ(game.random.Next(), Random(5).Next());
  EXPECT_TRUE(game.view.clickPending);
  EXPECT_FALSE(game.turn.gameSaved);
  EXPECT_EQ(game.turn.gameMode, ModeComputerThinks);  // Blue's turn
}

// Black keeps four pawns after losing one, so its King goes.
TEST(CarryOutAImove, LackOfMaterialIsToldOnlyToAHumanVictimEvenInANetworkGame) {
  const std::vector<test::Placed> pieces = {
      {8, 8, kWhite, kKnight}, {9, 6, kBlack, kPawn}, {8, 1, kBlack, kKing}, {6, 3, kBlack, kPawn},
      {7, 3, kBlack, kPawn},   {8, 3, kBlack, kPawn}, {9, 3, kBlack, kPawn}};
  for (auto [victim, messages] : {std::pair{kHuman, 1u}, {kDefensive, 0u}}) {
    Game game = test::EmptyGame(kAlliedNeighbors, pieces);
    game.match.setup.playerKinds[2] = victim;
    game.net.netRole = kNetHosting;
    ScriptedOutside outside;
    Play(game, outside, 8, 8, 9, 6);
    EXPECT_TRUE(game.match.position.kingdomFallen[2]);
    EXPECT_EQ(outside.messages.size(), messages);
  }
}

TEST(CarryOutAImove, LastKingOfASideEndsTheGameWithoutPassingTheTurn) {
  Game game = test::EmptyGame(kAlliedNeighbors, {{7, 3, kWhite, kPawn}, {8, 2, kBlack, kKing}});
  game.match.position.kingdomFallen[3] = true;
  ScriptedOutside outside;
  outside.SetMenuEnabled(Menu::Resign, true);
  Play(game, outside, 7, 3, 8, 2);
  EXPECT_EQ(game.turn.gameMode, ModeVictorySetUp);
  EXPECT_EQ(game.match.position.currentTeam, kWhite);
  EXPECT_TRUE(outside.IsMenuEnabled(Menu::Resign));
}

// The keep the pawn has just won by taking its King is its own now: nothing
// there is raided.
TEST(CarryOutAImove, AKingdomJustGainedIsNotRaided) {
  Game game = test::EmptyGame(
      kAnarchy, {{7, 3, kWhite, kPawn}, {8, 2, kBlack, kKing}, {8, 1, kBlack, kQueen}});
  ScriptedOutside outside;
  Play(game, outside, 7, 3, 8, 2);
  EXPECT_EQ(game.match.position.board.at(8, 1), (Square{kWhite, kQueen, 0, kKeep, kWhite}));
  EXPECT_EQ(game.match.position.board.at(8, 2).team, kWhite);
  EXPECT_EQ(game.match.position.board.at(8, 2).piece, kPawn);
  EXPECT_EQ(game.match.position.dungeons[0].prisoners.Count(), 1);  // only the King
}

using Prisoners = std::vector<DungeonPiece>;

// The first piece is a pawn of the team on turn that has just entered a keep.
std::pair<Game, Sounds> RaidKeep(int gameType, const std::vector<test::Placed>& pieces,
                                 const Prisoners& blacksPrisoners = {}) {
  Game game = test::EmptyGame(gameType, pieces);
  for (const DungeonPiece& prisoner : blacksPrisoners) game.match.position.dungeons[2].prisoners.Add(prisoner);
  game.match.position.currentTeam = pieces.front().team;
  std::tie(game.turn.moveToX, game.turn.moveToY) = std::pair{pieces.front().x, pieces.front().y};
  ScriptedOutside outside;
  AIpawnOptions(game, outside);
  return {game, outside.sounds};
}

Prisoners HeldBy(const Game& game, int holder) {
  const auto& held = game.match.position.dungeons[static_cast<std::size_t>(holder - 1)].prisoners;
  return {held.begin(), held.end()};
}

constexpr test::Placed kInBlacksKeep{8, 2, kWhite, kPawn};

TEST(AIpawnOptions, TakesTheOwnersPieceInTheFixedOrder) {
  const auto [queen, queenSounds] =
      RaidKeep(kAnarchy, {kInBlacksKeep, {7, 1, kBlack, kRook}, {9, 2, kBlack, kQueen}});
  EXPECT_EQ(queen.board.at(8, 2).piece, kNoPiece);  // the pawn is spent
  EXPECT_EQ(queen.board.at(9, 2).piece, kNoPiece);
  EXPECT_EQ(HeldBy(queen, kWhite), (Prisoners{{kBlack, kQueen}}));
  EXPECT_EQ(queenSounds, Sounds{"sfx_capturequeen"});

  const Game knights = RaidKeep(kAnarchy, {kInBlacksKeep,
                                           {9, 1, kBlack, kKnight},
                                           {7, 1, kBlack, kKnight},
                                           {8, 0, kBlack, kKnight}})
                           .first;
  EXPECT_EQ(knights.board.at(8, 0).piece, kNoPiece);  // lowest row, then lowest column

  // A guest or a frozen piece is no target, nor is the King.
  const auto [none, noSounds] = RaidKeep(
      kAnarchy,
      {kInBlacksKeep, {7, 1, kRed, kRook}, {9, 1, kBlack, -kQueen}, {8, 1, kBlack, kKing}});
  EXPECT_EQ(none.board.at(8, 2).piece, kPawn);
  EXPECT_TRUE(noSounds.empty());

  for (auto [x, y, queenX, queenY, owner] :
       {std::array{2, 8, 0, 8, kBlue}, {14, 8, 16, 8, kRed}, {8, 14, 8, 16, kWhite}}) {
    const Game side =
        RaidKeep(kAnarchy, {{x, y, kBlack, kPawn}, {queenX, queenY, owner, kQueen}}).first;
    EXPECT_EQ(side.board.at(queenX, queenY).piece, kNoPiece) << owner;
  }
}

TEST(AIpawnOptions, OtherwiseFreesTheMoversPrisonerInTheFixedOrder) {
  const auto [bishop, bishopSounds] =
      RaidKeep(kAnarchy, {kInBlacksKeep, {8, 1, kBlack, kKing}},
               {{kWhite, kRook}, {kWhite, kKing}, {kWhite, kBishop}});
  EXPECT_EQ(bishop.board.at(8, 2), (Square{kWhite, kBishop, 0, kKeep, kBlack}));
  EXPECT_EQ(HeldBy(bishop, kBlack), (Prisoners{{kWhite, kRook}, {kWhite, kKing}}));
  EXPECT_EQ(bishopSounds, Sounds{"sfx_newgame"});

  const Game ally =
      RaidKeep(kAlliedNeighbors, {kInBlacksKeep}, {{kBlue, kBishop}, {kWhite, kKing}}).first;
  EXPECT_EQ(ally.board.at(8, 2).piece, kPawn);
  EXPECT_EQ(HeldBy(ally, kBlack).size(), 2u);
}

}  // namespace
}  // namespace varkesh
