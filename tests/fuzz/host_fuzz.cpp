// Fuzzes a host: two clients hold the seats of a game under way, and the
// input is what they send, cut into arrivals on their two connections.
#include "fuzz/net_fuzz.h"

namespace varkesh::fuzz {

namespace {

// Node 1 (lane 0) plays White and Black, node 2 (lane 1) Blue and Red.
constexpr PerTeam<int> kSeatHolders = {1, 2, 1, 2};

int LaneOfTeam(int team) {
  return kSeatHolders[static_cast<std::size_t>(team - 1)] - 1;
}

struct HostTable {
  net::FakeNetwork network;
  FuzzNode host{network.AddEndpoint("10.0.0.1"), kNetHostDialog};
  net::WireEnd clients[2] = {net::WireEnd(network.AddEndpoint()),
                             net::WireEnd(network.AddEndpoint())};

  HostTable() {
    Require(net::OpenAsHost(host.node), "the host cannot listen");
    for (net::WireEnd& client : clients) client.transport.Connect("localhost", kPort);
    network.Pump();
    for (int team = kWhite; team <= kRed; ++team)
      net::AssignSeat(host.node, team, kSeatHolders[static_cast<std::size_t>(team - 1)]);
    network.Pump();
    Require(host.game.net.seatNode == kSeatHolders, "the clients did not get their seats");
  }

  void Play(std::string_view input) {
    fuzz::Play(input, network, host, {&clients[0], &clients[1]},
               [](net::WireEnd& client) { client.transport.Connect("localhost", kPort); });
  }
};

void SendTurns(InputWriter& input, int turns, int largest) {
  for (const TurnMessages& turn : LegalTurns(turns))
    for (const std::string& message : turn.messages)
      input.Send(LaneOfTeam(turn.team), message, largest);
}

}  // namespace

std::vector<std::string> Seeds() {
  std::vector<std::string> seeds;
  InputWriter names;
  names.Send(0, "GMNI}Bob").Send(1, "GMNI}Cid").Send(0, "GCHT}Hello, Cid").Send(1, "GCHT}Hi");
  seeds.push_back(names.Bytes());

  InputWriter moves = names;
  SendTurns(moves, 8, 6);
  seeds.push_back(moves.Bytes());

  InputWriter dribbled;
  SendTurns(dribbled, 2, 0);
  seeds.push_back(dribbled.Bytes());

  InputWriter resigned = names;
  resigned.Send(0, "GRES}0").Send(1, "GRES}0").Send(0, "GRES}2");
  seeds.push_back(resigned.Bytes());

  // Both speak the extension and report the checksums the host itself took,
  // but for one that differs.
  InputWriter checked;
  checked.Send(0, "GXHI}1").Send(1, "GXHI}1").Send(0, "GMNI}Bob").Send(1, "GMNI}Cid");
  SendTurns(checked, 4, 6);
  HostTable probe;
  probe.Play(checked.Bytes());
  for (const auto& [event, sum] : probe.host.session.recentChecksums)
    checked.Send(0, "GXCK}" + std::to_string(event) + kSep + std::to_string(sum));
  checked.Send(1, "GXCK}3" + kSep + "4711").Tick(1).Send(0, "GXKA}").Tick(4).Send(1, "GXKA}");
  seeds.push_back(checked.Bytes());

  // Node 1 goes silent and is let go, comes back under its name and gets
  // its seats again; node 2 floods the chat.
  InputWriter rejoined;
  rejoined.Send(0, "GXHI}1").Send(0, "GMNI}Bob").Send(1, "GMNI}Cid");
  for (int second = 0; second < 22; ++second) rejoined.Tick(1).Send(1, "GCHT}Still here?");
  rejoined.Reopen(0).Send(0, "GMNI}Bob");
  SendTurns(rejoined, 2, 6);
  rejoined.Close(1, false).Send(0, "GCHT}Cid left").Close(0, true).Reopen(1).Tick(7);
  seeds.push_back(rejoined.Bytes());

  // Both ask for takebacks: in step with the host, outrun, out of shape.
  InputWriter asked;
  asked.Send(0, "GXHI}2").Send(1, "GXHI}2").Send(0, "GMNI}Bob").Send(1, "GMNI}Cid");
  SendTurns(asked, 3, 6);
  HostTable counted;
  counted.Play(asked.Bytes());
  const std::string events = std::to_string(counted.host.session.gameEvents);
  asked.Send(0, "GXTB}" + events).Send(1, "GXTB}" + events).Send(1, "GXTB}0");
  asked.Send(0, "GXTB}" + events + "x").Tick(1);
  seeds.push_back(asked.Bytes());
  return seeds;
}

}  // namespace varkesh::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace varkesh;
  using namespace varkesh::fuzz;
  HostTable table;
  table.Play({reinterpret_cast<const char*>(data), size});

  // What clients send may change the game, never the session itself.
  const Game& game = table.host.game;
  Require(game.net.netRole == kNetHosting, "a client ended the hosting");
  Require(table.host.session.nodeCount <= 2, "a node stayed taken after its client left");
  for (int seat : game.net.seatNode) Require(seat >= 0 && seat <= 2, "a seat went to no node");
  return 0;
}
