#include "link_proxy.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace varkesh::testing {

namespace {

constexpr int kPollMs = 50;

sockaddr_in Loopback(int port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(static_cast<uint16_t>(port));
  return address;
}

bool SendAll(int socket, const char* data, std::size_t size) {
  while (size > 0) {
    const ssize_t sent = send(socket, data, size, MSG_NOSIGNAL);
    if (sent <= 0) return false;
    data += sent;
    size -= static_cast<std::size_t>(sent);
  }
  return true;
}

}  // namespace

LinkProxy::LinkProxy(int hostPort, Filter dropToClient)
    : hostPort_(hostPort), dropToClient_(std::move(dropToClient)) {
  listener_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address = Loopback(0);
  socklen_t length = sizeof address;
  if (listener_ < 0 ||
      bind(listener_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
      listen(listener_, 1) != 0 ||
      getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &length) != 0)
    return;
  port_ = ntohs(address.sin_port);
  thread_ = std::thread([this] { Run(); });
}

LinkProxy::~LinkProxy() {
  stop_ = true;
  if (thread_.joinable()) thread_.join();
  if (listener_ >= 0) close(listener_);
}

void LinkProxy::Run() {
  int client = -1;
  while (!stop_ && client < 0) {
    pollfd ready{listener_, POLLIN, 0};
    if (poll(&ready, 1, kPollMs) > 0) client = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
  }
  if (client < 0) return;
  const int host = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const sockaddr_in address = Loopback(hostPort_);
  if (host >= 0 &&
      connect(host, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) {
    const int one = 1;
    setsockopt(host, IPPROTO_TCP, TCP_NODELAY, &one, sizeof one);
    setsockopt(client, IPPROTO_TCP, TCP_NODELAY, &one, sizeof one);
    std::string toClient;
    while (!stop_ && Pass(client, host, toClient)) {
    }
  }
  if (host >= 0) close(host);
  close(client);
}

bool LinkProxy::Pass(int client, int host, std::string& toClient) {
  pollfd ready[2] = {{client, POLLIN, 0}, {host, POLLIN, 0}};
  if (poll(ready, 2, kPollMs) <= 0) return true;
  char chunk[65536];
  if (ready[0].revents != 0) {
    const ssize_t got = recv(client, chunk, sizeof chunk, 0);
    if (got <= 0 || !SendAll(host, chunk, static_cast<std::size_t>(got))) return false;
  }
  if (ready[1].revents != 0) {
    const ssize_t got = recv(host, chunk, sizeof chunk, 0);
    if (got <= 0) return false;
    toClient.append(chunk, static_cast<std::size_t>(got));
    // Whole messages only, so that a dropped one leaves no trace.
    std::size_t end;
    while ((end = toClient.find('\0')) != std::string::npos) {
      const std::string message = toClient.substr(0, end + 1);
      toClient.erase(0, end + 1);
      if (dropToClient_(message.substr(0, end))) {
        ++dropped_;
        continue;
      }
      if (!SendAll(client, message.data(), message.size())) return false;
    }
  }
  return true;
}

}  // namespace varkesh::testing
