#include <span>

#include "core/piece_moves.h"

namespace varkesh {

namespace {

constexpr Step kKnightJumps[] = {{-1, -2}, {1, -2}, {-2, -1}, {2, -1},
                                 {-2, 1},  {2, 1},  {-1, 2},  {1, 2}};

// The Queen's rays: the Rook's four, then the Bishop's four.
constexpr Step kSlideRays[] = {{0, -1},  {0, 1},  {-1, 0}, {1, 0},
                               {-1, -1}, {1, -1}, {1, 1},  {-1, 1}};

// A Knight or King lands on any ground, empty or with a hostile piece.
void AddIfOpenOrHostile(MoveSearch& search, int toX, int toY) {
  if (!Board::InBounds(toX, toY)) return;
  const Square& target = search.game.board.at(toX, toY);
  bool open = target.piece == kNoPiece && target.terrain != kOffBoard;
  if (open || search.HoldsHostilePiece(target)) search.AddDestination(toX, toY);
}

void AddSteps(MoveSearch& search, std::span<const Step> steps) {
  for (const Step& step : steps) AddIfOpenOrHostile(search, search.x + step.dx, search.y + step.dy);
}

// A foreign moat stops a slider on it, unless the moat is an ally's or the
// slider set out from inside that same realm.
void Slide(MoveSearch& search, Step ray, bool startedInRealm) {
  const Board& board = search.game.board;
  int mover = search.Mover();
  for (int toX = search.x + ray.dx, toY = search.y + ray.dy; Board::InBounds(toX, toY);
       toX += ray.dx, toY += ray.dy) {
    const Square& target = board.at(toX, toY);
    if (target.terrain == kOffBoard || target.team == mover || target.piece < 0) return;
    if (target.piece > 0) {
      if (search.HoldsHostilePiece(target)) search.AddDestination(toX, toY);
      return;
    }
    search.AddDestination(toX, toY);
    if (target.terrain != kMoat || target.realm == mover) continue;
    if (startedInRealm && target.realm == search.source.realm) continue;
    if (!IsAlly(search.game.gameType, mover, target.realm)) return;
  }
}

}  // namespace

void FindKnightMoves(MoveSearch& search) {
  AddSteps(search, kKnightJumps);
}

void FindKingMoves(MoveSearch& search) {
  AddSteps(search, kNeighbourSteps);
  // The castle move asks for nothing but the right: the corner may already
  // be listed, and is then listed twice.
  if (TeamEntry(search.game.castleRight, search.Mover())) {
    BoardSquare corner = CastleCorner(search.Mover());
    search.AddDestination(corner.x, corner.y);
  }
}

void FindSlidingMoves(MoveSearch& search) {
  std::span<const Step> rays(kSlideRays);
  int terrain = search.source.terrain;
  bool startedInRealm = false;
  switch (search.source.piece) {
    case kRook:
      rays = rays.first(4);
      startedInRealm = terrain == kMoat || terrain == kKeep;
      break;
    case kBishop:
      rays = rays.last(4);
      startedInRealm = terrain == kKeep;
      break;
    default:
      startedInRealm = terrain == kMoat || terrain == kKeep;
      break;
  }
  for (const Step& ray : rays) Slide(search, ray, startedInRealm);
}

}  // namespace varkesh
