#include "core/position.h"

namespace varkesh {

void Position::Refresh() {
  for (SquareSet& set : pieces) set.Clear();
  for (int index = 0; index < kSquareCount; ++index) {
    const Square& square = board.squares[static_cast<std::size_t>(index)];
    const int team = TeamIndex(square.team);
    if (team >= 0 && square.piece > 0) pieces[static_cast<std::size_t>(team)].Add(index);
  }
}

void Position::Resync(int index) {
  const Square& square = board.squares[static_cast<std::size_t>(index)];
  for (SquareSet& set : pieces) set.Remove(index);
  const int team = TeamIndex(square.team);
  if (team >= 0 && square.piece > 0) pieces[static_cast<std::size_t>(team)].Add(index);
}

void AddToHistory(Position& position, int fromX, int fromY, int toX, int toY, int team,
                  bool wasCapture) {
  auto& history = position.history;
  history[2] = history[1];
  history[1] = history[0];
  history[0] = {fromX, fromY, toX, toY, team, wasCapture};
}

namespace {

int MaterialOf(const Square& square, int team) {
  return square.team == team ? MaterialWorth(square.piece) : 0;
}

}  // namespace

// Asked after every capture, so only the team's own squares are looked at.
// A capture asks before the squares of the move are resynced: the square
// just taken is still listed for the loser, but no longer holds its piece.
int Material(const Position& position, int team) {
  int material = 0;
  const int index = TeamIndex(team);
  if (index < 0) {
    for (const Square& square : position.board.squares) material += MaterialOf(square, team);
    return material;
  }
  position.pieces[static_cast<std::size_t>(index)].ForEach([&](int square) {
    material += MaterialOf(position.board.squares[static_cast<std::size_t>(square)], team);
  });
  return material;
}

bool LackOfMaterial(const Position& position, int team) {
  return Material(position, team) < 5;
}

namespace {

// The first square of the team's live King in scan order, or (0, 0).
BoardSquare FindKing(const Position& position, int team) {
  for (int y = 0; y < kBoardSide; ++y) {
    for (int x = 0; x < kBoardSide; ++x) {
      const Square& square = position.board.at(x, y);
      if (square.team == team && square.piece == kKing) return {x, y};
    }
  }
  return {};
}

}  // namespace

int KingColumn(const Position& position, int team) {
  return FindKing(position, team).x;
}

int KingRow(const Position& position, int team) {
  return FindKing(position, team).y;
}

const char* TeamName(int team) {
  static constexpr const char* kNames[] = {"White", "Blue", "Black", "Red"};
  int index = TeamIndex(team);
  return index < 0 ? "~~error~~" : kNames[index];
}

const char* PieceName(int kind) {
  static constexpr const char* kNames[] = {"Pawn",   "Castle Pawn", "Bishop", "Rook",
                                           "Knight", "Queen",       "King"};
  return kind >= kPawn && kind <= kKing ? kNames[kind - 1] : "~~error~~";
}

}  // namespace varkesh
