// The host's judgement of a client's game message at the point in the
// host's order where it would take effect: only the node holding the seat
// of the team to move may send one, and only what the rules allow.
#pragma once

#include <string>
#include <string_view>

#include "flow/game.h"

namespace varkesh::net {

bool IsGameVerb(std::string_view verb);

// Why the message of node from may not take effect, or empty when it may.
std::string RefusalOf(const Game& game, int from, std::string_view message);

}  // namespace varkesh::net
