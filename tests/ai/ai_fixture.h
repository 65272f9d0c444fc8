// Games for the computer opponent's tests: the real terrain with only the
// pieces a test puts there, or the pack's start position.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "core/game.h"
#include "core/new_game_data.h"

namespace varkesh::test {

inline Game EmptyGame(int gameType = kAnarchy) {
  Game game;
  game.gameType = gameType;
  game.random = Random::Zero();
  LayOutTerrain(game.board);
  return game;
}

// The same on the scratch board, where the threat tests look.
inline Game EmptyScratch(int gameType = kAnarchy) {
  Game game = EmptyGame(gameType);
  game.scratchBoard = game.board;
  return game;
}

inline void Put(Board& board, int x, int y, int team, int piece) {
  board.at(x, y).team = team;
  board.at(x, y).piece = piece;
}

inline Game StartGame(int gameType = kAlliedNeighbors, PerTeam<int> players = {1, 2, 3, 1}) {
  Game game = EmptyGame(gameType);
  game.playerKinds = players;
  std::ifstream records(std::string(VARKESH_PACK_DIR) + "/newgamedata.txt");
  LoadNewGameData(game, records);
  return game;
}

// A scored candidate move, as the ladder sees it.
inline MoveRec Scored(int fromX, int fromY, int toX, int toY, int capture = 0, int threat = 0,
                      int weak = 0, int danger = 0) {
  return {fromX, fromY, toX, toY, capture, threat, weak, danger, 0};
}

}  // namespace varkesh::test
