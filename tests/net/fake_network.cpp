#include "net/fake_network.h"

#include <stdexcept>

namespace varkesh::net {

namespace {

// A test whose endpoints keep answering each other forever fails instead of
// hanging the run.
constexpr int kMostDeliveries = 10'000'000;

}  // namespace

FakeTransport::FakeTransport(FakeNetwork& network, int index, std::string address)
    : network_(network), index_(index), address_(std::move(address)) {}

bool FakeTransport::Listen(int port, std::string& error) {
  auto& listeners = network_.listeners_;
  const auto taken = listeners.find(port);
  if (taken != listeners.end() && taken->second != index_) {
    error = "The bound address is already in use";
    return false;
  }
  std::erase_if(listeners, [this](const auto& listener) { return listener.second == index_; });
  listeners[port] = index_;
  return true;
}

void FakeTransport::Connect(const std::string&, int port) {
  network_.queue_.push_back({FakeNetwork::Kind::kConnect, {index_, 0}, port, closeCount_});
}

void FakeTransport::Send(ConnectionId connection, std::string_view bytes) {
  auto& ends = network_.ends_;
  const auto end = ends.find({index_, connection});
  if (end == ends.end() || bytes.empty()) return;
  const auto peer = ends.find(end->second.peer);
  if (peer == ends.end() || peer->second.closing != FakeNetwork::Closing::kNone) return;
  peer->second.arrived.append(bytes);
  network_.QueueService(peer->first);
}

void FakeTransport::Close(ConnectionId connection) {
  if (connection != 0) {
    network_.CloseEnd({index_, connection});
    return;
  }
  ++closeCount_;
  std::erase_if(network_.listeners_,
                [this](const auto& listener) { return listener.second == index_; });
  std::vector<FakeNetwork::EndKey> mine;
  for (const auto& [key, end] : network_.ends_) {
    if (key.first == index_) mine.push_back(key);
  }
  for (const auto& key : mine) network_.CloseEnd(key);
}

std::size_t FakeTransport::PendingBytes(ConnectionId connection) const {
  const auto& ends = network_.ends_;
  const auto end = ends.find({index_, connection});
  if (end == ends.end()) return 0;
  const auto peer = ends.find(end->second.peer);
  return peer == ends.end() ? 0 : peer->second.arrived.size();
}

std::string FakeTransport::PeerAddress(ConnectionId connection) const {
  const auto end = network_.ends_.find({index_, connection});
  if (end == network_.ends_.end()) return {};
  const FakeTransport* far = network_.Endpoint(end->second.peer.first);
  return far == nullptr ? std::string() : far->address_;
}

FakeTransport& FakeNetwork::AddEndpoint(const std::string& address) {
  const int index = static_cast<int>(endpoints_.size());
  endpoints_.push_back(std::make_unique<FakeTransport>(*this, index, address));
  return *endpoints_.back();
}

void FakeNetwork::Pump() {
  for (int deliveries = 0; !queue_.empty(); ++deliveries) {
    if (deliveries == kMostDeliveries)
      throw std::runtime_error("the fake network never went quiet");
    const Delivery delivery = queue_.front();
    queue_.pop_front();
    if (delivery.kind == Kind::kConnect) {
      DeliverConnect(delivery);
    } else if (delivery.kind == Kind::kService) {
      DeliverService(delivery.end);
    } else if (ends_.contains(delivery.end)) {
      if (TransportEvents* events = EventsOf(delivery.end.first))
        events->OnConnected(delivery.end.second);
    }
  }
}

void FakeNetwork::Break(const FakeTransport& end, ConnectionId connection) {
  const auto near = ends_.find({end.index_, connection});
  if (near == ends_.end()) return;
  for (const EndKey& key : {near->first, near->second.peer}) {
    const auto broken = ends_.find(key);
    if (broken == ends_.end()) continue;
    broken->second.arrived.clear();
    broken->second.closing = Closing::kBroken;
    QueueService(key);
  }
}

void FakeNetwork::StopReading(const FakeTransport& end, ConnectionId connection) {
  const auto found = ends_.find({end.index_, connection});
  if (found != ends_.end()) found->second.reading = false;
}

void FakeNetwork::QueueService(const EndKey& key) {
  const auto end = ends_.find(key);
  if (end == ends_.end() || end->second.serviceQueued) return;
  end->second.serviceQueued = true;
  queue_.push_back({Kind::kService, key, 0, 0});
}

void FakeNetwork::DeliverConnect(const Delivery& delivery) {
  const int clientIndex = delivery.end.first;
  FakeTransport* client = Endpoint(clientIndex);
  if (delivery.closeCount != client->closeCount_) return;
  const auto listener = listeners_.find(delivery.port);
  if (listener == listeners_.end()) {
    // The numbers are QtTransport's for a refused and for a broken connection.
    if (TransportEvents* clientEvents = client->Events())
      clientEvents->OnError(0, 0, "Connection refused");
    return;
  }

  const int hostIndex = listener->second;
  const EndKey clientEnd{clientIndex, ++client->lastConnection_};
  const EndKey hostEnd{hostIndex, ++Endpoint(hostIndex)->lastConnection_};
  ends_[clientEnd].peer = hostEnd;
  ends_[hostEnd].peer = clientEnd;
  // Queued before the host hears of it, so that the client knows its
  // connection before anything the host sends on it arrives.
  queue_.push_back({Kind::kConnected, clientEnd, 0, 0});
  if (TransportEvents* hostEvents = EventsOf(hostIndex)) hostEvents->OnAccepted(hostEnd.second);
}

void FakeNetwork::DeliverService(const EndKey& key) {
  const auto found = ends_.find(key);
  if (found == ends_.end()) return;
  End& end = found->second;
  end.serviceQueued = false;
  if (!end.reading) return;
  TransportEvents* events = EventsOf(key.first);

  if (!end.arrived.empty()) {
    // All that has arrived is handed over in one piece.
    const std::string piece = std::move(end.arrived);
    end.arrived.clear();
    if (end.closing != Closing::kNone) QueueService(key);
    if (events != nullptr) events->OnData(key.second, piece);
    return;
  }
  if (end.closing == Closing::kNone) return;

  if (end.closing == Closing::kBroken && events != nullptr) {
    events->OnError(key.second, 7, "The connection broke");
  }
  // The error's handler may have closed the connection itself.
  if (!ends_.contains(key)) return;
  ends_.erase(key);
  if (events != nullptr) events->OnClosed(key.second);
}

void FakeNetwork::CloseEnd(const EndKey& key) {
  const auto end = ends_.find(key);
  if (end == ends_.end()) return;
  const EndKey peerKey = end->second.peer;
  ends_.erase(end);
  const auto peer = ends_.find(peerKey);
  if (peer == ends_.end() || peer->second.closing != Closing::kNone) return;
  peer->second.closing = Closing::kInOrder;
  QueueService(peerKey);
}

FakeTransport* FakeNetwork::Endpoint(int index) const {
  return endpoints_.at(static_cast<std::size_t>(index)).get();
}

TransportEvents* FakeNetwork::EventsOf(int index) const {
  return Endpoint(index)->Events();
}

}  // namespace varkesh::net
