#include "net/takeback_request.h"

#include <optional>

#include "flow/takeback.h"
#include "net/chat.h"
#include "net/extension.h"
#include "net/game_queue.h"
#include "net/node_table.h"
#include "net/sending.h"
#include "net/wire.h"

namespace varkesh::net {

namespace {

constexpr int kTakebackError = 12;
constexpr std::size_t kMaxNumberDigits = 10;

// A number as our own peers write it: digits alone, not too many.
std::optional<int> PlainNumber(std::string_view field) {
  if (field.empty() || field.size() > kMaxNumberDigits) return std::nullopt;
  for (char c : field)
    if (c < '0' || c > '9') return std::nullopt;
  return FieldNumber(field);
}

bool InUse(const NetSession& session, int n) {
  return n > 0 && static_cast<std::size_t>(n) < session.nodeInUse.size() &&
         session.nodeInUse[static_cast<std::size_t>(n)];
}

// A move or a resignation waits to be played: the game is moving on.
bool MoveWaiting(const NetSession& session) {
  for (const QueuedMessage& queued : session.gameQueue) {
    const std::string_view verb = SplitMessage(queued.text).verb;
    if (verb == "GAMV" || verb == "GRES") return true;
  }
  return false;
}

// Selections made in a turn that is being taken back mean nothing now.
void DropWaitingSelections(NetSession& session) {
  std::erase_if(session.gameQueue, [](const QueuedMessage& queued) {
    const std::string_view verb = SplitMessage(queued.text).verb;
    return verb == "GUPM" || verb == "GUGS";
  });
}

void TakeBackAndSend(NetNode& node, const std::string& notice) {
  DropWaitingSelections(node.session);
  if (TakeBackLastHumanMove(node.game, node.outside)) SendGameToAll(node, notice);
}

// Why node from may not have its takeback now, or empty when it may.
std::string RefusalOfAsk(const NetNode& node, int from, int events) {
  const Game& game = node.game;
  const NetSession& session = node.session;
  if (!InUse(session, from)) return "the node has left";
  if (events != session.gameEvents)
    return "it was asked at game event " + std::to_string(events) + ", and the game is at " +
           std::to_string(session.gameEvents);
  if (MoveWaiting(session)) return "a move waits to be played";
  const int team = TakebackTeam(game);
  if (team == kNoTeam) return "there is nothing to take back";
  if (TeamEntry(game.net.seatNode, team, -1) != from)
    return std::string("the node does not hold the seat of ") + TeamName(team);
  if (TakebackTeamOf(game, from) == kNoTeam) return "no player's turn is under way";
  return {};
}

void RefuseAsk(NetNode& node, int from, const std::string& why) {
  ReportNetError(node, "TakebackRequest", kTakebackError,
                 "A takeback asked by node " + std::to_string(from) + " was refused: " + why);
  if (InUse(node.session, from))
    SendToNode(node, from, NumberMessage(kTakebackRefusedVerb, {kTakebackOutrun}));
}

}  // namespace

bool SessionMayTakeBack(const NetNode& node) {
  const Game& game = node.game;
  const NetSession& session = node.session;
  if (TakebackTeamOf(game, game.net.myNodeId) == kNoTeam) return false;
  if (game.net.netRole == kNetHosting) return !MoveWaiting(session);
  return game.net.netRole == kNetClient && session.nodeConnections[0] != 0 &&
         SpeaksVersion(session, 0, kTakebackVersion) &&
         session.takebackAskedAt != session.gameEvents;
}

void TakeBackInSession(NetNode& node) {
  if (!SessionMayTakeBack(node)) return;
  Game& game = node.game;
  NetSession& session = node.session;
  const std::string team = TeamName(TakebackTeamOf(game, game.net.myNodeId));
  if (game.net.netRole == kNetHosting) {
    TakeBackAndSend(node, "*** " + game.net.localPlayerName + " (host) has taken back " + team +
                              "'s last move.");
    return;
  }
  session.takebackAskedAt = session.gameEvents;
  SendToHost(node, NumberMessage(kTakebackAskVerb, {session.gameEvents}));
  AddMessage(node, "*** You asked the host to take back " + team + "'s last move.");
}

bool TakebackAskMayWait(NetNode& node, int from) {
  PeerGuard& peer = node.session.peers[static_cast<std::size_t>(from)];
  std::string why;
  if (!peer.welcomed || !SpeaksVersion(node.session, from, kTakebackVersion))
    why = "the node never announced that it asks for takebacks";
  else if (peer.takebackAsked)
    why = "its earlier request is still waiting";
  if (why.empty()) {
    peer.takebackAsked = true;
    return true;
  }
  ReportNetError(node, "TakebackRequest", kTakebackError,
                 "A takeback asked by node " + std::to_string(from) + " was dropped: " + why);
  return false;
}

void AnswerTakebackAsk(NetNode& node, int from, std::string_view payload) {
  NetSession& session = node.session;
  if (InUse(session, from)) session.peers[static_cast<std::size_t>(from)].takebackAsked = false;
  const std::optional<int> events = PlainNumber(payload);
  if (!events) {
    ReportNetError(node, "TakebackRequest", kTakebackError,
                   "A takeback request of node " + std::to_string(from) +
                       " that does not fit its verb was dropped");
    return;
  }
  if (std::string why = RefusalOfAsk(node, from, *events); !why.empty())
    return RefuseAsk(node, from, why);
  const int team = TakebackTeamOf(node.game, from);
  const std::string name = NodeName(session, from);
  const bool allowed = node.outside.AskYesNo(
      "Take Back Move?", name + " asks to take back " + TeamName(team) + "'s last move. Allow it?");
  // The box let the session run on: the request is judged again.
  if (std::string why = RefusalOfAsk(node, from, *events); !why.empty())
    return RefuseAsk(node, from, why);
  if (TakebackTeamOf(node.game, from) != team) return RefuseAsk(node, from, "the seats changed");
  if (!allowed) {
    SendToNode(node, from, NumberMessage(kTakebackRefusedVerb, {kTakebackDeclined}));
    return;
  }
  TakeBackAndSend(node, "*** " + std::string(TeamName(team)) + "'s last move was taken back, as " +
                            name + " asked.");
}

bool TakeTakebackRefusal(NetNode& node, std::string_view payload) {
  const std::optional<int> reason = PlainNumber(payload);
  if (!reason || *reason > kTakebackOutrun) return false;
  NetSession& session = node.session;
  if (session.takebackAskedAt < 0) {
    ReportNetError(node, "TakebackRequest", kTakebackError,
                   "The host refused a takeback that was never asked for");
    return true;
  }
  session.takebackAskedAt = -1;
  node.outside.ShowMessage("Take Back Move",
                           *reason == kTakebackDeclined
                               ? NodeName(session, 0) + " did not allow the move to be taken back."
                               : "The move could not be taken back: the game has moved on.");
  return true;
}

}  // namespace varkesh::net
