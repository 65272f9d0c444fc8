// Games for the computer opponent's tests: the real terrain with only the
// pieces a test puts there.
#pragma once

#include <vector>

#include "flow/game.h"
#include "core/new_game_data.h"
#include "support/scripted_outside.h"

namespace varkesh::test {

struct Placed {
  int x, y, team, piece;
};

inline Game EmptyGame(int gameType, const std::vector<Placed>& pieces = {}) {
  Game game;
  game.match.position.gameType = gameType;
  game.random = Random::Zero();
  game.match.setup.playerKinds = {kBalanced, kBalanced, kBalanced, kBalanced};
  LayOutTerrain(game.match.position.board);
  for (const Placed& p : pieces) {
    game.match.position.board.at(p.x, p.y).team = p.team;
    game.match.position.board.at(p.x, p.y).piece = p.piece;
  }
  game.scratchBoard = game.match.position.board;
  return game;
}

inline MoveRec Move(int fromX, int fromY, int toX, int toY, int capture = 0, int threat = 0,
                    int danger = 0) {
  return {fromX, fromY, toX, toY, capture, threat, 0, danger, 0};
}

}  // namespace varkesh::test
