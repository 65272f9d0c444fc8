// Who plays each team in a session: the GCNC message and its reading.
#pragma once

#include <string>
#include <string_view>

#include "net/node.h"

namespace varkesh::net {

// "GCNC}" and, for each team, its player kind and its seat node.
std::string ControlMessage(const Game& game);
// Client: a GCNC payload into the seats; false (and nothing changed) when
// it is not eight numbers of known kinds and nodes.
bool BreakDownNodeControl(NetNode& node, std::string_view payload);
// A computer's seat belongs to the host's node, on every machine alike.
void ComputerSeatsToHost(Game& game);
// The four seat captions of the window, anew.
void UpdatePlayerNames(NetNode& node);
// Host: the seats changed; the window and every client but skipNode (0
// skips nobody) are told.
void TellSeats(NetNode& node, int skipNode);

}  // namespace varkesh::net
