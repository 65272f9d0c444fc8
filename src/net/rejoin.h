// A player whose line dropped may come back: joining again under the same
// name from the same address within kRejoinSeconds gives back the seats that
// fell to the host through the drop, unless the host gave them to someone
// else meanwhile. A name alone is no proof: anyone may type it.
#pragma once

#include <string>
#include <vector>

#include "net/node.h"

namespace varkesh::net {

inline constexpr double kRejoinSeconds = 120.0;

// Host: the teams of name's seats that fell back to the host just now, when
// its connection came from address.
void RememberDroppedSeats(NetNode& node, const std::string& name, const std::string& address,
                          std::vector<int> teams);
// Host: node n has told its name; the seats it held under that name come back.
void RestoreSeats(NetNode& node, int n);

}  // namespace varkesh::net
