// Where the game's NetPlay messages go. The session attaches one to the
// Outside while it is open; with none attached nothing is sent.
#pragma once

#include <string>

namespace varkesh {

class NetLink {
 public:
  virtual ~NetLink() = default;
  // The message goes out with its end mark added. SendToAll is the host's:
  // every connected node but skipNode (0 skips nobody).
  virtual void SendToAll(const std::string& message, int skipNode) = 0;
  // A client sends to node 0, the host.
  virtual void SendToClient(int node, const std::string& message) = 0;
  // A move or a resignation has been played out on this machine, the turn
  // passed on: the session keeps count and checks that machines agree.
  virtual void OnGameEvent() {}
};

}  // namespace varkesh
