#include "net/chat_history.h"

namespace varkesh::net {

namespace {

constexpr std::size_t kCutAt = 15001;
constexpr std::size_t kKept = 12000;

}  // namespace

int CutChatHistory(ChatHistory& history, std::size_t addedLength) {
  std::string& text = history.text;
  if (text.size() + addedLength < kCutAt || text.size() <= kKept) return 0;
  // Back from the point 12000 characters before the end to a line end; the
  // front goes up to and with that line end.
  std::size_t lineEnd = text.rfind("\r\n", text.size() - kKept);
  if (lineEnd == std::string::npos) return 0;
  std::size_t cut = lineEnd + 2;
  text.erase(0, cut);
  return static_cast<int>(cut);
}

}  // namespace varkesh::net
