// Writes down what a transport tells, in order, for the tests to compare.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "net/transport.h"

namespace varkesh::net {

struct EventRecorder : TransportEvents {
  // Every event but data, as "accepted 1", "connected 1", "closed 1" or
  // "error 0 0" (connection and number).
  std::vector<std::string> log;
  // The bytes of each connection.
  std::map<ConnectionId, std::string> received;
  ConnectionId lastAccepted = 0;
  ConnectionId lastConnected = 0;
  std::string lastErrorText;

  void OnAccepted(ConnectionId connection) override {
    lastAccepted = connection;
    log.push_back("accepted " + std::to_string(connection));
  }
  void OnConnected(ConnectionId connection) override {
    lastConnected = connection;
    log.push_back("connected " + std::to_string(connection));
  }
  void OnData(ConnectionId connection, std::string_view bytes) override {
    received[connection].append(bytes);
  }
  void OnClosed(ConnectionId connection) override {
    log.push_back("closed " + std::to_string(connection));
  }
  void OnError(ConnectionId connection, int number, const std::string& description) override {
    lastErrorText = description;
    log.push_back("error " + std::to_string(connection) + " " + std::to_string(number));
  }
};

// A stretch of bytes of every value, so that nothing is taken for an end.
inline std::string PatternBytes(std::size_t size) {
  std::string bytes(size, '\0');
  for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>((i * 7 + i / 251) & 0xFF);
  return bytes;
}

}  // namespace varkesh::net
