// The course of a game: where it began and every move and resignation since,
// in order, so that it can be taken back, replayed and written down.
#pragma once

#include <vector>

#include "core/move.h"
#include "core/position.h"

namespace varkesh {

struct RecordEvent {
  enum class Kind : std::int8_t { Move, Resign };
  Kind kind = Kind::Move;
  Move move;                  // a move with its pawn option
  int concedeTeam = kNoTeam;  // a resignation: who received the pieces, 0 under the other rules

  static RecordEvent Of(const Move& move) { return {Kind::Move, move, kNoTeam}; }
  static RecordEvent Resignation(int concedeTeam) { return {Kind::Resign, {}, concedeTeam}; }
  bool operator==(const RecordEvent&) const = default;
};

struct Record {
  Position start;
  std::vector<RecordEvent> events;

  // A new game or a loaded one begins a record of its own.
  void Begin(const Position& from) {
    start = from;
    events.clear();
  }
  bool operator==(const Record&) const = default;
};

// Plays an event on a position as it was played in the game; false, with the
// position unchanged, for a move the rules do not allow there or a
// resignation that gives nothing away.
bool PlayEvent(Position& position, const RecordEvent& event);

// The position after the first count events (all of them when count is
// larger); the number of events played, which falls short where one does not fit.
int Replay(const Record& record, int count, Position& out);

}  // namespace varkesh
