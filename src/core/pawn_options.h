// A pawn in a hostile keep: spend it to capture there, or free a prisoner.
#pragma once

#include <string>
#include <vector>

#include "core/game.h"
#include "core/outside.h"

namespace varkesh {

struct PawnOption {
  bool onBoard = false;  // capture the piece on (argA, argB); else free prisoner argA
  int argA = 0;
  int argB = 0;
  std::string text;  // "Capture Red's Light Bishop", "Free your Queen", ...
};

// Kinds of the move message (GAMV): what became of a pawn in a keep. A pawn
// with no option is lost on every machine, so that kind is told as well.
inline constexpr int kMovePlain = 0;
inline constexpr int kMoveCaptureInKeep = 1;  // argA, argB: the square taken
inline constexpr int kMoveFreePrisoner = 2;   // argA: the prisoner's index
inline constexpr int kMovePawnLost = 3;

// "GAMV}kind", argA and argB, joined by kFieldSeparator.
std::string MoveMessage(int kind, int argA, int argB);

// The 3 by 5 rectangle of the keep that (x, y) lies in: its nine keep squares
// and six off the board. Empty (x1 < x0) for a square in no keep.
struct KeepArea {
  int x0, x1, y0, y1;
};
KeepArea KeepAround(int x, int y);

// Whether the piece now on (x, y) earns the options: a Pawn on any keep
// square, a Castle Pawn on a square of a hostile keep.
bool PawnOptionsDue(const Game& game, int x, int y);
// The options of the pawn on (toX, toY), captures first, in the dialog's order.
std::vector<PawnOption> ListPawnOptions(const Game& game, int toX, int toY);
// Carries out the chosen option, sets pendingMoveMessage and plays its sound.
void ApplyPawnOption(Game& game, Outside& outside, int toX, int toY, const PawnOption& option);

}  // namespace varkesh
