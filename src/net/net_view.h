// What the NetPlay window shows: the chat history, the list of who is here,
// the four seat captions and the state of its controls. The desktop window
// draws it; the headless node prints it; tests record it.
#pragma once

#include <string>
#include <vector>

#include "core/types.h"
#include "engine/rgb.h"

namespace varkesh::net {

inline constexpr Rgb kSystemColour{127, 127, 0};
inline constexpr Rgb kErrorNoticeColour{255, 255, 0};
inline constexpr Rgb kWatcherColour{0, 127, 0};

// One line of lstNodes: its text and its item data, the node number.
struct NodeLine {
  std::string text;
  int node = 0;
  bool operator==(const NodeLine&) const = default;
};

// A stretch of the chat history in one style; a line ends with "\r\n".
struct ChatRun {
  std::string text;
  Rgb colour;
  bool bold = false;
  bool italic = false;
};

class NetView {
 public:
  virtual ~NetView() = default;

  // The history grows by these runs (a whole line: one run from AddMessage,
  // the bold name and the plain text from AddChat). cutChars characters are
  // first deleted from the front of the history; 0 almost always.
  virtual void AppendChat(const std::vector<ChatRun>& runs, int cutChars) = 0;

  // lstNodes anew; selectNode is the item to select, or -1 to keep the
  // selection where it was when the node is still listed.
  virtual void SetNodeList(const std::vector<NodeLine>& lines, int selectNode) = 0;
  // The four lblPlayerName captions, White to Red.
  virtual void SetSeatCaptions(const PerTeam<std::string>& captions) = 0;

  // cmdChat.
  virtual void SetChatEnabled(bool enabled) = 0;
  // Host: the sixteen seat buttons and cmdBoot, off once the port has closed.
  virtual void SetHostControlsEnabled(bool enabled) = 0;
};

}  // namespace varkesh::net
