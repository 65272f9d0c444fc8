// A pawn in a hostile keep: what the dialog offers and what each pick does.
#include "core/pawn_options.h"

#include "core/dungeon.h"
#include "flow_fixture.h"

namespace varkesh::testing {
namespace {

// A White Pawn at (9, 3) steps into Black's keep at (9, 2), where a Black
// Rook and Queen stand; Black holds a White Knight and a White Queen.
class PawnOptionsTest : public FlowTest {
 protected:
  PawnOptionsTest() {
    Put(8, 15, kWhite, kKing);
    Put(8, 14, kWhite, kQueen);
    Put(6, 14, kWhite, kRook);
    Put(9, 3, kWhite, kPawn);
    Put(8, 0, kBlack, kKing);
    Put(7, 1, kBlack, kRook);
    Put(8, 2, kBlack, kQueen);
    AddPieceToDungeon(game, kBlack, kWhite, kKnight);
    AddPieceToDungeon(game, kBlack, kWhite, kQueen);
  }

  void EnterKeep() {
    BeginTurn(kWhite);
    PlayMove(9, 3, 9, 2);
  }

  std::vector<std::string> Lines() {
    std::vector<std::string> lines;
    for (const PawnOption& option : ListPawnOptions(game, 9, 2)) lines.push_back(option.text);
    return lines;
  }
};

TEST_F(PawnOptionsTest, CapturesComeFirstThenTheTeamsOwnPrisoners) {
  Put(9, 1, kBlue, kKing);                         // a King is never offered
  Put(10, 2, kRed, kBishop);                       // any hostile piece in the keep is
  Put(7, 2, kBlack, -kKnight);                     // a frozen piece is not
  AddPieceToDungeon(game, kBlack, kBlue, kRook);   // nor another team's prisoner
  AddPieceToDungeon(game, kBlack, kWhite, kKing);  // nor a King
  AddPieceToDungeon(game, kBlack, kWhite, kCastlePawn);
  Put(9, 2, kWhite, kPawn);
  EXPECT_EQ(Lines(), (std::vector<std::string>{"Capture Black's Rook", "Capture Black's Queen",
                                               "Capture Red's Dark Bishop", "Free your Knight",
                                               "Free your Queen", "Free your Castle Pawn"}));
  game.gameType = kCrossroadAllies;  // Black is White's ally now, Blue an enemy
  Put(8, 1, kBlue, kBishop);
  EXPECT_EQ(Lines(), (std::vector<std::string>{"Capture Blue's Light Bishop",
                                               "Capture Red's Dark Bishop", "Free your Knight",
                                               "Free your Queen", "Free your Castle Pawn"}));
}

TEST_F(PawnOptionsTest, FreeingAPrisonerTurnsThePawnIntoIt) {
  outside.pawnOptionPicks.push_back(3);
  EnterKeep();
  EXPECT_EQ(At(9, 2).team, kWhite);
  EXPECT_EQ(At(9, 2).piece, kQueen);
  const Dungeon& black = game.dungeons[kBlack - 1];
  ASSERT_EQ(black.PrisonerCount(), 1);
  EXPECT_EQ(black.prisoners[1], (DungeonPiece{kWhite, kKnight}));
  EXPECT_EQ(game.pendingMoveMessage, "GAMV}" + Fields({2, 2, 0}));
  EXPECT_EQ(outside.sounds.back(), "sfx_newgame");
  EXPECT_EQ(game.currentTeam, kBlue);
}

TEST_F(PawnOptionsTest, CapturingSpendsThePawn) {
  outside.pawnOptionPicks.push_back(1);
  EnterKeep();
  EXPECT_EQ(At(8, 2).piece, kNoPiece);
  EXPECT_EQ(At(9, 2).piece, kNoPiece);
  EXPECT_EQ(game.dungeons[kWhite - 1].prisoners[1], (DungeonPiece{kBlack, kQueen}));
  EXPECT_EQ(game.pendingMoveMessage, "GAMV}" + Fields({1, 8, 2}));
  EXPECT_EQ(outside.sounds.back(), "sfx_capturequeen");
}

TEST_F(PawnOptionsTest, ClosingTheDialogAppliesNothing) {
  game.netRole = kNetHosting;
  EnterKeep();
  EXPECT_EQ(At(9, 2).piece, kPawn);
  EXPECT_EQ(game.dungeons[kBlack - 1].PrisonerCount(), 2);
  EXPECT_EQ(SentMessages().back(), "GAMV}" + Fields({0, 0, 0}));
}

TEST_F(PawnOptionsTest, APawnWithoutOptionsIsLostWithoutADialog) {
  Put(7, 1, kWhite, kRook);  // the pawn's own pieces are no option
  Put(8, 2, kNoTeam, kNoPiece);
  game.dungeons[kBlack - 1].prisoners.Clear();
  EnterKeep();
  EXPECT_TRUE(outside.pawnOptionDialogs.empty());
  EXPECT_EQ(At(9, 2).team, kNoTeam);
  EXPECT_EQ(At(9, 2).piece, kNoPiece);
  EXPECT_EQ(game.pendingMoveMessage, "GAMV}" + Fields({3, 0, 0}));
}

TEST_F(PawnOptionsTest, ACastlePawnIsAskedOnEachMoveInAHostileKeep) {
  game.gameType = kAlliedNeighbors;
  Put(1, 7, kWhite, kCastlePawn);  // Blue's keep: an ally's
  EXPECT_FALSE(PawnOptionsDue(game, 1, 7));
  Put(8, 16, kWhite, kCastlePawn);  // its own
  EXPECT_FALSE(PawnOptionsDue(game, 8, 16));

  Put(9, 3, kNoTeam, kNoPiece);
  Put(9, 2, kWhite, kCastlePawn);
  BeginTurn(kWhite);
  PlayMove(9, 2, 9, 1);
  ASSERT_EQ(outside.pawnOptionDialogs.size(), 1u);
  EXPECT_EQ(outside.pawnOptionDialogs[0][0], "Capture Black's Rook");
}

}  // namespace
}  // namespace varkesh::testing
