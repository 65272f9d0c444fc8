// Hand-made positions for the searching computer: the real terrain, only
// the pieces a test places, and every team with enough material to stand.
#pragma once

#include <utility>
#include <vector>

#include "ai/ai_fixture.h"

namespace varkesh::test {

using Piece = Placed;

inline Position HandMade(int gameType, int onTurn, const std::vector<Piece>& pieces,
                         const std::vector<int>& fallen = {}) {
  Position position = EmptyPosition(gameType, pieces);
  position.kingCaptureRule = kKingdomGained;
  position.castleRight = {false, false, false, false};
  position.currentTeam = onTurn;
  for (int team : fallen) position.kingdomFallen[static_cast<std::size_t>(team - 1)] = true;
  return position;
}

// Six pawns in a team's own keep, where nothing reaches them and the King
// keeps a square to step to: material enough that a single capture does not
// cost the King. White's, turned to the other keeps.
inline std::vector<Piece> Garrison(int team) {
  std::vector<Piece> pawns;
  for (auto [x, y] : {std::pair{7, 15}, {9, 15}, {6, 14}, {10, 14}, {8, 14}, {7, 14}}) {
    const std::pair<int, int> turned[] = {{x, y}, {16 - y, x}, {x, 16 - y}, {y, x}};
    const auto [tx, ty] = turned[team - 1];
    pawns.push_back({tx, ty, team, kPawn});
  }
  return pawns;
}

inline std::vector<Piece> With(std::vector<Piece> pieces, const std::vector<Piece>& more) {
  pieces.insert(pieces.end(), more.begin(), more.end());
  return pieces;
}

}  // namespace varkesh::test
