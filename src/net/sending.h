// The session's own sending: each message with its end mark, to one node or
// to every connected node, and an error block for a send that fails.
#pragma once

#include <string>

#include "net/node.h"

namespace varkesh::net {

// On a client node 0 is the host.
void SendToNode(NetNode& node, int clientNum, const std::string& chunk);
// Host: every node from 1 up that is in use, but skipNode (0 skips nobody).
void SendToAllNodes(NetNode& node, const std::string& chunk, int skipNode);
inline void SendToHost(NetNode& node, const std::string& chunk) {
  SendToNode(node, 0, chunk);
}
// The host's chat line for everyone: "GMSG}" and the text.
inline void SendNotice(NetNode& node, const std::string& text) {
  SendToAllNodes(node, "GMSG}" + text, 0);
}

}  // namespace varkesh::net
