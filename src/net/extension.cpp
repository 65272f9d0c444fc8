#include "net/extension.h"

#include <algorithm>

#include "net/checksum.h"
#include "net/departures.h"
#include "net/game_queue.h"
#include "net/sending.h"

namespace varkesh::net {

namespace {

constexpr std::size_t kRecentChecksumCount = 128;
// Ticks further apart than this mean this program itself was held up; its
// peers are not to blame for what it did not read meanwhile.
constexpr double kStallSeconds = 3.0;

void CountEvent(NetSession& session) {
  if (session.gameEvents < std::numeric_limits<int>::max()) ++session.gameEvents;
}

void ReportChecksum(NetNode& node) {
  if (!SpeaksExtension(node.session, 0) || node.session.nodeConnections[0] == 0) return;
  SendToHost(node, std::string(kChecksumVerb) + "}" + std::to_string(node.session.gameEvents) +
                       kFieldSeparator + std::to_string(GameChecksum(node.game)));
}

void RememberChecksum(NetNode& node) {
  NetSession& session = node.session;
  const Game& game = node.game;
  auto& recent = session.recentChecksums;
  recent.emplace_back(session.gameEvents, GameChecksum(game));
  if (session.kindsAtEvent != game.match.setup.playerKinds ||
      session.seatsAtEvent != game.net.seatNode)
    recent.emplace_back(session.gameEvents,
                        GameChecksum(game, session.kindsAtEvent, session.seatsAtEvent));
  session.kindsAtEvent = game.match.setup.playerKinds;
  session.seatsAtEvent = game.net.seatNode;
  while (recent.size() > kRecentChecksumCount) recent.pop_front();
}

PeerGuard* Peer(NetSession& session, int peer) {
  if (peer < 0 || static_cast<std::size_t>(peer) >= session.peers.size()) return nullptr;
  return &session.peers[static_cast<std::size_t>(peer)];
}

bool InUse(const NetSession& session, int n) {
  return n >= 0 && static_cast<std::size_t>(n) < session.nodeInUse.size() &&
         session.nodeInUse[static_cast<std::size_t>(n)];
}

void CatchUpNow(NetNode& node, int n) {
  PeerGuard& peer = node.session.peers[static_cast<std::size_t>(n)];
  peer.catchUpDue = false;
  peer.lastCatchUp = node.outside.Now();
  CatchUpClient(node, n);
}

std::string PeerLabel(const NetNode& node, int n) {
  return node.game.net.netRole == kNetHosting ? "Node " + std::to_string(n) : "The host";
}

void LetSilentPeersGo(NetNode& node, double now) {
  NetSession& session = node.session;
  const bool host = node.game.net.netRole == kNetHosting;
  const int first = host ? 1 : 0;
  const int last = host ? session.nodeCount : 0;
  for (int n = first; n <= last; ++n) {
    if (static_cast<std::size_t>(n) >= session.peers.size()) break;
    if (host ? !InUse(session, n) : session.nodeConnections[0] == 0) continue;
    const PeerGuard& peer = session.peers[static_cast<std::size_t>(n)];
    if (peer.overloaded) {
      ReportNetError(node, "SendToClient", 8,
                     PeerLabel(node, n) + " does not read what is sent to it; let go");
      LetGo(node, n);
    } else if (host && !peer.welcomed && now - peer.acceptedAt > kNamelessSeconds) {
      ReportNetError(node, "KeepAlive", 11,
                     PeerLabel(node, n) + " sent no name within " +
                         std::to_string(static_cast<int>(kNamelessSeconds)) +
                         " seconds of its greeting; closed");
      CloseNameless(node, n);
    } else if (peer.extended && now - peer.lastHeard > kSilenceSeconds) {
      ReportNetError(node, "KeepAlive", 9,
                     PeerLabel(node, n) + " has been silent for " +
                         std::to_string(static_cast<int>(kSilenceSeconds)) + " seconds; let go");
      LetGo(node, n);
    }
    if (node.game.net.netRole == kNetNone || (!host && session.nodeConnections[0] == 0)) return;
  }
}

}  // namespace

bool SpeaksExtension(const NetSession& session, int peer) {
  return peer >= 0 && static_cast<std::size_t>(peer) < session.peers.size() &&
         session.peers[static_cast<std::size_t>(peer)].extended;
}

void SendHello(NetNode& node) {
  SendToHost(node, std::string(kHelloVerb) + "}" + std::to_string(kExtensionVersion));
}

bool SpeaksVersion(const NetSession& session, int peer, int version) {
  return SpeaksExtension(session, peer) &&
         session.peers[static_cast<std::size_t>(peer)].extensionVersion >= version;
}

void TakeHello(NetNode& node, int peer, int version) {
  PeerGuard* guard = Peer(node.session, peer);
  if (guard == nullptr || guard->extended) return;
  guard->extended = true;
  guard->extensionVersion = std::max(version, 1);
  if (node.game.net.netRole == kNetHosting)
    SendToNode(node, peer, std::string(kHelloVerb) + "}" + std::to_string(kExtensionVersion));
}

void NoteGameEvent(NetNode& node) {
  CountEvent(node.session);
  if (node.game.net.netRole == kNetHosting)
    RememberChecksum(node);
  else if (node.game.net.netRole == kNetClient)
    ReportChecksum(node);
}

void NoteLoadEvent(NetNode& node) {
  NetSession& session = node.session;
  if (session.nextLoadEvent >= 0) {
    session.gameEvents = session.nextLoadEvent;
    session.nextLoadEvent = -1;
  } else {
    CountEvent(session);
  }
  ReportChecksum(node);
}

void AnnounceSentGame(NetNode& node) {
  NetSession& session = node.session;
  CountEvent(session);
  const std::string sync = std::string(kSyncVerb) + "}" + std::to_string(session.gameEvents);
  for (int n = 1; n <= session.nodeCount; ++n)
    if (InUse(session, n) && SpeaksExtension(session, n)) SendToNode(node, n, sync);
  RememberChecksum(node);
}

void NoteSeatChange(NetNode& node) {
  if (node.game.net.netRole != kNetHosting) return;
  auto& recent = node.session.recentChecksums;
  recent.emplace_back(node.session.gameEvents, GameChecksum(node.game));
  while (recent.size() > kRecentChecksumCount) recent.pop_front();
}

void AddSyncFor(NetNode& node, int client) {
  if (SpeaksExtension(node.session, client))
    SendToNode(node, client,
               std::string(kSyncVerb) + "}" + std::to_string(node.session.gameEvents));
}

bool TakeSync(NetNode& node, std::string_view payload) {
  const int count = FieldNumber(payload);
  if (count < 0) return false;
  node.session.nextLoadEvent = count;
  return true;
}

bool CompareChecksum(NetNode& node, int from, std::string_view payload) {
  const std::vector<std::string_view> fields = SplitFields(payload);
  if (fields.size() != 2) return false;
  const int count = FieldNumber(fields[0]);
  const int sum = FieldNumber(fields[1]);
  bool known = false;
  bool same = false;
  for (const auto& [event, hostSum] : node.session.recentChecksums) {
    if (event != count) continue;
    known = true;
    same = same || sum == hostSum;
  }
  if (known && !same) {
    ReportNetError(node, "CompareChecksum", 3,
                   "The game of node " + std::to_string(from) + " differs from the host's after " +
                       "game event " + std::to_string(count) + "; it is sent the game again");
    ScheduleCatchUp(node, from);
  }
  return true;
}

void ScheduleCatchUp(NetNode& node, int n) {
  if (!InUse(node.session, n)) return;
  PeerGuard& peer = node.session.peers[static_cast<std::size_t>(n)];
  if (node.outside.Now() - peer.lastCatchUp >= kCatchUpInterval)
    CatchUpNow(node, n);
  else
    peer.catchUpDue = true;
}

void KeepAlive(NetNode& node) {
  if (node.game.net.netRole != kNetHosting && node.game.net.netRole != kNetClient) return;
  NetSession& session = node.session;
  const double now = node.outside.Now();
  if (now - session.lastTick > kStallSeconds)
    for (PeerGuard& peer : session.peers) {
      peer.lastHeard = std::max(peer.lastHeard, now);
      peer.acceptedAt = std::max(peer.acceptedAt, now);
    }
  session.lastTick = now;
  LetSilentPeersGo(node, now);
  if (node.game.net.netRole == kNetHosting) {
    for (int n = 1; n <= session.nodeCount; ++n) {
      const PeerGuard& peer = session.peers[static_cast<std::size_t>(n)];
      if (InUse(session, n) && peer.catchUpDue && now - peer.lastCatchUp >= kCatchUpInterval)
        CatchUpNow(node, n);
    }
  }
  if (now - session.lastKeepAlive < kKeepAliveSeconds) return;
  session.lastKeepAlive = now;
  const std::string alive = std::string(kKeepAliveVerb) + "}";
  if (node.game.net.netRole == kNetClient) {
    if (SpeaksExtension(session, 0) && session.nodeConnections[0] != 0) SendToHost(node, alive);
    return;
  }
  for (int n = 1; n <= session.nodeCount; ++n)
    if (InUse(session, n) && SpeaksExtension(session, n)) SendToNode(node, n, alive);
}

}  // namespace varkesh::net
