// The small vocabulary of the game: teams, pieces, terrain and the squares
// of the board that the rules, the computer opponent and the saved game share.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace varkesh {

// Teams. Arrays per team are indexed by team - 1.
inline constexpr int kNoTeam = 0;
inline constexpr int kWhite = 1;
inline constexpr int kBlue = 2;
inline constexpr int kBlack = 3;
inline constexpr int kRed = 4;
inline constexpr int kTeamCount = 4;

// Piece kinds. A frozen piece is stored with its kind negated.
inline constexpr int kNoPiece = 0;
inline constexpr int kPawn = 1;
inline constexpr int kCastlePawn = 2;
inline constexpr int kBishop = 3;
inline constexpr int kRook = 4;
inline constexpr int kKnight = 5;
inline constexpr int kQueen = 6;
inline constexpr int kKing = 7;

// Terrain of a square; fixed once the board is laid out.
inline constexpr int kOffBoard = 0;
inline constexpr int kBattlefield = 1;
inline constexpr int kMoat = 2;
inline constexpr int kKeep = 3;

// Game types: who is allied with whom.
inline constexpr int kAlliedNeighbors = 1;
inline constexpr int kCrossroadAllies = 2;
inline constexpr int kAnarchy = 3;

// What becomes of a kingdom whose King has fallen.
inline constexpr int kKingdomGained = 1;
inline constexpr int kKingdomLost = 2;
inline constexpr int kKingdomFrozen = 3;

// Who plays a seat; anything above kHuman is a computer personality.
inline constexpr int kHuman = 0;
inline constexpr int kAggressive = 1;
inline constexpr int kBalanced = 2;
inline constexpr int kDefensive = 3;

inline constexpr int kBoardSide = 17;
inline constexpr int kSquareCount = kBoardSide * kBoardSide;

// One square: small numbers, stored small, so the board of a search stays in
// the processor's nearest cache.
struct Square {
  std::int8_t team = kNoTeam;
  std::int8_t piece = kNoPiece;
  std::int8_t terrain = kOffBoard;
  std::int8_t realm = kNoTeam;

  bool operator==(const Square&) const = default;
};

// 17 by 17 squares, X to the right and Y downward; (x, y) lives at y * 17 + x.
struct Board {
  std::array<Square, kSquareCount> squares{};

  static constexpr bool InBounds(int x, int y) {
    return x >= 0 && x < kBoardSide && y >= 0 && y < kBoardSide;
  }
  static constexpr int Index(int x, int y) { return y * kBoardSide + x; }
  Square& at(int x, int y) { return squares[static_cast<std::size_t>(Index(x, y))]; }
  const Square& at(int x, int y) const { return squares[static_cast<std::size_t>(Index(x, y))]; }
  bool operator==(const Board&) const = default;
};

// A small number for each square, by square index: the marks a saved game
// keeps beside the board.
using SquareMarks = std::array<std::int8_t, kSquareCount>;

struct BoardSquare {
  int x = 0;
  int y = 0;
  bool operator==(const BoardSquare&) const = default;
};

struct DungeonPiece {
  std::int8_t team = kNoTeam;
  std::int8_t piece = kNoPiece;
  bool operator==(const DungeonPiece&) const = default;
};

// A list whose entries live at indexes 1 to Count(), as every list of the game
// is counted from 1; index 0 holds an unused default entry.
template <class T>
class OneBasedList {
 public:
  int Count() const { return static_cast<int>(items_.size()) - 1; }
  bool Empty() const { return Count() == 0; }
  T& operator[](int i) { return items_[static_cast<std::size_t>(i)]; }
  const T& operator[](int i) const { return items_[static_cast<std::size_t>(i)]; }
  void Add(const T& item) { items_.push_back(item); }
  void Clear() { items_.resize(1); }
  void RemoveAt(int i) { items_.erase(items_.begin() + i); }
  void Reserve(int n) { items_.reserve(static_cast<std::size_t>(n) + 1); }
  auto begin() { return items_.begin() + 1; }
  auto end() { return items_.end(); }
  auto begin() const { return items_.begin() + 1; }
  auto end() const { return items_.end(); }
  bool operator==(const OneBasedList&) const = default;

 private:
  std::vector<T> items_ = std::vector<T>(1);
};

// The same counted from 1, in place and of fixed capacity, so that a value
// holding it copies without touching the heap. Adding to a full list does
// nothing and says so.
template <class T, int Capacity>
class FixedOneBasedList {
 public:
  int Count() const { return count_; }
  bool Empty() const { return count_ == 0; }
  bool Full() const { return count_ == Capacity; }
  T& operator[](int i) { return items_[static_cast<std::size_t>(i)]; }
  const T& operator[](int i) const { return items_[static_cast<std::size_t>(i)]; }
  bool Add(const T& item) {
    if (Full()) return false;
    items_[static_cast<std::size_t>(++count_)] = item;
    return true;
  }
  void InsertAt(int i, const T& item) {
    if (Full() || i < 1 || i > count_ + 1) return;
    for (int k = ++count_; k > i; --k) items_[static_cast<std::size_t>(k)] = items_[k - 1u];
    items_[static_cast<std::size_t>(i)] = item;
  }
  void RemoveAt(int i) {
    if (i < 1 || i > count_) return;
    for (int k = i; k < count_; ++k) items_[static_cast<std::size_t>(k)] = items_[k + 1u];
    --count_;
  }
  void Clear() { count_ = 0; }
  void Truncate(int count) {
    if (count >= 0 && count < count_) count_ = count;
  }
  const T* begin() const { return items_.data() + 1; }
  const T* end() const { return items_.data() + 1 + count_; }
  T* begin() { return items_.data() + 1; }
  T* end() { return items_.data() + 1 + count_; }
  bool operator==(const FixedOneBasedList& other) const {
    if (count_ != other.count_) return false;
    for (int i = 1; i <= count_; ++i)
      if (!((*this)[i] == other[i])) return false;
    return true;
  }

 private:
  std::array<T, static_cast<std::size_t>(Capacity) + 1> items_{};
  int count_ = 0;
};

template <class T>
using PerTeam = std::array<T, kTeamCount>;

// Index into a per-team array, or -1 for a value that names no team.
constexpr int TeamIndex(int team) {
  return team >= 1 && team <= kTeamCount ? team - 1 : -1;
}

// Per-team entries read safely: a value that names no team reads as the default.
template <class T>
T TeamEntry(const PerTeam<T>& values, int team, T fallback = T{}) {
  int i = TeamIndex(team);
  return i < 0 ? fallback : values[static_cast<std::size_t>(i)];
}

}  // namespace varkesh
