// The Qt transport over real sockets on this machine's loopback, host and
// clients in one process, driven by the event loop.
#include <gtest/gtest.h>

#include <QHostAddress>
#include <QTcpServer>
#include <QTest>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "net/qt_transport.h"

namespace varkesh::net {
namespace {

// Writes down what a transport tells, in order, for the tests to compare.
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

constexpr int kWaitMs = 10000;
// Long enough for a stray event to have come, were one on its way.
constexpr int kQuietMs = 200;

// Listen takes no port 0, so a port the system calls free is found first.
int FreePort() {
  QTcpServer probe;
  if (!probe.listen(QHostAddress::Any, 0)) return 0;
  const int port = probe.serverPort();
  probe.close();
  return port;
}

bool WaitUntil(const std::function<bool()>& done) {
  return QTest::qWaitFor(done, kWaitMs);
}

bool CanUseIpv6Loopback() {
  QTcpServer probe;
  return probe.listen(QHostAddress::LocalHostIPv6, 0);
}

struct Client {
  QtTransport transport;
  EventRecorder events;
  Client() { transport.SetEvents(&events); }
};

class QtTransportTest : public ::testing::Test {
 protected:
  void SetUp() override {
    host_.SetEvents(&hostEvents_);
    port_ = FreePort();
    ASSERT_NE(port_, 0);
    std::string error;
    ASSERT_TRUE(host_.Listen(port_, error)) << error;
  }

  // Connects and waits for both ends; returns the host's connection.
  ConnectionId Join(Client& client, const std::string& hostName = "127.0.0.1") {
    const ConnectionId accepted = hostEvents_.lastAccepted;
    const ConnectionId connected = client.events.lastConnected;
    client.transport.Connect(hostName, port_);
    const bool joined = WaitUntil([&] {
      return hostEvents_.lastAccepted != accepted && client.events.lastConnected != connected;
    });
    EXPECT_TRUE(joined) << hostName;
    return joined ? hostEvents_.lastAccepted : 0;
  }

  QtTransport host_;
  EventRecorder hostEvents_;
  int port_ = 0;
};

TEST_F(QtTransportTest, CarriesBytesBothWaysWholeAndInOrder) {
  std::vector<std::string> names{"127.0.0.1", "localhost"};
  if (CanUseIpv6Loopback()) names.push_back("::1");
  const std::string blob = PatternBytes(1 << 20);
  ConnectionId previous = 0;
  for (const std::string& name : names) {
    Client client;
    const ConnectionId atHost = Join(client, name);
    ASSERT_NE(atHost, 0);
    EXPECT_GT(atHost, previous) << "connections are never numbered twice";
    previous = atHost;
    const ConnectionId toHost = client.events.lastConnected;
    client.transport.Send(toHost, blob);
    host_.Send(atHost, blob);
    EXPECT_GT(client.transport.PendingBytes(toHost), 0u);
    ASSERT_TRUE(WaitUntil([&] {
      return hostEvents_.received[atHost].size() >= blob.size() &&
             client.events.received[toHost].size() >= blob.size();
    })) << name;
    EXPECT_TRUE(hostEvents_.received[atHost] == blob) << name;
    EXPECT_TRUE(client.events.received[toHost] == blob) << name;
    EXPECT_EQ(client.transport.PendingBytes(toHost), 0u);
    EXPECT_EQ(host_.PendingBytes(atHost), 0u);
  }
}

TEST_F(QtTransportTest, AClosedConnectionIsHeardOnlyOnTheOtherSide) {
  Client leaving;
  const ConnectionId leaver = Join(leaving);
  const ConnectionId toHost = leaving.events.lastConnected;
  // What was sent just before the close still arrives, ahead of the close.
  leaving.transport.Send(toHost, "bye");
  leaving.transport.Close(toHost);
  ASSERT_TRUE(
      WaitUntil([&] { return hostEvents_.log.back() == "closed " + std::to_string(leaver); }));
  EXPECT_EQ(hostEvents_.received[leaver], "bye");
  leaving.transport.Send(toHost, "lost");
  EXPECT_EQ(leaving.transport.PendingBytes(toHost), 0u);

  Client booted;
  const ConnectionId bootee = Join(booted);
  host_.Close(bootee);
  host_.Send(bootee, "lost");
  const std::string closed = "closed " + std::to_string(booted.events.lastConnected);
  ASSERT_TRUE(WaitUntil([&] { return booted.events.log.back() == closed; }));
  QTest::qWait(kQuietMs);
  EXPECT_EQ(leaving.events.log, std::vector<std::string>{"connected 1"});
  EXPECT_EQ(hostEvents_.log, (std::vector<std::string>{"accepted " + std::to_string(leaver),
                                                       "closed " + std::to_string(leaver),
                                                       "accepted " + std::to_string(bootee)}));
  EXPECT_TRUE(booted.events.received.empty());

  // A program that ends without closing: its connection is dropped at once.
  auto vanishing = std::make_unique<Client>();
  const ConnectionId vanished = Join(*vanishing);
  vanishing.reset();
  const std::string gone = "closed " + std::to_string(vanished);
  ASSERT_TRUE(WaitUntil([&] { return hostEvents_.log.back() == gone; }));
  EXPECT_EQ(hostEvents_.log.end()[-2], "accepted " + std::to_string(vanished));
}

TEST_F(QtTransportTest, CloseZeroEndsTheListenerAndEveryConnection) {
  Client first;
  Client second;
  Join(first);
  Join(second);
  const std::vector<std::string> hostSaw = hostEvents_.log;
  host_.Close(0);
  ASSERT_TRUE(WaitUntil([&] {
    return first.events.log.back().starts_with("closed") &&
           second.events.log.back().starts_with("closed");
  }));

  Client late;
  late.transport.Connect("127.0.0.1", port_);
  ASSERT_TRUE(WaitUntil([&] { return !late.events.log.empty(); }));
  EXPECT_EQ(late.events.log,
            std::vector<std::string>{"error 0 " +
                                     std::to_string(QAbstractSocket::ConnectionRefusedError)});
  EXPECT_FALSE(late.events.lastErrorText.empty());
  QTest::qWait(kQuietMs);
  EXPECT_EQ(hostEvents_.log, hostSaw);
  EXPECT_EQ(late.events.log.size(), 1u);
}

TEST_F(QtTransportTest, ReportsWhatItCannotDo) {
  QtTransport rival;
  std::string error;
  EXPECT_FALSE(rival.Listen(port_, error));
  EXPECT_FALSE(error.empty());
  EXPECT_FALSE(rival.Listen(70000, error));

  Client client;
  client.transport.Connect("127.0.0.1", 70000);
  ASSERT_TRUE(WaitUntil([&] { return !client.events.log.empty(); }));
  EXPECT_TRUE(client.events.log.front().starts_with("error 0 "));
}

TEST(QtTransportAddress, IsAnIpv4AddressOthersCanReach) {
  QtTransport transport;
  const std::string address = transport.LocalAddress();
  const QHostAddress parsed(QString::fromStdString(address));
  EXPECT_EQ(parsed.protocol(), QAbstractSocket::IPv4Protocol) << address;
  EXPECT_TRUE(address == "127.0.0.1" || !parsed.isLoopback()) << address;
}

}  // namespace
}  // namespace varkesh::net
