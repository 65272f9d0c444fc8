// Positions for the computer opponent's tests: the real terrain with only
// the pieces a test puts there.
#pragma once

#include <string>
#include <vector>

#include "ai/ai_outside.h"
#include "ai/move_scoring.h"
#include "core/new_game_data.h"
#include "engine/general_engine.h"
#include "flow/game.h"

namespace varkesh::test {

struct Placed {
  int x, y, team, piece;
};

inline Position EmptyPosition(int gameType, const std::vector<Placed>& pieces = {}) {
  Position position;
  position.gameType = gameType;
  LayOutTerrain(position.board);
  for (const Placed& p : pieces) {
    position.board.at(p.x, p.y).team = static_cast<std::int8_t>(p.team);
    position.board.at(p.x, p.y).piece = static_cast<std::int8_t>(p.piece);
  }
  position.Refresh();
  return position;
}

// The same as a game whose seats the computer plays.
inline Game EmptyGame(int gameType, const std::vector<Placed>& pieces = {}) {
  Game game;
  game.match.position = EmptyPosition(gameType, pieces);
  game.match.setup.playerKinds = {kBalanced, kBalanced, kBalanced, kBalanced};
  game.match.BeginRecord();
  game.random = Random::Zero();
  return game;
}

inline MoveRec Scored(int fromX, int fromY, int toX, int toY, int capture = 0, int threat = 0,
                      int danger = 0) {
  return {fromX, fromY, toX, toY, capture, threat, 0, danger, 0};
}

// What the computer shows while it thinks, noted.
struct NotingAiOutside : AiOutside {
  std::vector<std::string> labels;
  int yields = 0;
  GeneralEngine engine;
  void SetPieceLabel(const std::string& text) override { labels.push_back(text); }
  void Yield() override { ++yields; }
  GeneralEngine& Engine() override { return engine; }
};

}  // namespace varkesh::test
