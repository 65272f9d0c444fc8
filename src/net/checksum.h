// A short fingerprint of what makes two machines' games the same game, so
// that a host can tell when a client has drifted away from it.
#pragma once

#include "flow/game.h"

namespace varkesh::net {

// Over the board (without its marks), the dungeons, the history, castle
// rights, fallen kingdoms, the team to move, the round, the type, the rule
// and the seats. Below 2^31, so it travels as a plain decimal field.
int GameChecksum(const Game& game);
// The same with other seats in place of the game's own.
int GameChecksum(const Game& game, const PerTeam<int>& kinds, const PerTeam<int>& seats);

}  // namespace varkesh::net
