#include "core/rules.h"

#include <type_traits>

#include "core/apply_move.h"
#include "core/pawn_options.h"
#include "core/piece_moves.h"

namespace varkesh {

namespace {

// Calls each(from, to, mayRaid), square indexes, once for every move of the
// team on turn, in the order the rules list them. mayRaid, a compile-time
// bool, says whether the piece is a pawn that may open the pawn options on
// entering a keep: the other pieces skip that test on every destination.
template <class Each>
void ForEachMove(const Position& position, Each&& each) {
  if (position.Finished()) return;
  const int team = TeamIndex(position.currentTeam);
  if (team < 0) return;
  position.pieces[static_cast<std::size_t>(team)].ForEach([&](int from) {
    const int piece = position.board.squares[static_cast<std::size_t>(from)].piece;
    if (piece == kPawn || piece == kCastlePawn) {
      ForEachDestination(position, from,
                         [&each, from](int to) { each(from, to, std::true_type{}); });
      return;
    }
    if (piece != kKing) {
      ForEachDestination(position, from,
                         [&each, from](int to) { each(from, to, std::false_type{}); });
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
      each(from, to, std::false_type{});
    });
  });
}

Move MoveBetween(int from, int to, int option = kOptionNone) {
  return Move::Of(SquareX(from), SquareY(from), SquareX(to), SquareY(to), option);
}

// How many lines the pawn options of a pawn's move have; 0 off the keeps.
template <class MayRaid>
int RaidLines(const Position& position, int from, int to, MayRaid) {
  if constexpr (!MayRaid::value) {
    return 0;
  } else {
    if (position.board.squares[static_cast<std::size_t>(to)].terrain != kKeep) return 0;
    return PawnOptionLinesOfMove(position, from, to);
  }
}

}  // namespace

void ListMoves(const Position& position, MoveList& moves) {
  moves.Clear();
  ForEachMove(position, [&](int from, int to, auto) { moves.Add(MoveBetween(from, to)); });
}

// A move that opens the options with N lines gives N + 1 branches (each
// line, then the dialog closed); one that opens them with none gives one.
void ListBranches(const Position& position, MoveList& moves) {
  moves.Clear();
  ForEachMove(position, [&](int from, int to, auto mayRaid) {
    const int lines = RaidLines(position, from, to, mayRaid);
    if (lines == 0) return moves.Add(MoveBetween(from, to));
    for (int line = 0; line < lines; ++line) moves.Add(MoveBetween(from, to, line));
    moves.Add(MoveBetween(from, to, kOptionClosed));
  });
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
