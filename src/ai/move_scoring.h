// The first phase of the computer's turn: every legal move of the team on
// turn is played on the scratch board and judged by the position right after
// it, with no reply looked at.
#pragma once

#include "ai/ai_log.h"
#include "core/game.h"
#include "core/outside.h"

namespace varkesh {

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

// Refills game.moveList with every legal move of game.currentTeam, grouped
// by piece in board order; computerPieces is left empty.
void BuildAiMoveList(Game& game);

// Scores each entry of game.moveList for personality (1 to 3), showing the
// progress and yielding after each move, and writing its lines to log.
ScoreSummary ScoreAiMoves(Game& game, Outside& outside, int personality, const AiLog& log);

}  // namespace varkesh
