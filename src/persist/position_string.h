// A position as one line of text, for a record that does not begin at the
// standard start. The terrain is the fixed layout; the realms are given per
// kingdom, as a fallen kingdom's keep and moat pass whole to a new owner.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/position.h"

namespace varkesh {

// Team letters of records: w White, u Blue, k Black, r Red.
char TeamLetter(int team);            // '-' for no team
int TeamOfRecordLetter(char letter);  // kNoTeam for '-', -1 for anything else
// Piece letters: P Pawn, C Castle Pawn, B, R, N, Q, K.
char PieceLetter(int kind);
int PieceOfRecordLetter(char letter);  // kNoPiece for anything else
// A square as a record names it: files a to q left to right, ranks 1 to 17
// from the bottom, so White's keep is at ranks 1 to 4.
std::string SquareName(int x, int y);
// Reads a square name at the front of text, removing it; false if none.
bool ReadSquareName(std::string_view& text, int& x, int& y);

// The line of a position, or nothing when it strays from what the line can
// say: terrain off the layout, realms split, a piece off the board or a
// value that names no team.
std::optional<std::string> WritePositionString(const Position& position);

// Reads a line into position (game type and rule are left as they are);
// the problem, or nothing when it reads. position changes only on success.
std::optional<std::string> ReadPositionString(std::string_view text, Position& position);

}  // namespace varkesh
