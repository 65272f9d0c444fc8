// The table of who is in the session: node numbers, names and the list of
// the NetPlay window.
#pragma once

#include <string>
#include <string_view>

#include "net/node.h"

namespace varkesh::net {

// The lowest free node from 1 up, or a new one at the end of the tables.
int GetNextNode(NetSession& session);
// Node tables of a session with nobody but this program: node 0 named name.
void ResetNodeTables(NetSession& session, const std::string& name);
// The node whose connection this is, or -1.
int NodeOfConnection(const NetSession& session, ConnectionId connection);
// The node's name, empty for a number outside the tables.
std::string NodeName(const NetSession& session, int nodeNumber);

// Host: the list anew in the window, and as GCNL to every client.
void SendNodeList(NetNode& node);
// Client: a GCNL payload into the tables and the window; false (and
// nothing changed) when it is not a well-formed list.
bool BreakDownNodeList(NetNode& node, std::string_view payload);

// A name given by a peer, made fit for the tables, the list and the wire.
std::string CleanName(std::string_view name);

}  // namespace varkesh::net
