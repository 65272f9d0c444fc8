#include "core/game.h"

namespace varkesh {

void ClearMarks(Game& game) {
  for (Square& square : game.board.squares) square.mark = kUnmarked;
}

void ClearMoveablePieces(Game& game) {
  game.moveablePieces.Clear();
}

void AddToMoveablePieces(Game& game, int x, int y) {
  game.moveablePieces.Add({x, y});
}

void AddToHistory(Game& game, int fromX, int fromY, int toX, int toY, int team, bool wasCapture) {
  game.history[2] = game.history[1];
  game.history[1] = game.history[0];
  game.history[0] = {fromX, fromY, toX, toY, team, wasCapture};
}

bool LackOfMaterial(const Game& game, int team) {
  int material = 0;
  for (const Square& square : game.board.squares) {
    if (square.team != team) continue;
    if (square.piece == kPawn || square.piece == kCastlePawn) {
      material += 1;
    } else if (square.piece >= kBishop && square.piece <= kQueen) {
      material += 2;
    }
  }
  return material < 5;
}

namespace {

// The first square of the team's live King in scan order, or (0, 0).
BoardSquare FindKing(const Game& game, int team) {
  for (int y = 0; y < kBoardSide; ++y) {
    for (int x = 0; x < kBoardSide; ++x) {
      const Square& square = game.board.at(x, y);
      if (square.team == team && square.piece == kKing) return {x, y};
    }
  }
  return {};
}

}  // namespace

int KingColumn(const Game& game, int team) {
  return FindKing(game, team).x;
}

int KingRow(const Game& game, int team) {
  return FindKing(game, team).y;
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
