// The computer's move played on every machine alike, and the fixed rule that
// picks its pawn option in a hostile keep.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "ai_fixture.h"
#include "flow/accept_move.h"
#include "support/scripted_outside.h"

namespace varkesh {
namespace {

using Sounds = std::vector<std::string>;
using Prisoners = std::vector<DungeonPiece>;

void Play(Game& game, Outside& outside, int fromX, int fromY, int toX, int toY) {
  std::tie(game.turn.moveFromX, game.turn.moveFromY, game.turn.moveToX, game.turn.moveToY) =
      std::tie(fromX, fromY, toX, toY);
  CarryOutAImove(game, outside);
}

Prisoners HeldBy(const Game& game, int holder) {
  const auto& held = game.match.position.dungeons[static_cast<std::size_t>(holder - 1)].prisoners;
  return {held.begin(), held.end()};
}

// Every machine of a session plays the move alike: nothing is asked, drawn
// from the random generator or told, and the pending click is the main
// loop's business.
TEST(CarryOutAImove, PawnOptionWithoutDialogOrDraw) {
  Game game = test::EmptyGame(
      kAlliedNeighbors, {{8, 3, kWhite, kPawn}, {7, 1, kBlack, kQueen}, {9, 1, kBlack, kKing}});
  game.net.netRole = kNetHosting;
  game.view.clickPending = true;
  game.random = Random(5);
  ScriptedOutside outside;
  Play(game, outside, 8, 3, 8, 2);
  EXPECT_EQ(HeldBy(game, kWhite), (Prisoners{{kBlack, kQueen}}));
  EXPECT_EQ(outside.sounds, (Sounds{"sfx_click", "sfx_capturequeen"}));
  EXPECT_TRUE(outside.pawnOptionDialogs.empty());
  EXPECT_TRUE(outside.told.empty()) << "the move is not told";
  EXPECT_EQ(game.random.Next(), Random(5).Next());
  EXPECT_TRUE(game.view.clickPending);
  EXPECT_FALSE(game.turn.gameSaved);
  EXPECT_EQ(game.turn.gameMode, ModeComputerThinks);  // Blue's turn
  EXPECT_EQ(game.match.record.events,
            std::vector<RecordEvent>{RecordEvent::Of(Move::Of(8, 3, 8, 2, kOptionComputer))});
}

// Black keeps four pawns after losing one, so its King goes.
TEST(CarryOutAImove, LackOfMaterialIsToldOnlyToAHumanVictimEvenInANetworkGame) {
  const std::vector<test::Placed> pieces = {
      {8, 8, kWhite, kKnight}, {9, 6, kBlack, kPawn}, {8, 1, kBlack, kKing}, {6, 3, kBlack, kPawn},
      {7, 3, kBlack, kPawn},   {8, 3, kBlack, kPawn}, {9, 3, kBlack, kPawn}};
  for (auto [victim, boxes] : {std::pair{kHuman, 1u}, {kDefensive, 0u}}) {
    Game game = test::EmptyGame(kAlliedNeighbors, pieces);
    game.match.setup.playerKinds[kBlack - 1] = victim;
    game.net.netRole = kNetHosting;
    ScriptedOutside outside;
    Play(game, outside, 8, 8, 9, 6);
    EXPECT_TRUE(game.match.position.kingdomFallen[kBlack - 1]);
    EXPECT_EQ(outside.boxes.size(), boxes);
    EXPECT_EQ(outside.sounds, (Sounds{"sfx_capture", "sfx_captureking"}));
  }
}

TEST(CarryOutAImove, LastKingOfASideEndsTheGameWithoutPassingTheTurn) {
  Game game = test::EmptyGame(kAlliedNeighbors, {{7, 3, kWhite, kPawn}, {8, 2, kBlack, kKing}});
  game.match.position.kingdomFallen[kRed - 1] = true;
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
  EXPECT_EQ(game.match.position.board.at(8, 1), (Square{kWhite, kQueen, kKeep, kWhite}));
  EXPECT_EQ(game.match.position.board.at(8, 2).team, kWhite);
  EXPECT_EQ(game.match.position.board.at(8, 2).piece, kPawn);
  EXPECT_EQ(HeldBy(game, kWhite), (Prisoners{{kBlack, kKing}}));
}

// The first piece is a pawn of the team on turn, in the moat before the keep
// square (toX, toY) that it enters.
std::pair<Game, Sounds> RaidKeep(int gameType, int toX, int toY,
                                 const std::vector<test::Placed>& pieces,
                                 const Prisoners& blacksPrisoners = {}) {
  Game game = test::EmptyGame(gameType, pieces);
  for (const DungeonPiece& prisoner : blacksPrisoners)
    game.match.position.dungeons[kBlack - 1].prisoners.Add(prisoner);
  game.match.position.currentTeam = pieces.front().team;
  ScriptedOutside outside;
  Play(game, outside, pieces.front().x, pieces.front().y, toX, toY);
  outside.sounds.erase(outside.sounds.begin());  // the step's own
  return {game, outside.sounds};
}

constexpr test::Placed kBeforeBlacksKeep{8, 3, kWhite, kPawn};

TEST(ComputerPawnOption, TakesTheOwnersPieceInTheFixedOrder) {
  const auto [queen, queenSounds] =
      RaidKeep(kAnarchy, 8, 2, {kBeforeBlacksKeep, {7, 1, kBlack, kRook}, {9, 2, kBlack, kQueen}});
  EXPECT_EQ(queen.match.position.board.at(8, 2).piece, kNoPiece);  // the pawn is spent
  EXPECT_EQ(queen.match.position.board.at(9, 2).piece, kNoPiece);
  EXPECT_EQ(HeldBy(queen, kWhite), (Prisoners{{kBlack, kQueen}}));
  EXPECT_EQ(queenSounds, Sounds{"sfx_capturequeen"});

  const Game knights = RaidKeep(kAnarchy, 8, 2,
                                {kBeforeBlacksKeep,
                                 {9, 1, kBlack, kKnight},
                                 {7, 1, kBlack, kKnight},
                                 {8, 0, kBlack, kKnight}})
                           .first;
  EXPECT_EQ(knights.match.position.board.at(8, 0).piece, kNoPiece)
      << "lowest row, then lowest column";

  // A guest or a frozen piece is no target, nor is the King.
  const auto [none, noSounds] = RaidKeep(
      kAnarchy, 8, 2,
      {kBeforeBlacksKeep, {7, 1, kRed, kRook}, {9, 1, kBlack, -kQueen}, {8, 1, kBlack, kKing}});
  EXPECT_EQ(none.match.position.board.at(8, 2).piece, kPawn);
  EXPECT_TRUE(noSounds.empty());

  for (auto [x, y, toX, queenX, queenY, owner] :
       {std::array{3, 8, 2, 0, 8, kBlue}, {13, 8, 14, 16, 8, kRed}}) {
    const Game side =
        RaidKeep(kAnarchy, toX, y, {{x, y, kBlack, kPawn}, {queenX, queenY, owner, kQueen}}).first;
    EXPECT_EQ(side.match.position.board.at(queenX, queenY).piece, kNoPiece) << owner;
  }
  const Game white =
      RaidKeep(kAnarchy, 8, 14, {{8, 13, kBlack, kPawn}, {8, 16, kWhite, kQueen}}).first;
  EXPECT_EQ(white.match.position.board.at(8, 16).piece, kNoPiece);
}

TEST(ComputerPawnOption, OtherwiseFreesTheMoversPrisonerInTheFixedOrder) {
  const auto [bishop, bishopSounds] =
      RaidKeep(kAnarchy, 8, 2, {kBeforeBlacksKeep, {8, 1, kBlack, kKing}},
               {{kWhite, kRook}, {kWhite, kKing}, {kWhite, kBishop}});
  EXPECT_EQ(bishop.match.position.board.at(8, 2), (Square{kWhite, kBishop, kKeep, kBlack}));
  EXPECT_EQ(HeldBy(bishop, kBlack), (Prisoners{{kWhite, kRook}, {kWhite, kKing}}));
  EXPECT_EQ(bishopSounds, Sounds{"sfx_newgame"});

  const Game ally =
      RaidKeep(kAlliedNeighbors, 8, 2, {kBeforeBlacksKeep}, {{kBlue, kBishop}, {kWhite, kKing}})
          .first;
  EXPECT_EQ(ally.match.position.board.at(8, 2).piece, kPawn);
  EXPECT_EQ(HeldBy(ally, kBlack).size(), 2u);
}

}  // namespace
}  // namespace varkesh
