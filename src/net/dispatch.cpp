#include "net/dispatch.h"

#include "net/chat.h"
#include "net/game_queue.h"
#include "net/node_table.h"
#include "net/seats.h"
#include "net/sending.h"
#include "net/text.h"

namespace varkesh::net {

namespace {

bool IsGameVerb(std::string_view verb) {
  return verb == "GUPM" || verb == "GUGS" || verb == "GAMV" || verb == "GRES";
}

void ShowNotice(NetNode& node, std::string_view text) {
  AddMessage(node, "");
  AddMessage(node, std::string(text));
  AddMessage(node, "");
}

// The client learns its node number and answers with its player's name.
bool TakeNodeNumber(NetNode& node, std::string_view payload) {
  const int number = FieldNumber(payload);
  if (number < 1 || number > kMaxNodeNumber) return false;
  node.game.myNodeId = number;
  AddMessage(node, "You are connected as Node #" + std::to_string(number));
  SendToHost(node, "GMNI}" + node.game.localPlayerName);
  node.view.SetChatEnabled(true);
  return true;
}

void ShowReceivedChat(NetNode& node, std::string_view payload) {
  const auto [sender, text] = SplitFirstField(payload);
  const int from = FieldNumber(sender);
  const Game& game = node.game;
  const std::string name =
      from == game.myNodeId ? " \u00BB" + game.localPlayerName : NodeName(node.session, from);
  AddChat(node, name, std::string(text), PlayerColor(game, from));
}

void ShowBoot(NetNode& node, std::string_view payload) {
  const auto [booted, reason] = SplitFirstField(payload);
  const int bootedNode = FieldNumber(booted);
  if (bootedNode == node.game.myNodeId) {
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
    // A game still waiting in the queue would bring back the seats of its
    // image: the new seats go through the queue behind it as well.
    for (const std::string& waiting : node.session.gameQueue)
      if (SplitMessage(waiting).verb == "GLGF") {
        AddToGameQ(node.session, message);
        break;
      }
    return BreakDownNodeControl(node, parts.payload);
  }
  if (verb == "GLGF" || IsGameVerb(verb)) {
    AddToGameQ(node.session, message);
    return true;
  }
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

void Welcome(NetNode& node, int from, std::string_view payload) {
  std::string name = CleanName(payload);
  if (name.empty()) name = "Node " + std::to_string(from);
  const std::string joined = "     *** " + name + " has joined.";
  ShowNotice(node, joined);
  SendNotice(node, joined);
  node.session.nodeNames[static_cast<std::size_t>(from)] = name;
  SendNodeList(node);
  CatchUpClient(node, from);
}

void RelayChat(NetNode& node, int from, std::string_view payload) {
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
    RelayChat(node, from, parts.payload);
  } else if (IsGameVerb(parts.verb)) {
    AddToGameQ(node.session, message);
    SendToAllNodes(node, message, from);
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
  return TakeMessage(session.nodeBuffers[at]);
}

bool CutOnce(NetNode& node) {
  const bool host = node.game.netRole == kNetHosting;
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
      if (node.game.netRole == kNetNone) return false;
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
