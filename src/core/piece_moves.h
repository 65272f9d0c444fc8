// The rule of each piece kind: which squares a live piece may move to, in
// the rule book's fixed order. A destination may come twice (the King's
// castle corner next to it); callers that want each square once drop it.
//
// The rules rely on a board laid out as the game lays it out: terrain only
// on the diamond (the saved game reader refuses anything else), so a square
// off the diamond is simply never a neighbour.
#pragma once

#include "core/alliances.h"
#include "core/geometry.h"
#include "core/position.h"

namespace varkesh {

// Corner of the castle move of a team, or (0, 0) for no team.
constexpr BoardSquare CastleCorner(int team) {
  constexpr BoardSquare kCorners[] = {{8, 16}, {0, 8}, {8, 0}, {16, 8}};
  int index = TeamIndex(team);
  return index < 0 ? BoardSquare{} : kCorners[index];
}

// A moat or keep square of a kingdom that was cleared or frozen.
constexpr bool IsFallenSquare(const Square& square) {
  return (square.terrain == kMoat || square.terrain == kKeep) && square.realm == kNoTeam;
}

namespace piece_rules {

// Directions of the sliders' rays in the rule book's order: the Rook's four,
// then the Bishop's; the Queen has all eight.
inline constexpr int kRookRays[] = {1, 6, 3, 4};
inline constexpr int kBishopRays[] = {0, 2, 7, 5};

// One piece's search: the board, the mover and the teams it may take.
struct Mover {
  const Position& position;
  int from;
  Square source;
  unsigned hostile;

