// The lines of the NetPlay window's chat history and the chat command.
#pragma once

#include <string>

#include "engine/rgb.h"
#include "net/node.h"

namespace varkesh::net {

// One line in one colour, neither bold nor italic.
void AddMessage(NetNode& node, const std::string& text, Rgb colour = kSystemColour);
// A player's line: the name in bold, then ": " and the text; both in
// italics when the name is this player's own (it starts with "»").
void AddChat(NetNode& node, const std::string& name, const std::string& text, Rgb colour);

// Spaces, tabs and line breaks off both ends.
std::string Trimmed(const std::string& text);

}  // namespace varkesh::net
