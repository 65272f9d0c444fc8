#include "core/fate.h"

#include "core/rules.h"

namespace varkesh {

namespace {

bool IsPawnKind(int piece) {
  return piece == kPawn || piece == kCastlePawn;
}

// Shared end of clearing and freezing: other teams' pawns are swept from the
// fallen moat, and the kingdom's moat and keep turn neutral.
void NeutraliseRealm(Square& square, int team) {
  if (square.terrain == kMoat && square.realm == team && IsPawnKind(square.piece)) {
    square.team = kNoTeam;
    square.piece = kNoPiece;
  }
  if (square.realm == team) square.realm = kNoTeam;
}

}  // namespace

void SwapTeams(Game& game, int oldTeam, int newTeam) {
  // Team 0 marks empty squares; swapping it would fill the board.
  if (TeamIndex(oldTeam) < 0) return;
  for (Square& square : game.board.squares) {
    if (square.team == oldTeam) square.team = newTeam;
    if (square.realm == oldTeam) square.realm = newTeam;
  }
  // A prisoner changes colour only where the gainer's pawns may raid it.
  for (int holder = kWhite; holder <= kRed; ++holder) {
    for (DungeonPiece& prisoner : game.dungeons[static_cast<std::size_t>(holder - 1)].prisoners) {
      if (prisoner.team == oldTeam && prisoner.piece != kKing &&
          IsHostile(game.gameType, holder, newTeam)) {
        prisoner.team = newTeam;
      }
    }
  }
}

void ClearBoardOfTeam(Game& game, int team) {
  if (TeamIndex(team) < 0) return;
  for (Square& square : game.board.squares) {
    if (square.team == team) {
      square.team = kNoTeam;
      square.piece = kNoPiece;
    }
    NeutraliseRealm(square, team);
  }
}

void FreezePieces(Game& game, int team) {
  if (TeamIndex(team) < 0) return;
  for (Square& square : game.board.squares) {
    // Negating first keeps the team's own pawns, frozen, out of the sweep.
    if (square.team == team && square.piece > 0) square.piece = -square.piece;
    NeutraliseRealm(square, team);
  }
}

void ApplyFate(Game& game, int fallenTeam, int captorTeam) {
  switch (game.kingCaptureRule) {
    case kKingdomGained:
      SwapTeams(game, fallenTeam, captorTeam);
      break;
    case kKingdomLost:
      ClearBoardOfTeam(game, fallenTeam);
      break;
    case kKingdomFrozen:
      FreezePieces(game, fallenTeam);
      break;
    default:
      break;
  }
}

namespace {

bool Fallen(const Game& game, int team) {
  return TeamEntry(game.kingdomFallen, team);
}

bool DeclareWinner(Game& game, int winner, int coWinner) {
  game.winner = winner;
  game.coWinner = coWinner;
  game.gameMode = ModeVictorySetUp;
  return true;
}

}  // namespace

bool VictoryTest(Game& game) {
  switch (game.gameType) {
    case kAlliedNeighbors:
      if (Fallen(game, kWhite) && Fallen(game, kBlue)) return DeclareWinner(game, kBlack, kRed);
      if (Fallen(game, kBlack) && Fallen(game, kRed)) return DeclareWinner(game, kWhite, kBlue);
      return false;
    case kCrossroadAllies:
      if (Fallen(game, kWhite) && Fallen(game, kBlack)) return DeclareWinner(game, kBlue, kRed);
      if (Fallen(game, kBlue) && Fallen(game, kRed)) return DeclareWinner(game, kWhite, kBlack);
      return false;
    case kAnarchy: {
      int fallenCount = 0;
      int standing = kNoTeam;
      for (int team = kWhite; team <= kRed; ++team) {
        if (Fallen(game, team)) {
          ++fallenCount;
        } else {
          standing = team;
        }
      }
      if (fallenCount != kTeamCount - 1) return false;
      return DeclareWinner(game, standing, kNoTeam);
    }
    default:
      return false;
  }
}

}  // namespace varkesh
