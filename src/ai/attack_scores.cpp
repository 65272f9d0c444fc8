#include "ai/attack_scores.h"

#include <algorithm>
#include <string>

#include "ai/ai_values.h"
#include "ai/threats.h"

namespace varkesh {
namespace {

void Add(AttackScores& sum, const AttackScores& part) {
  sum.threat += part.threat;
  sum.weakThreat += part.weakThreat;
  sum.danger += part.danger;
}

void Subtract(AttackScores& sum, const AttackScores& part) {
  sum.threat -= part.threat;
  sum.weakThreat -= part.weakThreat;
  sum.danger -= part.danger;
}

// The log lines live apart, so that judging without a log builds no text.
void LogAttacker(const AiLog& log, const Attacker& attacker) {
  if (!log.On()) return;
  WriteAiLog(log, "               *** Threat from " + std::string(TeamName(attacker.team)) + " " +
                      PieceName(attacker.piece) + " at " + std::to_string(attacker.x) + "," +
                      std::to_string(attacker.y));
}

void LogScoredSquare(const AiLog& log, const char* head, int x, int y, int value,
                     const Square& square) {
  if (!log.On()) return;
  WriteAiLog(log, head + std::to_string(x) + ", " + std::to_string(y) + ": " +
                      std::to_string(value) + " (" + TeamName(square.team) + " " +
                      PieceName(square.piece) + ")");
}

// The squares whose judgement can differ between two boards that differ on
// two squares: those squares, the Knight's jumps from them, and along each
// line the first piece or edge, since the threat test looks no further. What
// lies on a line beyond one changed square is found from that square.
class ChangedReach {
 public:
  ChangedReach(const Board& board, int a, int b) {
    Add(a);
    Add(b);
    Look(board, a);
    if (b != a) Look(board, b);
  }
  const int* begin() const { return squares_.data(); }
  const int* end() const { return squares_.data() + count_; }

 private:
  // Each changed square adds itself, one square a line and eight jumps.
  static constexpr int kMost = 2 * (1 + 8 + 8);

  void Add(int index) {
    if (index < 0 || index >= kSquareCount) return;
    if (std::find(begin(), end(), index) == end() && count_ < kMost) squares_[count_++] = index;
  }

  void Look(const Board& board, int from) {
    if (from < 0 || from >= kSquareCount) return;
    static constexpr int kLines[8][2] = {{0, -1}, {1, -1}, {1, 0},  {1, 1},
                                         {0, 1},  {-1, 1}, {-1, 0}, {-1, -1}};
    static constexpr int kJumps[8][2] = {{1, -2}, {2, -1}, {2, 1},   {1, 2},
                                         {-1, 2}, {-2, 1}, {-2, -1}, {-1, -2}};
    const int x = from % kBoardSide, y = from / kBoardSide;
    for (const auto& line : kLines) {
      for (int nx = x + line[0], ny = y + line[1]; Board::InBounds(nx, ny);
           nx += line[0], ny += line[1]) {
        const Square& square = board.at(nx, ny);
        if (square.terrain == kOffBoard || square.piece != kNoPiece) {
          Add(Board::Index(nx, ny));
          break;
        }
      }
    }
    for (const auto& jump : kJumps) {
      if (Board::InBounds(x + jump[0], y + jump[1])) Add(Board::Index(x + jump[0], y + jump[1]));
    }
  }

  std::array<int, kMost> squares_{};
  int count_ = 0;
};

}  // namespace

AttackScores ScoreSquare(const Board& board, const AttackJudge& judge, int x, int y,
                         const AiLog& log) {
  const Square& square = board.at(x, y);
  const bool own = square.team == judge.team;
  const bool enemy = IsEnemy(judge.enemies, square.team);
  // An ally's attackers count for nothing; only the log names them.
  if (square.piece < 1 || (!own && !enemy && !log.On())) return {};

  // The weak test is for pieces in a keep: elsewhere the weak picture, without
  // the King, finds no attacker that the ordinary one misses.
  AttackScores scores;
  Attacker attacker;
  if (TestThreat(board, judge.gameType, x, y, log.On() ? &attacker : nullptr)) {
    LogAttacker(log, attacker);
    if (own) {
      scores.danger = AiValue(judge.personality, kDangerValue, square.piece);
      LogScoredSquare(log, "          * Danger at ", x, y, scores.danger, square);
    } else if (enemy) {
      scores.threat = AiValue(judge.personality, kThreatValue, square.piece);
      LogScoredSquare(log, "          Threaten at ", x, y, scores.threat, square);
    }
  } else if (enemy && square.terrain == kKeep && TestMoatlessThreat(board, judge.gameType, x, y)) {
    scores.weakThreat = AiValue(judge.personality, kWeakThreatValue, square.piece);
    LogScoredSquare(log, "          Give Weak Threat at ", x, y, scores.weakThreat, square);
  }
  return scores;
}

BoardAttacks ScoreBoard(const Board& board, const AttackJudge& judge) {
  BoardAttacks attacks;
  for (int y = 0; y < kBoardSide; ++y) {
    for (int x = 0; x < kBoardSide; ++x) {
      AttackScores& here = attacks.bySquare[static_cast<std::size_t>(Board::Index(x, y))];
      here = ScoreSquare(board, judge, x, y, AiLog{});
      Add(attacks.total, here);
    }
  }
  return attacks;
}

AttackScores ScoreChangedBoard(const BoardAttacks& before, const Board& after,
                               const AttackJudge& judge, int changedA, int changedB) {
  AttackScores scores = before.total;
  for (int index : ChangedReach(after, changedA, changedB)) {
    Subtract(scores, before.bySquare[static_cast<std::size_t>(index)]);
    Add(scores, ScoreSquare(after, judge, index % kBoardSide, index / kBoardSide, AiLog{}));
  }
  return scores;
}

}  // namespace varkesh
