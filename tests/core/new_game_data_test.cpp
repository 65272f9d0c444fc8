#include <sstream>
#include <stdexcept>
#include <utility>

#include "rules_fixture.h"

namespace varkesh {
namespace {

// Loads the records into the game; the message of the error they throw, if any.
std::string Load(Game& game, const std::string& text) {
  std::istringstream records(text);
  try {
    LoadNewGameData(game, records);
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "";
}

TEST(LoadNewGameData, FreeFormRecordsWhereOnlyTheFirstAndLastLetterCount) {
  Game game;
  EXPECT_EQ(Load(game,
                 "\"WP\",6,13\r\n"
                 "\r\n"
                 "  BN , 1 ,9\n"
                 "\"KK\",\n8,\n0\n"
                 "R C,16,8,\n"
                 "WHITE_QUEEN_B,8,8\n"
                 "wp,10,10\n"
                 "XR,11,11\n"
                 "\"\",12,12\n"
                 "RK,5,5\nWN,5,5"),  // the later record wins
            "");
  test::ExpectSameBoard(
      game.match.position.board, test::Position(0, "WP 6,13 BN 1,9 KK 8,0 RC 16,8 WB 8,8 XR 11,11 WN 5,5").board);
}

TEST(LoadNewGameData, AMalformedRecordNamesItsLineAndLeavesTheBoardAsItWas) {
  Game game;
  game.match.position.board.at(8, 8) = Square{kRed, kQueen, kMarkDestination, kKeep, kRed};
  EXPECT_EQ(Load(game, "\"WP\",6,13\n"), "");
  const Board loaded = test::Position(0, "WP 6,13").board;
  test::ExpectSameBoard(game.match.position.board, loaded);  // nothing of the old board is left
  EXPECT_EQ(Load(game, "KK,8,0\r\nWP,a,13\n"), "newgamedata line 2: X is not a number: 'a'");
  EXPECT_EQ(Load(game, "WP,6,13x\n"), "newgamedata line 1: Y is not a number: '13x'");
  EXPECT_EQ(Load(game, "WP,6,,\n"), "newgamedata line 1: Y is not a number: ''");
  EXPECT_EQ(Load(game, "WP,99999999999,13\n"),
            "newgamedata line 1: X is not a number: '99999999999'");
  EXPECT_EQ(Load(game, "WP,6,13\n\nWP,6\n"), "newgamedata line 3: record ends before its Y");
  EXPECT_EQ(Load(game, "WP,17,13\n"), "newgamedata line 1: X is outside 0 to 16: 17");
  EXPECT_EQ(Load(game, "WP,6,-1\n"), "newgamedata line 1: Y is outside 0 to 16: -1");
  EXPECT_EQ(Load(game, "WP,0,\n0\n"), "newgamedata line 2: (0, 0) is off the board");
  EXPECT_EQ(Load(game, "WP,6,13\n\"WP,6,13\n"), "newgamedata line 2: unclosed quote");
  EXPECT_EQ(Load(game, "\"WP\"x,6,13\n"), "newgamedata line 1: text after a closing quote");
  test::ExpectSameBoard(game.match.position.board, loaded);
  EXPECT_THROW(LoadNewGameDataFile(game, "/nonexistent/newgamedata.txt"), std::runtime_error);
}

Game StartPosition() {
  Game game;
  LoadNewGameDataFile(game, std::string(VARKESH_PACK_DIR) + "/newgamedata.txt");
  return game;
}

TEST(StartPosition, SixteenPiecesATeamInItsOwnRealmEachTeamTurnedAQuarterFurther) {
  Game game = StartPosition();
  int live = 0, whiteKings = 0;
  for (int y = 0; y < kBoardSide; ++y) {
    for (int x = 0; x < kBoardSide; ++x) {
      const Square& square = game.match.position.board.at(x, y);
      if (square.piece == kNoPiece && square.team == kNoTeam) continue;
      ++live;
      whiteKings += square.team == kWhite && square.piece == kKing;
      EXPECT_TRUE(square.piece >= kPawn && square.piece <= kKing) << x << "," << y;
      EXPECT_EQ(square.realm, square.team) << x << "," << y;
      EXPECT_EQ(square.terrain, square.piece == kPawn ? kMoat : kKeep) << x << "," << y;
      const Square& turned = game.match.position.board.at(16 - y, x);  // a quarter turn clockwise
      EXPECT_EQ(turned.piece, square.piece) << x << "," << y;
      EXPECT_EQ(turned.team, square.team % kTeamCount + 1) << x << "," << y;
    }
  }
  EXPECT_EQ(live, 64);
  EXPECT_EQ(whiteKings, 1);
  EXPECT_EQ(game.match.position.board.at(7, 14).piece, kKnight);
  EXPECT_EQ(game.match.position.board.at(9, 15).piece, kKnight);
  for (int team = kWhite; team <= kRed; ++team) {
    BoardSquare corner = CastleCorner(team);
    EXPECT_EQ(game.match.position.board.at(corner.x, corner.y).team, team);
    EXPECT_EQ(game.match.position.board.at(corner.x, corner.y).piece, kCastlePawn);
  }
}

// A plain move: the castle move exchanges King and Castle Pawn, anything else
// lands on the target. No dungeons, fates or pawn options.
void Play(Game& game, const MoveRec& move) {
  Square& from = game.match.position.board.at(move.fromX, move.fromY);
  Square& to = game.match.position.board.at(move.toX, move.toY);
  for (int piece : {from.piece, to.piece})
    if (piece == kCastlePawn || piece == kKing)
      game.match.position.castleRight[static_cast<std::size_t>(from.team - 1)] = false;
  if (from.piece == kKing && to.piece == kCastlePawn && to.team == from.team) {
    std::swap(from.piece, to.piece);
    return;
  }
  to.team = std::exchange(from.team, kNoTeam);
  to.piece = std::exchange(from.piece, kNoPiece);
}

TEST(MoveCount, SeededGameFromTheStartPosition) {
  Game game = StartPosition();
  game.match.position.gameType = kAnarchy;
  game.random.Seed(20240917);
  // Ply 0 by hand, alike for each team: seven Pawns with two steps each, the
  // Knight on (7, 14) two, the castle move one: 17 x 4. The rest were recorded.
  const std::pair<int, int> checkpoints[] = {{0, 68},  {1, 77},   {2, 85},   {4, 91},
                                             {8, 141}, {16, 158}, {32, 182}, {64, 176}};
  int ply = 0;
  for (auto [until, destinations] : checkpoints) {
    for (; ply < until; ++ply) {  // a random move from the list as the computer builds it
      game.moveList.Clear();
      game.computerPieces.Clear();
      FindMoveablePieces(game, game.match.position.currentTeam, false, true);
      for (const BoardSquare& piece : game.computerPieces)
        FindMoves(game, piece.x, piece.y, false, true);
      if (!game.moveList.Empty())
        Play(game, game.moveList[1 + game.random.Below(game.moveList.Count())]);
      game.match.position.currentTeam = game.match.position.currentTeam % kTeamCount + 1;
    }
    int total = 0;
    for (int y = 0; y < kBoardSide; ++y)
      for (int x = 0; x < kBoardSide; ++x) total += FindMoves(game, x, y, false, false);
    EXPECT_EQ(total, destinations) << "ply " << ply;
  }
}

}  // namespace
}  // namespace varkesh
