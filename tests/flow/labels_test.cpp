// The texts of the turn, piece and game labels.
#include "core/labels.h"

#include "flow_fixture.h"

namespace varkesh::testing {
namespace {

using LabelsTest = FlowTest;

TEST_F(LabelsTest, TheTurnLabelCountsRoundsInOrdinals) {
  const std::pair<int, const char*> rounds[] = {{1, "1st"},   {2, "2nd"},   {3, "3rd"},
                                                {4, "4th"},   {11, "11th"}, {12, "12th"},
                                                {13, "13th"}, {21, "21st"}, {102, "102nd"}};
  for (auto [round, ordinal] : rounds) {
    game.roundNumber = round;
    EXPECT_EQ(TurnText(game), std::string(ordinal) + " Round, White Player (Human)");
  }
  game.roundNumber = 1;
  game.currentTeam = kRed;
  game.playerKinds[kRed - 1] = kDefensive;
  EXPECT_EQ(TurnText(game), "1st Round, Red Player (Defensive)");
  game.playerKinds[kRed - 1] = 9;
  EXPECT_EQ(TurnText(game), "1st Round, Red Player (~~error~~)");
  game.currentTeam = 0;
  EXPECT_EQ(TurnText(game), "1st Round, ~~error~~ (~~error~~)");
}

TEST_F(LabelsTest, ThePieceLabelNamesThePieceAndItsTarget) {
  Put(7, 14, kWhite, kKnight);
  Put(8, 2, kBlack, kQueen);
  Put(8, 1, kRed, kBishop);
  Put(7, 15, kWhite, kBishop);
  Put(6, 2, kBlack, -kRook);
  EXPECT_EQ(PieceText(game, 7, 14, 8, 2), "White's Knight \u00bb\u00bb Black's Queen");
  EXPECT_EQ(PieceText(game, 7, 14, 0, 0), "White's Knight");
  EXPECT_EQ(PieceText(game, 8, 1, 7, 15), "Red's Light Bishop \u00bb\u00bb White's Dark Bishop");
  EXPECT_EQ(PieceText(game, 6, 2, 0, 0), "Black's frozen Rook");
  EXPECT_EQ(PieceText(game, 8, 8, 7, 14), "") << "no piece on the first square";
  EXPECT_EQ(PieceText(game, -1, 40, 0, 0), "");
  EXPECT_EQ(PieceText(game, 7, 14, 99, 3), "White's Knight");
  Put(5, 5, 6, kRook);
  EXPECT_EQ(PieceText(game, 5, 5, 0, 0), "~~error~~ Rook");
}

TEST_F(LabelsTest, TheGameDescriptionNamesTypeAndRule) {
  game.gameName = "Friday";
  game.gameType = kAnarchy;
  game.kingCaptureRule = kKingdomLost;
  EXPECT_EQ(GameDescription(game), "Friday (Anarchy/Kingdom Lost)");
  game.gameType = kCrossroadAllies;
  game.kingCaptureRule = kKingdomFrozen;
  EXPECT_EQ(GameDescription(game), "Friday (Crossroad Allies/Kingdom Frozen)");
  game.gameType = 0;
  game.kingCaptureRule = 5;
  EXPECT_EQ(GameDescription(game), "Friday (~~error~~/~~error~~)");
}

}  // namespace
}  // namespace varkesh::testing
