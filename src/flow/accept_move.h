// Playing a move on this machine: a player's move made here, one told by
// another machine, and the computer's. Each goes through the rules, then
// turns what happened into sounds, boxes and the next turn.
#pragma once

#include "core/apply_move.h"
#include "flow/game.h"
#include "flow/outside.h"

namespace varkesh {

// The move now selected (moveFromX ... moveToY) of the team on turn, made
// by this machine's player: the pawn options dialog asks when they are due.
void AcceptMove(Game& game, Outside& outside);
// The move now selected, with its pawn option as another machine told it:
// a player's move, or a computer's whose option its own rule would not pick.
void NetAcceptMove(Game& game, Outside& outside, int option);
// The computer's move now selected; its own rule picks the pawn option.
// Every machine of a session plays it alike.
void CarryOutAImove(Game& game, Outside& outside);

// The sounds, in the order play makes them, for the part of a move before
// the pawn options and for the options themselves.
void PlayMoveSounds(Outside& outside, const MoveEffects& effects);
void PlayPawnOptionSound(Outside& outside, const MoveEffects& effects);

}  // namespace varkesh
