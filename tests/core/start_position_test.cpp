#include <gtest/gtest.h>

#include <map>

#include "core/new_game_data.h"
#include "core/rules.h"

namespace varkesh {
namespace {

Game StartPosition() {
  Game game;
  LoadNewGameDataFile(game, std::string(VARKESH_PACK_DIR) + "/newgamedata.txt");
  return game;
}

// The square a quarter turn clockwise about (8, 8) gives.
BoardSquare TurnClockwise(int x, int y) {
  return {16 - y, x};
}

TEST(StartPosition, SixteenPiecesATeamOnItsOwnMoatAndKeep) {
  Game game = StartPosition();
  std::map<int, std::map<int, int>> kinds;  // team -> kind -> count
  int live = 0;
  for (int y = 0; y < kBoardSide; ++y) {
    for (int x = 0; x < kBoardSide; ++x) {
      const Square& square = game.board.at(x, y);
      if (square.piece == kNoPiece && square.team == kNoTeam) continue;
      ASSERT_GE(square.team, kWhite) << x << "," << y;
      ASSERT_LE(square.team, kRed);
      ASSERT_GE(square.piece, kPawn);
      ASSERT_LE(square.piece, kKing);
      ++live;
      ++kinds[square.team][square.piece];
      EXPECT_EQ(square.realm, square.team) << "outside its realm: " << x << "," << y;
      EXPECT_EQ(square.terrain, square.piece == kPawn ? kMoat : kKeep) << x << "," << y;
    }
  }
  EXPECT_EQ(live, 64);  // more than 50: the computer's opening
  for (int team = kWhite; team <= kRed; ++team) {
    EXPECT_EQ(kinds[team][kPawn], 7);
    EXPECT_EQ(kinds[team][kCastlePawn], 1);
    EXPECT_EQ(kinds[team][kKnight], 2);
    EXPECT_EQ(kinds[team][kKing], 1);
    EXPECT_EQ(kinds[team][kBishop] + kinds[team][kRook] + kinds[team][kQueen], 5);
  }
}

TEST(StartPosition, EachTeamIsWhitesLayoutTurnedAQuarterFurther) {
  Game game = StartPosition();
  for (int y = 0; y < kBoardSide; ++y) {
    for (int x = 0; x < kBoardSide; ++x) {
      const Square& square = game.board.at(x, y);
      if (square.piece == kNoPiece) continue;
      BoardSquare turned = TurnClockwise(x, y);
      const Square& next = game.board.at(turned.x, turned.y);
      EXPECT_EQ(next.piece, square.piece) << x << "," << y;
      EXPECT_EQ(next.team, square.team % kTeamCount + 1) << x << "," << y;
    }
  }
}

// The other teams follow by the quarter turns above.
TEST(StartPosition, WhitesKnightsAndCastlePawnWhereTheRestOfTheGameLooks) {
  Game game = StartPosition();
  for (BoardSquare square : {BoardSquare{7, 14}, BoardSquare{9, 15}}) {
    EXPECT_EQ(game.board.at(square.x, square.y).team, kWhite);
    EXPECT_EQ(game.board.at(square.x, square.y).piece, kKnight);
  }
  EXPECT_EQ(game.board.at(8, 16).team, kWhite);
  EXPECT_EQ(game.board.at(8, 16).piece, kCastlePawn);
  // The castle move is open from the first turn.
  FindMoves(game, KingColumn(game, kWhite), KingRow(game, kWhite), false, true);
  ASSERT_FALSE(game.moveList.Empty());
  EXPECT_EQ(game.moveList[game.moveList.Count()].toX, 8);
  EXPECT_EQ(game.moveList[game.moveList.Count()].toY, 16);
}

}  // namespace
}  // namespace varkesh
