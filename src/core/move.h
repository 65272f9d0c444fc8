// A move as a value: from, to, and what becomes of a pawn that enters a
// keep. Lists of moves live in place, so generating them allocates nothing.
#pragma once

#include <array>
#include <cstdint>

#include "core/types.h"

namespace varkesh {

// The pawn option of a move. A line index (0 and up) of the options dialog,
// or one of these.
inline constexpr int kOptionNone =
    -1;  // no choice: none is due, or none is offered (the pawn is lost)
inline constexpr int kOptionClosed = -2;    // the dialog was closed with no choice: the pawn stays
inline constexpr int kOptionComputer = -3;  // the computer's fixed rule chooses

struct Move {
  std::int8_t fromX = 0, fromY = 0, toX = 0, toY = 0;
  std::int16_t option = kOptionNone;

  static constexpr Move Of(int fromX, int fromY, int toX, int toY, int option = kOptionNone) {
    return {static_cast<std::int8_t>(fromX), static_cast<std::int8_t>(fromY),
            static_cast<std::int8_t>(toX), static_cast<std::int8_t>(toY),
            static_cast<std::int16_t>(option)};
  }
  bool SameSquares(const Move& other) const {
    return fromX == other.fromX && fromY == other.fromY && toX == other.toX && toY == other.toY;
  }
  bool operator==(const Move&) const = default;
};

// Far more moves than any position has. A damaged position that would list
// more simply lists the first ones.
inline constexpr int kMaxMoves = 1024;

class MoveList {
 public:
  int Count() const { return count_; }
  bool Empty() const { return count_ == 0; }
  void Clear() { count_ = 0; }
  void Add(const Move& move) {
    if (count_ < kMaxMoves) moves_[static_cast<std::size_t>(count_++)] = move;
  }
  const Move& operator[](int i) const { return moves_[static_cast<std::size_t>(i)]; }
  Move& operator[](int i) { return moves_[static_cast<std::size_t>(i)]; }
  const Move* begin() const { return moves_.data(); }
  const Move* end() const { return moves_.data() + count_; }
  Move* begin() { return moves_.data(); }
  Move* end() { return moves_.data() + count_; }

 private:
  std::array<Move, kMaxMoves> moves_;
  int count_ = 0;
};

}  // namespace varkesh
