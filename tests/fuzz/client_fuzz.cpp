// Fuzzes a client: it has joined a host, and the input is what the host
// sends, cut into arrivals. There is one connection, whatever the lane;
// opening it again is the player connecting anew.
#include "fuzz/net_fuzz.h"

namespace varkesh::fuzz {

namespace {

constexpr int kMostPasses = 100'000;

struct ClientTable {
  net::FakeNetwork network;
  BarePeer host{network.AddEndpoint("10.0.0.1")};
  FuzzNode client{network.AddEndpoint(), kNetConnectDialog};

  ClientTable() {
    std::string error;
    Require(host.transport.Listen(kPort, error), "the host cannot listen");
    net::OpenAsClient(client.node);
    network.Pump();
    Require(client.game.net.netRole == kNetClient && host.connection != 0,
            "the client got no answer");
  }

  void Play(std::string_view input) {
    for (const Step& step : CutInput(input)) {
      switch (step.kind) {
        case StepKind::kBytes:
          host.transport.Send(host.connection, step.bytes);
          break;
        case StepKind::kTick:
          client.Tick(step.seconds);
          break;
        case StepKind::kReopen:
          if (host.connection != 0) break;
          net::CloseSession(client.node);
          client.game.net.netRole = kNetConnectDialog;
          net::OpenAsClient(client.node);
          break;
        case StepKind::kClose:
          if (host.connection != 0) host.transport.Close(host.connection);
          host.connection = 0;
          break;
        case StepKind::kBreak:
          network.Break(host.transport, host.connection);
          break;
      }
      network.Pump();
      ServeQueue(network, client, step.passes);
    }
    ServeQueue(network, client, kMostPasses);
  }
};

// What a host tells a joiner as node 1 while the game is under way, with
// node 1 holding White and Black, node 2 Blue and Red.
InputWriter Joined(int largest) {
  InputWriter input;
  input.Send(0, "GYNI}1", largest)
      .Send(0, "GMSG}     *** Bob has joined.", largest)
      .Send(0, Fields("GCNL", {"2", "Ann", "Bob", "Cid"}), largest)
      .Send(0, Fields("GCNC", {"0", "1", "0", "2", "0", "1", "0", "2"}), largest)
      .Send(0, "GLGF}" + GameUnderWayImage(), largest + 2)
      .Send(0, Fields("GUPM", {"0", "0", "0", "0"}), largest)
      .Send(0, "GUGS}1", largest);
  return input;
}

}  // namespace

std::vector<std::string> Seeds() {
  const std::string sep(1, net::kFieldSeparator);
  std::vector<std::string> seeds;
  InputWriter played = Joined(5);
  for (const TurnMessages& turn : LegalTurns(8))
    for (const std::string& message : turn.messages) played.Send(0, message);
  played.Send(0, "GCHT}2" + sep + "Well played").Send(0, "GCHT}1" + sep + "Thanks");
  seeds.push_back(played.Bytes());

  seeds.push_back(Joined(0).Bytes());

  // The host speaks the extension: counts before its games, keep-alives;
  // then it goes silent, and the player connects again.
  InputWriter extended;
  extended.Send(0, "GXHI}1").Send(0, "GYNI}1").Send(0, "GXKA}").Send(0, "GXSY}3");
  extended.Send(0, "GLGF}" + GameUnderWayImage(), 7);
  extended.Send(0, Fields("GCNL", {"3", "Ann", "\xFF", "Cid", "Dee"})).Send(0, "GXSY}4");
  for (int second = 0; second < 24; second += 3) extended.Tick(3);
  extended.Reopen(0).Send(0, "GYNI}2").Send(0, "GXHI}1").Tick(6).Tick(3);
  seeds.push_back(extended.Bytes());

  InputWriter booted = Joined(5);
  booted.Send(0, "GBOO}2" + sep + "Cheating").Send(0, "GRES}3").Send(0, "GBOO}1" + sep + "Bye");
  booted.Send(0, "GCHT}0" + sep + "Gone?");
  seeds.push_back(booted.Bytes());

  InputWriter lost = Joined(5);
  lost.Send(0, "GRES}2", 6, 0).Close(1, true).Send(0, "GUGS}1");
  seeds.push_back(lost.Bytes());
  return seeds;
}

}  // namespace varkesh::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace varkesh;
  using namespace varkesh::fuzz;
  ClientTable table;
  table.Play({reinterpret_cast<const char*>(data), size});

  // Whatever the host says, the client's tables hold only what it checked.
  const Game& game = table.client.game;
  Require(game.net.myNodeId >= 0 && game.net.myNodeId <= net::kMaxNodeNumber,
          "a node number out of range");
  for (std::size_t t = 0; t < kTeamCount; ++t) {
    Require(game.net.seatNode[t] >= 0 && game.net.seatNode[t] <= net::kMaxNodeNumber,
            "a seat out of range");
    Require(
        game.match.setup.playerKinds[t] >= kHuman && game.match.setup.playerKinds[t] <= kDefensive,
        "a seat of no kind");
  }
  return 0;
}
