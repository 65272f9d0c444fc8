// The in-process network that the session's tests stand on: it must behave
// like the sockets where the session can tell, and deliver only when pumped.
#include <gtest/gtest.h>

#include "net/event_recorder.h"
#include "net/fake_network.h"

namespace varkesh::net {
namespace {

using Log = std::vector<std::string>;

class FakeNetworkTest : public ::testing::Test {
 protected:
  void SetUp() override {
    host_.SetEvents(&hostEvents_);
    client_.SetEvents(&clientEvents_);
    other_.SetEvents(&otherEvents_);
    std::string error;
    ASSERT_TRUE(host_.Listen(kDefaultPort, error)) << error;
  }

  void Join(FakeTransport& client) {
    client.Connect("localhost", kDefaultPort);
    network_.Pump();
  }

  static constexpr int kDefaultPort = 5337;
  FakeNetwork network_;
  FakeTransport& host_ = network_.AddEndpoint("192.0.2.10");
  FakeTransport& client_ = network_.AddEndpoint();
  FakeTransport& other_ = network_.AddEndpoint();
  EventRecorder hostEvents_;
  EventRecorder clientEvents_;
  EventRecorder otherEvents_;
};

TEST_F(FakeNetworkTest, DeliversOnlyWhenPumpedAndJoinsSendsTogether) {
  client_.Connect("192.0.2.10", kDefaultPort);
  EXPECT_TRUE(hostEvents_.log.empty());
  ASSERT_TRUE(network_.PumpOne());
  EXPECT_EQ(hostEvents_.log, Log{"accepted 1"});
  EXPECT_TRUE(clientEvents_.log.empty());

  // Sent before the client has heard of its connection: it hears that first.
  host_.Send(1, std::string_view("GYNI}1\0", 7));
  host_.Send(1, std::string_view("GCNL}1\0", 7));
  EXPECT_EQ(host_.PendingBytes(1), 14u);
  EXPECT_EQ(network_.Pump(), 2);
  EXPECT_EQ(clientEvents_.log, Log{"connected 1"});
  EXPECT_EQ(clientEvents_.pieces[1], Log{std::string("GYNI}1\0GCNL}1\0", 14)});
  EXPECT_EQ(host_.PendingBytes(1), 0u);

  client_.Send(1, "GMNI}Ann");
  EXPECT_TRUE(hostEvents_.received.empty());
  network_.Pump();
  EXPECT_EQ(hostEvents_.received[1], "GMNI}Ann");
  EXPECT_EQ(client_.LocalAddress(), "127.0.0.1");
}

TEST_F(FakeNetworkTest, SplitDeliveryCutsEachStreamInOrder) {
  Join(client_);
  Join(other_);
  network_.SetChunkSize(4);
  const std::string blob = PatternBytes(1000);
  host_.Send(1, blob);
  host_.Send(2, "0123456789");
  EXPECT_EQ(host_.PendingBytes(1), 1000u);
  network_.PumpOne();
  EXPECT_EQ(host_.PendingBytes(1), 996u);
  network_.Pump();
  EXPECT_EQ(clientEvents_.pieces[1].size(), 250u);
  EXPECT_TRUE(clientEvents_.received[1] == blob);
  EXPECT_EQ(otherEvents_.pieces[1], (Log{"0123", "4567", "89"}));
}

TEST_F(FakeNetworkTest, ACloseIsHeardOnlyOnTheFarSideAfterItsBytes) {
  network_.SetChunkSize(2);
  Join(client_);
  client_.Send(1, "bye");
  client_.Close(1);
  client_.Send(1, "lost");
  EXPECT_EQ(client_.PendingBytes(1), 0u);
  network_.Pump();
  EXPECT_EQ(hostEvents_.pieces[1], (Log{"by", "e"}));
  EXPECT_EQ(hostEvents_.log, (Log{"accepted 1", "closed 1"}));
  EXPECT_EQ(clientEvents_.log, Log{"connected 1"});

  Join(client_);
  Join(other_);
  host_.Close(0);
  network_.Pump();
  EXPECT_EQ(clientEvents_.log, (Log{"connected 1", "connected 2", "closed 2"}));
  EXPECT_EQ(otherEvents_.log, (Log{"connected 1", "closed 1"}));
  EXPECT_EQ(hostEvents_.log, (Log{"accepted 1", "closed 1", "accepted 2", "accepted 3"}));

  other_.Connect("localhost", kDefaultPort);
  network_.Pump();
  EXPECT_EQ(otherEvents_.log.back(), "error 0 " + std::to_string(kFakeConnectionRefused));
}

TEST_F(FakeNetworkTest, BrokenAndFailedConnectionsRaiseErrors) {
  Join(client_);
  host_.Send(1, "lost");
  network_.Break(client_, 1);
  network_.Pump();
  const std::string broke = "error 1 " + std::to_string(kFakeNetworkError);
  EXPECT_EQ(clientEvents_.log, (Log{"connected 1", broke, "closed 1"}));
  EXPECT_EQ(hostEvents_.log, (Log{"accepted 1", broke, "closed 1"}));
  EXPECT_TRUE(clientEvents_.received.empty());

  client_.Connect("198.51.100.7", kDefaultPort);
  client_.Connect("127.0.0.1", kDefaultPort + 1);
  network_.Pump();
  EXPECT_EQ(clientEvents_.log.size(), 5u);
  EXPECT_EQ(clientEvents_.log[3], "error 0 " + std::to_string(kFakeHostNotFound));
  EXPECT_EQ(clientEvents_.log[4], "error 0 " + std::to_string(kFakeConnectionRefused));

  // A connect begun before Close(0) comes to nothing.
  client_.Connect("localhost", kDefaultPort);
  client_.Close(0);
  network_.Pump();
  EXPECT_EQ(clientEvents_.log.size(), 5u);
  EXPECT_EQ(hostEvents_.log.size(), 3u);

  std::string error;
  EXPECT_FALSE(other_.Listen(kDefaultPort, error));
  EXPECT_FALSE(error.empty());
}

}  // namespace
}  // namespace varkesh::net
