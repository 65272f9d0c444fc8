#include "core/piece_moves.h"

namespace varkesh {

namespace {

// What a pawn may do depends only on the kind of ground it stands on.
enum class PawnGround { Battlefield, OwnMoat, ForeignMoat, Stuck };

PawnGround GroundOf(const Square& square, int mover) {
  switch (square.terrain) {
    case kBattlefield:
      return PawnGround::Battlefield;
    case kMoat:
      return square.realm == mover ? PawnGround::OwnMoat : PawnGround::ForeignMoat;
    default:  // a keep, any keep, holds a pawn for good
      return PawnGround::Stuck;
  }
}

bool IsHostileMoat(const MoveSearch& search, const Square& square) {
  return square.terrain == kMoat && square.realm != kNoTeam && square.realm != search.Mover() &&
         !IsAlly(search.game.gameType, search.Mover(), square.realm);
}

bool PawnMayEnter(const MoveSearch& search, PawnGround from, const Square& target) {
  switch (from) {
    case PawnGround::Battlefield:
      return target.terrain == kBattlefield || IsHostileMoat(search, target);
    case PawnGround::OwnMoat:
      return target.terrain == kBattlefield;
    case PawnGround::ForeignMoat:
      return target.terrain == kKeep && target.realm != kNoTeam;
    case PawnGround::Stuck:
      break;
  }
  return false;
}

bool IsEmptyBattlefield(const Square& square) {
  return square.terrain == kBattlefield && square.piece == kNoPiece;
}

}  // namespace

void FindPawnMoves(MoveSearch& search) {
  const Board& board = search.game.board;
  PawnGround from = GroundOf(search.source, search.Mover());
  if (from == PawnGround::Stuck) return;

  for (const Step& step : kNeighbourSteps) {
    int toX = search.x + step.dx;
    int toY = search.y + step.dy;
    if (!Board::InBounds(toX, toY)) continue;
    const Square& target = board.at(toX, toY);
    if (PawnMayEnter(search, from, target)) {
      bool reaches = step.Orthogonal() ? target.piece == kNoPiece && target.terrain != kOffBoard
                                       : search.HoldsHostilePiece(target);
      if (reaches) search.AddDestination(toX, toY);
    }

    // Standing in its own moat means the pawn has not moved yet: it may
    // step twice straight out onto the battlefield.
    if (from != PawnGround::OwnMoat || !step.Orthogonal()) continue;
    int farX = search.x + 2 * step.dx;
    int farY = search.y + 2 * step.dy;
    if (Board::InBounds(farX, farY) && IsEmptyBattlefield(target) &&
        IsEmptyBattlefield(board.at(farX, farY))) {
      search.AddDestination(farX, farY);
    }
  }
}

void FindCastlePawnMoves(MoveSearch& search) {
  const Board& board = search.game.board;
  for (const Step& step : kNeighbourSteps) {
    int toX = search.x + step.dx;
    int toY = search.y + step.dy;
    if (!Board::InBounds(toX, toY)) continue;
    const Square& target = board.at(toX, toY);
    if (target.terrain == kOffBoard || IsFallenSquare(target)) continue;
    bool reaches = step.Orthogonal() ? target.piece == kNoPiece : search.HoldsHostilePiece(target);
    if (reaches) search.AddDestination(toX, toY);
  }
}

}  // namespace varkesh
