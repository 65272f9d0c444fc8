// What the attacks on a board are worth to the team on turn: every attacked
// piece counts, whoever attacks it and however often. A candidate move
// changes two squares, so after one whole board only the pieces that can see
// one of those squares are judged again.
#pragma once

#include <array>

#include "ai/ai_log.h"
#include "core/types.h"

namespace varkesh {

struct AttackScores {
  int threat = 0, weakThreat = 0, danger = 0;
  bool operator==(const AttackScores&) const = default;
};

// Whose attacks count, and at which values.
struct AttackJudge {
  int gameType = kAnarchy;
  int team = kNoTeam;  // the team on turn
  unsigned enemies = 0;
  int personality = 0;
};

// What the live piece on (x, y) adds to the scores; nothing for an empty
// square or a frozen piece. Writes its lines to log.
AttackScores ScoreSquare(const Board& board, const AttackJudge& judge, int x, int y,
                         const AiLog& log);

// A board judged square by square, the base of the quick judgement below.
struct BoardAttacks {
  std::array<AttackScores, kSquareCount> bySquare{};
  AttackScores total;
};
BoardAttacks ScoreBoard(const Board& board, const AttackJudge& judge);

// The scores of after, which differs from the board that before was made of
// at most on the squares with indexes changedA and changedB.
AttackScores ScoreChangedBoard(const BoardAttacks& before, const Board& after,
                               const AttackJudge& judge, int changedA, int changedB);

}  // namespace varkesh
