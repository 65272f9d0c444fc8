#include "core/resign.h"

#include <algorithm>

#include "core/alliances.h"
#include "core/apply_move.h"
#include "core/fate.h"

namespace varkesh {

namespace {

// A resigned King goes to no dungeon: it simply leaves the board.
void RemoveKing(Position& position, int team) {
  for (Square& square : position.board.squares) {
    if (square.team == team && (square.piece == kKing || square.piece == -kKing)) {
      square.team = kNoTeam;
      square.piece = kNoPiece;
      return;
    }
  }
}

}  // namespace

std::vector<int> ConcedeOffers(const Position& position) {
  std::vector<int> offers;
  for (int team = kWhite; team <= kRed; ++team) {
    if (IsHostile(position.gameType, position.currentTeam, team) &&
        !TeamEntry(position.kingdomFallen, team))
      offers.push_back(team);
  }
  return offers;
}

ResignEffects Resign(Position& position, int concedeTeam) {
  ResignEffects effects;
  const int team = position.currentTeam;
  const int slot = TeamIndex(team);
  if (slot < 0 || position.Finished()) return effects;
  switch (position.kingCaptureRule) {
    case kKingdomGained: {
      const std::vector<int> offers = ConcedeOffers(position);
      if (offers.empty()) return effects;
      if (std::find(offers.begin(), offers.end(), concedeTeam) == offers.end())
        concedeTeam = offers.front();
      position.kingdomFallen[static_cast<std::size_t>(slot)] = true;
      RemoveKing(position, team);
      SwapTeams(position, team, concedeTeam);
      effects.concedeTeam = concedeTeam;
      break;
    }
    case kKingdomLost:
      position.kingdomFallen[static_cast<std::size_t>(slot)] = true;
      ClearBoardOfTeam(position, team);
      break;
    case kKingdomFrozen:
      position.kingdomFallen[static_cast<std::size_t>(slot)] = true;
      FreezePieces(position, team);
      RemoveKing(position, team);
      break;
    default:
      return effects;
  }
  position.Refresh();
  effects.done = true;
  effects.team = team;
  AddToHistory(position, 0, 0, 0, 0, kNoTeam, false);
  VictoryTest(position);
  effects.gameOver = position.Finished();
  if (!effects.gameOver) PassTurn(position);
  return effects;
}

}  // namespace varkesh
