#include "core/fate.h"

#include "core/alliances.h"

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

void SwapTeams(Position& position, int oldTeam, int newTeam) {
  // Team 0 marks empty squares; swapping it would fill the board.
  if (TeamIndex(oldTeam) < 0) return;
  for (Square& square : position.board.squares) {
    if (square.team == oldTeam) square.team = newTeam;
    if (square.realm == oldTeam) square.realm = newTeam;
  }
  position.Refresh();
  // A prisoner changes colour only where the gainer's pawns may raid it.
  for (int holder = kWhite; holder <= kRed; ++holder) {
    for (DungeonPiece& prisoner :
         position.dungeons[static_cast<std::size_t>(holder - 1)].prisoners) {
      if (prisoner.team == oldTeam && prisoner.piece != kKing &&
          IsHostile(position.gameType, holder, newTeam)) {
        prisoner.team = newTeam;
      }
    }
  }
}

void ClearBoardOfTeam(Position& position, int team) {
  if (TeamIndex(team) < 0) return;
  for (Square& square : position.board.squares) {
    if (square.team == team) {
      square.team = kNoTeam;
      square.piece = kNoPiece;
    }
    NeutraliseRealm(square, team);
  }
  position.Refresh();
}

void FreezePieces(Position& position, int team) {
  if (TeamIndex(team) < 0) return;
  for (Square& square : position.board.squares) {
    // Negating first keeps the team's own pawns, frozen, out of the sweep.
    if (square.team == team && square.piece > 0) square.piece = -square.piece;
    NeutraliseRealm(square, team);
  }
  position.Refresh();
}

void ApplyFate(Position& position, int fallenTeam, int captorTeam) {
  switch (position.kingCaptureRule) {
    case kKingdomGained:
      SwapTeams(position, fallenTeam, captorTeam);
      break;
    case kKingdomLost:
      ClearBoardOfTeam(position, fallenTeam);
      break;
    case kKingdomFrozen:
      FreezePieces(position, fallenTeam);
      break;
    default:
      break;
  }
}

namespace {

bool Fallen(const Position& position, int team) {
  return TeamEntry(position.kingdomFallen, team);
}

bool DeclareWinner(Position& position, int winner, int coWinner) {
  position.winner = winner;
  position.coWinner = coWinner;
  return true;
}

}  // namespace

bool VictoryTest(Position& position) {
  switch (position.gameType) {
    case kAlliedNeighbors:
      if (Fallen(position, kWhite) && Fallen(position, kBlue))
        return DeclareWinner(position, kBlack, kRed);
      if (Fallen(position, kBlack) && Fallen(position, kRed))
        return DeclareWinner(position, kWhite, kBlue);
      return false;
    case kCrossroadAllies:
      if (Fallen(position, kWhite) && Fallen(position, kBlack))
        return DeclareWinner(position, kBlue, kRed);
      if (Fallen(position, kBlue) && Fallen(position, kRed))
        return DeclareWinner(position, kWhite, kBlack);
      return false;
    case kAnarchy: {
      int fallenCount = 0;
      int standing = kNoTeam;
      for (int team = kWhite; team <= kRed; ++team) {
        if (Fallen(position, team)) {
          ++fallenCount;
        } else {
          standing = team;
        }
      }
      if (fallenCount != kTeamCount - 1) return false;
      return DeclareWinner(position, standing, kNoTeam);
    }
    default:
      return false;
  }
}

}  // namespace varkesh
