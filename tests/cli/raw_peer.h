// A NetPlay peer at the socket level, for the tests that need a peer the
// real client would never be: one that floods, never reads, speaks out of
// turn or lies about its game. Every wait is bounded.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varkesh::testing {

// verb}payload with the numbers joined by the field separator.
std::string Numbers(const std::string& verb, std::initializer_list<int> numbers);
// The verb of a message: what comes before its first "}".
std::string VerbOf(const std::string& message);
// The fields of a message's payload.
std::vector<std::string> FieldsOf(const std::string& message);

class RawPeer {
 public:
  // Connects to the loopback port. A receiveBuffer above 0 is asked of the
  // kernel before connecting, so that little waits unread on this side.
  explicit RawPeer(int port, int receiveBuffer = 0);
  ~RawPeer();
  RawPeer(const RawPeer&) = delete;
  RawPeer& operator=(const RawPeer&) = delete;

  bool Connected() const { return socket_ >= 0; }

  // The message with its end mark; false once the connection has failed.
  bool Send(const std::string& message);
  bool SendBytes(std::string_view bytes);
  // Bytes of filler without any end mark, until total have gone out, the
  // connection fails or the time runs out. The count that went out.
  std::size_t Stream(std::size_t total, double seconds);

  // The next whole message; nothing on time-out or once the other side has
  // closed.
  std::optional<std::string> Next(double seconds);
  // Reads up to the first message of that verb.
  std::optional<std::string> WaitFor(const std::string& verb, double seconds);
  // Reads (and drops) everything until the other side closes; false when it
  // has not within the time.
  bool WaitClosed(double seconds);

  // As a client joins: takes the node number, optionally says hello for the
  // extension, then answers with the name. The node number, or 0.
  int Join(const std::string& name, bool hello = false);

 private:
  bool Fill(double seconds);

  int socket_ = -1;
  bool closed_ = false;
  std::string buffer_;
};

}  // namespace varkesh::testing
