// Boards for the rule tests: the real terrain, with only the pieces a test
// puts on it.
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "flow/game.h"
#include "core/new_game_data.h"
#include "core/rules.h"

namespace varkesh {

inline void PrintTo(const BoardSquare& square, std::ostream* out) {
  *out << "(" << square.x << ", " << square.y << ")";
}

inline void PrintTo(const Square& s, std::ostream* out) {
  *out << "{team " << s.team << ", piece " << s.piece << ", mark " << s.mark << ", terrain "
       << s.terrain << ", realm " << s.realm << "}";
}

namespace test {

using Squares = std::vector<BoardSquare>;

// Pieces written "WP 8,13 -KQ 8,4": team letter W, B, K (Black) or R and kind
// letter P, C, B, R, N, Q or K as in the new game data, any other letter 0,
// '-' before a frozen piece. No castle rights, so that a King lists only its
// steps unless a test grants one.
inline Game Position(int gameType, const std::string& pieces) {
  Game game;
  game.match.position.gameType = gameType;
  game.match.position.castleRight = {false, false, false, false};
  LayOutTerrain(game.match.position.board);
  std::istringstream in(pieces);
  std::string code;
  int x = 0, y = 0;
  char comma = 0;
  while (in >> code >> x >> comma >> y) {
    bool frozen = code[0] == '-';
    int piece = static_cast<int>(std::string("PCBRNQK").find(code[frozen + 1])) + 1;
    game.match.position.board.at(x, y).team = static_cast<int>(std::string("WBKR").find(code[frozen])) + 1;
    game.match.position.board.at(x, y).piece = frozen ? -piece : piece;
  }
  return game;
}

// Squares written "8,12 8,11", a straight run of them "8,7..8,3".
inline Squares At(const std::string& text) {
  Squares result;
  std::istringstream in(text);
  int x = 0, y = 0, toX = 0, toY = 0;
  char comma = 0;
  while (in >> x >> comma >> y) {
    toX = x, toY = y;
    if (in.peek() == '.' && in.ignore(2)) in >> toX >> comma >> toY;
    int dx = (toX > x) - (toX < x), dy = (toY > y) - (toY < y);
    for (result.push_back({x, y}); x != toX || y != toY;) result.push_back({x += dx, y += dy});
  }
  return result;
}

// The destinations of the piece on (x, y), in the order FindMoves gives them.
inline Squares Destinations(Game& game, int x, int y) {
  game.moveList.Clear();
  int count = FindMoves(game, x, y, false, true);
  Squares result;
  for (const MoveRec& move : game.moveList) result.push_back({move.toX, move.toY});
  EXPECT_EQ(count, static_cast<int>(result.size()));
  return result;
}

inline void ExpectSameBoard(const Board& actual, const Board& expected) {
  for (int y = 0; y < kBoardSide; ++y)
    for (int x = 0; x < kBoardSide; ++x)
      EXPECT_EQ(actual.at(x, y), expected.at(x, y)) << "square " << x << "," << y;
}

}  // namespace test
}  // namespace varkesh
