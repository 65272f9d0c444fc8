// The small vocabulary of the game: teams, pieces, terrain and the records
// that the rules, the computer opponent and the saved game share.
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

// Square marks.
inline constexpr int kUnmarked = 0;
inline constexpr int kMarkMoveable = 1;
inline constexpr int kMarkDestination = 2;

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

// States of the main loop.
enum GameMode : int {
  ModeNoGame = 0,
  ModeChoosePiece = 1,
  ModeChooseDestination = 2,
  ModeConfirmMove = 3,
  ModeGameOver = 4,
  ModeTitle = 5,
  ModeVictorySetUp = 6,
  ModeVictory = 7,
  ModeComputerThinks = 8,
  ModeComputerMoves = 9,
};

// NetPlay roles.
inline constexpr int kNetNone = 0;
inline constexpr int kNetHostDialog = 1;
inline constexpr int kNetHosting = 2;
inline constexpr int kNetConnectDialog = 3;
inline constexpr int kNetClient = 4;

inline constexpr int kBoardSide = 17;
inline constexpr int kSquareCount = kBoardSide * kBoardSide;

struct Square {
  int team = kNoTeam;
  int piece = kNoPiece;
  int mark = kUnmarked;
  int terrain = kOffBoard;
  int realm = kNoTeam;

  bool operator==(const Square&) const = default;
};

// 17 by 17 squares, X to the right and Y downward; (x, y) lives at y * 17 + x.
struct Board {
  std::array<Square, kSquareCount> squares{};

  static constexpr bool InBounds(int x, int y) {
    return x >= 0 && x < kBoardSide && y >= 0 && y < kBoardSide;
  }
  Square& at(int x, int y) { return squares[static_cast<std::size_t>(y * kBoardSide + x)]; }
  const Square& at(int x, int y) const {
    return squares[static_cast<std::size_t>(y * kBoardSide + x)];
  }
  bool operator==(const Board&) const = default;
};

struct BoardSquare {
  int x = 0;
  int y = 0;
  bool operator==(const BoardSquare&) const = default;
};

// One candidate move. The rules fill the squares, the computer the scores.
struct MoveRec {
  int fromX = 0, fromY = 0, toX = 0, toY = 0;
  int captureScore = 0, threatScore = 0, weakThreatScore = 0, dangerScore = 0;
  int spare = 0;
};

struct DungeonPiece {
  int team = kNoTeam;
  int piece = kNoPiece;
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

// Prisoners held by one captor, in the order of capture.
struct Dungeon {
  OneBasedList<DungeonPiece> prisoners;
  int PrisonerCount() const { return prisoners.Count(); }
  bool operator==(const Dungeon&) const = default;
};

// One of the last three moves; an entry with fromX and fromY both 0 is empty.
struct HistoryMove {
  int fromX = 0, fromY = 0, toX = 0, toY = 0;
  int team = kNoTeam;
  bool wasCapture = false;
  bool Empty() const { return fromX == 0 && fromY == 0; }
  bool operator==(const HistoryMove&) const = default;
};

template <class T>
using PerTeam = std::array<T, kTeamCount>;

// Index into a per-team array, or -1 for a value that names no team.
constexpr int TeamIndex(int team) {
  return team >= 1 && team <= kTeamCount ? team - 1 : -1;
}

}  // namespace varkesh
