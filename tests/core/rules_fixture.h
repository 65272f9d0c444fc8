// Positions for the rule tests: the real terrain, with only the pieces, the
// rights, the fallen kingdoms and the prisoners a test puts there.
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "core/new_game_data.h"
#include "core/rules.h"

namespace varkesh {

inline void PrintTo(const BoardSquare& square, std::ostream* out) {
  *out << "(" << square.x << ", " << square.y << ")";
}

inline void PrintTo(const Square& s, std::ostream* out) {
  *out << "{team " << int{s.team} << ", piece " << int{s.piece} << ", terrain " << int{s.terrain}
       << ", realm " << int{s.realm} << "}";
}

inline void PrintTo(const Move& m, std::ostream* out) {
  *out << int{m.fromX} << "," << int{m.fromY} << "-" << int{m.toX} << "," << int{m.toY} << "/"
       << m.option;
}

namespace test {

using Squares = std::vector<BoardSquare>;

// Team letters W, B, K (Black), R; kind letters P, C, B, R, N, Q, K as in the
// new game data. 0 for any other letter.
inline int TeamOf(char letter) {
  return static_cast<int>(std::string("WBKR").find(letter)) + 1;
}
inline int KindOf(char letter) {
  return static_cast<int>(std::string("PCBRNQK").find(letter)) + 1;
}

// Everything about a position a test may set, each part written short:
// pieces "WP 8,13 -KQ 8,4" (team and kind letters, '-' before a frozen piece);
// castle rights and fallen kingdoms as team letters, nobody unless named;
// realms "K0 BW", Black's realm turned neutral and Blue's given to White;
// prisoners "K:WQ,WR R:BN", White's Queen and Rook in Black's dungeon in
// this order.
struct Layout {
  Layout(int gameType = kAnarchy, int rule = kKingdomGained, std::string pieces = "",
         std::string castleRights = "", std::string fallen = "", std::string realms = "",
         std::string prisoners = "")
      : gameType(gameType),
        rule(rule),
        pieces(std::move(pieces)),
        castleRights(std::move(castleRights)),
        fallen(std::move(fallen)),
        realms(std::move(realms)),
        prisoners(std::move(prisoners)) {}
  int gameType;
  int rule;
  std::string pieces;
  std::string castleRights;
  std::string fallen;
  std::string realms;
  std::string prisoners;
};

inline Position Place(const Layout& layout) {
  Position position;
  position.gameType = layout.gameType;
  position.kingCaptureRule = layout.rule;
  LayOutTerrain(position.board);
  for (int team = kWhite; team <= kRed; ++team) {
    const char letter = "WBKR"[team - 1];
    position.castleRight[team - 1] = layout.castleRights.find(letter) != std::string::npos;
    position.kingdomFallen[team - 1] = layout.fallen.find(letter) != std::string::npos;
  }
  std::istringstream realms(layout.realms);
  for (std::string change; realms >> change;) {
    const int to = change[1] == '0' ? kNoTeam : TeamOf(change[1]);
    for (Square& square : position.board.squares)
      if (square.realm == TeamOf(change[0])) square.realm = static_cast<std::int8_t>(to);
  }
  std::istringstream pieces(layout.pieces);
  std::string code;
  int x = 0, y = 0;
  char comma = 0;
  while (pieces >> code >> x >> comma >> y) {
    const bool frozen = code[0] == '-';
    const int kind = KindOf(code[frozen + 1u]);
    position.board.at(x, y).team = static_cast<std::int8_t>(TeamOf(code[frozen]));
    position.board.at(x, y).piece = static_cast<std::int8_t>(frozen ? -kind : kind);
  }
  std::istringstream prisoners(layout.prisoners);
  for (std::string dungeon; prisoners >> dungeon;) {
    Dungeon& held = position.dungeons[static_cast<std::size_t>(TeamOf(dungeon[0]) - 1)];
    for (std::size_t i = 2; i + 1 < dungeon.size(); i += 3)
      held.prisoners.Add({static_cast<std::int8_t>(TeamOf(dungeon[i])),
                          static_cast<std::int8_t>(KindOf(dungeon[i + 1]))});
  }
  position.Refresh();
  return position;
}

// The pieces alone, on the terrain, with no rights: a King lists only its steps.
inline Position Place(int gameType, const std::string& pieces) {
  return Place(Layout{gameType, kKingdomGained, pieces});
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

// The destinations of the piece on (x, y) as the team on turn may play them,
// in the order the rules list them.
inline Squares Destinations(const Position& position, int x, int y) {
  MoveList moves;
  ListMoves(position, moves);
  Squares result;
  for (const Move& move : moves)
    if (move.fromX == x && move.fromY == y) result.push_back({move.toX, move.toY});
  return result;
}

inline void ExpectSameBoard(const Board& actual, const Board& expected) {
  for (int y = 0; y < kBoardSide; ++y)
    for (int x = 0; x < kBoardSide; ++x)
      EXPECT_EQ(actual.at(x, y), expected.at(x, y)) << "square " << x << "," << y;
}

}  // namespace test
}  // namespace varkesh
