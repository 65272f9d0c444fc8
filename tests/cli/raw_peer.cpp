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

}  // namespace

std::string Numbers(const std::string& verb, std::initializer_list<int> numbers) {
  std::string message = verb + "}";
  for (int number : numbers) message += std::to_string(number) + kSeparator;
  if (numbers.size() > 0) message.pop_back();
  return message;
}

std::string VerbOf(const std::string& message) {
  return message.substr(0, message.find('}'));
}

RawPeer::RawPeer(int port) {
  // A peer the host has dropped must fail its check, not end the test.
  std::signal(SIGPIPE, SIG_IGN);
  socket_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (socket_ < 0) return;
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
  if (socket_ < 0) return false;
  std::string_view bytes(message.c_str(), message.size() + 1);  // with its end mark
  while (!bytes.empty()) {
    const ssize_t sent = send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent < 0 && errno == EINTR) continue;
    if (sent <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
  return true;
}

std::optional<std::string> RawPeer::Next(double seconds) {
  const auto deadline = Clock::now() + std::chrono::duration_cast<Clock::duration>(
                                           std::chrono::duration<double>(seconds));
  for (;;) {
    const std::size_t end = buffer_.find(kEnd);
    if (end != std::string::npos) {
      std::string message = buffer_.substr(0, end);
      buffer_.erase(0, end + 1);
      return message;
    }
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
    if (socket_ < 0 || closed_ || left <= 0) return std::nullopt;
    pollfd ready{socket_, POLLIN, 0};
    if (poll(&ready, 1, static_cast<int>(std::min<long long>(left, 60'000))) <= 0) continue;
    char chunk[65536];
    const ssize_t got = recv(socket_, chunk, sizeof chunk, 0);
    if (got > 0)
      buffer_.append(chunk, static_cast<std::size_t>(got));
    else if (got == 0 || errno != EINTR)
      closed_ = true;  // a reset counts as a close: either way the host is done with us
  }
}

std::optional<std::string> RawPeer::WaitFor(const std::string& verb, double seconds) {
  const auto deadline = Clock::now() + std::chrono::duration<double>(seconds);
  for (;;) {
    const double left = std::chrono::duration<double>(deadline - Clock::now()).count();
    auto message = Next(std::max(left, 0.0));
    if (!message || VerbOf(*message) == verb) return message;
  }
}

int RawPeer::Join(const std::string& name) {
  auto number = WaitFor("GYNI", 10.0);
  if (!number) return 0;
  Send("GMNI}" + name);
  return std::atoi(number->c_str() + number->find('}') + 1);
}

}  // namespace varkesh::testing
