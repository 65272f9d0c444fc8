// Which moves are legal: the alliances and the frame of move finding.
#pragma once

#include "core/game.h"

namespace varkesh {

// Allies by game type alone; a team is not its own ally, team 0 nobody's.
bool IsAlly(int gameType, int team, int other);
// True when other is neither team nor its ally.
bool IsHostile(int gameType, int team, int other);

// Destinations of the live piece on (x, y), in the rule book's order,
// duplicates kept. markSquares marks each with 2 and adds it to
// moveablePieces; addToMoveList appends a MoveRec. Returns the count.
int FindMoves(Game& game, int x, int y, bool markSquares, bool addToMoveList);

// Whether (toX, toY) is a destination FindMoves lists for a piece of
// currentTeam on (fromX, fromY). The game is left as it is.
bool IsListedMove(const Game& game, int fromX, int fromY, int toX, int toY);

// Pieces of team that have a destination, in scan order; each gets mark 1.
int FindMoveablePieces(Game& game, int team, bool forStrobe, bool forComputer);

// Corner of the castle move of a team, or (0, 0) for no team.
BoardSquare CastleCorner(int team);

}  // namespace varkesh
