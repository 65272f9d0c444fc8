#include "core/pawn_options.h"

#include "core/alliances.h"
#include "core/apply_move.h"
#include "core/geometry.h"
#include "core/labels.h"

namespace varkesh {

namespace {

const Dungeon* DungeonOf(const Position& position, int team) {
  int index = TeamIndex(team);
  return index < 0 ? nullptr : &position.dungeons[static_cast<std::size_t>(index)];
}

// Calls take(option) for each option of a pawn of pawn.team on (toX, toY)
// in the keep of pawn.realm, in the dialog's order: the hostile pieces of
// the keep down each column, then the pawn's team's own prisoners held by
// the keep's owner.
template <class Take>
void ForEachPawnOption(const Position& position, int toX, int toY, const Square& pawn,
                       Take&& take) {
  const KeepArea keep = KeepAround(toX, toY);
  for (int x = keep.x0; x <= keep.x1; ++x) {
    for (int y = keep.y0; y <= keep.y1; ++y) {
      const Square& square = position.board.at(x, y);
      if (square.terrain != kKeep || !CanBeTakenByOption(square.piece)) continue;
      if (x == toX && y == toY) continue;  // the pawn's own square
      if (IsHostile(position.gameType, pawn.team, square.team)) take(PawnOption{true, x, y});
    }
  }
  if (const Dungeon* dungeon = DungeonOf(position, pawn.realm)) {
    for (int i = 1; i <= dungeon->PrisonerCount(); ++i) {
      const DungeonPiece& prisoner = dungeon->prisoners[i];
      if (prisoner.team == pawn.team && prisoner.piece != kKing) take(PawnOption{false, i, 0});
    }
  }
}

template <class Take>
void ForEachPawnOption(const Position& position, int toX, int toY, Take&& take) {
  if (Board::InBounds(toX, toY))
    ForEachPawnOption(position, toX, toY, position.board.at(toX, toY), take);
}

// Whether a piece standing on square, as it stands, earns the options.
bool OptionsDueOn(int gameType, const Square& square) {
  if (square.terrain != kKeep) return false;
  if (square.piece == kPawn) return true;
  if (square.piece != kCastlePawn) return false;
  // In Anarchy every keep but its own counts; with alliances only a keep of
  // the other side does, so a keep that has just fallen (realm 0) does not.
  if (gameType == kAnarchy) return square.realm != square.team;
  return square.realm != kNoTeam && IsHostile(gameType, square.team, square.realm);
}

}  // namespace

KeepArea KeepAround(int x, int y) {
  if (x < 3) return {0, 2, 6, 10};
  if (x > 13) return {14, 16, 6, 10};
  if (y < 3) return {6, 10, 0, 2};
  if (y > 13) return {6, 10, 14, 16};
  return {0, -1, 0, -1};
}

bool PawnOptionsDue(const Position& position, int x, int y) {
  return Board::InBounds(x, y) && OptionsDueOn(position.gameType, position.board.at(x, y));
}

std::vector<PawnOption> ListPawnOptions(const Position& position, int toX, int toY) {
  std::vector<PawnOption> options;
  ForEachPawnOption(position, toX, toY,
                    [&](const PawnOption& option) { options.push_back(option); });
  return options;
}

int CountPawnOptions(const Position& position, int toX, int toY) {
  int count = 0;
  ForEachPawnOption(position, toX, toY, [&](const PawnOption&) { ++count; });
  return count;
}

std::string PawnOptionText(const Position& position, int toX, int toY, const PawnOption& option) {
  if (option.onBoard) {
    if (!Board::InBounds(option.argA, option.argB)) return {};
    const Square& square = position.board.at(option.argA, option.argB);
    return "Capture " + TeamPossessive(square.team) + " " +
           PieceTitle(square.piece, option.argA, option.argB);
  }
  if (!Board::InBounds(toX, toY)) return {};
  const Dungeon* dungeon = DungeonOf(position, position.board.at(toX, toY).realm);
  if (!dungeon || option.argA < 1 || option.argA > dungeon->PrisonerCount()) return {};
  return std::string("Free your ") + PieceName(dungeon->prisoners[option.argA].piece);
}

MoveOptions PawnOptionsOfMove(const Position& position, int fromX, int fromY, int toX, int toY) {
  MoveOptions result;
  if (!Board::InBounds(fromX, fromY) || !Board::InBounds(toX, toY)) return result;
  result.after = position;
  result.effects = ApplyMove(result.after, Move::Of(fromX, fromY, toX, toY, kOptionClosed));
  result.due = result.effects.pawn != PawnOutcome::NotDue;
  // The closed dialog leaves the pawn where the options are read; with none
  // to offer it was lost, and the list stays empty.
  if (result.effects.pawn == PawnOutcome::Stayed)
    result.options = ListPawnOptions(result.after, toX, toY);
  return result;
}

int PawnOptionLinesOfMove(const Position& position, int from, int to) {
  const Square& source = position.board.squares[static_cast<std::size_t>(from)];
  const Square& target = position.board.squares[static_cast<std::size_t>(to)];
  const int toX = SquareX(to);
  const int toY = SquareY(to);
  if (TopplesAKingdom(position, source, target)) {
    const MoveOptions options = PawnOptionsOfMove(position, SquareX(from), SquareY(from), toX, toY);
    return static_cast<int>(options.options.size());
  }
  // Nothing else changes in the keep or its owner's dungeon: the taken piece,
  // if any, goes to the mover's dungeon and its square now holds the pawn.
  Square landed = target;
  landed.team = source.team;
  landed.piece = source.piece;
  if (!OptionsDueOn(position.gameType, landed)) return 0;
  int lines = 0;
  ForEachPawnOption(position, toX, toY, landed, [&](const PawnOption&) { ++lines; });
  return lines;
}

}  // namespace varkesh
