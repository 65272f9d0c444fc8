// Counting the branches of a position without listing them: the leaves of
// every count of the tree, so the hottest loop of the rules. The order of
// the moves does not matter to a count, so each kind of piece reads its own
// rows of squares (reach.h) and adds up tests without branching. Only a move
// into a keep asks for the pawn options, and a pawn in a foreign moat, which
// can make no other move, takes the listing's own path.
#include <bit>
#include <cstdint>

#include "core/pawn_options.h"
#include "core/piece_moves.h"
#include "core/reach.h"
#include "core/rules.h"

namespace varkesh {

namespace {

// The mover's view of a square, each test 0 or 1 so that they add up. It
// leans on the board's invariant that a square has a team exactly when it
// has a piece, so the team alone tells empty, hostile and friendly apart.
struct Looker {
  const Board& board;
  unsigned hostile;  // HostileTeamsOf the mover
  unsigned taking;   // the same without team 0: the teams it may take, the realms it may raid
  unsigned landing;  // the same with team 0: what a Knight or King lands on

  const Square& At(int index) const { return board.squares[static_cast<std::size_t>(index)]; }
  static int Bit(unsigned bits, int team) { return static_cast<int>(bits >> (team & 7) & 1u); }
  // A frozen piece, its kind negated, is taken by nobody.
  int HostilePiece(const Square& s) const { return (s.piece > 0) & Bit(taking, s.team); }
  int Lands(const Square& s) const { return (s.piece >= 0) & Bit(landing, s.team); }
  // Empty battlefield, whatever the realm: one compare of the whole square.
  static int EmptyBattlefield(const Square& s) {
    constexpr auto kMask = std::bit_cast<std::uint32_t>(Square{-1, -1, -1, 0});
    constexpr auto kEmpty =
        std::bit_cast<std::uint32_t>(Square{kNoTeam, kNoPiece, kBattlefield, 0});
    return (std::bit_cast<std::uint32_t>(s) & kMask) == kEmpty;
  }
  int RaidableMoat(const Square& s) const { return Bit(taking, s.realm); }
};

int CountLandings(const Looker& look, const SquareList<kDirections>& targets) {
  int count = 0;
  for (std::int16_t to : targets) count += look.Lands(look.At(to));
  return count;
}

int CountKing(const Position& position, const Looker& look, int from, int team) {
  int count = CountLandings(look, ReachOf(from).king);
  if (!TeamEntry(position.castleRight, team)) return count;
  // The castle corner is one more square unless the King already steps there.
  const BoardSquare corner = CastleCorner(team);
  const int dx = SquareX(from) - corner.x, dy = SquareY(from) - corner.y;
  const bool besideCorner = dx >= -1 && dx <= 1 && dy >= -1 && dy <= 1 && (dx != 0 || dy != 0);
  const int index = Board::Index(corner.x, corner.y);
  return count + (besideCorner && look.Lands(look.At(index)) ? 0 : 1);
}

// A pawn that has not moved yet: one step straight onto empty battlefield,
// two where both are empty, or a hostile piece taken diagonally.
int CountPawnInOwnMoat(const Looker& look, int from) {
  const PawnSteps& steps = ReachOf(from).field;
  int count = 0;
  for (std::size_t k = 0; k < kMoatStraightSteps; ++k) {
    const int step = look.EmptyBattlefield(look.At(steps.straight.squares[k]));
    count += step + (step & look.EmptyBattlefield(look.At(steps.beyond[k])));
  }
  for (std::size_t k = 0; k < kMoatDiagonalSteps; ++k)
    count += look.HostilePiece(look.At(steps.diagonal.squares[k]));
  return count;
}

int CountPawnOnBattlefield(const Looker& look, int from) {
  const SquareReach& reach = ReachOf(from);
  const PawnSteps& field = reach.field;
  int count = 0;
  for (std::int16_t to : field.straight.squares) count += look.EmptyBattlefield(look.At(to));
  for (std::int16_t to : field.diagonal.squares) count += look.HostilePiece(look.At(to));
  // Beside a moat: the moat of a realm that is neither its own nor an ally's.
  const PawnSteps& moat = reach.moat;
  for (std::int16_t to : moat.straight) {
    const Square& target = look.At(to);
    count += look.RaidableMoat(target) & (target.piece == kNoPiece);
  }
  for (std::int16_t to : moat.diagonal) {
    const Square& target = look.At(to);
    count += look.RaidableMoat(target) & look.HostilePiece(target);
  }
  return count;
}

// A pawn's move into a keep may open the pawn options: one branch for each
// line and one for the dialog closed, or one when there is no line.
int Branches(const Position& position, int from, int to) {
  if (position.board.squares[static_cast<std::size_t>(to)].terrain != kKeep) return 1;
  const int lines = PawnOptionLinesOfMove(position, from, to);
  return lines == 0 ? 1 : lines + 1;
}

// A pawn in a foreign moat may only step into that realm's keep.
int CountByListing(const Position& position, int from) {
  int count = 0;
  ForEachDestination(position, from, [&](int to) { count += Branches(position, from, to); });
  return count;
}

// A Castle Pawn steps onto any ground but a fallen realm's, and may raid any
// keep; its moves are few, so only a reached square asks for the options.
int CountCastlePawn(const Position& position, const Looker& look, int from) {
  const PawnSteps& steps = ReachOf(from).any;
  int count = 0;
  for (std::int16_t to : steps.straight) {
    const Square& target = look.At(to);
    if ((target.piece == kNoPiece) & !IsFallenSquare(target)) count += Branches(position, from, to);
  }
  for (std::int16_t to : steps.diagonal) {
    const Square& target = look.At(to);
    if (look.HostilePiece(target) & !IsFallenSquare(target)) count += Branches(position, from, to);
  }
  return count;
}

// Most rays of a slider end at once, on its own side's pieces: the first
// square of each ray is looked at together, and only the open rays walked. A
// missing neighbour reads as the pad square, of no team: its ray is walked
// and ends at once.
template <const auto& Rays>
int CountSlider(const Position& position, const Looker& look, int from, const Square& source) {
  const auto& ring = ReachOf(from).ring;
  const auto leaves = [&](int d) {
    return static_cast<unsigned>(look.At(ring[static_cast<std::size_t>(d)]).team != source.team);
  };
  unsigned open = 0;
  for (int d : Rays) open |= leaves(d) << d;
  if (open == 0) return 0;
  const piece_rules::Mover m{position, from, source, look.hostile};
  const bool inRealm = source.piece == kBishop ? source.terrain == kKeep
                                               : source.terrain == kMoat || source.terrain == kKeep;
  int count = 0;
  auto add = [&count](int) { ++count; };
  for (; open != 0; open &= open - 1) piece_rules::Slide(m, std::countr_zero(open), inRealm, add);
  return count;
}

int CountPawn(const Position& position, const Looker& look, int from, const Square& source) {
  if (source.terrain == kBattlefield) return CountPawnOnBattlefield(look, from);
  if (source.terrain != kMoat) return 0;  // a keep, any keep, holds a pawn for good
  if (source.realm == source.team) return CountPawnInOwnMoat(look, from);
  return CountByListing(position, from);
}

constexpr int kQueenRays[] = {0, 1, 2, 3, 4, 5, 6, 7};

// Pawns first, as most pieces are pawns.
int CountPiece(const Position& position, const Looker& look, int from) {
  const Square& source = look.At(from);
  const int piece = source.piece;
  if (piece == kPawn) return CountPawn(position, look, from, source);
  if (piece == kKnight) return CountLandings(look, ReachOf(from).knight);
  if (piece == kRook) return CountSlider<piece_rules::kRookRays>(position, look, from, source);
  if (piece == kBishop) return CountSlider<piece_rules::kBishopRays>(position, look, from, source);
  if (piece == kQueen) return CountSlider<kQueenRays>(position, look, from, source);
  if (piece == kKing) return CountKing(position, look, from, source.team);
  if (piece == kCastlePawn) return CountCastlePawn(position, look, from);
  return 0;  // an unknown kind from a damaged file cannot move
}

}  // namespace

int CountBranches(const Position& position) {
  if (position.Finished()) return 0;
  const int team = TeamIndex(position.currentTeam);
  if (team < 0) return 0;
  const unsigned hostile = HostileTeamsOf(position.gameType, position.currentTeam);
  const unsigned noTeam = 1u << kNoTeam;
  const Looker look{position.board, hostile, hostile & ~noTeam, hostile | noTeam};
  int count = 0;
  position.pieces[static_cast<std::size_t>(team)].ForEach(
      [&](int from) { count += CountPiece(position, look, from); });
  return count;
}

}  // namespace varkesh
