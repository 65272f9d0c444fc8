// The NetPlay session of one program: its node tables, receive buffers and
// game queue, kept beside the Game. A program holds at most one session; a
// test may hold a host and several clients, each with a Game and a session.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "core/game.h"
#include "net/chat_history.h"
#include "net/transport.h"
#include "net/wire.h"

namespace varkesh::net {

// What a session takes from its peers at the most.
inline constexpr int kMaxClients = 64;
// Node numbers a client accepts from a host: far more than a host ever
// hands out, far less than a table worth worrying about.
inline constexpr int kMaxNodeNumber = 1024;
// A message that has not ended by then is no message of ours.
inline constexpr std::size_t kMaxMessageBytes = 64 * 1024;
inline constexpr std::size_t kMaxNameBytes = 64;

struct NetSession {
  // From the connect dialog.
  std::string hostAddress = kDefaultHost;
  int netPort = kDefaultPort;

  // Node tables, indexes 0 to nodeCount. nodeCount never falls while the
  // session lasts; a free node keeps its place for the next to join.
  int nodeCount = 0;
  std::vector<std::string> nodeNames{std::string()};
  std::vector<bool> nodeInUse{false};
  std::vector<std::string> nodeBuffers{std::string()};
  // The connection of each node: on a host, element n is node n's; on a
  // client, element 0 is the connection to the host. 0 is none.
  std::vector<ConnectionId> nodeConnections{0};

  // Set for the rest of the run once the notice of a NetPlay error was shown.
  bool netErrorShown = false;
  // Messages are being cut from the buffers; a nested arrival only appends.
  bool cutting = false;

  // Whole game messages waiting to be applied, oldest first. Capacity grows
  // by 10 as it fills (0 on a host, 10 on a client when the session opens).
  std::deque<std::string> gameQueue;
  int gameQueueSize = 0;

  ChatHistory chat;
};

}  // namespace varkesh::net
