// Hand-made positions for the searching computer: the real terrain, only
// the pieces a test places, and every team with enough material to stand.
#pragma once

#include <vector>

#include "core/new_game_data.h"
#include "core/position.h"

namespace varkesh::test {

struct Piece {
  int x, y, team, piece;
};

inline Position HandMade(int gameType, int onTurn, const std::vector<Piece>& pieces,
                         const std::vector<int>& fallen = {}) {
  Position position;
  position.gameType = gameType;
  position.kingCaptureRule = kKingdomGained;
  position.castleRight = {false, false, false, false};
  position.currentTeam = onTurn;
  LayOutTerrain(position.board);
  for (const Piece& p : pieces) {
    position.board.at(p.x, p.y).team = static_cast<std::int8_t>(p.team);
    position.board.at(p.x, p.y).piece = static_cast<std::int8_t>(p.piece);
  }
  for (int team : fallen) position.kingdomFallen[static_cast<std::size_t>(team - 1)] = true;
  position.Refresh();
  return position;
}

// Six pawns in a team's own keep, where nothing reaches them and the King
// keeps a square to step to: material enough that a single capture does not
// cost the King.
inline std::vector<Piece> Garrison(int team) {
  switch (team) {
    case kWhite:
      return {{7, 15, team, kPawn},  {9, 15, team, kPawn}, {6, 14, team, kPawn},
              {10, 14, team, kPawn}, {8, 14, team, kPawn}, {7, 14, team, kPawn}};
    case kBlue:
      return {{1, 7, team, kPawn},  {1, 9, team, kPawn}, {2, 6, team, kPawn},
              {2, 10, team, kPawn}, {2, 8, team, kPawn}, {2, 7, team, kPawn}};
    case kBlack:
      return {{7, 1, team, kPawn},  {9, 1, team, kPawn}, {6, 2, team, kPawn},
              {10, 2, team, kPawn}, {8, 2, team, kPawn}, {7, 2, team, kPawn}};
    default:
      return {{15, 7, team, kPawn},  {15, 9, team, kPawn}, {14, 6, team, kPawn},
              {14, 10, team, kPawn}, {14, 8, team, kPawn}, {14, 7, team, kPawn}};
  }
}

inline std::vector<Piece> With(std::vector<Piece> pieces, const std::vector<Piece>& more) {
  pieces.insert(pieces.end(), more.begin(), more.end());
  return pieces;
}

}  // namespace varkesh::test
