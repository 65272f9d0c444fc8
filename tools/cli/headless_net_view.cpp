#include "headless_net_view.h"

#include <algorithm>

#include "event_line.h"

namespace varkesh::cli {

void HeadlessNetView::AppendChat(const std::vector<net::ChatRun>& runs, int /*cutChars*/) {
  std::string text;
  for (const net::ChatRun& run : runs) text += run.text;
  if (text.size() >= 2 && text.compare(text.size() - 2, 2, "\r\n") == 0)
    text.resize(text.size() - 2);
  PrintEventLine("chat " + text);
}

void HeadlessNetView::SetNodeList(const std::vector<net::NodeLine>& lines, int /*selectNode*/) {
  nodeLines = lines;
}

void HeadlessNetView::SetSeatCaptions(const PerTeam<std::string>& captions) {
  seatCaptions = captions;
}

void HeadlessNetView::SetChatEnabled(bool enabled) {
  chatEnabled = enabled;
}

void HeadlessNetView::SetHostControlsEnabled(bool enabled) {
  hostControlsEnabled = enabled;
}

bool HeadlessNetView::ListsNode(int node) const {
  return std::any_of(nodeLines.begin(), nodeLines.end(),
                     [&](const net::NodeLine& line) { return line.node == node; });
}

}  // namespace varkesh::cli
