// The part of a move that every kind of move plays alike: the castle right,
// the board, the dungeons, the history, the sound and a fallen kingdom.
#pragma once

#include "core/game.h"
#include "core/outside.h"

namespace varkesh {

// Who sees the box when lack of material takes a team's King.
enum class MaterialNotice {
  HumanOrNetwork,  // a human victim, or any victim in a network game
  HumanOnly,       // a human victim only
};

// Plays (moveFromX, moveFromY) to (moveToX, moveToY) for currentTeam, up to
// and including the victory test; pawn options and the turn are the caller's.
// Throws std::out_of_range for a square off the array.
void PlayMoveOnBoard(Game& game, Outside& outside, MaterialNotice notice);

}  // namespace varkesh
