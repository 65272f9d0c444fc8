#include <algorithm>

#include "rules_fixture.h"

namespace varkesh {
namespace {

using test::EmptyGame;
using test::Put;

// A small position with pieces of several teams, some frozen.
Game SmallPosition() {
  Game game = EmptyGame(kAlliedNeighbors);
  Put(game, 8, 8, kWhite, kQueen);
  Put(game, 8, 15, kWhite, kKing);
  Put(game, 8, 16, kWhite, kCastlePawn);
  Put(game, 6, 14, kWhite, -kRook);
  Put(game, 7, 15, kWhite, kPawn);  // in its own keep: no move
  Put(game, 5, 8, kWhite, kPawn);
  Put(game, 8, 3, kBlack, kPawn);
  Put(game, 2, 8, kBlue, kKnight);
  game.castleRight[0] = true;
  return game;
}

TEST(FindMovesFrame, EmptyOrFrozenSquaresGiveNothingAndChangeNothing) {
  Game game = SmallPosition();
  const Game before = game;
  EXPECT_EQ(FindMoves(game, 9, 9, true, true), 0);
  EXPECT_EQ(FindMoves(game, 6, 14, true, true), 0);
  EXPECT_EQ(FindMoves(game, -1, 20, true, true), 0);
  EXPECT_EQ(game.board, before.board);
  EXPECT_EQ(game.moveList.Count(), 0);
  EXPECT_EQ(game.moveablePieces.Count(), 0);
}

TEST(FindMovesFrame, TheOutputFormsAreIndependentAndCountTheSame) {
  Game game = SmallPosition();
  const Board before = game.board;
  int plain = FindMoves(game, 8, 8, false, false);
  EXPECT_EQ(game.board, before);
  EXPECT_EQ(game.moveablePieces.Count(), 0);
  EXPECT_EQ(game.moveList.Count(), 0);

  EXPECT_EQ(FindMoves(game, 8, 8, true, false), plain);
  EXPECT_EQ(game.moveList.Count(), 0);
  ASSERT_EQ(game.moveablePieces.Count(), plain);
  for (const BoardSquare& square : game.moveablePieces)
    EXPECT_EQ(game.board.at(square.x, square.y).mark, kMarkDestination);

  EXPECT_EQ(FindMoves(game, 8, 8, false, true), plain);
  ASSERT_EQ(game.moveList.Count(), plain);
  for (int i = 1; i <= plain; ++i) {
    const MoveRec& move = game.moveList[i];
    EXPECT_EQ(move.fromX, 8);
    EXPECT_EQ(move.fromY, 8);
    EXPECT_EQ(move.toX, game.moveablePieces[i].x);
    EXPECT_EQ(move.toY, game.moveablePieces[i].y);
    EXPECT_EQ(move.captureScore + move.threatScore + move.weakThreatScore + move.dangerScore, 0);
  }

  // Nothing is cleared or de-duplicated between calls.
  EXPECT_EQ(FindMoves(game, 8, 8, true, true), plain);
  EXPECT_EQ(game.moveList.Count(), 2 * plain);
  EXPECT_EQ(game.moveablePieces.Count(), 2 * plain);
}

TEST(FindMovesFrame, AnyTeamsPieceMovesByItsOwnAlliances) {
  Game game = SmallPosition();
  game.currentTeam = kWhite;
  // Not White's turn, yet Black's pawn has its double step out of its moat.
  EXPECT_EQ(FindMoves(game, 8, 3, false, false), 2);
  Put(game, 8, 4, kRed, kBishop);  // Red is Black's ally: the pawn is blocked
  EXPECT_EQ(FindMoves(game, 8, 3, false, false), 0);
  Put(game, 9, 4, kWhite, kBishop);
  EXPECT_EQ(FindMoves(game, 8, 3, false, false), 1);
}

TEST(FindMoveablePieces, MarksAndListsThePiecesThatCanMoveInScanOrder) {
  Game game = SmallPosition();
  EXPECT_EQ(FindMoveablePieces(game, kRed, true, true), 0);
  EXPECT_EQ(FindMoveablePieces(game, kWhite, false, false), 3);
  EXPECT_EQ(game.moveablePieces.Count() + game.computerPieces.Count(), 0);
  int count = FindMoveablePieces(game, kWhite, true, true);
  // The frozen Rook, the Pawn in its own keep and the boxed-in Castle Pawn
  // stay out.
  const std::vector<BoardSquare> expected{{5, 8}, {8, 8}, {8, 15}};
  EXPECT_EQ(count, 3);
  EXPECT_EQ(std::vector<BoardSquare>(game.moveablePieces.begin(), game.moveablePieces.end()),
            expected);
  EXPECT_EQ(std::vector<BoardSquare>(game.computerPieces.begin(), game.computerPieces.end()),
            expected);
  for (int y = 0; y < kBoardSide; ++y) {
    for (int x = 0; x < kBoardSide; ++x) {
      bool listed =
          std::find(expected.begin(), expected.end(), BoardSquare{x, y}) != expected.end();
      EXPECT_EQ(game.board.at(x, y).mark, listed ? kMarkMoveable : kUnmarked) << x << "," << y;
    }
  }
}

TEST(FindMoveablePieces, ChoosingAPieceLeavesItMovableAndTheCornerADestination) {
  Game game = SmallPosition();
  ClearMarks(game);
  ClearMoveablePieces(game);
  FindMoveablePieces(game, kWhite, false, false);
  FindMoves(game, 8, 15, true, false);
  EXPECT_EQ(game.board.at(8, 15).mark, kMarkMoveable);
  EXPECT_EQ(game.board.at(8, 16).mark, kMarkDestination);
  EXPECT_EQ(game.moveablePieces.Count(), 5);  // four free neighbours and the corner
}

}  // namespace
}  // namespace varkesh
