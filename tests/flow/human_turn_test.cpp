// A human turn walked through the loop's modes 1 to 3 by clicks.
#include "flow_fixture.h"

namespace varkesh::testing {
namespace {

class HumanTurnTest : public FlowTest {
 protected:
  HumanTurnTest() {
    PutArmies();
    Put(8, 8, kWhite, kRook);
    BeginTurn(kWhite);
  }
};

TEST_F(HumanTurnTest, ChoosingAPieceMarksItsDestinationsForTheStrobe) {
  outside.clock = 130.0;
  Click(9, 9);  // unmarked: consumed, nothing chosen
  EXPECT_EQ(game.gameMode, ModeChoosePiece);
  EXPECT_FALSE(game.clickPending);
  Click(8, 8, false);  // a right click is left waiting
  EXPECT_TRUE(game.clickPending);

  Click(8, 8);
  EXPECT_EQ(game.gameMode, ModeChooseDestination);
  EXPECT_EQ(At(8, 10).mark, kMarkDestination);
  EXPECT_EQ(At(6, 14).mark, kMarkMoveable) << "the other pieces stay choosable";
  ASSERT_GT(game.moveablePieces.Count(), 0);
  for (const BoardSquare& square : game.moveablePieces)
    EXPECT_EQ(At(square.x, square.y).mark, kMarkDestination);
  EXPECT_EQ(outside.pieceLabel, "White's Rook");
  EXPECT_EQ(game.turnClock, 130.0);
}

TEST_F(HumanTurnTest, ChangeOfMindAndCancel) {
  int pieces = game.moveablePieces.Count();
  Click(8, 8);
  Click(6, 14);
  EXPECT_EQ(game.gameMode, ModeChooseDestination);
  EXPECT_EQ(game.moveFromX, 6);
  Click(17, 3);  // off the board: dropped, not a cancel
  EXPECT_EQ(game.gameMode, ModeChooseDestination);
  EXPECT_FALSE(game.clickPending);

  Click(9, 9);
  EXPECT_EQ(game.gameMode, ModeChoosePiece);
  EXPECT_EQ(game.moveFromX + game.moveFromY + game.moveToX + game.moveToY, 0);
  EXPECT_EQ(game.moveablePieces.Count(), pieces);
  EXPECT_EQ(At(8, 10).mark, kUnmarked);
}

TEST_F(HumanTurnTest, OnlyARightClickOnTheDestinationMoves) {
  Click(8, 8);
  Click(8, 10);
  EXPECT_EQ(game.gameMode, ModeConfirmMove);
  outside.clock = 150.0;
  Click(8, 10);
  EXPECT_EQ(game.gameMode, ModeConfirmMove);
  EXPECT_EQ(game.turnClock, 150.0);
  Click(8, 11, false);  // a right click elsewhere is dropped
  EXPECT_FALSE(game.clickPending);
  EXPECT_EQ(At(8, 8).piece, kRook);
  Click(8, 9);  // another destination; the marks stayed
  EXPECT_EQ(game.moveToY, 9);
  Click(6, 14);  // or another piece
  EXPECT_EQ(game.gameMode, ModeChooseDestination);

  PlayMove(8, 8, 8, 10);
  EXPECT_EQ(At(8, 10).piece, kRook);
  EXPECT_EQ(At(8, 8).piece, kNoPiece);
  EXPECT_EQ(game.currentTeam, kBlue);
  EXPECT_EQ(game.gameMode, ModeChoosePiece);
  EXPECT_EQ(outside.turnLabel, "1st Round, Blue Player (Human)");
  EXPECT_EQ(outside.pieceLabel, "");
}

TEST_F(HumanTurnTest, AnotherMachinesSeatIgnoresClicks) {
  game.netRole = kNetHosting;
  game.seatNode = {1, 0, 0, 0};
  Click(8, 8);
  EXPECT_EQ(game.gameMode, ModeChoosePiece);
  EXPECT_FALSE(game.clickPending);
  EXPECT_FALSE(outside.IsMenuEnabled(Menu::Resign));

  game.myNodeId = 1;
  game.netRole = kNetClient;
  Click(8, 8);
  EXPECT_EQ(game.gameMode, ModeChooseDestination);
  EXPECT_TRUE(outside.IsMenuEnabled(Menu::Resign));
}

TEST_F(HumanTurnTest, SelectionsAndTheMoveAreSentToTheSession) {
  game.netRole = kNetHosting;
  Click(8, 8);
  ASSERT_EQ(outside.sent.size(), 2u);
  EXPECT_EQ(outside.sent[0].message, "GUPM}" + Fields({8, 8, 0, 0}));
  EXPECT_EQ(outside.sent[1].message, "GUGS}2");
  EXPECT_TRUE(outside.sent[0].toAll);

  game.netRole = kNetClient;
  outside.sent.clear();
  Click(8, 10);
  Click(8, 10, false);
  EXPECT_EQ(SentMessages(), (std::vector<std::string>{"GUPM}" + Fields({8, 8, 8, 10}), "GUGS}3",
                                                      "GAMV}" + Fields({0, 0, 0})}));
  for (const auto& message : outside.sent) EXPECT_FALSE(message.toAll);
}

TEST_F(HumanTurnTest, HintsComeAfterTenSecondsOfWaiting) {
  game.turnClock = outside.clock;
  outside.clock += 10.0;
  Pass();
  EXPECT_EQ(view.hints, 0);
  outside.clock += 0.5;
  Pass();
  EXPECT_EQ(view.hints, 1);
  Click(8, 8);  // a selection starts the wait again
  Pass();
  EXPECT_EQ(view.hints, 2);

  outside.SetMenuChecked(Menu::OptionsHints, false);
  outside.clock += 20.0;
  Pass();
  EXPECT_EQ(view.hints, 2);
}

}  // namespace
}  // namespace varkesh::testing
