#include "core/labels.h"
#include "flow/error_handler.h"
#include "flow/save_load.h"
#include "net/chat.h"
#include "net/departures.h"
#include "net/dispatch.h"
#include "net/extension.h"
#include "net/game_queue.h"
#include "net/move_message.h"
#include "net/node_table.h"
#include "net/rejoin.h"
#include "net/seats.h"
#include "net/sending.h"
#include "net/takeback_request.h"
#include "net/text.h"

namespace varkesh::net {

namespace {

// The error number and text of a send that finds no open connection.
constexpr int kClosedConnectionError = 40006;
constexpr const char* kClosedConnectionText =
    "Wrong protocol or connection state for the requested transaction or request";

constexpr Menu kClientLockedMenus[] = {Menu::GameNew, Menu::GameLoad, Menu::GameSave};

bool AllSeatsHuman(const Game& game) {
  for (int kind : game.match.setup.playerKinds)
    if (kind != kHuman) return false;
  return true;
}

constexpr std::size_t kErrorBlocksPerMinute = 100;

}  // namespace

void NodeLeft(NetNode& node, int n) {
  NetSession& session = node.session;
  const std::size_t at = static_cast<std::size_t>(n);
  const std::string name = session.nodeNames[at];
  const std::string address = session.peers[at].address;
  AddMessage(node, "");
  AddMessage(node, "     *** " + name + " has disconnected");
  AddMessage(node, "");
  session.nodeInUse[at] = false;
  SendNotice(node, "     *** " + name + " has disconnected");
  session.nodeNames[at].clear();
  session.nodeBuffers[at].clear();
  node.transport.Close(session.nodeConnections[at]);
  session.nodeConnections[at] = 0;
  session.peers[at] = PeerGuard{};
  // What it still had waiting is no one's now; a joiner may get its number.
  std::erase_if(session.gameQueue, [n](const QueuedMessage& queued) { return queued.from == n; });
  std::vector<int> fallen;
  for (int team = kWhite; team <= kRed; ++team) {
    int& seat = node.game.net.seatNode[static_cast<std::size_t>(team - 1)];
    if (seat != n) continue;
    seat = 0;
    fallen.push_back(team);
  }
  if (!fallen.empty()) {
    TellSeats(node, 0);
    RememberDroppedSeats(node, name, address, std::move(fallen));
  }
  SendNodeList(node);
}

void CloseNameless(NetNode& node, int n) {
  NetSession& session = node.session;
  const std::size_t at = static_cast<std::size_t>(n);
  if (n <= 0 || at >= session.nodeInUse.size()) return;
  node.transport.Close(session.nodeConnections[at]);
  session.nodeConnections[at] = 0;
  session.nodeInUse[at] = false;
  session.nodeNames[at].clear();
  session.nodeBuffers[at].clear();
  session.peers[at] = PeerGuard{};
  std::erase_if(session.gameQueue, [n](const QueuedMessage& queued) { return queued.from == n; });
}

void LostConnection(NetNode& node) {
  Game& game = node.game;
  if (game.net.netRole == kNetHosting) {
    AddMessage(node, "*** You're hosting port has closed.");
    AddMessage(node, "===================================");
    node.view.SetHostControlsEnabled(false);
  } else {
    AddMessage(node, "*** You have been disconnected from the host.");
    AddMessage(node, "=============================================");
  }
  node.view.SetChatEnabled(false);
  node.transport.Close(0);
  game.net.seatNode = {};
  game.net.myNodeId = 0;
  ResetNodeTables(node.session, "");
}

void LetGo(NetNode& node, int peer) {
  if (node.game.net.netRole == kNetHosting && peer > 0)
    NodeLeft(node, peer);
  else
    LostConnection(node);
}

SessionLink::SessionLink(NetNode& node) : node_(node) {
  node_.transport.SetEvents(this);
  node_.outside.AttachNetLink(this);
}

SessionLink::~SessionLink() {
  node_.transport.SetEvents(nullptr);
  if (node_.outside.Link() == this) node_.outside.AttachNetLink(nullptr);
}

void SessionLink::OnAccepted(ConnectionId connection) {
  NetNode& node = node_;
  NetSession& session = node.session;
  int clients = 0;
  for (int n = 1; n <= session.nodeCount; ++n)
    clients += session.nodeInUse[static_cast<std::size_t>(n)];
  if (node.game.net.netRole != kNetHosting || clients >= kMaxClients) {
    node.transport.Send(connection,
                        "GMSG}*** This session is full: " + std::to_string(kMaxClients) +
                            " players at the most." + kMessageEnd);
    node.transport.Close(connection);
    return;
  }
  const int n = GetNextNode(session);
  const std::size_t at = static_cast<std::size_t>(n);
  session.nodeConnections[at] = connection;
  session.nodeInUse[at] = true;
  session.nodeBuffers[at].clear();
  session.peers[at] = PeerGuard{};
  session.peers[at].lastHeard = node.outside.Now();
  session.peers[at].acceptedAt = node.outside.Now();
  session.peers[at].address = node.transport.PeerAddress(connection);
  SendToNode(node, n, "GYNI}" + std::to_string(n));
}

void SessionLink::OnConnected(ConnectionId connection) {
  NetSession& session = node_.session;
  session.nodeConnections[0] = connection;
  session.nodeBuffers[0].clear();
  session.peers[0] = PeerGuard{};
  session.peers[0].lastHeard = node_.outside.Now();
  AddMessage(node_, "... host has answered.");
  AddMessage(node_, "");
  node_.game.net.netRole = kNetClient;
}

void SessionLink::OnData(ConnectionId connection, std::string_view bytes) {
  NetSession& session = node_.session;
  const int n = NodeOfConnection(session, connection);
  if (n < 0) return;
  session.peers[static_cast<std::size_t>(n)].lastHeard = node_.outside.Now();
  std::string& buffer = session.nodeBuffers[static_cast<std::size_t>(n)];
  buffer.append(bytes);
  // A peer that never ends its message must not fill this program's memory.
  const std::size_t lastEnd = buffer.rfind(kMessageEnd);
  const std::size_t open =
      lastEnd == std::string::npos ? buffer.size() : buffer.size() - lastEnd - 1;
  if (open > kMaxMessageBytes) {
    ReportNetError(node_, "comm.DataArrival", 7,
                   "A message longer than " + std::to_string(kMaxMessageBytes) +
                       " bytes; the connection is closed");
    buffer.clear();
    LetGo(node_, n);
    return;
  }
  CutStreams(node_);
}

void SessionLink::OnClosed(ConnectionId connection) {
  const int n = NodeOfConnection(node_.session, connection);
  if (n < 0) return;
  LetGo(node_, n);
}

void SessionLink::OnTick() {
  KeepAlive(node_);
}

void SessionLink::OnError(ConnectionId, int number, const std::string& description) {
  ReportNetError(node_, "comm.Error", number, description);
}

namespace {

// A message about this machine's game: a host tells every client, a client
// its host; out of a session nobody.
void TellOthers(NetNode& node, const std::string& message) {
  const int role = node.game.net.netRole;
  if (role == kNetHosting) SendToAllNodes(node, message, 0);
  if (role == kNetClient) SendToHost(node, message);
}

}  // namespace

void SessionLink::TellSelection(const Game& game) {
  const TurnState& turn = game.turn;
  TellOthers(node_,
             NumberMessage("GUPM", {turn.moveFromX, turn.moveFromY, turn.moveToX, turn.moveToY}));
  TellOthers(node_, NumberMessage("GUGS", {turn.gameMode}));
}

void SessionLink::TellMove(const Game& game, const MoveEffects& effects) {
  TellOthers(node_, MoveMessage(effects));
  if (game.net.netRole == kNetHosting && effects.pawn == PawnOutcome::Lost)
    node_.session.lostPawnMover = game.net.myNodeId;
}

void SessionLink::TellResignation(const Game&, int concedeTeam) {
  TellOthers(node_, NumberMessage("GRES", {concedeTeam}));
}

void SessionLink::TellGameStarted(Game& game, bool loaded) {
  if (game.net.netRole != kNetHosting) return;
  SendGameToAll(node_, "*** " + game.net.localPlayerName + " (host) has " +
                           (loaded ? "loaded a game: '" : "started a new game: '") +
                           GameDescription(game.match.position, game.match.setup));
}

bool SessionLink::CanTakeBackHere(const Game&) const {
  return SessionMayTakeBack(node_);
}

void SessionLink::TakeBackHere(Game&) {
  TakeBackInSession(node_);
}

void SessionLink::OnGameEvent(const Game& game) {
  NoteGameEvent(node_);
  NetSession& session = node_.session;
  if (session.lostPawnMover < 0) return;
  const int mover = session.lostPawnMover;
  session.lostPawnMover = -1;
  if (game.net.netRole != kNetHosting) return;
  const std::string image = "GLGF}" + GameImage(game);
  for (int n = 1; n <= session.nodeCount; ++n)
    if (n != mover && session.nodeInUse[static_cast<std::size_t>(n)] &&
        !SpeaksExtension(session, n))
      SendToNode(node_, n, image);
}

void SendToNode(NetNode& node, int clientNum, const std::string& chunk) {
  const NetSession& session = node.session;
  const std::size_t at = static_cast<std::size_t>(clientNum);
  const ConnectionId connection =
      clientNum >= 0 && at < session.nodeConnections.size() ? session.nodeConnections[at] : 0;
  if (connection == 0) {
    ReportNetError(node, "SendToClient", kClosedConnectionError, kClosedConnectionText);
    return;
  }
  // A peer that does not read is let go on the next tick; until then its
  // queue grows no further.
  if (node.transport.PendingBytes(connection) > kMaxBacklogBytes) {
    node.session.peers[at].overloaded = true;
    return;
  }
  std::string framed = ToWireText(chunk);
  framed += kMessageEnd;
  node.transport.Send(connection, framed);
}

void SendToAllNodes(NetNode& node, const std::string& chunk, int skipNode) {
  for (int n = 1; n <= node.session.nodeCount; ++n)
    if (node.session.nodeInUse[static_cast<std::size_t>(n)] && n != skipNode)
      SendToNode(node, n, chunk);
}

bool OpenAsHost(NetNode& node) {
  Game& game = node.game;
  NetSession& session = node.session;
  node.outside.SetMenuEnabled(Menu::NetPlay, false);
  game.net.localPlayerName = CleanName(game.net.localPlayerName);
  ResetNodeTables(session, game.net.localPlayerName);
  session.gameQueue.clear();
  session.gameQueueSize = 0;
  game.net.myNodeId = 0;
  node.view.SetNodeList({{game.net.localPlayerName + " (host/you)", 0}}, 0);
  UpdatePlayerNames(node);
  std::string error;
  if (!node.transport.Listen(session.netPort, error)) {
    ReportNetError(node, "Form.Load", 10048, error);
    // Nobody can join: no chat, no seats to hand out, and the player is told
    // why and what to do.
    node.view.SetChatEnabled(false);
    node.view.SetHostControlsEnabled(false);
    AddMessage(node, "*** Cannot host on port " + std::to_string(session.netPort) + ": " +
                         ShowableText(error));
    AddMessage(node,
               "*** Close this window and host again with another port, or once the port is "
               "free.");
    AddMessage(node, "");
    game.net.netRole = kNetNone;
    node.outside.SetMenuEnabled(Menu::NetPlay, true);
    return false;
  }
  node.view.SetChatEnabled(true);
  node.view.SetHostControlsEnabled(true);
  game.net.netRole = kNetHosting;
  AddMessage(node, "Hosting as '" + game.net.localPlayerName +
                       "' on IP=" + node.transport.LocalAddress() +
                       ", Port=" + std::to_string(session.netPort) + " ...");
  AddMessage(node, "");
  return true;
}

void OpenAsClient(NetNode& node) {
  Game& game = node.game;
  NetSession& session = node.session;
  node.outside.SetMenuEnabled(Menu::NetPlay, false);
  for (Menu menu : kClientLockedMenus) node.outside.SetMenuEnabled(menu, false);
  node.outside.ShowPauseButton(false);
  game.net.localPlayerName = CleanName(game.net.localPlayerName);
  ResetNodeTables(session, "");
  session.gameQueue.clear();
  session.gameQueueSize = 10;
  session.takebackAskedAt = -1;
  node.view.SetChatEnabled(false);
  node.transport.Connect(session.hostAddress, session.netPort);
  AddMessage(node, "Connecting as '" + game.net.localPlayerName + "' on IP=" + session.hostAddress +
                       ", Port=" + std::to_string(session.netPort) + " ...");
}

void CloseSession(NetNode& node) {
  Game& game = node.game;
  node.transport.Close(0);
  ResetNodeTables(node.session, "");
  node.session.gameQueue.clear();
  game.net.netRole = kNetNone;
  for (Menu menu : kClientLockedMenus) node.outside.SetMenuEnabled(menu, true);
  node.outside.SetMenuEnabled(Menu::NetPlay, true);
  const int mode = game.turn.gameMode;
  const bool underWay = mode != ModeNoGame && mode != ModeTitle && mode != ModeGameOver &&
                        mode != ModeVictorySetUp && mode != ModeVictory;
  node.outside.ShowPauseButton(underWay && !AllSeatsHuman(game));
}

void ReportNetError(NetNode& node, const std::string& sub, int number,
                    const std::string& description) {
  std::deque<double>& recent = node.session.recentErrors;
  const double now = node.outside.Now();
  while (!recent.empty() && now - recent.front() >= 60.0) recent.pop_front();
  if (recent.size() < kErrorBlocksPerMinute) {
    recent.push_back(now);
    AppendErrorBlock(node.outside.Engine(), "error_netplay.log", "", sub, number,
                     recent.size() < kErrorBlocksPerMinute
                         ? description
                         : description + " (further errors this minute are not logged)");
  }
  if (node.session.netErrorShown) return;
  node.session.netErrorShown = true;
  AddMessage(node,
             "A NetPlay error has been detected.  Details are being written to a log file: "
             "'error_netplay.log'",
             kErrorNoticeColour);
}

}  // namespace varkesh::net
