// A saved game: the game text, as a NetPlay host sends it too, with the
// game's record beside it, coded together in one file.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/match.h"

namespace varkesh {

// The coded bytes of a saved game; marks are those the board shows.
std::string EncodeSavedGame(const Match& match, const SquareMarks* marks);

// Reads coded bytes into match. A file of the first version, or one whose
// record does not lead to its position, loads with a record that begins at
// the position read. Throws std::runtime_error for a file that cannot be
// read; match is then left as it was. The marks are kept for a caller that
// asks for them.
void DecodeSavedGame(std::string_view coded, Match& match, SquareMarks* marks = nullptr);

}  // namespace varkesh
