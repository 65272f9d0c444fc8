#include "core/match.h"

namespace varkesh {

MoveEffects PlayMove(Match& match, const Move& move) {
  MoveEffects effects = ApplyMove(match.position, move);
  if (effects.played) match.record.events.push_back(RecordEvent::Of(move));
  return effects;
}

ResignEffects PlayResign(Match& match, int concedeTeam) {
  ResignEffects effects = Resign(match.position, concedeTeam);
  if (effects.done) match.record.events.push_back(RecordEvent::Resignation(effects.concedeTeam));
  return effects;
}

}  // namespace varkesh
