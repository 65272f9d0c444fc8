#include <cstdio>

#include "ai/move_scoring.h"
#include "ai_position.h"
#include "flow/thinking_outside.h"
#include "tool_outside.h"

namespace varkesh::cli {

int CmdScores(const Args& args) {
  AiPosition position = ReadAiPosition(args, "scores FILE [--personality P]");
  Game& game = position.game;
  ToolOutside outside;
  ThinkingOutside thinking(outside);
  AiMoveList& moves = position.moves;
  BuildAiMoveList(game.match.position, moves);
  ScoreAiMoves(game.match.position, moves, game.random, thinking, position.personality, AiLog{});
  for (int i = 1; i <= moves.Count(); ++i) {
    const MoveRec& move = moves[i];
    std::printf("%d %d %d %d %d %d %d %d %d\n", i, move.fromX, move.fromY, move.toX, move.toY,
                move.captureScore, move.threatScore, move.weakThreatScore, move.dangerScore);
  }
  return 0;
}

}  // namespace varkesh::cli
