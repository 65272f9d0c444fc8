// Who plays against whom in a search. With two alliances the game is a
// two-sided one whatever the order of turns; in Anarchy the searching team
// stands alone against the other three.
#pragma once

#include "core/alliances.h"
#include "core/position.h"

namespace varkesh::search {

struct Sides {
  int gameType = kAlliedNeighbors;
  int rootTeam = kWhite;

  // 0 for the root team's side, 1 for the other.
  int Of(int team) const {
    if (gameType == kAnarchy) return team == rootTeam ? 0 : 1;
    return team == rootTeam || IsAlly(gameType, rootTeam, team) ? 0 : 1;
  }
  // Anarchy pools the three others' moves into one layer (best reply).
  bool PoolsReplies() const { return gameType == kAnarchy; }
};

}  // namespace varkesh::search
