// Playing a NetPlay session of varkesh-cli nodes from a test or a soak: the
// moves the rules list, turns awaited, games compared. Every wait polls the
// nodes' "show", is bounded, and ends early once a node it polls is broken.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "flow/game.h"
#include "node_process.h"

namespace varkesh::testing {

struct PlannedMove {
  int fromX = 0, fromY = 0, toX = 0, toY = 0;
  std::string Command() const;
};

// The first move the rules list for the team on turn, scanning the board by
// rows; none when that team has no move.
std::optional<PlannedMove> FirstLegalMove(const Game& shown);

// Round and team on turn, as one number.
int TurnKey(const Game& game);

bool ReachesTurn(NodeProcess& node, int key, double seconds = kNodeWaitSeconds);
// Polls until both show the same game text: empty then, else the first line
// that differs.
std::string ShowDifference(NodeProcess& a, NodeProcess& b, double seconds = kNodeWaitSeconds);
// Polls the "nodes" command until it lists count nodes, the host's included.
bool NodeCountBecomes(NodeProcess& node, int count, double seconds = kNodeWaitSeconds);
bool SeatsBecome(NodeProcess& node, const std::vector<std::string>& seats,
                 double seconds = kNodeWaitSeconds);

// The mover plays the first legal move of its turn, or the command given,
// once its game is there; true when the host has gone on to the next turn.
bool PlayTurn(NodeProcess& mover, NodeProcess& host, const std::string& command = "");

// A host on the port, once it says it is hosting; a client once it has the
// host's game (its "mode" line) or, with waitForGame false, once connected.
// None when that does not come in time (what the node said goes to the
// error output).
std::unique_ptr<NodeProcess> StartHost(int port, const std::string& name,
                                       const std::string& folder);
std::unique_ptr<NodeProcess> StartClient(int port, const std::string& name,
                                         const std::string& folder, bool waitForGame = true);

}  // namespace varkesh::testing
