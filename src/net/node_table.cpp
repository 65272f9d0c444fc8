#include "net/node_table.h"

#include "net/chat.h"
#include "net/seats.h"
#include "net/sending.h"
#include "net/text.h"

namespace varkesh::net {

namespace {

void GrowTables(NetSession& session) {
  ++session.nodeCount;
  const std::size_t size = static_cast<std::size_t>(session.nodeCount) + 1;
  session.nodeNames.resize(size);
  session.nodeInUse.resize(size, false);
  session.nodeBuffers.resize(size);
  session.nodeConnections.resize(size, 0);
  session.peers.resize(size);
}

std::string NodeLineText(const Game& game, int i, const std::string& name) {
  if (i == 0 && game.net.myNodeId == 0) return name + " (host/you)";
  if (i == game.net.myNodeId) return name + " (you)";
  if (i == 0) return name + " (host)";
  return name;
}

}  // namespace

int GetNextNode(NetSession& session) {
  for (int n = 1; n <= session.nodeCount; ++n)
    if (!session.nodeInUse[static_cast<std::size_t>(n)]) return n;
  GrowTables(session);
  return session.nodeCount;
}

void ResetNodeTables(NetSession& session, const std::string& name) {
  session.nodeCount = 0;
  session.nodeNames = {name};
  session.nodeInUse = {!name.empty()};
  session.nodeBuffers = {std::string()};
  session.nodeConnections = {0};
  session.peers = {PeerGuard{}};
  // What was counted and remembered of the peers goes with them.
  session.gameEvents = 0;
  session.nextLoadEvent = -1;
  session.recentChecksums.clear();
  session.kindsAtEvent = {};
  session.seatsAtEvent = {};
  session.droppedSeats.clear();
}

int NodeOfConnection(const NetSession& session, ConnectionId connection) {
  if (connection == 0) return -1;
  for (std::size_t n = 0; n < session.nodeConnections.size(); ++n)
    if (session.nodeConnections[n] == connection) return static_cast<int>(n);
  return -1;
}

std::string NodeName(const NetSession& session, int nodeNumber) {
  if (nodeNumber < 0 || static_cast<std::size_t>(nodeNumber) >= session.nodeNames.size()) return {};
  return session.nodeNames[static_cast<std::size_t>(nodeNumber)];
}

void SendNodeList(NetNode& node) {
  NetSession& session = node.session;
  std::vector<NodeLine> lines;
  std::string text = std::to_string(session.nodeCount);
  for (int i = 0; i <= session.nodeCount; ++i) {
    const std::size_t at = static_cast<std::size_t>(i);
    text += kFieldSeparator;
    // A connection that has not told its name is no player yet.
    if (!session.nodeInUse[at] || (i > 0 && !session.peers[at].welcomed)) {
      text += kFreeNodeMark;
      continue;
    }
    text += session.nodeNames[at];
    lines.push_back({NodeLineText(node.game, i, session.nodeNames[at]), i});
  }
  node.view.SetNodeList(lines, -1);
  SendToAllNodes(node, "GCNL}" + text, 0);
}

bool BreakDownNodeList(NetNode& node, std::string_view payload) {
  std::vector<std::string_view> fields = SplitFields(payload);
  const int count = FieldNumber(fields[0]);
  if (count < 0 || count > kMaxNodeNumber || fields.size() != static_cast<std::size_t>(count) + 2)
    return false;
  NetSession& session = node.session;
  const std::size_t size = static_cast<std::size_t>(count) + 1;
  session.nodeCount = count;
  session.nodeNames.assign(size, std::string());
  session.nodeInUse.assign(size, false);
  std::vector<NodeLine> lines;
  for (int i = 0; i <= count; ++i) {
    std::string_view field = fields[static_cast<std::size_t>(i) + 1];
    if (field == FromWireText(std::string_view(&kFreeNodeMark, 1))) continue;
    const std::size_t at = static_cast<std::size_t>(i);
    session.nodeNames[at] = CleanName(field);
    session.nodeInUse[at] = true;
    lines.push_back({NodeLineText(node.game, i, session.nodeNames[at]), i});
  }
  node.view.SetNodeList(lines, -1);
  // The seat captions show the names: a player renamed shows anew.
  UpdatePlayerNames(node);
  return true;
}

std::string CleanName(std::string_view name) {
  return Trimmed(FirstCharacters(ShowableText(name), kMaxNameCharacters));
}

}  // namespace varkesh::net
