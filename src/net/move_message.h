// The move message (GAMV): what became of a pawn that entered a keep, told
// in the three kinds every peer knows.
#pragma once

#include <optional>
#include <string>

#include "core/apply_move.h"
#include "flow/game.h"

namespace varkesh::net {

inline constexpr int kMovePlain =
    0;  // no option taken: none due, none offered, or the dialog closed
inline constexpr int kMoveCaptureInKeep = 1;  // argA, argB: the square taken
inline constexpr int kMoveFreePrisoner = 2;   // argA: the prisoner's index

// "GAMV}kind␁argA␁argB" for a move that had these effects.
std::string MoveMessage(const MoveEffects& effects);

// The move now selected in game, with the pawn option the message's fields
// stand for; none for a kind or an option the move does not offer. Kind 0
// is the dialog closed when it offered lines, else no choice: a pawn with
// nothing to offer is lost on every machine.
std::optional<Move> MoveOfMessage(const Game& game, int kind, int argA, int argB);

}  // namespace varkesh::net
