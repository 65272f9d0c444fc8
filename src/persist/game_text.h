// The plain text of a saved game: one line a field group, CR LF line ends.
// A saved file holds it coded; a NetPlay host sends it as it is.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "flow/game.h"

namespace varkesh {

// The text of a position with its setup; the marks shown on the board, or
// none.
std::string WriteGameText(const Position& position, const Setup& setup,
                          const SquareMarks* marks = nullptr);

// Reads a game text. On any departure from the layout it returns the
// problem, naming the line, and leaves position and setup untouched. The
// marks mean nothing once a game is loaded: they are checked, and kept only
// for a caller that asks for them.
std::optional<std::string> ReadGameText(std::string_view text, Position& position, Setup& setup,
                                        SquareMarks* marks = nullptr);

}  // namespace varkesh
