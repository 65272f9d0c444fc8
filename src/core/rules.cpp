#include "core/rules.h"

#include "core/apply_move.h"
#include "core/pawn_options.h"
#include "core/piece_moves.h"

namespace varkesh {

namespace {

// Calls each(from, to), square indexes, once for every move of the team on
// turn, in the order the rules list them.
template <class Each>
void ForEachMove(const Position& position, Each&& each) {
  if (position.Finished()) return;
  const int team = TeamIndex(position.currentTeam);
  if (team < 0) return;
  position.pieces[static_cast<std::size_t>(team)].ForEach([&](int from) {
    if (position.board.squares[static_cast<std::size_t>(from)].piece != kKing) {
      ForEachDestination(position, from, [&each, from](int to) { each(from, to); });
      return;
    }
    // Only the King's castle corner can come twice: next to it, and as the
    // castle move. A player picks a square, so it is one move.
    int seen[kDirections + 1];
    int seenCount = 0;
    ForEachDestination(position, from, [&](int to) {
      for (int k = 0; k < seenCount; ++k)
        if (seen[k] == to) return;
      if (seenCount <= kDirections) seen[seenCount++] = to;
      each(from, to);
    });
  });
}

Move MoveBetween(int from, int to, int option = kOptionNone) {
  return Move::Of(SquareX(from), SquareY(from), SquareX(to), SquareY(to), option);
}

// Whether a move of this piece to that square may open the pawn options.
bool MayOpenPawnOptions(const Position& position, int from, int to) {
  const int piece = position.board.squares[static_cast<std::size_t>(from)].piece;
  return (piece == kPawn || piece == kCastlePawn) &&
         position.board.squares[static_cast<std::size_t>(to)].terrain == kKeep;
}

}  // namespace

void ListMoves(const Position& position, MoveList& moves) {
  moves.Clear();
  ForEachMove(position, [&](int from, int to) { moves.Add(MoveBetween(from, to)); });
}

// A move that opens the options with N lines gives N + 1 branches (each
// line, then the dialog closed); one that opens them with none gives one.
void ListBranches(const Position& position, MoveList& moves) {
  moves.Clear();
  ForEachMove(position, [&](int from, int to) {
    const int lines =
        MayOpenPawnOptions(position, from, to) ? PawnOptionLinesOfMove(position, from, to) : 0;
    if (lines == 0) return moves.Add(MoveBetween(from, to));
    for (int line = 0; line < lines; ++line) moves.Add(MoveBetween(from, to, line));
    moves.Add(MoveBetween(from, to, kOptionClosed));
  });
}

int CountBranches(const Position& position) {
  int count = 0;
  ForEachMove(position, [&](int from, int to) {
    if (!MayOpenPawnOptions(position, from, to)) {
      ++count;
      return;
    }
    const int lines = PawnOptionLinesOfMove(position, from, to);
    count += lines == 0 ? 1 : lines + 1;
  });
  return count;
}

bool IsListedMove(const Position& position, int fromX, int fromY, int toX, int toY) {
  if (position.Finished() || !Board::InBounds(fromX, fromY) || !Board::InBounds(toX, toY))
    return false;
  if (position.board.at(fromX, fromY).team != position.currentTeam) return false;
  const int target = Board::Index(toX, toY);
  bool listed = false;
  ForEachDestination(position, Board::Index(fromX, fromY),
                     [&](int to) { listed = listed || to == target; });
  return listed;
}

bool IsLegal(const Position& position, const Move& move) {
  if (!IsListedMove(position, move.fromX, move.fromY, move.toX, move.toY)) return false;
  if (move.option == kOptionComputer) return true;
  const MoveOptions options =
      PawnOptionsOfMove(position, move.fromX, move.fromY, move.toX, move.toY);
  const int lines = static_cast<int>(options.options.size());
  if (lines == 0) return move.option == kOptionNone;
  return move.option == kOptionClosed || (move.option >= 0 && move.option < lines);
}

}  // namespace varkesh
