// The sockets of a session behind a small interface, so that the session
// logic runs the same over TCP and over the in-process network of the tests.
// Every event comes in the main thread, between two passes of the main loop
// or while the logic yields; never in the middle of a call into the transport.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace varkesh::net {

// One connection; never reused by a transport within its life. 0 is none.
using ConnectionId = int;

class TransportEvents {
 public:
  virtual ~TransportEvents() = default;
  // Host: a client's connection has been accepted.
  virtual void OnAccepted(ConnectionId connection) = 0;
  // Client: the host answered.
  virtual void OnConnected(ConnectionId connection) = 0;
  virtual void OnData(ConnectionId connection, std::string_view bytes) = 0;
  // The other side closed, or the connection broke. Not raised for a
  // connection this side closed itself.
  virtual void OnClosed(ConnectionId connection) = 0;
  // A failure: connection 0 for the listening socket or a connect that
  // failed before it had a connection. A broken connection raises OnClosed
  // after its OnError.
  virtual void OnError(ConnectionId connection, int number, const std::string& description) = 0;
  // About once a second while the transport listens or has a connection.
  virtual void OnTick() {}
};

class Transport {
 public:
  virtual ~Transport() = default;

  void SetEvents(TransportEvents* events) { events_ = events; }

  // Host: listens on every address; false with the reason when it cannot.
  virtual bool Listen(int port, std::string& error) = 0;
  // Client: starts connecting to a host name, IPv4 or IPv6 address; the
  // outcome comes as OnConnected or OnError.
  virtual void Connect(const std::string& host, int port) = 0;
  // Queues bytes; sending on a closed or unknown connection does nothing.
  virtual void Send(ConnectionId connection, std::string_view bytes) = 0;
  // Closes one connection, or (with 0) the listening socket and every
  // connection. Raises no OnClosed.
  virtual void Close(ConnectionId connection) = 0;
  // Bytes queued on a connection and not yet handed to the network.
  virtual std::size_t PendingBytes(ConnectionId connection) const = 0;
  // An address of this machine that others can reach: the first IPv4
  // address that is not loopback, else "127.0.0.1".
  virtual std::string LocalAddress() const = 0;
  // The address the other end of a connection reaches us from; empty for a
  // connection this transport does not know.
  virtual std::string PeerAddress(ConnectionId connection) const = 0;

 protected:
  TransportEvents* events() const { return events_; }

 private:
  TransportEvents* events_ = nullptr;
};

}  // namespace varkesh::net
