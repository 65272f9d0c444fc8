// A NetPlay table in one process: a host and clients, each a game with its
// session, joined over the in-process network and driven pass by pass.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "flow/main_loop.h"
#include "flow/new_game.h"
#include "flow/save_load.h"
#include "net/fake_network.h"
#include "net/node.h"
#include "net/plain_peer.h"
#include "net/wire.h"
#include "persist/game_text.h"
#include "persist/temp_folder.h"
#include "support/scripted_outside.h"

namespace varkesh::testing {

// What the NetPlay window would show.
struct RecordingView : net::NetView {
  std::vector<std::string> lines;  // each chat line without its line end
  std::vector<net::NodeLine> nodeLines;
  PerTeam<std::string> captions;
  bool chatEnabled = false;
  bool hostControlsEnabled = false;

  void AppendChat(const std::vector<net::ChatRun>& added, int) override {
    std::string line;
    for (const net::ChatRun& run : added) line += run.text;
    if (line.size() >= 2) line.resize(line.size() - 2);
    lines.push_back(line);
  }
  void SetNodeList(const std::vector<net::NodeLine>& list, int) override { nodeLines = list; }
  void SetSeatCaptions(const PerTeam<std::string>& seats) override { captions = seats; }
  void SetChatEnabled(bool enabled) override { chatEnabled = enabled; }
  void SetHostControlsEnabled(bool enabled) override { hostControlsEnabled = enabled; }
  bool Saw(const std::string& line) const { return std::ranges::count(lines, line) > 0; }
};

// One program of the session.
struct Peer {
  Game game;
  net::NetSession session;
  ScriptedOutside outside;
  RecordingView view;
  net::FakeTransport& transport;
  net::NetNode node{game, session, outside, view, transport};
  net::SessionLink link{node};
  GameView screen;

  Peer(net::FakeTransport& endpoint, const std::string& folder, const std::string& name)
      : transport(endpoint) {
    outside.engine.appPath = folder;
    outside.entryPaths["newgamedata"] = VARKESH_PACK_DIR "/newgamedata.txt";
    outside.SetMenuChecked(Menu::OptionsShowComp, false);
    outside.SetMenuChecked(Menu::OptionsSfx, false);
    game.random = Random::Zero();
    game.net.localPlayerName = name;
  }
  // One pass of the main loop: a game message, then the step of the mode.
  void Pass() {
    net::ServeGameQueue(node);
    RunPass(game, outside, screen);
  }
  void Click(int x, int y, bool left = true) {
    game.view.clickPending = true;
    game.view.clickX = x;
    game.view.clickY = y;
    game.view.clickLeft = left;
    game.view.clickRight = !left;
  }
  std::string Text() const { return GameImage(game); }
};

inline constexpr int kTablePort = 5337;

inline const std::string kSep(1, net::kFieldSeparator);
inline const std::string kEnd(1, net::kMessageEnd);

// A client that speaks the wire by hand and records what it receives.
struct RawClient : net::WireEnd {
  explicit RawClient(net::FakeTransport& endpoint) : WireEnd(endpoint) {
    transport.Connect("localhost", kTablePort);
  }
  void Send(const std::string& message) { transport.Send(connection, message + kEnd); }
  std::vector<std::string> Messages() const {
    std::vector<std::string> messages;
    std::string rest = received;
    while (auto message = net::TakeMessage(rest)) messages.push_back(*message);
    return messages;
  }
};

class NetTable : public ::testing::Test {
 protected:
  TempFolder folder;
  net::FakeNetwork network;
  std::unique_ptr<Peer> host;
  std::vector<std::unique_ptr<Peer>> clients;

  NetTable() {
    host = std::make_unique<Peer>(network.AddEndpoint("10.0.0.1"), folder.Slashed(), "Ann");
    host->game.net.netRole = kNetHostDialog;
    host->session.netPort = kTablePort;
    EXPECT_TRUE(net::OpenAsHost(host->node));
  }

  Peer& Join(const std::string& name) {
    clients.push_back(std::make_unique<Peer>(network.AddEndpoint(), folder.Slashed(), name));
    Peer& client = *clients.back();
    client.game.net.netRole = kNetConnectDialog;
    client.session.netPort = kTablePort;
    net::OpenAsClient(client.node);
    network.Pump();
    return client;
  }

  // The host starts a game of four human seats, all the host's at first.
  void StartGame(int gameType = kAnarchy, PerTeam<int> players = {}, int rule = kKingdomLost) {
    NewGameChoice choice{true, gameType, rule, players, "Table"};
    host->outside.newGameChoices.push_back(choice);
    NewGameCommand(host->game, host->outside);
    network.Pump();
  }

  std::vector<Peer*> All() {
    std::vector<Peer*> all{host.get()};
    for (auto& client : clients) all.push_back(client.get());
    return all;
  }
  // Passes on every program, with the network pumped in between, until all
  // queues are empty.
  void Settle(int passes = 4) {
    for (int round = 0; round < passes; ++round) {
      for (Peer* peer : All()) peer->Pass();
      network.Pump();
    }
    for (int guard = 0; guard < 200; ++guard) {
      bool waiting = false;
      for (Peer* peer : All()) waiting = waiting || !peer->session.gameQueue.empty();
      if (!waiting) return;
      for (Peer* peer : All()) peer->Pass();
      network.Pump();
    }
  }
  // A human move on the program that holds the seat, one click a pass.
  void Move(Peer& peer, int fromX, int fromY, int toX, int toY) {
    for (auto [x, y, left] :
         {std::tuple{fromX, fromY, true}, {toX, toY, true}, {toX, toY, false}}) {
      peer.Click(x, y, left);
      peer.Pass();
      network.Pump();
    }
  }
  // Peers that follow only the protocol, joined by the fixture.
  std::vector<std::unique_ptr<PlainPeer>> plains;
  PlainPeer& PlainJoin(const std::string& name, const std::string& address = "127.0.0.1",
                       bool answersGreeting = true) {
    plains.push_back(std::make_unique<PlainPeer>(network.AddEndpoint(address), folder.Slashed(),
                                                 name, kTablePort));
    plains.back()->answersGreeting = answersGreeting;
    network.Pump();
    return *plains.back();
  }
  // Every node's game is the host's: our clients' with the marks of the
  // board, plain peers' without them.
  void ExpectSameEverywhere() {
    const std::string hostText = WriteGameText(host->game.match.position, host->game.match.setup);
    for (auto& client : clients)
      EXPECT_EQ(client->Text(), host->Text()) << client->game.net.localPlayerName;
    for (auto& plain : plains) {
      if (plain->connected()) {
        EXPECT_EQ(plain->Text(), hostText) << "node " << plain->myNode;
      }
    }
  }
  void Tick(Peer& peer, double seconds) {
    peer.outside.clock += seconds;
    peer.link.OnTick();
    network.Pump();
  }
  std::string Log() const { return FileText(folder.File("error_netplay.log")); }
};

}  // namespace varkesh::testing
