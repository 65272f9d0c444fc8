#include "net/chat.h"

#include "net/sending.h"
#include "net/text.h"

namespace varkesh::net {

namespace {

constexpr const char* kLineEnd = "\r\n";

// Leaves room for addedLength more characters and appends the runs.
void AppendRuns(NetNode& node, std::vector<ChatRun> runs, std::size_t addedLength) {
  int cut = CutChatHistory(node.session.chat, addedLength);
  for (ChatRun& run : runs) {
    run.text = ShowableText(run.text);
    node.session.chat.text += run.text;
  }
  node.view.AppendChat(runs, cut);
}

}  // namespace

std::string Trimmed(const std::string& text) {
  const char* blanks = " \t\r\n";
  std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string::npos) return {};
  std::size_t last = text.find_last_not_of(blanks);
  return text.substr(first, last - first + 1);
}

void AddMessage(NetNode& node, const std::string& text, Rgb colour) {
  AppendRuns(node, {ChatRun{text + kLineEnd, colour, false, false}}, text.size());
}

void AddChat(NetNode& node, const std::string& name, const std::string& text, Rgb colour) {
  const bool own = Trimmed(name).rfind("\u00BB", 0) == 0;
  AppendRuns(
      node, {ChatRun{name + ": ", colour, true, own}, ChatRun{text + kLineEnd, colour, false, own}},
      text.size());
}

bool SendChat(NetNode& node, const std::string& typed) {
  // Code 0 and 1 would cut the message; other controls show as a mark.
  const std::string text = Trimmed(ShowableText(typed));
  Game& game = node.game;
  // Out of a session (a host that could not listen) there is nobody to tell.
  if (text.empty() || (game.net.netRole != kNetHosting && game.net.netRole != kNetClient))
    return false;
  if (game.net.netRole == kNetHosting) {
    AddChat(node, " \u00BB" + game.net.localPlayerName, text, PlayerColor(game, game.net.myNodeId));
    SendToAllNodes(node, "GCHT}0" + std::string(1, kFieldSeparator) + text, 0);
  } else {
    SendToHost(node, "GCHT}" + text);
  }
  return true;
}

}  // namespace varkesh::net
