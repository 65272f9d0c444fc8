#include <sstream>
#include <stdexcept>

#include "rules_fixture.h"

namespace varkesh {
namespace {

// The board of the records; the message of the error they throw, if any.
std::string Load(Board& board, const std::string& text) {
  std::istringstream records(text);
  try {
    board = LoadNewGameData(records);
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "";
}

TEST(LoadNewGameData, FreeFormRecordsWhereOnlyTheFirstAndLastLetterCount) {
  Board board;
  EXPECT_EQ(Load(board,
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
      board, test::Place(0, "WP 6,13 BN 1,9 KK 8,0 RC 16,8 WB 8,8 XR 11,11 WN 5,5").board);
}

TEST(LoadNewGameData, AMalformedRecordNamesItsLine) {
  Board board;
  EXPECT_EQ(Load(board, "KK,8,0\r\nWP,a,13\n"), "newgamedata line 2: X is not a number: 'a'");
  EXPECT_EQ(Load(board, "WP,6,13x\n"), "newgamedata line 1: Y is not a number: '13x'");
  EXPECT_EQ(Load(board, "WP,6,,\n"), "newgamedata line 1: Y is not a number: ''");
  EXPECT_EQ(Load(board, "WP,99999999999,13\n"),
            "newgamedata line 1: X is not a number: '99999999999'");
  EXPECT_EQ(Load(board, "WP,6,13\n\nWP,6\n"), "newgamedata line 3: record ends before its Y");
  EXPECT_EQ(Load(board, "WP,17,13\n"), "newgamedata line 1: X is outside 0 to 16: 17");
  EXPECT_EQ(Load(board, "WP,6,-1\n"), "newgamedata line 1: Y is outside 0 to 16: -1");
  EXPECT_EQ(Load(board, "WP,0,\n0\n"), "newgamedata line 2: (0, 0) is off the board");
  EXPECT_EQ(Load(board, "WP,6,13\n\"WP,6,13\n"), "newgamedata line 2: unclosed quote");
  EXPECT_EQ(Load(board, "\"WP\"x,6,13\n"), "newgamedata line 1: text after a closing quote");
  EXPECT_THROW(LoadNewGameDataFile("/nonexistent/newgamedata.txt"), std::runtime_error);
}

}  // namespace
}  // namespace varkesh
