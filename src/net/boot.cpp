#include "net/chat.h"
#include "net/node_table.h"
#include "net/sending.h"
#include "net/text.h"

namespace varkesh::net {

namespace {

bool CanBoot(const NetSession& session, int bootNode) {
  return bootNode > 0 && bootNode <= session.nodeCount &&
         session.nodeInUse[static_cast<std::size_t>(bootNode)];
}

}  // namespace

std::string BootQuestion(const NetNode& node, int bootNode) {
  if (!CanBoot(node.session, bootNode)) return {};
  return "Reason for booting '" + NodeName(node.session, bootNode) +
         "' ...\n  (leave blank to cancel)";
}

void BootNode(NetNode& node, int bootNode, const std::string& reason) {
  if (node.game.net.netRole != kNetHosting) return;
  const std::string typed = ShowableText(reason);
  // Blanks alone cancel; otherwise the reason goes out as it was typed.
  if (Trimmed(typed).empty() || !CanBoot(node.session, bootNode)) return;
  // The booted client closes its line; the host then sees it leave.
  SendToAllNodes(node, "GBOO}" + std::to_string(bootNode) + kFieldSeparator + typed, 0);
}

}  // namespace varkesh::net
