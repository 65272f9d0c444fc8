#include <gtest/gtest.h>

#include "ai/computer.h"
#include "ai_fixture.h"
#include "flow/scripted_outside.h"

namespace varkesh {
namespace {

using test::Put;

// A White pawn that has just stepped into Black's keep on (8, 2).
Game PawnInBlacksKeep(int gameType = kAnarchy) {
  Game game = test::EmptyGame(gameType);
  Put(game.board, 8, 2, kWhite, kPawn);
  game.moveToX = 8;
  game.moveToY = 2;
  return game;
}

void Imprison(Game& game, int holder, int team, int piece) {
  game.dungeons[static_cast<std::size_t>(holder - 1)].prisoners.Add({team, piece});
}

TEST(AIpawnOptions, TakesTheMostValuableKindFirst) {
  Game game = PawnInBlacksKeep();
  Put(game.board, 7, 1, kBlack, kRook);
  Put(game.board, 9, 2, kBlack, kQueen);
  Put(game.board, 8, 0, kBlack, kKing);
  ScriptedOutside outside;
  AIpawnOptions(game, outside);
  EXPECT_EQ(game.board.at(9, 2).piece, kNoPiece);
  EXPECT_EQ(game.board.at(9, 2).team, kNoTeam);
  EXPECT_EQ(game.board.at(8, 2).piece, kNoPiece);
  EXPECT_EQ(game.board.at(8, 2).team, kNoTeam);
  EXPECT_EQ(game.board.at(7, 1).piece, kRook);
  EXPECT_EQ(game.dungeons[0].prisoners[1], (DungeonPiece{kBlack, kQueen}));
  EXPECT_EQ(outside.sounds, std::vector<std::string>{"sfx_capturequeen"});
}

TEST(AIpawnOptions, LowerRowThenLowerColumnAmongEqualKinds) {
  Game game = PawnInBlacksKeep();
  Put(game.board, 9, 1, kBlack, kKnight);
  Put(game.board, 7, 1, kBlack, kKnight);
  Put(game.board, 8, 0, kBlack, kKnight);
  ScriptedOutside outside;
  AIpawnOptions(game, outside);
  EXPECT_EQ(game.board.at(8, 0).piece, kNoPiece);
  game.board.at(8, 2) = {kWhite, kPawn, 0, kKeep, kBlack};
  AIpawnOptions(game, outside);
  EXPECT_EQ(game.board.at(7, 1).piece, kNoPiece);
  EXPECT_EQ(game.board.at(9, 1).piece, kKnight);
}

TEST(AIpawnOptions, OnlyTheKeepOwnersLivePiecesAreTargets) {
  Game game = PawnInBlacksKeep();
  Put(game.board, 7, 1, kRed, kRook);
  Put(game.board, 9, 1, kBlack, -kQueen);
  Put(game.board, 8, 1, kBlack, kKing);
  ScriptedOutside outside;
  AIpawnOptions(game, outside);
  EXPECT_EQ(game.board.at(7, 1).piece, kRook);
  EXPECT_EQ(game.board.at(9, 1).piece, -kQueen);
  EXPECT_EQ(game.board.at(8, 2).piece, kPawn);  // nothing to do: the pawn stays
  EXPECT_TRUE(outside.sounds.empty());
}

TEST(AIpawnOptions, FreesTheMoversMostValuablePrisoner) {
  Game game = PawnInBlacksKeep();
  Put(game.board, 8, 1, kBlack, kKing);
  Imprison(game, kBlack, kWhite, kRook);
  Imprison(game, kBlack, kWhite, kKing);
  Imprison(game, kBlack, kWhite, kBishop);
  ScriptedOutside outside;
  AIpawnOptions(game, outside);
  EXPECT_EQ(game.board.at(8, 2).piece, kBishop);
  EXPECT_EQ(game.board.at(8, 2).team, kWhite);
  ASSERT_EQ(game.dungeons[2].PrisonerCount(), 2);
  EXPECT_EQ(game.dungeons[2].prisoners[1], (DungeonPiece{kWhite, kRook}));
  EXPECT_EQ(game.dungeons[2].prisoners[2], (DungeonPiece{kWhite, kKing}));
  EXPECT_EQ(outside.sounds, std::vector<std::string>{"sfx_newgame"});
}

TEST(AIpawnOptions, AnAllysPrisonerStaysAndSoDoesTheKing) {
  Game game = PawnInBlacksKeep(kAlliedNeighbors);
  Imprison(game, kBlack, kBlue, kBishop);
  Imprison(game, kBlack, kWhite, kKing);
  ScriptedOutside outside;
  AIpawnOptions(game, outside);
  EXPECT_EQ(game.board.at(8, 2).piece, kPawn);
  EXPECT_EQ(game.dungeons[2].PrisonerCount(), 2);
  EXPECT_TRUE(outside.sounds.empty());
}

TEST(AIpawnOptions, FindsTheKeepOnEachSide) {
  struct Side {
    int pawnX, pawnY, queenX, queenY, owner;
  };
  for (const Side& side : {Side{2, 8, 0, 8, kBlue}, Side{14, 8, 16, 8, kRed},
                           Side{8, 2, 8, 0, kBlack}, Side{8, 14, 8, 16, kWhite}}) {
    Game game = test::EmptyGame(kAnarchy);
    const int raider = side.owner == kWhite ? kRed : kWhite;
    game.currentTeam = raider;
    Put(game.board, side.pawnX, side.pawnY, raider, kPawn);
    Put(game.board, side.queenX, side.queenY, side.owner, kQueen);
    game.moveToX = side.pawnX;
    game.moveToY = side.pawnY;
    ScriptedOutside outside;
    AIpawnOptions(game, outside);
    EXPECT_EQ(game.board.at(side.queenX, side.queenY).piece, kNoPiece) << side.owner;
  }
}

TEST(AIpawnOptions, FallenKeepOffersNothing) {
  Game game = PawnInBlacksKeep();
  for (Square& square : game.board.squares)
    if (square.realm == kBlack) square.realm = kNoTeam;
  Put(game.board, 7, 1, kBlack, -kQueen);
  ScriptedOutside outside;
  AIpawnOptions(game, outside);
  EXPECT_EQ(game.board.at(8, 2).piece, kPawn);
}

}  // namespace
}  // namespace varkesh
