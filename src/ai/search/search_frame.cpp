#include "ai/search/search_frame.h"

#include <utility>

#include "core/geometry.h"
#include "core/pawn_options.h"
#include "core/piece_moves.h"
#include "core/rules.h"

namespace varkesh::search {

namespace {

// Captures of hostile pieces, and every line of the options of a pawn that
// enters a keep.
void AddTactical(Position& position, int team, Frame& frame) {
  const auto& squares = position.board.squares;
  position.pieces[static_cast<std::size_t>(team - 1)].ForEach([&](int from) {
    const Square& source = squares[static_cast<std::size_t>(from)];
    ForEachDestination(position, from, [&](int to) {
      const Square& target = squares[static_cast<std::size_t>(to)];
      const bool capture = target.piece > 0 && target.team != team;
      const bool entersKeep =
          (source.piece == kPawn || source.piece == kCastlePawn) && target.terrain == kKeep;
      const Move plain = Move::Of(SquareX(from), SquareY(from), SquareX(to), SquareY(to));
      if (!entersKeep) {
        if (capture) frame.moves.Add(plain);
        return;
      }
      const MoveOptions options =
          PawnOptionsOfMove(position, plain.fromX, plain.fromY, plain.toX, plain.toY);
      const int lines = static_cast<int>(options.options.size());
      if (lines == 0) {
        if (capture) frame.moves.Add(plain);
        return;
      }
      for (int line = 0; line < lines; ++line)
        frame.moves.Add(Move::Of(plain.fromX, plain.fromY, plain.toX, plain.toY, line));
    });
  });
}

}  // namespace

void GenerateMoves(Position& position, const Sides& sides, bool pooled, bool tacticalOnly,
                   Frame& frame) {
  frame.moves.Clear();
  const int saved = position.currentTeam;
  for (int team = kWhite; team <= kRed; ++team) {
    if (pooled ? sides.Of(team) != 1 || TeamEntry(position.kingdomFallen, team) : team != saved)
      continue;
    position.currentTeam = team;
    const int first = frame.moves.Count();
    if (tacticalOnly) {
      AddTactical(position, team, frame);
    } else {
      ListBranches(position, frame.scratch);
      for (const Move& move : frame.scratch) frame.moves.Add(move);
    }
    for (int i = first; i < frame.moves.Count(); ++i)
      frame.movers[static_cast<std::size_t>(i)] = static_cast<std::int8_t>(team);
  }
  position.currentTeam = saved;
}

void PickNext(Frame& frame, int i) {
  int best = i;
  for (int k = i + 1; k < frame.moves.Count(); ++k)
    if (frame.order[static_cast<std::size_t>(k)] > frame.order[static_cast<std::size_t>(best)])
      best = k;
  if (best == i) return;
  std::swap(frame.moves[i], frame.moves[best]);
  std::swap(frame.order[static_cast<std::size_t>(i)], frame.order[static_cast<std::size_t>(best)]);
  std::swap(frame.movers[static_cast<std::size_t>(i)],
            frame.movers[static_cast<std::size_t>(best)]);
}

}  // namespace varkesh::search
