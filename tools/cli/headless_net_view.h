// What the NetPlay window would show, for the headless node: chat lines are
// printed as they come, the node list and the seat captions are kept for the
// "nodes" and "seats" commands.
#pragma once

#include <string>
#include <vector>

#include "net/net_view.h"

namespace varkesh::cli {

class HeadlessNetView final : public net::NetView {
 public:
  std::vector<net::NodeLine> nodeLines;
  PerTeam<std::string> seatCaptions{};
  bool chatEnabled = false;
  bool hostControlsEnabled = true;

  // The line without its CR LF, as "chat TEXT".
  void AppendChat(const std::vector<net::ChatRun>& runs, int cutChars) override;
  void SetNodeList(const std::vector<net::NodeLine>& lines, int selectNode) override;
  void SetSeatCaptions(const PerTeam<std::string>& captions) override;
  void SetChatEnabled(bool enabled) override;
  void SetHostControlsEnabled(bool enabled) override;

  bool ListsNode(int node) const;
};

}  // namespace varkesh::cli
