#include <cstdio>

#include "ai/move_scoring.h"
#include "ai_position.h"
#include "headless_outside.h"

namespace varkesh::cli {

int CmdScores(const Args& args) {
  AiPosition position = ReadAiPosition(args, "scores FILE [--personality P]");
  Game& game = position.game;
  HeadlessOutside outside;
  BuildAiMoveList(game);
  ScoreAiMoves(game, outside, position.personality, AiLog{});
  for (int i = 1; i <= game.moveList.Count(); ++i) {
    const MoveRec& move = game.moveList[i];
    std::printf("%d %d %d %d %d %d %d %d %d\n", i, move.fromX, move.fromY, move.toX, move.toY,
                move.captureScore, move.threatScore, move.weakThreatScore, move.dangerScore);
  }
  return 0;
}

}  // namespace varkesh::cli
