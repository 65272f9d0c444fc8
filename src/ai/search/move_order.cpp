#include "ai/search/move_order.h"

#include <algorithm>
#include <cstdlib>

#include "ai/search/evaluation.h"

namespace varkesh::search {

namespace {

constexpr int kHistoryCap = 1 << 14;
constexpr int kHistoryBonusCap = 2000;

bool TakesPiece(const Position& position, const Move& move) {
  const Square& from = position.board.at(move.fromX, move.fromY);
  const Square& to = position.board.at(move.toX, move.toY);
  return to.piece > 0 && to.team != from.team;
}

}  // namespace

bool IsTactical(const Position& position, const Move& move) {
  return move.option >= 0 || TakesPiece(position, move);
}

int TacticalOrder(const Position& position, const Move& move, int personality) {
  const Square& from = position.board.at(move.fromX, move.fromY);
  const Square& to = position.board.at(move.toX, move.toY);
  if (TakesPiece(position, move)) {
    if (to.piece == kKing) return kOrderKingCapture - from.piece;
    return kOrderCapture + PieceValue(personality, to.piece) * 16 - from.piece;
  }
  // A line of the options: captures in the keep come first, so earlier lines rank higher.
  if (move.option >= 0) return kOrderCapture + 8000 - move.option;
  return 0;
}

void MoveHistory::Reward(const Move& move, int depth) {
  Update(move, std::min(16 * depth * depth, kHistoryBonusCap));
}

void MoveHistory::Punish(const Move& move, int depth) {
  Update(move, -std::min(16 * depth * depth, kHistoryBonusCap));
}

void MoveHistory::Update(const Move& move, int bonus) {
  int& score = scores_[Slot(move)];
  score += bonus - score * std::abs(bonus) / kHistoryCap;
}

void MoveHistory::Clear() {
  std::fill(scores_.begin(), scores_.end(), 0);
}

}  // namespace varkesh::search
