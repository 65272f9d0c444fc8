// A pawn in a hostile keep: spend it to capture there, or free a prisoner.
#pragma once

#include <string>
#include <vector>

#include "core/apply_move.h"
#include "core/position.h"

namespace varkesh {

struct PawnOption {
  bool onBoard = false;  // capture the piece on (argA, argB); else free prisoner argA
  int argA = 0;
  int argB = 0;
};

// Whether a piece of this kind standing in the keep may be taken by a pawn
// spent there: a live Bishop, Rook, Knight or Queen.
constexpr bool CanBeTakenByOption(int piece) {
  return piece >= kBishop && piece <= kQueen;
}

// The 3 by 5 rectangle of the keep that (x, y) lies in: its nine keep squares
// and six off the board. Empty (x1 < x0) for a square in no keep.
struct KeepArea {
  int x0, x1, y0, y1;
};
KeepArea KeepAround(int x, int y);

// Whether the piece now on (x, y) earns the options: a Pawn on any keep
// square, a Castle Pawn on a square of a hostile keep.
bool PawnOptionsDue(const Position& position, int x, int y);

// The options of the pawn on (toX, toY), captures first, in the dialog's order.
std::vector<PawnOption> ListPawnOptions(const Position& position, int toX, int toY);
int CountPawnOptions(const Position& position, int toX, int toY);
// The line of the dialog for an option: "Capture Red's Light Bishop", "Free your Queen".
std::string PawnOptionText(const Position& position, int toX, int toY, const PawnOption& option);

// What the options of a move would be: played on a copy of the position,
// the dialog closed. No options when the move opens none, or opens them with
// no line to offer.
struct MoveOptions {
  bool due = false;
  std::vector<PawnOption> options;
  Position after;       // the copy, where the lines are read
  MoveEffects effects;  // what the move did up to the options
};
MoveOptions PawnOptionsOfMove(const Position& position, int fromX, int fromY, int toX, int toY);
// How many lines those options have, without copying the position where the
// move topples no kingdom (the move generator asks this for every raid).
int PawnOptionLinesOfMove(const Position& position, int from, int to);

}  // namespace varkesh
