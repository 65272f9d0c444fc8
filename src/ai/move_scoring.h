// The first phase of the computer's turn: every legal move of the team on
// turn is played on a scratch board and judged by the position right after
// it, with no reply looked at.
#pragma once

#include "ai/ai_log.h"
#include "ai/ai_outside.h"
#include "core/position.h"
#include "engine/random.h"

namespace varkesh {

// One candidate move with its four scores.
struct MoveRec {
  int fromX = 0, fromY = 0, toX = 0, toY = 0;
  int captureScore = 0, threatScore = 0, weakThreatScore = 0, dangerScore = 0;
  int spare = 0;
};
using AiMoveList = OneBasedList<MoveRec>;

// Start value of every best score: below any score a move can have.
inline constexpr int kNoScore = -999999;

constexpr int ImmediateScore(const MoveRec& move) {
  return move.captureScore - move.dangerScore;
}
constexpr int FullScore(const MoveRec& move) {
  return move.captureScore + move.threatScore + move.weakThreatScore - move.dangerScore;
}

// What the scoring leaves for the choice ladder.
struct ScoreSummary {
  int bestImmediate = kNoScore;
  int bestImmediateMove = 0;
  int bestFull = kNoScore;
  int bestFullMove = 0;
  int pieceCount = 0;  // live pieces on the board, all teams
};

// A fair 0 or 1: the integer part of twice a draw.
int TieBreak(Random& random);

// Every destination of every piece of the team on turn, grouped by piece in
// board order, as the rules list them one piece at a time: a castle corner
// next to the King comes twice.
void BuildAiMoveList(const Position& position, AiMoveList& moves);

// Scores each entry of moves for personality (1 to 3), showing the progress
// and yielding after each move, and writing its lines to log.
ScoreSummary ScoreAiMoves(const Position& position, AiMoveList& moves, Random& random,
                          AiOutside& outside, int personality, const AiLog& log);

}  // namespace varkesh
