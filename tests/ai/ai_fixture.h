// Games for the computer opponent's tests: the real terrain with only the
// pieces a test puts there, or the pack's start position.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "core/game.h"
#include "core/new_game_data.h"

namespace varkesh::test {

struct Placed {
  int x, y, team, piece;
};

inline void Put(Board& board, std::initializer_list<Placed> pieces) {
  for (const Placed& p : pieces) {
    board.at(p.x, p.y).team = p.team;
    board.at(p.x, p.y).piece = p.piece;
  }
}

inline Game EmptyGame(int gameType = kAnarchy, std::initializer_list<Placed> pieces = {}) {
  Game game;
  game.gameType = gameType;
  game.random = Random::Zero();
  game.playerKinds = {kBalanced, kBalanced, kBalanced, kBalanced};
  LayOutTerrain(game.board);
  Put(game.board, pieces);
  return game;
}

inline Game StartGame(PerTeam<int> players) {
  Game game = EmptyGame(kAlliedNeighbors);
  game.playerKinds = players;
  LoadNewGameDataFile(game, VARKESH_PACK_DIR "/newgamedata.txt");
  return game;
}

// A candidate move with its scores, as the ladder sees it.
inline MoveRec Move(int fromX, int fromY, int toX, int toY, int capture = 0, int threat = 0,
                    int danger = 0) {
  return {fromX, fromY, toX, toY, capture, threat, 0, danger, 0};
}

}  // namespace varkesh::test
