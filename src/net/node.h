// One program's end of a NetPlay session: its game, its session record and
// the ports it reaches the world through. The free functions here are the
// session's procedures; the window, the headless node and the tests call
// them, and the transport's events come in through SessionLink.
#pragma once

#include <string>

#include "flow/game.h"
#include "flow/net_link.h"
#include "flow/outside.h"
#include "net/net_view.h"
#include "net/session.h"
#include "net/transport.h"

namespace varkesh::net {

struct NetNode {
  Game& game;
  NetSession& session;
  Outside& outside;
  NetView& view;
  Transport& transport;
};

// Ties a node to its transport and its game: the transport's events come in
// here, and what the game tells the session becomes messages here, for as
// long as this object lives.
class SessionLink final : public TransportEvents, public NetLink {
 public:
  explicit SessionLink(NetNode& node);
  ~SessionLink() override;
  SessionLink(const SessionLink&) = delete;
  SessionLink& operator=(const SessionLink&) = delete;

  void OnAccepted(ConnectionId connection) override;
  void OnConnected(ConnectionId connection) override;
  void OnData(ConnectionId connection, std::string_view bytes) override;
  void OnClosed(ConnectionId connection) override;
  void OnError(ConnectionId connection, int number, const std::string& description) override;
  void OnTick() override;

  void TellSelection(const Game& game) override;
  void TellMove(const Game& game, const MoveEffects& effects) override;
  void TellResignation(const Game& game, int concedeTeam) override;
  void TellGameStarted(Game& game, bool loaded) override;
  void OnGameEvent(const Game& game) override;
  bool CanTakeBackHere(const Game& game) const override;
  void TakeBackHere(Game& game) override;

 private:
  NetNode& node_;
};

// Opening, with game.net.netRole at 1 (host) or 3 (client) and the dialog's
// choices in game.net.localPlayerName, session.hostAddress and session.netPort.
// A host that cannot listen reports it in the NetPlay error block and
// returns false; its role is then back at 0.
bool OpenAsHost(NetNode& node);
void OpenAsClient(NetNode& node);
// The window's unload: every connection closed, the role back to 0, the
// game menus enabled again. The game on the screen stays.
void CloseSession(NetNode& node);

// The main loop's part, before each pass (and not while paused), when the
// role is not 0: one message off the game queue, after as many selection
// messages as wait before it.
void ServeGameQueue(NetNode& node);

// The host's commands of the NetPlay window. team is 1 to 4.
void AssignSeat(NetNode& node, int team, int toNode);
void GiveSeatToComputer(NetNode& node, int team, int personality);
// The level a computer seat plays at. It stays on the host, which alone
// chooses the computer's moves, and goes to nobody.
void SetSeatLevel(NetNode& node, int team, int level);
// The question of the "Boot User" box for that node's player; empty when
// the node cannot be booted (the host's own line, a free node).
std::string BootQuestion(const NetNode& node, int bootNode);
// A reason empty after trimming cancels; so do node 0 and a free node.
void BootNode(NetNode& node, int bootNode, const std::string& reason);
// cmdChat: true when the line went out (the entry box is then emptied).
bool SendChat(NetNode& node, const std::string& typed);

// Seat captions (UpdatePlayerNames), the colour of a node's chat, and the
// name the board shows for a human seat.
PerTeam<std::string> SeatCaptions(const Game& game, const NetSession& session);
Rgb PlayerColor(const Game& game, int node);
std::string SeatPlayerName(const Game& game, const NetSession& session, int team);

// The NetPlay error block in "error_netplay.log", with the yellow notice in
// the chat the first time; the session goes on.
void ReportNetError(NetNode& node, const std::string& sub, int number,
                    const std::string& description);

}  // namespace varkesh::net
