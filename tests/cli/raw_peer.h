// A NetPlay peer at the socket level that speaks only the protocol, as
// another program would. Every wait is bounded.
#pragma once

#include <optional>
#include <string>

namespace varkesh::testing {

// verb}payload with the numbers joined by the field separator.
std::string Numbers(const std::string& verb, std::initializer_list<int> numbers);
// The verb of a message: what comes before its first "}".
std::string VerbOf(const std::string& message);

class RawPeer {
 public:
  // Connects to the loopback port.
  explicit RawPeer(int port);
  ~RawPeer();
  RawPeer(const RawPeer&) = delete;
  RawPeer& operator=(const RawPeer&) = delete;

  // The message with its end mark; false once the connection has failed.
  bool Send(const std::string& message);
  // The next whole message; nothing on time-out or once the other side has
  // closed.
  std::optional<std::string> Next(double seconds);
  // Reads up to the first message of that verb.
  std::optional<std::string> WaitFor(const std::string& verb, double seconds);
  // As a client joins: takes the node number, then answers with the name.
  // The node number, or 0.
  int Join(const std::string& name);

 private:
  int socket_ = -1;
  bool closed_ = false;
  std::string buffer_;
};

}  // namespace varkesh::testing
