// Take Back Move and Redo in a game on one machine: back to the turn of the
// last human seat that moved, with everything as it stood then, and forward
// again until a new move is made. In a NetPlay session the node that holds
// that seat may take back its move, and nobody may redo.
#pragma once

#include <vector>

#include "flow/game.h"
#include "flow/outside.h"

namespace varkesh {

// What Redo needs; lives beside the game for as long as the window does.
struct TakebackState {
  // The records as they stood before each takeback, the latest last.
  std::vector<Record> redo;
  // The record right after the latest takeback or redo: any other means a
  // move has been made since, and the redo list no longer applies.
  Record after;
};

// The number of events left once the last human move and the computer moves
// since are taken back; -1 when there is none to take back.
int TakebackTarget(const Game& game);
// The team whose move a takeback would reach; 0 when there is none.
int TakebackTeam(const Game& game);
// In a session: the team whose move node may take back now, at a player's
// turn or after the game ended and from a seat it holds; 0 when it may not.
int TakebackTeamOf(const Game& game, int node);

// In a session the link of the session decides (none: never).
bool CanTakeBack(const Game& game, const NetLink* session = nullptr);
bool CanRedo(const Game& game, const TakebackState& state);

// Each does nothing and returns false when it cannot. In a session TakeBack
// leaves it to the session's link.
bool TakeBack(Game& game, Outside& outside, TakebackState& state);
bool Redo(Game& game, Outside& outside, TakebackState& state);

// The session's takeback on the host, with the checks of TakebackTeamOf
// already made: no redo is kept.
bool TakeBackLastHumanMove(Game& game, Outside& outside);

// After a game was sent over the network: when the position reached by some
// part of the record of before from its start is the one now loaded, the
// record is that part (the longest), and true.
bool KeepRecordThrough(Match& match, const Record& before);

}  // namespace varkesh
