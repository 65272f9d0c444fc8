// The transport over Qt Network: one listening QTcpServer for a host and one
// QTcpSocket per connection. Qt delivers the socket signals from the event
// loop of the main thread, which is where the session wants its events.
#pragma once

#include <QAbstractSocket>
#include <QObject>
#include <map>

#include "net/transport.h"

class QTcpServer;
class QTcpSocket;
class QTimer;

namespace varkesh::net {

class QtTransport final : public QObject, public Transport {
  Q_OBJECT

 public:
  explicit QtTransport(QObject* parent = nullptr);
  ~QtTransport() override;

  bool Listen(int port, std::string& error) override;
  void Connect(const std::string& host, int port) override;
  void Send(ConnectionId connection, std::string_view bytes) override;
  void Close(ConnectionId connection) override;
  std::size_t PendingBytes(ConnectionId connection) const override;
  std::string LocalAddress() const override;
  std::string PeerAddress(ConnectionId connection) const override;

 private:
  struct Link {
    QTcpSocket* socket = nullptr;
    bool established = false;  // accepted, or connected as a client
  };

  ConnectionId Adopt(QTcpSocket* socket, bool established);
  void TakeConnections();
  void ReadAll(ConnectionId connection);
  void SocketConnected(ConnectionId connection);
  void SocketError(ConnectionId connection, QAbstractSocket::SocketError error);
  void SocketDisconnected(ConnectionId connection);
  // Forgets the connection and lets its socket finish sending what is queued,
  // then delete itself; nothing of it reaches the events any more.
  void Release(ConnectionId connection);

  // Ticks for the session while anything is open.
  void UpdateTicks();

  QTcpServer* server_ = nullptr;
  QTimer* ticks_ = nullptr;
  std::map<ConnectionId, Link> links_;
  ConnectionId lastConnection_ = 0;
  // Raised by Close(0), so that a failure queued before it stays unheard.
  int closeCount_ = 0;
};

}  // namespace varkesh::net
