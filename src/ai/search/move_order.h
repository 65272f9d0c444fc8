// The order in which the search tries moves: the table's move, then King
// captures, other captures by the most valuable victim and least valuable
// attacker, pawn options, killers of the same ply, and the history of moves
// that cut off before.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "core/move.h"
#include "core/position.h"

namespace varkesh::search {

inline constexpr int kOrderTableMove = 1 << 30;
inline constexpr int kOrderKingCapture = 1 << 29;
inline constexpr int kOrderCapture = 1 << 28;
inline constexpr int kOrderKiller = 1 << 27;

// Whether the move takes something: a hostile piece on its square, or a
// pawn option line (a capture in the keep or a freed prisoner).
bool IsTactical(const Position& position, const Move& move);

// The score of a capture or pawn option line alone; 0 for a quiet move.
int TacticalOrder(const Position& position, const Move& move, int personality);

class MoveHistory {
 public:
  MoveHistory() : scores_(static_cast<std::size_t>(kSquareCount) * kSquareCount, 0) {}
  int Score(const Move& move) const { return scores_[Slot(move)]; }
  // A quiet move that cut off gains, the quiet moves tried before it lose;
  // scores stay within a fixed bound, and older lessons fade as new ones come.
  void Reward(const Move& move, int depth);
  void Punish(const Move& move, int depth);
  void Clear();

 private:
  static std::size_t Slot(const Move& move) {
    return static_cast<std::size_t>(Board::Index(move.fromX, move.fromY)) * kSquareCount +
           static_cast<std::size_t>(Board::Index(move.toX, move.toY));
  }
  void Update(const Move& move, int bonus);
  std::vector<int> scores_;
};

struct Killers {
  std::array<Move, 2> moves{};
  void Add(const Move& move) {
    if (moves[0] == move) return;
    moves[1] = moves[0];
    moves[0] = move;
  }
  bool Has(const Move& move) const { return moves[0] == move || moves[1] == move; }
};

}  // namespace varkesh::search
