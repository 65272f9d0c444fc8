#include "core/turn.h"

#include "core/labels.h"
#include "core/rules.h"

namespace varkesh {

namespace {

// One step in the turn order; a team number out of range wraps like Red.
void StepToNextTeam(Game& game) {
  ++game.currentTeam;
  if (TeamIndex(game.currentTeam) < 0) {
    game.currentTeam = kWhite;
    if (game.roundNumber < kHighestRound) ++game.roundNumber;
  }
}

}  // namespace

void PassTurn(Game& game, Outside& outside) {
  // Bounded: a damaged game with every kingdom fallen must not loop for ever.
  for (int step = 0; step < kTeamCount; ++step) {
    StepToNextTeam(game);
    if (!TeamEntry(game.kingdomFallen, game.currentTeam)) break;
  }
  UpdateCurrentPlayer(game, outside);
  ShowPiece(game, outside, 0, 0, 0, 0);
  ClearMarks(game);
  ClearMoveablePieces(game);
  StartTurn(game, outside);
}

void StartTurn(Game& game, Outside& outside) {
  if (TeamEntry(game.playerKinds, game.currentTeam) == kHuman) {
    game.gameMode = ModeChoosePiece;
    FindMoveablePieces(game, game.currentTeam, true, false);
    game.turnClock = outside.Now();
  } else {
    game.gameMode = ModeComputerThinks;
  }
}

}  // namespace varkesh
