// Game messages wait in the queue and are applied one a pass, so that
// nothing changes the game in the middle of a move; a client that joins
// gets the running game.
#pragma once

#include <string>

#include "net/node.h"

namespace varkesh::net {

void AddToGameQ(NetSession& session, std::string message);
// Takes the oldest message off the queue and applies it.
void ProcessGameQ(NetNode& node);
// Host: the seats, and in a running turn the game, the selection and the mode.
void CatchUpClient(NetNode& node, int clientNode);

}  // namespace varkesh::net
