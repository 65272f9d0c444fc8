// How a peer leaves a session: a node that left the host, and the line to
// the host (or the host's port) lost.
#pragma once

#include "net/node.h"

namespace varkesh::net {

// Host: node n has gone; its seats fall back to the host's player.
void NodeLeft(NetNode& node, int n);
// Host: node n never told its name; its connection closes without a word
// to anyone, as it was never shown as a player.
void CloseNameless(NetNode& node, int n);
// The host's port or the client's line to the host is gone; the game on
// the screen stays and every seat is this program's now.
void LostConnection(NetNode& node);
// The peer is let go as if it had left: a host drops the node, a client its
// line to the host.
void LetGo(NetNode& node, int peer);

}  // namespace varkesh::net
