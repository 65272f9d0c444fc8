#include "net/qt_transport.h"

#include <QByteArray>
#include <QHostAddress>
#include <QNetworkInterface>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

namespace varkesh::net {

namespace {

constexpr int kHighestPort = 65535;
constexpr int kTickMilliseconds = 1000;
// A closed connection may finish sending for this long, and only while
// little is left to send: a peer that does not read must not hold memory.
constexpr int kLingerMilliseconds = 10000;
constexpr qint64 kLingerBytes = 64 * 1024;

bool PortInRange(int port) {
  return port >= 0 && port <= kHighestPort;
}

// "[::1]" is how people often write an IPv6 address with a port nearby; Qt
// wants it bare.
QString HostName(const std::string& host) {
  QString name = QString::fromStdString(host).trimmed();
  if (name.size() > 2 && name.startsWith('[') && name.endsWith(']')) {
    name = name.mid(1, name.size() - 2);
  }
  return name;
}

// The messages are small and each is awaited by a player: a short one must
// not wait for the acknowledgement of the one before.
void SendAtOnce(QTcpSocket* socket) {
  socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
}

}  // namespace

QtTransport::QtTransport(QObject* parent) : QObject(parent), ticks_(new QTimer(this)) {
  ticks_->setInterval(kTickMilliseconds);
  connect(ticks_, &QTimer::timeout, this, [this] {
    if (events() != nullptr) events()->OnTick();
  });
}

QtTransport::~QtTransport() {
  // Nothing may reach the events from here on, and the sockets go with us.
  ticks_->stop();
  if (server_ != nullptr) {
    server_->disconnect();
    delete server_;
  }
  for (QTcpSocket* socket : findChildren<QTcpSocket*>(Qt::FindDirectChildrenOnly)) {
    socket->disconnect();
    socket->abort();
    delete socket;
  }
}

bool QtTransport::Listen(int port, std::string& error) {
  if (!PortInRange(port)) {
    error = "The port " + std::to_string(port) + " is out of range";
    return false;
  }
  if (server_ == nullptr) {
    server_ = new QTcpServer(this);
    connect(server_, &QTcpServer::newConnection, this, &QtTransport::TakeConnections);
    connect(server_, &QTcpServer::acceptError, this, [this](QAbstractSocket::SocketError code) {
      if (events() != nullptr) {
        events()->OnError(0, static_cast<int>(code), server_->errorString().toStdString());
      }
    });
  }
  if (server_->isListening()) server_->close();
  if (!server_->listen(QHostAddress::Any, static_cast<quint16>(port))) {
    error = server_->errorString().toStdString();
    return false;
  }
  UpdateTicks();
  return true;
}

void QtTransport::Connect(const std::string& host, int port) {
  if (!PortInRange(port)) {
    // The outcome of a connect always comes later, from the event loop.
    QMetaObject::invokeMethod(
        this,
        [this, port, closes = closeCount_] {
          if (closes != closeCount_ || events() == nullptr) return;
          events()->OnError(0, static_cast<int>(QAbstractSocket::UnknownSocketError),
                            "The port " + std::to_string(port) + " is out of range");
        },
        Qt::QueuedConnection);
    return;
  }
  auto* socket = new QTcpSocket(this);
  Adopt(socket, false);
  socket->connectToHost(HostName(host), static_cast<quint16>(port));
  UpdateTicks();
}

void QtTransport::Send(ConnectionId connection, std::string_view bytes) {
  const auto link = links_.find(connection);
  if (link == links_.end() || bytes.empty()) return;
  link->second.socket->write(bytes.data(), static_cast<qint64>(bytes.size()));
}

void QtTransport::Close(ConnectionId connection) {
  if (connection != 0) {
    Release(connection);
    return;
  }
  ++closeCount_;
  if (server_ != nullptr) {
    server_->close();
    while (server_->hasPendingConnections()) {
      QTcpSocket* waiting = server_->nextPendingConnection();
      waiting->abort();
      waiting->deleteLater();
    }
  }
  while (!links_.empty()) Release(links_.begin()->first);
  UpdateTicks();
}

std::size_t QtTransport::PendingBytes(ConnectionId connection) const {
  const auto link = links_.find(connection);
  if (link == links_.end()) return 0;
  return static_cast<std::size_t>(link->second.socket->bytesToWrite());
}

std::string QtTransport::LocalAddress() const {
  for (const QHostAddress& address : QNetworkInterface::allAddresses()) {
    if (address.protocol() == QAbstractSocket::IPv4Protocol && !address.isLoopback()) {
      return address.toString().toStdString();
    }
  }
  return "127.0.0.1";
}

std::string QtTransport::PeerAddress(ConnectionId connection) const {
  const auto link = links_.find(connection);
  if (link == links_.end() || link->second.socket == nullptr) return {};
  QHostAddress address = link->second.socket->peerAddress();
  // A listener on every address sees IPv4 peers as mapped IPv6 ones.
  bool mapped = false;
  const quint32 v4 = address.toIPv4Address(&mapped);
  if (mapped) address = QHostAddress(v4);
  return address.toString().toStdString();
}

ConnectionId QtTransport::Adopt(QTcpSocket* socket, bool established) {
  if (established) SendAtOnce(socket);
  const ConnectionId connection = ++lastConnection_;
  links_[connection] = Link{socket, established};
  UpdateTicks();
  connect(socket, &QTcpSocket::readyRead, this, [this, connection] { ReadAll(connection); });
  connect(socket, &QTcpSocket::connected, this,
          [this, connection] { SocketConnected(connection); });
  connect(
      socket, &QTcpSocket::errorOccurred, this,
      [this, connection](QAbstractSocket::SocketError error) { SocketError(connection, error); });
  connect(socket, &QTcpSocket::disconnected, this,
          [this, connection] { SocketDisconnected(connection); });
  return connection;
}

void QtTransport::TakeConnections() {
  const int closes = closeCount_;
  while (closes == closeCount_ && server_->hasPendingConnections()) {
    QTcpSocket* socket = server_->nextPendingConnection();
    socket->setParent(this);
    const ConnectionId connection = Adopt(socket, true);
    if (events() != nullptr) events()->OnAccepted(connection);
    // Bytes or a close that came while the connection waited in the server
    // raised no signal we could hear.
    ReadAll(connection);
    const auto link = links_.find(connection);
    if (link != links_.end() && link->second.socket->state() == QAbstractSocket::UnconnectedState) {
      SocketDisconnected(connection);
    }
  }
}

void QtTransport::ReadAll(ConnectionId connection) {
  const auto link = links_.find(connection);
  if (link == links_.end()) return;
  const QByteArray bytes = link->second.socket->readAll();
  if (bytes.isEmpty() || events() == nullptr) return;
  events()->OnData(connection, std::string_view(bytes.constData(), bytes.size()));
}

void QtTransport::SocketConnected(ConnectionId connection) {
  const auto link = links_.find(connection);
  if (link == links_.end()) return;
  link->second.established = true;
  SendAtOnce(link->second.socket);
  if (events() != nullptr) events()->OnConnected(connection);
}

void QtTransport::SocketError(ConnectionId connection, QAbstractSocket::SocketError error) {
  const auto link = links_.find(connection);
  if (link == links_.end()) return;
  // The other side closing in good order is no failure; the close follows.
  if (error == QAbstractSocket::RemoteHostClosedError) return;
  if (!link->second.established) {
    const std::string description = link->second.socket->errorString().toStdString();
    Release(connection);
    if (events() != nullptr) events()->OnError(0, static_cast<int>(error), description);
    return;
  }
  // What arrived before the failure still counts, and comes first.
  ReadAll(connection);
  if (!links_.contains(connection)) return;
  QTcpSocket* socket = links_[connection].socket;
  const std::string description = socket->errorString().toStdString();
  const bool broken = socket->state() == QAbstractSocket::UnconnectedState;
  if (events() != nullptr) events()->OnError(connection, static_cast<int>(error), description);
  // When the socket is still up, Qt closes it next and the close is heard.
  if (broken) SocketDisconnected(connection);
}

void QtTransport::SocketDisconnected(ConnectionId connection) {
  ReadAll(connection);
  const auto link = links_.find(connection);
  if (link == links_.end()) return;
  const bool established = link->second.established;
  Release(connection);
  if (established && events() != nullptr) events()->OnClosed(connection);
}

void QtTransport::Release(ConnectionId connection) {
  const auto link = links_.find(connection);
  if (link == links_.end()) return;
  QTcpSocket* socket = link->second.socket;
  links_.erase(link);
  UpdateTicks();
  socket->disconnect(this);
  if (socket->bytesToWrite() > kLingerBytes) {
    socket->abort();
    socket->deleteLater();
    return;
  }
  connect(socket, &QAbstractSocket::stateChanged, socket,
          [socket](QAbstractSocket::SocketState state) {
            if (state == QAbstractSocket::UnconnectedState) socket->deleteLater();
          });
  QTimer::singleShot(kLingerMilliseconds, socket, [socket] {
    socket->abort();
    socket->deleteLater();
  });
  socket->disconnectFromHost();
  if (socket->state() == QAbstractSocket::UnconnectedState) socket->deleteLater();
}

void QtTransport::UpdateTicks() {
  const bool open = !links_.empty() || (server_ != nullptr && server_->isListening());
  if (open && !ticks_->isActive()) ticks_->start();
  if (!open) ticks_->stop();
}

}  // namespace varkesh::net
