// The rules as a checked interface over a position: which moves the team on
// turn may make, whether a given move is one of them, and (apply_move.h)
// what playing one does. Everything that moves a piece goes through here.
#pragma once

#include "core/alliances.h"
#include "core/move.h"
#include "core/position.h"

namespace varkesh {

// Every move of the team on turn, each pair of squares once: pieces in scan
// order (Y outer, X inner), each piece's destinations in the rule book's
// order. Pawn options are not spelled out: each move has kOptionNone.
// Nothing when the game has a winner.
void ListMoves(const Position& position, MoveList& moves);

// The same with every pawn option as a move of its own: a move that opens
// the options with N lines gives N + 1 (each line, then the dialog closed),
// one that opens them with none gives one (the pawn is lost).
void ListBranches(const Position& position, MoveList& moves);

// How many moves ListBranches would list, without listing them.
int CountBranches(const Position& position);

// Whether the team on turn may move the piece on (fromX, fromY) to (toX, toY).
bool IsListedMove(const Position& position, int fromX, int fromY, int toX, int toY);

// Whether the move, with its pawn option, may be played now: a listed move,
// and an option the rules offer for it (kOptionComputer always is).
bool IsLegal(const Position& position, const Move& move);

}  // namespace varkesh
