// Fuzzes a client: it has joined a host, and the input is what the host
// sends, cut into arrivals. There is one connection, whatever the lane;
// opening it again is the player connecting anew.
#include "flow/save_load.h"
#include "fuzz/net_fuzz.h"

namespace varkesh::fuzz {

namespace {

struct ClientTable {
  net::FakeNetwork network;
  net::WireEnd host{network.AddEndpoint("10.0.0.1")};
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
    fuzz::Play(input, network, client, {&host, &host}, [this](net::WireEnd&) {
      net::CloseSession(client.node);
      client.game.net.netRole = kNetConnectDialog;
      net::OpenAsClient(client.node);
    });
  }
};

// What a host tells a joiner as node 1 while the game is under way, with
// node 1 holding White and Black, node 2 Blue and Red.
InputWriter Joined(int largest) {
  InputWriter input;
  input.Send(0, "GYNI}1", largest)
      .Send(0, "GMSG}     *** Bob has joined.", largest)
      .Send(0, "GCNL}2" + kSep + "Ann" + kSep + "Bob" + kSep + "Cid", largest)
      .Send(0, net::NumberMessage("GCNC", {0, 1, 0, 2, 0, 1, 0, 2}), largest)
      .Send(0, "GLGF}" + GameImage(GameUnderWay()), largest + 2)
      .Send(0, net::NumberMessage("GUPM", {0, 0, 0, 0}), largest)
      .Send(0, "GUGS}1", largest);
  return input;
}

}  // namespace

std::vector<std::string> Seeds() {
  std::vector<std::string> seeds;
  InputWriter played = Joined(5);
  for (const TurnMessages& turn : LegalTurns(8))
    for (const std::string& message : turn.messages) played.Send(0, message);
  played.Send(0, "GCHT}2" + kSep + "Well played").Send(0, "GCHT}1" + kSep + "Thanks");
  seeds.push_back(played.Bytes());

  seeds.push_back(Joined(0).Bytes());

  // The host speaks the extension: counts before its games, keep-alives;
  // then it goes silent, and the player connects again.
  InputWriter extended;
  extended.Send(0, "GXHI}1").Send(0, "GYNI}1").Send(0, "GXKA}").Send(0, "GXSY}3");
  extended.Send(0, "GLGF}" + GameImage(GameUnderWay()), 7);
  extended.Send(0, "GCNL}3" + kSep + "Ann" + kSep + "\xFF" + kSep + "Cid" + kSep + "Dee")
      .Send(0, "GXSY}4");
  for (int second = 0; second < 24; second += 3) extended.Tick(3);
  extended.Reopen(0).Send(0, "GYNI}2").Send(0, "GXHI}1").Tick(6).Tick(3);
  seeds.push_back(extended.Bytes());

  InputWriter booted = Joined(5);
  booted.Send(0, "GBOO}2" + kSep + "Cheating").Send(0, "GRES}3").Send(0, "GBOO}1" + kSep + "Bye");
  booted.Send(0, "GCHT}0" + kSep + "Gone?");
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
