// Cutting the received bytes into messages and acting on each by its verb,
// as a client or as the host.
#pragma once

#include "net/node.h"

namespace varkesh::net {

// Every whole message waiting in the receive buffers, oldest first: on a
// host over the nodes from 1 up, on a client from the host's buffer.
void CutStreams(NetNode& node);

}  // namespace varkesh::net
