// The NetPlay session of one program: its node tables, receive buffers and
// game queue, kept beside the Game. A program holds at most one session; a
// test may hold a host and several clients, each with a Game and a session.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "flow/game.h"
#include "net/chat_history.h"
#include "net/transport.h"
#include "net/wire.h"

namespace varkesh::net {

// What a session takes from its peers at the most.
inline constexpr int kMaxClients = 64;
// Node numbers a client accepts from a host: far more than a host ever
// hands out, far less than a table worth worrying about.
inline constexpr int kMaxNodeNumber = 1024;
// A message that has not ended by then is no message of ours.
inline constexpr std::size_t kMaxMessageBytes = 64 * 1024;
// A name has at most this many characters, one byte each on the wire.
inline constexpr std::size_t kMaxNameCharacters = 64;
// A peer that has not named itself this long after its greeting is closed.
inline constexpr double kNamelessSeconds = 15.0;
// A peer that does not read is let go before its queue grows past this.
inline constexpr std::size_t kMaxBacklogBytes = 4 * 1024 * 1024;
// Game messages waiting at once; well-behaved peers never come near it.
inline constexpr std::size_t kMaxQueuedMessages = 4096;

// What this program knows of one peer beyond the node tables: on a host one
// for each node, on a client element 0 for the host.
struct PeerGuard {
  bool extended = false;  // it announced the extension verbs
  // The version it announced with them.
  int extensionVersion = 0;
  bool welcomed = false;  // host: its name came; a second one renames it
  double lastHeard = 0.0;
  // Host: where its connection comes from, and when it was accepted.
  std::string address;
  double acceptedAt = 0.0;
  bool overloaded = false;  // its backlog passed the limit: let go at the next chance
  // Host: the times of its recent chat lines, and whether it was told of the limit.
  std::deque<double> chatTimes;
  bool chatNoticeSent = false;
  // Host: its game is to be sent again once the last sending is old enough.
  bool catchUpDue = false;
  double lastCatchUp = -1.0e9;
  // Host: a takeback it asked for waits in the queue; it may ask no other.
  bool takebackAsked = false;
};

// A game message with the node it came from (0 on a client: the host).
struct QueuedMessage {
  std::string text;
  int from = 0;
};

// Host: seats that fell back to the host when their player's line dropped.
struct DroppedSeats {
  std::string name;
  std::string address;  // only a rejoin from here takes the seats back
  std::vector<int> teams;
  double at = 0.0;
};

struct NetSession {
  // From the connect dialog.
  std::string hostAddress = kDefaultHost;
  int netPort = kDefaultPort;

  // Node tables, indexes 0 to nodeCount. nodeCount never falls while the
  // session lasts; a free node keeps its place for the next to join.
  int nodeCount = 0;
  std::vector<std::string> nodeNames{std::string()};
  std::vector<bool> nodeInUse{false};
  std::vector<std::string> nodeBuffers{std::string()};
  // The connection of each node: on a host, element n is node n's; on a
  // client, element 0 is the connection to the host. 0 is none.
  std::vector<ConnectionId> nodeConnections{0};
  std::vector<PeerGuard> peers{PeerGuard{}};

  // Set for the rest of the run once the notice of a NetPlay error was shown.
  bool netErrorShown = false;
  // Times of the error blocks logged lately: a flood of bad messages must
  // not fill the disk.
  std::deque<double> recentErrors;
  // Messages are being cut from the buffers; a nested arrival only appends.
  bool cutting = false;

  // Whole game messages waiting to be applied, oldest first. Capacity grows
  // by 10 as it fills (0 on a host, 10 on a client when the session opens).
  std::deque<QueuedMessage> gameQueue;
  int gameQueueSize = 0;

  // Moves, resignations and loads, counted alike on every machine, so that
  // a client's checksum can be matched with the host's of the same moment.
  int gameEvents = 0;
  // Client: the count that the next game sent by the host sets; -1 for none.
  int nextLoadEvent = -1;
  // Host: the checksums of its latest events, oldest first. Seats change
  // at once on every machine while moves wait in queues, so a client may
  // count an event before or after a change of seats the host made just
  // then: an event has a checksum with each of the seats it saw.
  std::deque<std::pair<int, int>> recentChecksums;
  PerTeam<int> kindsAtEvent{};
  PerTeam<int> seatsAtEvent{};
  // Host: the node whose move under way lost its pawn in a keep, -1 for
  // none. The protocol gives that loss no kind of its own, so peers without
  // our verbs get the game once the move is done.
  int lostPawnMover = -1;
  // Client: the count of game events when this player asked the host for a
  // takeback that has not been answered; -1 for none.
  int takebackAskedAt = -1;
  double lastKeepAlive = 0.0;
  double lastTick = 0.0;
  std::vector<DroppedSeats> droppedSeats;

  ChatHistory chat;
};

}  // namespace varkesh::net
