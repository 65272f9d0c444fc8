// Fuzzes a host: two clients hold the seats of a game under way, and the
// input is what they send, cut into arrivals on their two connections.
#include "fuzz/net_fuzz.h"

namespace varkesh::fuzz {

namespace {

// Node 1 (lane 0) plays White and Black, node 2 (lane 1) Blue and Red.
constexpr PerTeam<int> kSeatHolders = {1, 2, 1, 2};
constexpr int kMostPasses = 100'000;

int LaneOfTeam(int team) {
  return kSeatHolders[static_cast<std::size_t>(team - 1)] - 1;
}

struct HostTable {
  net::FakeNetwork network;
  FuzzNode host{network.AddEndpoint("10.0.0.1"), kNetHostDialog};
  BarePeer clients[2] = {BarePeer(network.AddEndpoint()), BarePeer(network.AddEndpoint())};

  HostTable() {
    Require(net::OpenAsHost(host.node), "the host cannot listen");
    for (BarePeer& client : clients) client.transport.Connect("localhost", kPort);
    network.Pump();
    for (int team = kWhite; team <= kRed; ++team)
      net::AssignSeat(host.node, team, kSeatHolders[static_cast<std::size_t>(team - 1)]);
    network.Pump();
    Require(host.game.seatNode == kSeatHolders, "the clients did not get their seats");
  }
};

void SendTurns(InputWriter& input, int turns, int largest) {
  for (const TurnMessages& turn : LegalTurns(turns))
    for (const std::string& message : turn.messages)
      input.Send(LaneOfTeam(turn.team), message, largest);
}

}  // namespace

std::vector<std::string> Seeds() {
  const std::string sep(1, kFieldSeparator);
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
  resigned.Send(0, "GRES}1").Send(1, "GRES}2").Send(0, "GRES}3");
  seeds.push_back(resigned.Bytes());

  InputWriter extended;
  extended.Send(0, "GXHI}1").Send(1, "GXHI}1").Send(0, "GXKA}").Send(1, "GXCK}1" + sep + "4711");
  SendTurns(extended, 2, 6);
  extended.Send(0, "GXCK}2" + sep + "0").Send(1, "GXKA}");
  seeds.push_back(extended.Bytes());

  InputWriter leaving = names;
  SendTurns(leaving, 1, 6);
  leaving.Close(1, false).Send(0, "GCHT}Cid left").Close(0, true);
  seeds.push_back(leaving.Bytes());
  return seeds;
}

}  // namespace varkesh::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace varkesh;
  using namespace varkesh::fuzz;
  HostTable table;
  for (const Chunk& chunk : CutInput({reinterpret_cast<const char*>(data), size})) {
    BarePeer& client = table.clients[chunk.lane];
    if (!chunk.close)
      client.transport.Send(client.connection, chunk.bytes);
    else if (chunk.broken)
      table.network.Break(client.transport, client.connection);
    else
      client.transport.Close(client.connection);
    table.network.Pump();
    ServeQueue(table.network, table.host, chunk.passes);
  }
  ServeQueue(table.network, table.host, kMostPasses);

  // What clients send may change the game, never the session itself.
  const Game& game = table.host.game;
  Require(game.netRole == kNetHosting, "a client ended the hosting");
  Require(table.host.session.nodeCount == 2, "a node appeared out of the data");
  for (int seat : game.seatNode) Require(seat >= 0 && seat <= 2, "a seat went to no node");
  return 0;
}
