// Take Back Move in a NetPlay session. A client asks the host with a verb of
// our own, sent only to a host that announced it; the host's player answers,
// and on Yes the host takes back and sends everyone the game as it sends a
// loaded one, so a peer that knows only the plain protocol follows as well.
// The host's own player takes back a move of the host's seats by itself.
// Either way only the moves of the seat that moved last among the humans
// are taken back, with the computer's moves since: nobody else's.
#pragma once

#include <string_view>

#include "net/node.h"

namespace varkesh::net {

// "GXTB}events": client to host: take back my seat's last move. events is
// the count of game events the client has played, so that a request the
// game has outrun is seen as such.
inline constexpr std::string_view kTakebackAskVerb = "GXTB";
// "GXTN}reason": host to the client that asked: not taken back.
inline constexpr std::string_view kTakebackRefusedVerb = "GXTN";
inline constexpr int kTakebackDeclined = 0;  // the host's player said No
inline constexpr int kTakebackOutrun = 1;    // the game moved on, or there is nothing to take back

// Whether this machine's player may take back now: a move of a seat this
// node holds, at a player's turn; a client only through a host that answers
// requests, and with none of its own unanswered.
bool SessionMayTakeBack(const NetNode& node);
// The host takes back and sends the game; a client asks the host.
void TakeBackInSession(NetNode& node);

// Host, on arrival: whether node from's request may wait in the game queue,
// where one of each node at the most waits.
bool TakebackAskMayWait(NetNode& node, int from);
// Host, from the game queue in its turn: the request judged, the player
// asked, the client answered or everyone sent the earlier game.
void AnswerTakebackAsk(NetNode& node, int from, std::string_view payload);
// Client, from the game queue: the host's refusal, shown in a box.
bool TakeTakebackRefusal(NetNode& node, std::string_view payload);

}  // namespace varkesh::net
