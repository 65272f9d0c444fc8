// A man in the middle on the loopback: a client connects to it instead of
// the host, and it passes the bytes on both ways, but may drop whole
// messages on their way to the client. How a test damages a real client's
// game without touching the program.
#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <thread>

namespace varkesh::testing {

class LinkProxy {
 public:
  // Called on the proxy's own thread for each message to the client; true
  // drops it.
  using Filter = std::function<bool(const std::string& message)>;

  LinkProxy(int hostPort, Filter dropToClient);
  ~LinkProxy();
  LinkProxy(const LinkProxy&) = delete;
  LinkProxy& operator=(const LinkProxy&) = delete;

  // The port to join; 0 when it could not listen.
  int Port() const { return port_; }
  int DroppedCount() const { return dropped_; }

 private:
  void Run();
  // One pass of passing bytes on; false once either side has closed.
  bool Pass(int client, int host, std::string& toClient);

  int hostPort_;
  Filter dropToClient_;
  int listener_ = -1;
  int port_ = 0;
  std::atomic<bool> stop_{false};
  std::atomic<int> dropped_{0};
  std::thread thread_;
};

}  // namespace varkesh::testing
