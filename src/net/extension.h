// Verbs of our own on top of the plain protocol: a peer that knows only the
// plain protocol drops them unread, and none is sent to a peer before it
// announced them with a hello. With them a host notices a client whose game
// drifted from its own, and either side notices a peer that went silent.
#pragma once

#include <string_view>

#include "net/node.h"

namespace varkesh::net {

// "GXHI}1": I speak these verbs. A client says it on learning its node
// number, before its name; the host answers it.
inline constexpr std::string_view kHelloVerb = "GXHI";
// "GXKA}": I am still here. Sent every kKeepAliveSeconds to a peer that
// said hello; such a peer silent for kSilenceSeconds is let go.
inline constexpr std::string_view kKeepAliveVerb = "GXKA";
// "GXCK}count<1>checksum": client to host after each game event.
inline constexpr std::string_view kChecksumVerb = "GXCK";
// "GXSY}count": host to client just before a game it sends: the count of
// game events that the game stands for.
inline constexpr std::string_view kSyncVerb = "GXSY";

inline constexpr int kExtensionVersion = 2;
// The first version that answers a takeback request.
inline constexpr int kTakebackVersion = 2;
inline constexpr double kKeepAliveSeconds = 5.0;
inline constexpr double kSilenceSeconds = 20.0;
// A client is sent its game again at most this often.
inline constexpr double kCatchUpInterval = 1.0;

bool SpeaksExtension(const NetSession& session, int peer);
// The peer announced at least this version.
bool SpeaksVersion(const NetSession& session, int peer, int version);

// Client: the hello, sent on learning the node number.
void SendHello(NetNode& node);
// A hello from peer (a client's node number on a host, 0 on a client), with
// the version it speaks.
void TakeHello(NetNode& node, int peer, int version);

// A move or resignation was played out here: counted; a host keeps the
// checksum, a client reports it to a host that speaks the extension.
void NoteGameEvent(NetNode& node);
// Client: a game sent by the host was loaded.
void NoteLoadEvent(NetNode& node);
// Host: a game is about to go to every client; those that speak the
// extension learn first which event it is. The host counts it as loaded.
void AnnounceSentGame(NetNode& node);
// Host: the seats changed between two events; a client may count the next
// event with the seats of before or after, or be caught up with these.
void NoteSeatChange(NetNode& node);
// Host: the count to send with a game that catches one client up.
void AddSyncFor(NetNode& node, int client);

// Client, from its game queue: "GXSY}".
bool TakeSync(NetNode& node, std::string_view payload);
// Host, from its game queue in the order of that client's messages: "GXCK}".
bool CompareChecksum(NetNode& node, int from, std::string_view payload);

// Host: node n is to get its game again, at once if the last time was long
// enough ago, else on a later tick.
void ScheduleCatchUp(NetNode& node, int n);

// About once a second: keep-alives out, silent peers let go, overloaded
// peers let go, due catch-ups sent.
void KeepAlive(NetNode& node);

}  // namespace varkesh::net
