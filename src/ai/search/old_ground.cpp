#include "ai/search/old_ground.h"

#include <algorithm>

#include "ai/search/evaluation.h"

namespace varkesh::search {

namespace {

// Going round in circles gets the team on turn nowhere, so new ground is
// tried while it costs less than this.
constexpr int kOldGroundCost = 50;
// After this round the charge grows each round, up to its cap.
constexpr int kPatientRounds = 100;
constexpr int kOldGroundCostStep = 2;
constexpr int kOldGroundCostCap = 250;

}  // namespace

int OldGroundCost(int round) {
  return std::min(kOldGroundCostCap,
                  kOldGroundCost + kOldGroundCostStep * std::max(0, round - kPatientRounds));
}

bool ChargesOldGround(const Position& position, const Sides& sides, int personality) {
  if (!sides.PoolsReplies()) return true;
  const int mine = PiecesWorth(position, sides.rootTeam, personality);
  int foes = 0;
  bool leads = true;
  for (int t = kWhite; t <= kRed; ++t)
    if (t != sides.rootTeam && !TeamEntry(position.kingdomFallen, t)) {
      ++foes;
      if (PiecesWorth(position, t, personality) >= mine) leads = false;
    }
  return leads || foes <= 1;
}

}  // namespace varkesh::search
