#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

#include "core/new_game_data.h"

namespace varkesh {
namespace {

Game Load(const std::string& text) {
  Game game;
  std::istringstream records(text);
  LoadNewGameData(game, records);
  return game;
}

// The message of the error that loading the text throws.
std::string LoadError(const std::string& text) {
  try {
    Load(text);
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "no error";
}

TEST(LayOutTerrain, DiamondOfMoatsAndKeepsAroundTheBattlefield) {
  Board board;
  LayOutTerrain(board);
  EXPECT_EQ(board.at(8, 8).terrain, kBattlefield);
  EXPECT_EQ(board.at(8, 8).realm, kNoTeam);
  EXPECT_EQ(board.at(8, 13).terrain, kMoat);
  EXPECT_EQ(board.at(8, 13).realm, kWhite);
  EXPECT_EQ(board.at(0, 8).terrain, kKeep);
  EXPECT_EQ(board.at(0, 8).realm, kBlue);
  EXPECT_EQ(board.at(3, 3).terrain, kOffBoard);
  EXPECT_EQ(board.at(3, 3).realm, kNoTeam);

  int counts[4] = {};
  int realmSquares[5] = {};
  for (int y = 0; y < kBoardSide; ++y) {
    for (int x = 0; x < kBoardSide; ++x) {
      const Square& square = board.at(x, y);
      ++counts[square.terrain];
      ++realmSquares[square.realm];
      EXPECT_EQ(square.terrain != kOffBoard, OnDiamond(x, y));
    }
  }
  EXPECT_EQ(counts[kOffBoard], 144);
  EXPECT_EQ(counts[kBattlefield], 81);
  EXPECT_EQ(counts[kMoat], 28);
  EXPECT_EQ(counts[kKeep], 36);
  for (int team = kWhite; team <= kRed; ++team) EXPECT_EQ(realmSquares[team], 16);
}

TEST(LoadNewGameData, ReadsFreeFormRecords) {
  Game game = Load(
      "\"WP\",6,13\r\n"
      "\r\n"
      "  BN , 1 ,9\n"
      "\"KK\",\n8,\n0\n"
      "R C,16,8,\n"
      "\"WQ\",8,14");
  EXPECT_EQ(game.board.at(6, 13).team, kWhite);
  EXPECT_EQ(game.board.at(6, 13).piece, kPawn);
  EXPECT_EQ(game.board.at(1, 9).team, kBlue);
  EXPECT_EQ(game.board.at(1, 9).piece, kKnight);
  EXPECT_EQ(game.board.at(8, 0).team, kBlack);
  EXPECT_EQ(game.board.at(8, 0).piece, kKing);
  EXPECT_EQ(game.board.at(16, 8).team, kRed);
  EXPECT_EQ(game.board.at(16, 8).piece, kCastlePawn);
  EXPECT_EQ(game.board.at(8, 14).piece, kQueen);
  EXPECT_EQ(game.board.at(8, 14).terrain, kKeep);
}

TEST(LoadNewGameData, OnlyTheFirstAndLastLetterOfTheCodeCount) {
  Game game = Load(
      "WHITE_QUEEN_B,8,8\n"  // W ... B: a White Bishop
      "K,9,9\n"              // one letter is both: a Black King
      "wp,10,10\n"           // lower case names nothing
      "XR,11,11\n"
      "\"\",12,12\n"
      "RK,5,5\nWN,5,5\n");  // the later record wins
  EXPECT_EQ(game.board.at(8, 8).team, kWhite);
  EXPECT_EQ(game.board.at(8, 8).piece, kBishop);
  EXPECT_EQ(game.board.at(9, 9).team, kBlack);
  EXPECT_EQ(game.board.at(9, 9).piece, kKing);
  EXPECT_EQ(game.board.at(10, 10).team, kNoTeam);
  EXPECT_EQ(game.board.at(10, 10).piece, kNoPiece);
  EXPECT_EQ(game.board.at(11, 11).team, kNoTeam);
  EXPECT_EQ(game.board.at(11, 11).piece, kRook);
  EXPECT_EQ(game.board.at(12, 12).piece, kNoPiece);
  EXPECT_EQ(game.board.at(5, 5).team, kWhite);
  EXPECT_EQ(game.board.at(5, 5).piece, kKnight);
}

TEST(LoadNewGameData, ErasesTheWholeBoardFirst) {
  Game game;
  game.board.at(8, 8) = Square{kRed, kQueen, kMarkDestination, kKeep, kRed};
  std::istringstream records("\"WP\",6,13\n");
  LoadNewGameData(game, records);
  EXPECT_EQ(game.board.at(8, 8), (Square{kNoTeam, kNoPiece, kUnmarked, kBattlefield, kNoTeam}));
  std::istringstream nothing("\n\n");
  LoadNewGameData(game, nothing);
  EXPECT_EQ(game.board.at(6, 13).piece, kNoPiece);
}

TEST(LoadNewGameData, MalformedRecordsNameTheirLine) {
  EXPECT_EQ(LoadError("WP,6,13\nWP,a,13\n"), "newgamedata line 2: X is not a number: 'a'");
  EXPECT_EQ(LoadError("WP,6,13x\n"), "newgamedata line 1: Y is not a number: '13x'");
  EXPECT_EQ(LoadError("WP,6,,\n"), "newgamedata line 1: Y is not a number: ''");
  EXPECT_EQ(LoadError("WP,6,13\n\nWP,6\n"), "newgamedata line 3: record ends before its Y");
  EXPECT_EQ(LoadError("WP\n"), "newgamedata line 1: record ends before its X");
  EXPECT_EQ(LoadError("WP,17,13\n"), "newgamedata line 1: X is outside 0 to 16: 17");
  EXPECT_EQ(LoadError("WP,6,-1\n"), "newgamedata line 1: Y is outside 0 to 16: -1");
  EXPECT_EQ(LoadError("WP,0,0\n"), "newgamedata line 1: (0, 0) is off the board");
  EXPECT_EQ(LoadError("WP,6,13\n\"WP,6,13\n"), "newgamedata line 2: unclosed quote");
  EXPECT_EQ(LoadError("\"WP\"x,6,13\n"), "newgamedata line 1: text after a closing quote");
  EXPECT_EQ(LoadError("WP,99999999999,13\n"),
            "newgamedata line 1: X is not a number: '99999999999'");
}

TEST(LoadNewGameData, AnErrorLeavesTheBoardAsItWas) {
  Game game = Load("\"WK\",8,15\n");
  const Board before = game.board;
  std::istringstream records("\"KK\",8,0\n\"KQ\",8,x\n");
  EXPECT_THROW(LoadNewGameData(game, records), std::runtime_error);
  EXPECT_EQ(game.board, before);
}

TEST(LoadNewGameDataFile, AMissingFileIsAClearError) {
  Game game;
  EXPECT_THROW(LoadNewGameDataFile(game, "/nonexistent/newgamedata.txt"), std::runtime_error);
}

}  // namespace
}  // namespace varkesh
