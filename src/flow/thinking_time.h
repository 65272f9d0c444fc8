// How long the Master thinks over a move, as the player chooses it in the
// Options menu. Club and Expert take their shares of it.
#pragma once

#include <array>
#include <string>

namespace varkesh {

// The times the menu offers, in milliseconds, shortest first.
inline constexpr std::array<int, 5> kThinkingTimeChoicesMs = {500, 1000, 2000, 5000, 10000};

// The menu's text for a time: "0.5 Seconds", "1 Second", "10 Seconds".
std::string ThinkingTimeCaption(int ms);
// A stored time as one of the choices; anything else, a missing value
// included, is the Master's default.
int ThinkingTimeChoice(int storedMs);

}  // namespace varkesh
