#include "core/match.h"

namespace varkesh {

MoveEffects PlayMove(Match& match, const Move& move) {
  MoveEffects effects = ApplyMove(match.position, move);
  if (!effects.played) return effects;
  // A move that opened no pawn options keeps none, whoever would have chosen.
  Move kept = move;
  if (effects.pawn == PawnOutcome::NotDue) kept.option = kOptionNone;
  match.record.events.push_back(RecordEvent::Of(kept));
  return effects;
}

ResignEffects PlayResign(Match& match, int concedeTeam) {
  ResignEffects effects = Resign(match.position, concedeTeam);
  if (effects.done) match.record.events.push_back(RecordEvent::Resignation(effects.concedeTeam));
  return effects;
}

}  // namespace varkesh
