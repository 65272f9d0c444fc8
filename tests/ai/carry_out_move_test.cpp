#include <gtest/gtest.h>

#include "ai/computer.h"
#include "ai_fixture.h"
#include "flow/scripted_outside.h"

namespace varkesh {
namespace {

using test::Put;
using Sounds = std::vector<std::string>;

// A computer White with every other seat a computer too, unless a test says so.
Game Computers(int gameType = kAlliedNeighbors) {
  Game game = test::EmptyGame(gameType);
  game.playerKinds = {kBalanced, kBalanced, kBalanced, kBalanced};
  game.gameMode = ModeComputerMoves;
  return game;
}

void Play(Game& game, Outside& outside, int fromX, int fromY, int toX, int toY) {
  game.moveFromX = fromX;
  game.moveFromY = fromY;
  game.moveToX = toX;
  game.moveToY = toY;
  CarryOutAImove(game, outside);
}

TEST(CarryOutAImove, CastleMoveExchangesKingAndCastlePawn) {
  Game game = Computers();
  Put(game.board, 8, 15, kWhite, kKing);
  Put(game.board, 8, 16, kWhite, kCastlePawn);
  ScriptedOutside outside;
  Play(game, outside, 8, 15, 8, 16);
  EXPECT_EQ(game.board.at(8, 16).piece, kKing);
  EXPECT_EQ(game.board.at(8, 15).piece, kCastlePawn);
  EXPECT_EQ(game.board.at(8, 15).team, kWhite);
  EXPECT_FALSE(game.castleRight[0]);
  EXPECT_TRUE(game.castleRight[1]);
  for (const Dungeon& dungeon : game.dungeons) EXPECT_EQ(dungeon.PrisonerCount(), 0);
  EXPECT_EQ(game.history[0], (HistoryMove{8, 15, 8, 16, kWhite, false}));
  EXPECT_EQ(outside.sounds, Sounds{"sfx_click"});
  EXPECT_FALSE(game.gameSaved);
  EXPECT_EQ(game.currentTeam, kBlue);
  EXPECT_EQ(game.gameMode, ModeComputerThinks);
}

TEST(CarryOutAImove, KingToAnEmptyCornerIsAPlainMove) {
  Game game = Computers();
  Put(game.board, 8, 15, kWhite, kKing);
  ScriptedOutside outside;
  Play(game, outside, 8, 15, 8, 16);
  EXPECT_EQ(game.board.at(8, 16).piece, kKing);
  EXPECT_EQ(game.board.at(8, 15).piece, kNoPiece);
  EXPECT_EQ(game.board.at(8, 15).team, kNoTeam);
  EXPECT_FALSE(game.castleRight[0]);
  EXPECT_FALSE(game.history[0].wasCapture);
}

TEST(CarryOutAImove, CapturesFillTheDungeonExceptForPawns) {
  Game game = Computers();
  Put(game.board, 8, 8, kWhite, kRook);
  Put(game.board, 8, 5, kBlack, kBishop);
  Put(game.board, 4, 4, kBlack, kQueen);
  Put(game.board, 4, 5, kBlack, kQueen);
  Put(game.board, 4, 6, kBlack, kKing);
  Put(game.board, 4, 7, kBlack, kPawn);  // enough material to stand
  ScriptedOutside outside;
  Play(game, outside, 8, 8, 8, 5);
  EXPECT_EQ(game.dungeons[0].prisoners[1], (DungeonPiece{kBlack, kBishop}));
  EXPECT_EQ(outside.sounds, Sounds{"sfx_capturequeen"});
  EXPECT_TRUE(game.history[0].wasCapture);

  // Taking another team's Castle Pawn ends the mover's own castle right.
  game.currentTeam = kWhite;
  Put(game.board, 8, 4, kBlack, kCastlePawn);
  Play(game, outside, 8, 5, 8, 4);
  EXPECT_EQ(game.dungeons[0].PrisonerCount(), 1);
  EXPECT_FALSE(game.castleRight[0]);
  EXPECT_TRUE(game.castleRight[2]);
  EXPECT_EQ(outside.sounds.back(), "sfx_capture");
}

TEST(CarryOutAImove, KingCaptureAppliesTheFateBeforeTheCaptorLands) {
  Game game = Computers();
  game.kingCaptureRule = kKingdomFrozen;
  Put(game.board, 8, 8, kWhite, kRook);
  Put(game.board, 8, 4, kBlack, kKing);
  Put(game.board, 2, 8, kBlack, kQueen);
  ScriptedOutside outside;
  Play(game, outside, 8, 8, 8, 4);
  EXPECT_EQ(game.board.at(8, 4).piece, kRook);
  EXPECT_EQ(game.board.at(8, 4).team, kWhite);
  EXPECT_EQ(game.board.at(2, 8).piece, -kQueen);
  EXPECT_TRUE(game.kingdomFallen[2]);
  EXPECT_EQ(game.dungeons[0].prisoners[1], (DungeonPiece{kBlack, kKing}));
  EXPECT_EQ(outside.sounds, Sounds{"sfx_captureking"});
  EXPECT_EQ(game.currentTeam, kBlue);
}

struct LackOfMaterialCase {
  int victimKind;
  int netRole;
  bool messageShown;
};

class LackOfMaterialVictim : public testing::TestWithParam<LackOfMaterialCase> {};

// Black keeps four pawns after losing one: its King goes to White's dungeon.
TEST_P(LackOfMaterialVictim, KingIsRemovedAndTheKingdomGained) {
  Game game = Computers();
  game.playerKinds[2] = GetParam().victimKind;
  game.netRole = GetParam().netRole;
  Put(game.board, 8, 8, kWhite, kKnight);
  Put(game.board, 9, 6, kBlack, kPawn);
  for (int x = 6; x <= 9; ++x) Put(game.board, x, 3, kBlack, kPawn);
  Put(game.board, 8, 1, kBlack, kKing);
  ScriptedOutside outside;
  Play(game, outside, 8, 8, 9, 6);

  EXPECT_EQ(game.board.at(8, 1).piece, kNoPiece);
  EXPECT_EQ(game.board.at(8, 1).team, kNoTeam);
  EXPECT_EQ(game.dungeons[0].PrisonerCount(), 1);
  EXPECT_EQ(game.dungeons[0].prisoners[1], (DungeonPiece{kBlack, kKing}));
  EXPECT_TRUE(game.kingdomFallen[2]);
  for (int x = 6; x <= 9; ++x) EXPECT_EQ(game.board.at(x, 3).team, kWhite);
  EXPECT_EQ(outside.sounds, (Sounds{"sfx_capture", "sfx_captureking"}));
  if (GetParam().messageShown) {
    ASSERT_EQ(outside.messages.size(), 1u);
    EXPECT_EQ(outside.messages[0].title, "Lack of Material");
    EXPECT_EQ(outside.messages[0].text,
              "Black King is removed from the game due to lack of materials.");
  } else {
    EXPECT_TRUE(outside.messages.empty());
  }
}

INSTANTIATE_TEST_SUITE_P(CarryOutAImove, LackOfMaterialVictim,
                         testing::Values(LackOfMaterialCase{kHuman, kNetNone, true},
                                         LackOfMaterialCase{kDefensive, kNetNone, false},
                                         LackOfMaterialCase{kDefensive, kNetHosting, false}));

TEST(CarryOutAImove, LastKingOfASideEndsTheGameWithoutPassingTheTurn) {
  Game game = Computers();
  game.kingdomFallen[3] = true;  // Red
  Put(game.board, 7, 3, kWhite, kPawn);
  Put(game.board, 8, 2, kBlack, kKing);
  ScriptedOutside outside;
  outside.SetMenuEnabled(Menu::Resign, true);
  game.clickPending = true;
  Play(game, outside, 7, 3, 8, 2);
  EXPECT_EQ(game.gameMode, ModeVictorySetUp);
  EXPECT_EQ(game.winner, kWhite);
  EXPECT_EQ(game.coWinner, kBlue);
  EXPECT_EQ(game.currentTeam, kWhite);
  EXPECT_EQ(game.board.at(8, 2).piece, kPawn);
  // Left to the main loop: the Resign menu and the pending click.
  EXPECT_TRUE(outside.IsMenuEnabled(Menu::Resign));
  EXPECT_TRUE(game.clickPending);
}

TEST(CarryOutAImove, PawnIntoAKeepRaidsWithoutADialogOrMessage) {
  Game game = Computers();
  game.netRole = kNetHosting;
  game.pendingMoveMessage = "untouched";
  Put(game.board, 8, 3, kWhite, kPawn);
  Put(game.board, 7, 1, kBlack, kQueen);
  Put(game.board, 9, 1, kBlack, kKing);
  ScriptedOutside outside;
  Play(game, outside, 8, 3, 8, 2);
  EXPECT_EQ(game.board.at(8, 2).piece, kNoPiece);
  EXPECT_EQ(game.board.at(7, 1).piece, kNoPiece);
  EXPECT_EQ(game.dungeons[0].prisoners[1], (DungeonPiece{kBlack, kQueen}));
  EXPECT_EQ(outside.sounds, (Sounds{"sfx_click", "sfx_capturequeen"}));
  EXPECT_TRUE(outside.pawnOptionDialogs.empty());
  EXPECT_TRUE(outside.sent.empty());
  EXPECT_EQ(game.pendingMoveMessage, "untouched");
}

TEST(CarryOutAImove, CastlePawnRaidsOnlyAHostileKeep) {
  Game game = Computers(kAlliedNeighbors);
  Put(game.board, 3, 8, kWhite, kCastlePawn);  // into Blue's keep: an ally's
  Put(game.board, 1, 8, kBlue, kQueen);
  ScriptedOutside outside;
  Play(game, outside, 3, 8, 2, 8);
  EXPECT_EQ(game.board.at(2, 8).piece, kCastlePawn);
  EXPECT_EQ(game.board.at(1, 8).piece, kQueen);

  game.gameType = kAnarchy;
  game.currentTeam = kWhite;
  Play(game, outside, 2, 8, 2, 9);
  EXPECT_EQ(game.board.at(2, 9).piece, kNoPiece);
  EXPECT_EQ(game.board.at(1, 8).piece, kNoPiece);
}

TEST(CarryOutAImove, TurnSkipsFallenTeamsAndCountsTheRound) {
  Game game = Computers(kAnarchy);
  game.kingdomFallen = {true, true, false, false};
  game.currentTeam = kRed;
  game.playerKinds[2] = kHuman;
  Put(game.board, 8, 8, kRed, kRook);
  Put(game.board, 8, 2, kBlack, kRook);
  ScriptedOutside outside;
  outside.clock = 12.5;
  Play(game, outside, 8, 8, 9, 8);
  EXPECT_EQ(game.currentTeam, kBlack);
  EXPECT_EQ(game.roundNumber, 2);
  EXPECT_EQ(game.gameMode, ModeChoosePiece);
  EXPECT_EQ(game.turnClock, 12.5);
  EXPECT_EQ(game.board.at(8, 2).mark, kMarkMoveable);
}

TEST(CarryOutAImove, DrawsNoRandomNumbers) {
  Game game = Computers();
  game.random = Random(5);
  Put(game.board, 8, 8, kWhite, kRook);
  ScriptedOutside outside;
  Play(game, outside, 8, 8, 8, 9);
  EXPECT_EQ(game.random.Next(), Random(5).Next());
}

TEST(CarryOutAImove, ASilentGameWithoutSoundEffects) {
  Game game = Computers();
  Put(game.board, 8, 8, kWhite, kRook);
  ScriptedOutside outside;
  outside.SetMenuChecked(Menu::OptionsSfx, false);
  Play(game, outside, 8, 8, 8, 9);
  EXPECT_TRUE(outside.sounds.empty());
}

}  // namespace
}  // namespace varkesh
