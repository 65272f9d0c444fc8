#include "net/rejoin.h"

#include <algorithm>

#include "net/chat.h"
#include "net/seats.h"
#include "net/sending.h"

namespace varkesh::net {

namespace {

// Enough for every seat of every drop that can still be claimed.
constexpr std::size_t kMaxRemembered = 64;

void ForgetOld(NetSession& session, double now) {
  std::erase_if(session.droppedSeats,
                [now](const DroppedSeats& drop) { return now - drop.at > kRejoinSeconds; });
}

std::string TeamList(const std::vector<int>& teams) {
  std::string text;
  for (std::size_t i = 0; i < teams.size(); ++i) {
    if (i > 0) text += i + 1 == teams.size() ? " and " : ", ";
    text += TeamName(teams[i]);
  }
  return text;
}

}  // namespace

void RememberDroppedSeats(NetNode& node, const std::string& name, const std::string& address,
                          std::vector<int> teams) {
  NetSession& session = node.session;
  const double now = node.outside.Now();
  ForgetOld(session, now);
  if (teams.empty() || name.empty()) return;
  if (session.droppedSeats.size() >= kMaxRemembered)
    session.droppedSeats.erase(session.droppedSeats.begin());
  session.droppedSeats.push_back({name, address, std::move(teams), now});
}

void RestoreSeats(NetNode& node, int n) {
  NetSession& session = node.session;
  ForgetOld(session, node.outside.Now());
  const std::string& name = session.nodeNames[static_cast<std::size_t>(n)];
  const std::string& address = session.peers[static_cast<std::size_t>(n)].address;
  // The latest drop under this name is the one the player comes back from.
  const auto drop =
      std::find_if(session.droppedSeats.rbegin(), session.droppedSeats.rend(),
                   [&](const DroppedSeats& d) { return d.name == name && d.address == address; });
  if (drop == session.droppedSeats.rend()) return;
  Game& game = node.game;
  std::vector<int> restored;
  for (int team : drop->teams) {
    const int i = TeamIndex(team);
    if (i < 0) continue;
    const std::size_t at = static_cast<std::size_t>(i);
    if (game.match.setup.playerKinds[at] != kHuman || game.net.seatNode[at] != 0) continue;
    game.net.seatNode[at] = n;
    restored.push_back(team);
  }
  session.droppedSeats.erase(std::next(drop).base());
  if (restored.empty()) return;
  // The joiner gets the seats with its catch-up.
  TellSeats(node, n);
  const std::string notice =
      "     *** " + name + " is back and plays " + TeamList(restored) + " again.";
  AddMessage(node, notice);
  SendNotice(node, notice);
}

}  // namespace varkesh::net
