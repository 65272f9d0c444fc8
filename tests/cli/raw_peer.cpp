#include "raw_peer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>

namespace varkesh::testing {

namespace {

using Clock = std::chrono::steady_clock;

constexpr char kEnd = '\0';
constexpr char kSeparator = '\x01';

Clock::time_point After(double seconds) {
  return Clock::now() +
         std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
}

int MillisecondsLeft(Clock::time_point deadline) {
  const auto left =
      std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
  return static_cast<int>(std::clamp<long long>(left, 0, 60'000));
}

}  // namespace

std::string Numbers(const std::string& verb, std::initializer_list<int> numbers) {
  std::string message = verb + "}";
  bool first = true;
  for (int number : numbers) {
    if (!first) message += kSeparator;
    message += std::to_string(number);
    first = false;
  }
  return message;
}

std::string VerbOf(const std::string& message) {
  return message.substr(0, message.find('}'));
}

std::vector<std::string> FieldsOf(const std::string& message) {
  std::vector<std::string> fields;
  const std::size_t brace = message.find('}');
  if (brace == std::string::npos) return fields;
  std::size_t start = brace + 1;
  for (;;) {
    const std::size_t separator = message.find(kSeparator, start);
    fields.push_back(message.substr(start, separator - start));
    if (separator == std::string::npos) return fields;
    start = separator + 1;
  }
}

RawPeer::RawPeer(int port, int receiveBuffer) {
  // A peer the host has dropped must fail its check, not end the test.
  std::signal(SIGPIPE, SIG_IGN);
  socket_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (socket_ < 0) return;
  if (receiveBuffer > 0)
    setsockopt(socket_, SOL_SOCKET, SO_RCVBUF, &receiveBuffer, sizeof receiveBuffer);
  const int one = 1;
  setsockopt(socket_, IPPROTO_TCP, TCP_NODELAY, &one, sizeof one);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(static_cast<uint16_t>(port));
  if (connect(socket_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
    close(socket_);
    socket_ = -1;
  }
}

RawPeer::~RawPeer() {
  if (socket_ >= 0) close(socket_);
}

bool RawPeer::Send(const std::string& message) {
  std::string framed = message;
  framed += kEnd;
  return SendBytes(framed);
}

bool RawPeer::SendBytes(std::string_view bytes) {
  if (socket_ < 0) return false;
  while (!bytes.empty()) {
    const ssize_t sent = send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent < 0 && errno == EINTR) continue;
    if (sent <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
  return true;
}

std::size_t RawPeer::Stream(std::size_t total, double seconds) {
  if (socket_ < 0) return 0;
  const std::string filler(1 << 20, 'x');
  const auto deadline = After(seconds);
  std::size_t sent = 0;
  while (sent < total) {
    pollfd ready{socket_, POLLOUT, 0};
    const int left = MillisecondsLeft(deadline);
    if (left == 0) break;
    if (poll(&ready, 1, left) <= 0) continue;
    if ((ready.revents & (POLLERR | POLLHUP)) != 0) break;
    const std::size_t size = std::min(filler.size(), total - sent);
    const ssize_t went = send(socket_, filler.data(), size, MSG_NOSIGNAL | MSG_DONTWAIT);
    if (went < 0 && (errno == EINTR || errno == EAGAIN)) continue;
    if (went <= 0) break;
    sent += static_cast<std::size_t>(went);
  }
  return sent;
}

bool RawPeer::Fill(double seconds) {
  if (socket_ < 0 || closed_) return false;
  pollfd ready{socket_, POLLIN, 0};
  if (poll(&ready, 1, MillisecondsLeft(After(seconds))) <= 0) return false;
  char chunk[65536];
  const ssize_t got = recv(socket_, chunk, sizeof chunk, 0);
  if (got <= 0) {
    // A reset counts as a close: either way the host is done with us.
    if (got == 0 || errno != EINTR) closed_ = true;
    return false;
  }
  buffer_.append(chunk, static_cast<std::size_t>(got));
  return true;
}

std::optional<std::string> RawPeer::Next(double seconds) {
  const auto deadline = After(seconds);
  for (;;) {
    const std::size_t end = buffer_.find(kEnd);
    if (end != std::string::npos) {
      std::string message = buffer_.substr(0, end);
      buffer_.erase(0, end + 1);
      return message;
    }
    if (closed_ || Clock::now() >= deadline) return std::nullopt;
    Fill(std::chrono::duration<double>(deadline - Clock::now()).count());
  }
}

std::optional<std::string> RawPeer::WaitFor(const std::string& verb, double seconds) {
  const auto deadline = After(seconds);
  for (;;) {
    const double left = std::chrono::duration<double>(deadline - Clock::now()).count();
    auto message = Next(std::max(left, 0.0));
    if (!message || VerbOf(*message) == verb) return message;
  }
}

bool RawPeer::WaitClosed(double seconds) {
  const auto deadline = After(seconds);
  while (!closed_ && Clock::now() < deadline) {
    Fill(std::chrono::duration<double>(deadline - Clock::now()).count());
    // Only the close matters here; what came before it is dropped unread.
    buffer_.clear();
  }
  return closed_;
}

int RawPeer::Join(const std::string& name, bool hello) {
  auto number = WaitFor("GYNI", 10.0);
  if (!number) return 0;
  if (hello) Send("GXHI}1");
  Send("GMNI}" + name);
  const std::vector<std::string> fields = FieldsOf(*number);
  return fields.empty() ? 0 : std::atoi(fields[0].c_str());
}

}  // namespace varkesh::testing
