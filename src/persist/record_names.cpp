#include "persist/record_names.h"

namespace varkesh::record_text {

int TeamOfName(std::string_view name) {
  for (int team = kWhite; team <= kRed; ++team)
    if (name == TeamName(team)) return team;
  return kNoTeam;
}

std::string ResultText(const Position& position) {
  if (!position.Finished()) return kUnfinished;
  std::string text = TeamName(position.winner);
  if (position.coWinner != kNoTeam) text += std::string(" and ") + TeamName(position.coWinner);
  return text;
}

bool IsCapture(MoveOutcome outcome) {
  return outcome == MoveOutcome::KingTaken || outcome == MoveOutcome::PawnTaken ||
         outcome == MoveOutcome::PieceTaken;
}

}  // namespace varkesh::record_text
