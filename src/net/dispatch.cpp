#include "net/dispatch.h"

#include "net/authority.h"
#include "net/chat.h"
#include "net/extension.h"
#include "net/game_queue.h"
#include "net/node_table.h"
#include "net/rejoin.h"
#include "net/seats.h"
#include "net/sending.h"
#include "net/takeback_request.h"
#include "net/text.h"

namespace varkesh::net {

namespace {

constexpr std::size_t kChatLinesPerWindow = 8;
constexpr double kChatWindowSeconds = 10.0;

void ShowNotice(NetNode& node, std::string_view text) {
  AddMessage(node, "");
  AddMessage(node, std::string(text));
  AddMessage(node, "");
}

// A full queue means a peer sends far faster than any game is played.
bool QueueFrom(NetNode& node, int from, const std::string& message) {
  if (AddToGameQ(node.session, message, from)) return true;
  ReportNetError(
      node, "AddToGameQ", 5,
      "The game queue is full; a message of node " + std::to_string(from) + " was dropped");
  return true;
}

// The client learns its node number and answers with its player's name.
bool TakeNodeNumber(NetNode& node, std::string_view payload) {
  const int number = FieldNumber(payload);
  if (number < 1 || number > kMaxNodeNumber) return false;
  node.game.net.myNodeId = number;
  AddMessage(node, "You are connected as Node #" + std::to_string(number));
  SendHello(node);
  SendToHost(node, "GMNI}" + node.game.net.localPlayerName);
  node.view.SetChatEnabled(true);
  return true;
}

void ShowReceivedChat(NetNode& node, std::string_view payload) {
  const auto [sender, text] = SplitFirstField(payload);
  const int from = FieldNumber(sender);
  const Game& game = node.game;
  const std::string name = from == game.net.myNodeId ? " \u00BB" + game.net.localPlayerName
                                                     : NodeName(node.session, from);
  AddChat(node, name, std::string(text), PlayerColor(game, from));
}

void ShowBoot(NetNode& node, std::string_view payload) {
  const auto [booted, reason] = SplitFirstField(payload);
  const int bootedNode = FieldNumber(booted);
  if (bootedNode == node.game.net.myNodeId) {
    AddMessage(node, "***** You are being booted by the host!");
    AddMessage(node, "REASON: '" + std::string(reason) + "'");
    AddMessage(node, "");
    // The host sees the close; this side raises none of its own.
    node.transport.Close(node.session.nodeConnections[0]);
    node.session.nodeConnections[0] = 0;
    node.view.SetChatEnabled(false);
    return;
  }
  AddMessage(node,
             "   *** " + NodeName(node.session, bootedNode) + " is being booted by the host.");
  AddMessage(node, "   REASON: '" + std::string(reason) + "'");
  AddMessage(node, "");
}

bool DispatchClient(NetNode& node, const std::string& message) {
  const Message parts = SplitMessage(message);
  const std::string_view verb = parts.verb;
  if (verb == "GYNI") return TakeNodeNumber(node, parts.payload);
  if (verb == "GCNL") return BreakDownNodeList(node, parts.payload);
  if (verb == "GCNC") {
    // Seats change between the game messages still waiting, where the host
    // changed them: a game waiting in the queue would otherwise bring back
    // the seats of its image, and checksums would be taken with other seats.
    if (!node.session.gameQueue.empty()) return QueueFrom(node, 0, message);
    return BreakDownNodeControl(node, parts.payload);
  }
  if (verb == "GLGF" || verb == kSyncVerb || IsGameVerb(verb)) return QueueFrom(node, 0, message);
  if (verb == kHelloVerb) {
    TakeHello(node, 0, FieldNumber(parts.payload));
    return true;
  }
  if (verb == kTakebackRefusedVerb) return QueueFrom(node, 0, message);
  if (verb == "GCHT") {
    ShowReceivedChat(node, parts.payload);
  } else if (verb == "GMSG") {
    ShowNotice(node, ShowableText(parts.payload));
  } else if (verb == "GBOO") {
    ShowBoot(node, parts.payload);
  }
  // Anything else is a verb of another version: dropped without a word.
  return true;
}

// A name told again is the player's new name: everyone gets the list again
// and the node its game, as on joining, but its seats stay as they are.
void Rename(NetNode& node, int from, std::string name) {
  std::string& stored = node.session.nodeNames[static_cast<std::size_t>(from)];
  if (name.empty() || name == stored) return;
  stored = std::move(name);
  SendNodeList(node);
  UpdatePlayerNames(node);
  ScheduleCatchUp(node, from);
}

void Welcome(NetNode& node, int from, std::string_view payload) {
  PeerGuard& peer = node.session.peers[static_cast<std::size_t>(from)];
  std::string name = CleanName(payload);
  if (peer.welcomed) {
    Rename(node, from, std::move(name));
    return;
  }
  peer.welcomed = true;
  if (name.empty()) name = "Node " + std::to_string(from);
  const std::string joined = "     *** " + name + " has joined.";
  ShowNotice(node, joined);
  SendNotice(node, joined);
  node.session.nodeNames[static_cast<std::size_t>(from)] = name;
  SendNodeList(node);
  RestoreSeats(node, from);
  CatchUpClient(node, from);
}

// At most kChatLinesPerWindow lines of a client in any kChatWindowSeconds;
// the first line over the limit earns the client one notice.
bool WithinChatLimit(NetNode& node, int from) {
  PeerGuard& peer = node.session.peers[static_cast<std::size_t>(from)];
  const double now = node.outside.Now();
  while (!peer.chatTimes.empty() && now - peer.chatTimes.front() >= kChatWindowSeconds)
    peer.chatTimes.pop_front();
  if (peer.chatTimes.size() < kChatLinesPerWindow) {
    peer.chatTimes.push_back(now);
    peer.chatNoticeSent = false;
    return true;
  }
  if (!peer.chatNoticeSent) {
    peer.chatNoticeSent = true;
    SendToNode(node, from,
               "GMSG}*** Too many chat lines: at most " + std::to_string(kChatLinesPerWindow) +
                   " in " + std::to_string(static_cast<int>(kChatWindowSeconds)) +
                   " seconds. The rest were not sent.");
  }
  return false;
}

void RelayChat(NetNode& node, int from, std::string_view payload) {
  if (!WithinChatLimit(node, from)) return;
  const std::string text = ShowableText(payload);
  AddChat(node, node.session.nodeNames[static_cast<std::size_t>(from)], text,
          PlayerColor(node.game, from));
  SendToAllNodes(node, "GCHT}" + std::to_string(from) + kFieldSeparator + text, 0);
}

bool DispatchHost(NetNode& node, int from, const std::string& message) {
  const Message parts = SplitMessage(message);
  if (parts.verb == "GMNI") {
    Welcome(node, from, parts.payload);
  } else if (parts.verb == "GCHT") {
    if (node.session.peers[static_cast<std::size_t>(from)].welcomed)
      RelayChat(node, from, parts.payload);
  } else if (IsGameVerb(parts.verb) || parts.verb == kChecksumVerb) {
    // Judged and relayed when its turn in the host's order comes.
    return QueueFrom(node, from, message);
  } else if (parts.verb == kHelloVerb) {
    TakeHello(node, from, FieldNumber(parts.payload));
  } else if (parts.verb == kTakebackAskVerb) {
    if (TakebackAskMayWait(node, from)) return QueueFrom(node, from, message);
  }
  return true;
}

// The next whole message of node n's buffer, if that node is still here.
std::optional<std::string> NextMessage(NetSession& session, int n) {
  const std::size_t at = static_cast<std::size_t>(n);
  if (at >= session.nodeBuffers.size()) return std::nullopt;
  if (at > 0 && !session.nodeInUse[at]) {
    session.nodeBuffers[at].clear();
    return std::nullopt;
  }
  std::optional<std::string> message = TakeMessage(session.nodeBuffers[at]);
  if (!message) return std::nullopt;
  return FromWireText(*message);
}

bool CutOnce(NetNode& node) {
  const bool host = node.game.net.netRole == kNetHosting;
  bool any = false;
  const int first = host ? 1 : 0;
  const int last = host ? node.session.nodeCount : 0;
  for (int n = first; n <= last; ++n) {
    while (auto message = NextMessage(node.session, n)) {
      any = true;
      const bool handled = host ? DispatchHost(node, n, *message) : DispatchClient(node, *message);
      if (!handled)
        ReportNetError(node, "comm.DataArrival", 1,
                       "A '" + ShowableText(SplitMessage(*message).verb.substr(0, 4)) +
                           "' message that does not fit its verb was dropped");
      if (node.game.net.netRole == kNetNone) return false;
    }
  }
  return any;
}

}  // namespace

void CutStreams(NetNode& node) {
  NetSession& session = node.session;
  if (session.cutting) return;
  struct Cutting {
    bool& flag;
    explicit Cutting(bool& f) : flag(f) { flag = true; }
    ~Cutting() { flag = false; }
  } cutting(session.cutting);
  while (CutOnce(node)) {
  }
}

}  // namespace varkesh::net
