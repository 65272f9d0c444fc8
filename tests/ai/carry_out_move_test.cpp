#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "ai/computer.h"
#include "ai_fixture.h"
#include "flow/scripted_outside.h"

namespace varkesh {
namespace {

using Sounds = std::vector<std::string>;

void Play(Game& game, Outside& outside, int fromX, int fromY, int toX, int toY) {
  game.moveFromX = fromX;
  game.moveFromY = fromY;
  game.moveToX = toX;
  game.moveToY = toY;
  CarryOutAImove(game, outside);
}

TEST(CarryOutAImove, CastleMoveAndKingToAnEmptyCorner) {
  Game game =
      test::EmptyGame(kAlliedNeighbors, {{8, 15, kWhite, kKing}, {8, 16, kWhite, kCastlePawn}});
  game.random = Random(5);
  ScriptedOutside outside;
  Play(game, outside, 8, 15, 8, 16);
  EXPECT_EQ(game.board.at(8, 16).piece, kKing);
  EXPECT_EQ(game.board.at(8, 15), (Square{kWhite, kCastlePawn, 0, kKeep, kWhite}));
  EXPECT_EQ(game.castleRight, (PerTeam<bool>{false, true, true, true}));
  EXPECT_EQ(game.dungeons[0].PrisonerCount(), 0);
  EXPECT_EQ(game.history[0], (HistoryMove{8, 15, 8, 16, kWhite, false}));
  EXPECT_EQ(outside.sounds, Sounds{"sfx_click"});
  EXPECT_FALSE(game.gameSaved);
  EXPECT_EQ(game.currentTeam, kBlue);
  EXPECT_EQ(game.gameMode, ModeComputerThinks);
  EXPECT_EQ(game.random.Next(), Random(5).Next());  // no draw: every machine agrees

  Game corner = test::EmptyGame(kAlliedNeighbors, {{8, 15, kWhite, kKing}});
  Play(corner, outside, 8, 15, 8, 16);
  EXPECT_EQ(corner.board.at(8, 16).piece, kKing);
  EXPECT_EQ(corner.board.at(8, 15), (Square{kNoTeam, kNoPiece, 0, kKeep, kWhite}));
  EXPECT_FALSE(corner.castleRight[0]);
}

TEST(CarryOutAImove, CapturesFillTheCaptorsDungeonExceptForPawns) {
  Game game = test::EmptyGame(kAlliedNeighbors, {{8, 8, kWhite, kRook},
                                                 {8, 5, kBlack, kBishop},
                                                 {8, 4, kBlack, kCastlePawn},
                                                 {4, 4, kBlack, kQueen},
                                                 {4, 5, kBlack, kQueen},
                                                 {4, 7, kBlack, kPawn}});
  ScriptedOutside outside;
  Play(game, outside, 8, 8, 8, 5);
  game.currentTeam = kWhite;
  Play(game, outside, 8, 5, 8, 4);
  ASSERT_EQ(game.dungeons[0].PrisonerCount(), 1);
  EXPECT_EQ(game.dungeons[0].prisoners[1], (DungeonPiece{kBlack, kBishop}));
  EXPECT_EQ(outside.sounds, (Sounds{"sfx_capturequeen", "sfx_capture"}));
  EXPECT_TRUE(game.history[0].wasCapture);
  // Taking another team's Castle Pawn ends the mover's right, not the owner's.
  EXPECT_EQ(game.castleRight, (PerTeam<bool>{false, true, true, true}));
}

TEST(CarryOutAImove, KingCaptureMeetsItsFateBeforeTheCaptorLands) {
  Game game = test::EmptyGame(
      kAlliedNeighbors, {{8, 8, kWhite, kRook}, {8, 4, kBlack, kKing}, {2, 8, kBlack, kQueen}});
  game.kingCaptureRule = kKingdomFrozen;
  ScriptedOutside outside;
  Play(game, outside, 8, 8, 8, 4);
  EXPECT_EQ(game.board.at(8, 4), (Square{kWhite, kRook, 0, kBattlefield, kNoTeam}));
  EXPECT_EQ(game.board.at(2, 8).piece, -kQueen);
  EXPECT_TRUE(game.kingdomFallen[2]);
  EXPECT_EQ(game.dungeons[0].prisoners[1], (DungeonPiece{kBlack, kKing}));
  EXPECT_EQ(outside.sounds, Sounds{"sfx_captureking"});
}

// Black keeps four pawns after losing one: its King goes to White's dungeon
// and its kingdom to White. Only a human victim is told, whatever the role.
TEST(CarryOutAImove, LackOfMaterialRemovesTheKing) {
  for (auto [victim, netRole] :
       {std::pair{kHuman, kNetNone}, {kDefensive, kNetNone}, {kDefensive, kNetHosting}}) {
    Game game = test::EmptyGame(kAlliedNeighbors, {{8, 8, kWhite, kKnight},
                                                   {9, 6, kBlack, kPawn},
                                                   {8, 1, kBlack, kKing},
                                                   {6, 3, kBlack, kPawn},
                                                   {7, 3, kBlack, kPawn},
                                                   {8, 3, kBlack, kPawn},
                                                   {9, 3, kBlack, kPawn}});
    game.playerKinds[2] = victim;
    game.netRole = netRole;
    ScriptedOutside outside;
    Play(game, outside, 8, 8, 9, 6);
    EXPECT_EQ(game.board.at(8, 1).piece, kNoPiece);
    EXPECT_EQ(game.board.at(8, 1).team, kNoTeam);
    EXPECT_EQ(game.dungeons[0].prisoners.Count(), 1);
    EXPECT_EQ(game.dungeons[0].prisoners[1], (DungeonPiece{kBlack, kKing}));
    EXPECT_TRUE(game.kingdomFallen[2]);
    EXPECT_EQ(game.board.at(6, 3).team, kWhite);
    EXPECT_EQ(outside.sounds, (Sounds{"sfx_capture", "sfx_captureking"}));
    ASSERT_EQ(outside.messages.size(), victim == kHuman ? 1u : 0u) << netRole;
    if (victim == kHuman) {
      EXPECT_EQ(outside.messages[0].title, "Lack of Material");
      EXPECT_EQ(outside.messages[0].text,
                "Black King is removed from the game due to lack of materials.");
    }
  }
}

// The game ends with the pawn standing in Black's keep: no turn passes, and
// the Resign menu and the pending click are the main loop's business.
TEST(CarryOutAImove, LastKingOfASideEndsTheGame) {
  Game game = test::EmptyGame(kAlliedNeighbors, {{7, 3, kWhite, kPawn}, {8, 2, kBlack, kKing}});
  game.kingdomFallen[3] = true;
  game.clickPending = true;
  ScriptedOutside outside;
  outside.SetMenuEnabled(Menu::Resign, true);
  Play(game, outside, 7, 3, 8, 2);
  EXPECT_EQ(game.gameMode, ModeVictorySetUp);
  EXPECT_EQ(game.winner, kWhite);
  EXPECT_EQ(game.coWinner, kBlue);
  EXPECT_EQ(game.currentTeam, kWhite);
  EXPECT_EQ(game.board.at(8, 2).piece, kPawn);
  EXPECT_TRUE(outside.IsMenuEnabled(Menu::Resign));
  EXPECT_TRUE(game.clickPending);
}

TEST(CarryOutAImove, PawnOptionsWithoutADialogOrAMessage) {
  Game game = test::EmptyGame(kAlliedNeighbors, {{8, 3, kWhite, kPawn},
                                                 {7, 1, kBlack, kQueen},
                                                 {9, 1, kBlack, kKing},
                                                 {3, 8, kWhite, kCastlePawn},
                                                 {1, 8, kBlue, kQueen}});
  game.netRole = kNetHosting;
  game.pendingMoveMessage = "untouched";
  ScriptedOutside outside;
  Play(game, outside, 8, 3, 8, 2);
  EXPECT_EQ(game.board.at(8, 2).piece, kNoPiece);
  EXPECT_EQ(game.dungeons[0].prisoners[1], (DungeonPiece{kBlack, kQueen}));
  EXPECT_EQ(outside.sounds, (Sounds{"sfx_click", "sfx_capturequeen"}));
  EXPECT_TRUE(outside.pawnOptionDialogs.empty());
  EXPECT_TRUE(outside.sent.empty());
  EXPECT_EQ(game.pendingMoveMessage, "untouched");

  game.currentTeam = kWhite;  // a Castle Pawn in an ally's keep does nothing
  Play(game, outside, 3, 8, 2, 8);
  EXPECT_EQ(game.board.at(2, 8).piece, kCastlePawn);
  EXPECT_EQ(game.board.at(1, 8).piece, kQueen);
}

}  // namespace
}  // namespace varkesh
