#include "core/record.h"

#include "core/apply_move.h"
#include "core/resign.h"
#include "core/rules.h"

namespace varkesh {

bool PlayEvent(Position& position, const RecordEvent& event) {
  if (event.kind == RecordEvent::Kind::Resign) {
    Position before = position;
    if (Resign(position, event.concedeTeam).done) return true;
    position = before;
    return false;
  }
  if (!IsLegal(position, event.move)) return false;
  ApplyMove(position, event.move);
  return true;
}

int Replay(const Record& record, int count, Position& out) {
  out = record.start;
  int played = 0;
  for (const RecordEvent& event : record.events) {
    if (played >= count || !PlayEvent(out, event)) break;
    ++played;
  }
  return played;
}

}  // namespace varkesh
