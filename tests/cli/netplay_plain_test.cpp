// varkesh-cli host and a join node with a peer that speaks only the protocol
// over a real socket: names and chat with accents reach everyone, a new game
// that makes a client's seat a computer raises no error, and a host that
// cannot listen names the log it wrote.
#include <filesystem>

#include "netplay_fixture.h"
#include "raw_peer.h"

namespace varkesh::testing {
namespace {

class NetPlayPlainTest : public NetPlayProcessTest {};

TEST_F(NetPlayPlainTest, AccentsAndANewGameWithAComputerSeatReachEveryNodeAlike) {
  auto host = Host("Hosty");
  ASSERT_TRUE(host);
  host->Send("new --name Talk");
  ASSERT_TRUE(host->WaitFor("mode 1")) << host->Recent();
  auto bob = Join("Bob");
  ASSERT_TRUE(bob);
  RawPeer carol(port_);
  ASSERT_EQ(carol.Join("Carol \xE9"), 2);
  EXPECT_TRUE(bob->WaitFor("chat      *** Carol \u00E9 has joined.")) << bob->Recent();

  carol.Send("GCHT}caf\xE9");
  EXPECT_EQ(bob->WaitFor("chat Carol"), "chat Carol \u00E9: caf\u00E9");
  std::optional<std::string> line = carol.WaitFor("GCHT", 10.0);
  ASSERT_TRUE(line);
  EXPECT_EQ(FieldsOf(*line).back(), "caf\xE9") << "its own line comes back as it went";
  bob->Send("chat na\u00EFve");
  line = carol.WaitFor("GCHT", 10.0);
  ASSERT_TRUE(line);
  EXPECT_EQ(FieldsOf(*line).back(), "na\xEFve");

  host->Send("assign 4 1");
  EXPECT_TRUE(bob->WaitFor("chat      *** Red is now controlled by Bob")) << bob->Recent();
  host->Send("new --players 0,0,0,3 --name Again");
  EXPECT_TRUE(bob->WaitFor("game Again")) << bob->Recent();
  EXPECT_TRUE(carol.WaitFor("GLGF", 10.0));
  bob->ReadFor(1.5);
  for (NodeProcess* node : {host.get(), bob.get()})
    EXPECT_EQ(node->Seats().back(), "seat 4 3 0 Comp (Def)") << node->Recent();
  EXPECT_EQ(ShowDifference(*host, *bob), "");
  EXPECT_TRUE(NetLog().empty()) << NetLog();
}

TEST_F(NetPlayPlainTest, AHostOnABusyPortExitsNamingTheLogItWrote) {
  auto host = Host("Hosty");
  ASSERT_TRUE(host);
  NodeProcess second({"host", "--port", std::to_string(port_), "--name", "Zed"}, folder_.Slashed());
  EXPECT_EQ(second.WaitForExit(), 1);
  const std::string error = FileText(folder_.File("err-" + std::to_string(second.Pid()) + ".txt"));
  const std::string log = folder_.File("varkesh/logs/error_netplay.log");
  EXPECT_NE(error.find("cannot listen on port " + std::to_string(port_) + "; details are in '" +
                       log + "'"),
            std::string::npos)
      << error;
  EXPECT_TRUE(std::filesystem::exists(log));
}

}  // namespace
}  // namespace varkesh::testing
