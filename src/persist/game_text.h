// The plain text of a saved game: one line a field group, CR LF line ends.
// A saved file holds it coded; a NetPlay host sends it as it is.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/game.h"

namespace varkesh {

std::string WriteGameText(const Game& game);

// Reads the stored fields of a game into target. On any departure from the
// layout it returns the problem, naming the line, and leaves target untouched;
// fields that a saved game does not hold are never changed.
std::optional<std::string> ReadGameText(std::string_view text, Game& target);

}  // namespace varkesh
