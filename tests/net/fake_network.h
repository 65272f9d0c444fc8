// An in-process network for tests: endpoints that are Transports, joined by
// connections whose bytes and events wait in one queue until the test pumps
// them, so that every run delivers the same things in the same order.
#pragma once

#include <cstddef>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "net/transport.h"

namespace varkesh::net {

class FakeNetwork;

class FakeTransport final : public Transport {
 public:
  FakeTransport(FakeNetwork& network, int index, std::string address);

  bool Listen(int port, std::string& error) override;
  void Connect(const std::string& host, int port) override;
  void Send(ConnectionId connection, std::string_view bytes) override;
  void Close(ConnectionId connection) override;
  std::size_t PendingBytes(ConnectionId connection) const override;
  std::string LocalAddress() const override { return address_; }
  std::string PeerAddress(ConnectionId connection) const override;

 private:
  friend class FakeNetwork;
  TransportEvents* Events() const { return events(); }

  FakeNetwork& network_;
  int index_;
  std::string address_;
  ConnectionId lastConnection_ = 0;
  int closeCount_ = 0;  // raised by Close(0); connects begun before it are void
};

class FakeNetwork {
 public:
  FakeNetwork() = default;
  FakeNetwork(const FakeNetwork&) = delete;
  FakeNetwork& operator=(const FakeNetwork&) = delete;

  // A new endpoint with its address. Every host name reaches every endpoint,
  // as the loopback does: they all share one set of ports.
  FakeTransport& AddEndpoint(const std::string& address = "127.0.0.1");

  // Delivers everything pending, including what the deliveries cause, until
  // the network is quiet.
  void Pump();

  // The connection fails at once: bytes on the way are lost, and both ends
  // hear an error followed by the close.
  void Break(const FakeTransport& end, ConnectionId connection);
  // This end takes nothing more off the network: what is sent to it stays
  // pending at the sender, as with a peer that does not read.
  void StopReading(const FakeTransport& end, ConnectionId connection);

 private:
  friend class FakeTransport;

  using EndKey = std::pair<int, ConnectionId>;  // endpoint index, connection
  enum class Closing { kNone, kInOrder, kBroken };
  // One end of a connection: what has arrived for it and not yet been handed
  // to its endpoint, and how the far side went away.
  struct End {
    EndKey peer;
    std::string arrived;
    Closing closing = Closing::kNone;
    bool serviceQueued = false;
    bool reading = true;
  };
  enum class Kind { kConnect, kConnected, kService };
  struct Delivery {
    Kind kind;
    EndKey end;  // kConnect: the connecting endpoint, and no connection
    int port = 0;
    int closeCount = 0;
  };

  void QueueService(const EndKey& key);
  void DeliverConnect(const Delivery& delivery);
  void DeliverService(const EndKey& key);
  // Drops this end; the far side hears the close after what it still has.
  void CloseEnd(const EndKey& key);
  FakeTransport* Endpoint(int index) const;
  TransportEvents* EventsOf(int index) const;

  std::vector<std::unique_ptr<FakeTransport>> endpoints_;
  std::map<int, int> listeners_;  // port to endpoint index
  std::map<EndKey, End> ends_;
  std::deque<Delivery> queue_;
};

// The far end of a connection, for a test that speaks the wire by hand: it
// sends what it is told and keeps what it hears.
struct WireEnd : TransportEvents {
  FakeTransport& transport;
  ConnectionId connection = 0;
  std::string received;

  explicit WireEnd(FakeTransport& endpoint) : transport(endpoint) { transport.SetEvents(this); }
  void OnAccepted(ConnectionId id) override { connection = id; }
  void OnConnected(ConnectionId id) override { connection = id; }
  void OnData(ConnectionId, std::string_view bytes) override { received.append(bytes); }
  void OnClosed(ConnectionId) override { connection = 0; }
  void OnError(ConnectionId, int, const std::string&) override {}
};

}  // namespace varkesh::net
