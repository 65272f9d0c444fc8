// The length rule of the chat history: once a line would bring it to 15001
// characters, the front is cut at a line end so that about the last 12000
// characters survive, in whole lines.
#pragma once

#include <string>

namespace varkesh::net {

struct ChatHistory {
  std::string text;  // what the history box holds, lines ending in "\r\n"
};

// Makes room before a line whose tested length is addedLength; returns how
// many characters were cut from the front (0 when none).
int CutChatHistory(ChatHistory& history, std::size_t addedLength);

}  // namespace varkesh::net
