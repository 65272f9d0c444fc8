// Boards for the rule tests: the real terrain, with only the pieces a test
// puts on it.
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

#include "core/game.h"
#include "core/new_game_data.h"
#include "core/rules.h"

namespace varkesh {

inline void PrintTo(const BoardSquare& square, std::ostream* out) {
  *out << "(" << square.x << ", " << square.y << ")";
}

namespace test {

// No castle rights, so that a King lists only its steps unless a test grants one.
inline Game EmptyGame(int gameType = kAnarchy) {
  Game game;
  game.gameType = gameType;
  game.castleRight = {false, false, false, false};
  LayOutTerrain(game.board);
  return game;
}

inline void Put(Game& game, int x, int y, int team, int piece) {
  game.board.at(x, y).team = team;
  game.board.at(x, y).piece = piece;
}

// The kingdom's moat and keep turn neutral, as after its fall.
inline void FellRealm(Game& game, int team) {
  for (Square& square : game.board.squares)
    if (square.realm == team) square.realm = kNoTeam;
}

// The destinations of the piece on (x, y), in the order FindMoves gives them.
inline std::vector<BoardSquare> Destinations(Game& game, int x, int y) {
  game.moveList.Clear();
  int count = FindMoves(game, x, y, false, true);
  std::vector<BoardSquare> result;
  for (const MoveRec& move : game.moveList) result.push_back({move.toX, move.toY});
  EXPECT_EQ(count, static_cast<int>(result.size()));
  return result;
}

using Squares = std::vector<BoardSquare>;

// The squares from (x, y) onward along (dx, dy), count of them.
inline Squares Ray(int x, int y, int dx, int dy, int count) {
  Squares result;
  for (int n = 0; n < count; ++n) result.push_back({x + n * dx, y + n * dy});
  return result;
}

inline Squares Join(std::initializer_list<Squares> parts) {
  Squares result;
  for (const Squares& part : parts) result.insert(result.end(), part.begin(), part.end());
  return result;
}

}  // namespace test
}  // namespace varkesh