  const Square& At(int index) const {
    return position.board.squares[static_cast<std::size_t>(index)];
  }
  int team() const { return source.team; }
  bool HoldsHostilePiece(const Square& square) const {
    return square.piece > 0 && InTeams(hostile, square.team);
  }
  bool IsAllyRealm(int realm) const { return IsAlly(position.gameType, source.team, realm); }
};

// A Knight or King lands on any ground, empty or with a hostile piece.
template <class Add>
void LandOnOpenOrHostile(const Mover& m, int to, Add& add) {
  if (to == kNowhere) return;
  const Square& target = m.At(to);
  if (target.piece == kNoPiece || m.HoldsHostilePiece(target)) add(to);
}

// A foreign moat stops a slider on it, unless the moat is an ally's or the
// slider set out from inside that same realm.
template <class Add>
void Slide(const Mover& m, int direction, bool startedInRealm, Add& add) {
  for (int to = Neighbour(m.from, direction); to != kNowhere; to = Neighbour(to, direction)) {
    const Square& target = m.At(to);
    if (target.team == m.team() || target.piece < 0) return;
    if (target.piece > 0) {
      if (m.HoldsHostilePiece(target)) add(to);
      return;
    }
    add(to);
    if (target.terrain != kMoat || target.realm == m.team()) continue;
    if (startedInRealm && target.realm == m.source.realm) continue;
    if (!m.IsAllyRealm(target.realm)) return;
  }
}

template <class Add>
void SlidingMoves(const Mover& m, Add& add) {
  const bool inRealm = m.source.terrain == kMoat || m.source.terrain == kKeep;
  switch (m.source.piece) {
    case kRook:
      for (int d : kRookRays) Slide(m, d, inRealm, add);
      return;
    case kBishop:
      for (int d : kBishopRays) Slide(m, d, m.source.terrain == kKeep, add);
      return;
    default:
      for (int d : kRookRays) Slide(m, d, inRealm, add);
      for (int d : kBishopRays) Slide(m, d, inRealm, add);
      return;
  }
}

template <class Add>
void KingMoves(const Mover& m, Add& add) {
  for (int d = 0; d < kDirections; ++d) LandOnOpenOrHostile(m, Neighbour(m.from, d), add);
  // The castle move asks for nothing but the right.
  if (TeamEntry(m.position.castleRight, m.team())) {
    const BoardSquare corner = CastleCorner(m.team());
    add(Board::Index(corner.x, corner.y));
  }
}

// What a pawn may do depends only on the kind of ground it stands on.
enum class PawnGround { Battlefield, OwnMoat, ForeignMoat, Stuck };

constexpr PawnGround GroundOf(const Square& square) {
  switch (square.terrain) {
    case kBattlefield:
      return PawnGround::Battlefield;
    case kMoat:
      return square.realm == square.team ? PawnGround::OwnMoat : PawnGround::ForeignMoat;
    default:  // a keep, any keep, holds a pawn for good
      return PawnGround::Stuck;
  }
}

inline bool PawnMayEnter(const Mover& m, PawnGround from, const Square& target) {
  switch (from) {
    case PawnGround::Battlefield:
      return target.terrain == kBattlefield ||
             (target.terrain == kMoat && target.realm != kNoTeam && target.realm != m.team() &&
              !m.IsAllyRealm(target.realm));
    case PawnGround::OwnMoat:
      return target.terrain == kBattlefield;
    case PawnGround::ForeignMoat:
      return target.terrain == kKeep && target.realm != kNoTeam;
    case PawnGround::Stuck:
      break;
  }
  return false;
}

constexpr bool IsEmptyBattlefield(const Square& square) {
  return square.terrain == kBattlefield && square.piece == kNoPiece;
}

template <class Add>
void PawnMoves(const Mover& m, Add& add) {
  const PawnGround from = GroundOf(m.source);
  if (from == PawnGround::Stuck) return;
  for (int d = 0; d < kDirections; ++d) {
    const int to = Neighbour(m.from, d);
    if (to == kNowhere) continue;
    const Square& target = m.At(to);
    if (PawnMayEnter(m, from, target)) {
      const bool reaches = IsOrthogonal(d) ? target.piece == kNoPiece : m.HoldsHostilePiece(target);
      if (reaches) add(to);
    }
    // Standing in its own moat means the pawn has not moved yet: it may
    // step twice straight out onto the battlefield.
    if (from != PawnGround::OwnMoat || !IsOrthogonal(d) || !IsEmptyBattlefield(target)) continue;
    const int far = Neighbour(to, d);
    if (far != kNowhere && IsEmptyBattlefield(m.At(far))) add(far);
  }
}

template <class Add>
void CastlePawnMoves(const Mover& m, Add& add) {
  for (int d = 0; d < kDirections; ++d) {
    const int to = Neighbour(m.from, d);
    if (to == kNowhere) continue;
    const Square& target = m.At(to);
    if (IsFallenSquare(target)) continue;
    const bool reaches = IsOrthogonal(d) ? target.piece == kNoPiece : m.HoldsHostilePiece(target);
    if (reaches) add(to);
  }
}

}  // namespace piece_rules

// Calls add(to), a square index, for each destination of the live piece on
// square from, in the rule book's order, whoever's turn it is; nothing for
// an empty square or a frozen piece.
template <class Add>
void ForEachDestination(const Position& position, int from, Add&& add) {
  const Square& source = position.board.squares[static_cast<std::size_t>(from)];
  if (source.piece < kPawn) return;
  const piece_rules::Mover m{position, from, source,
                             HostileTeamsOf(position.gameType, source.team)};
  switch (source.piece) {
    case kPawn:
      return piece_rules::PawnMoves(m, add);
    case kCastlePawn:
      return piece_rules::CastlePawnMoves(m, add);
    case kKnight:
      for (int d = 0; d < kDirections; ++d) piece_rules::LandOnOpenOrHostile(m, Jump(from, d), add);
      return;
    case kKing:
      return piece_rules::KingMoves(m, add);
    case kBishop:
    case kRook:
    case kQueen:
      return piece_rules::SlidingMoves(m, add);
    default:  // an unknown kind from a damaged file cannot move
      return;
  }
}

// The destinations of the live piece on (x, y) as FindMoves lists them:
// in order, a castle corner next to the King twice. The number found.
template <class Add>
int FindMoves(const Position& position, int x, int y, Add&& add) {
  if (!Board::InBounds(x, y)) return 0;
  int count = 0;
  ForEachDestination(position, Board::Index(x, y), [&](int to) {
    ++count;
    add(SquareX(to), SquareY(to));
  });
  return count;
}

}  // namespace varkesh
