// Game messages wait in the queue and are applied one a pass, so that
// nothing changes the game in the middle of a move; a client that joins
// gets the running game.
#pragma once

#include <string>

#include "net/node.h"

namespace varkesh::net {

// A message of node from (0 on a client: the host) at the end of the queue;
// false, and nothing queued, when the queue is full.
bool AddToGameQ(NetSession& session, std::string message, int from = 0);
// Takes the oldest message off the queue and applies it. A host applies and
// relays a client's game message only if that client may send it; else it
// logs why and sends that client the game again.
void ProcessGameQ(NetNode& node);
// Host: the seats, and in a running turn the game, the selection and the mode.
void CatchUpClient(NetNode& node, int clientNode);
// Host: the game as it now stands to every client, as a started or loaded
// game goes: the notice in the chat, then the game.
void SendGameToAll(NetNode& node, const std::string& notice);

}  // namespace varkesh::net
