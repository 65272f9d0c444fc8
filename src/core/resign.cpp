#include "core/resign.h"

#include <algorithm>

#include "core/fate.h"
#include "core/rules.h"
#include "core/turn.h"

namespace varkesh {

namespace {

constexpr const char* kResignTitle = "Request to Resign";
constexpr const char* kResignQuestion = "Are you sure you wish to resign from the game?";

// A resigned King goes to no dungeon: it simply leaves the board.
void RemoveKing(Game& game, int team) {
  for (Square& square : game.board.squares) {
    if (square.team == team && (square.piece == kKing || square.piece == -kKing)) {
      square.team = kNoTeam;
      square.piece = kNoPiece;
      return;
    }
  }
}

// The team that gets the pieces under Kingdom Gained, or 0 when the
// resignation is withdrawn. A received team that may not have them (a
// damaged message) is replaced by the first that may, so every machine agrees.
int ChooseConcedeTeam(const Game& game, Outside& outside, int resignToTeam) {
  std::vector<int> offers = ConcedeOffers(game);
  int pick = resignToTeam < 0 ? outside.RunConcedeDialog(offers) : resignToTeam;
  if (std::find(offers.begin(), offers.end(), pick) != offers.end()) return pick;
  return resignToTeam < 0 || offers.empty() ? kNoTeam : offers.front();
}

bool Confirmed(Outside& outside, int resignToTeam) {
  return resignToTeam >= 0 || outside.AskYesNo(kResignTitle, kResignQuestion);
}

void TellOthers(const Game& game, Outside& outside, int concedeTeam) {
  std::string message = "GRES}" + std::to_string(concedeTeam);
  if (game.netRole == kNetHosting) outside.SendToAll(message, 0);
  if (game.netRole == kNetClient) outside.SendToClient(0, message);
}

std::size_t TeamSlot(int team) {
  return static_cast<std::size_t>(TeamIndex(team));
}

// Carries out the rule in force for currentTeam, a team number checked by
// the caller; false when the player thought better of it.
bool Resign(Game& game, Outside& outside, int resignToTeam) {
  int team = game.currentTeam;
  int concedeTeam = kNoTeam;
  switch (game.kingCaptureRule) {
    case kKingdomGained:
      concedeTeam = ChooseConcedeTeam(game, outside, resignToTeam);
      if (concedeTeam == kNoTeam) return false;
      game.kingdomFallen[TeamSlot(team)] = true;
      RemoveKing(game, team);
      SwapTeams(game, team, concedeTeam);
      break;
    case kKingdomLost:
      if (!Confirmed(outside, resignToTeam)) return false;
      game.kingdomFallen[TeamSlot(team)] = true;
      ClearBoardOfTeam(game, team);
      break;
    case kKingdomFrozen:
      if (!Confirmed(outside, resignToTeam)) return false;
      game.kingdomFallen[TeamSlot(team)] = true;
      FreezePieces(game, team);
      RemoveKing(game, team);
      break;
    default:
      return false;
  }
  if (resignToTeam < 0) TellOthers(game, outside, concedeTeam);
  return true;
}

}  // namespace

std::vector<int> ConcedeOffers(const Game& game) {
  std::vector<int> offers;
  for (int team = kWhite; team <= kRed; ++team) {
    if (IsHostile(game.gameType, game.currentTeam, team) && !TeamEntry(game.kingdomFallen, team))
      offers.push_back(team);
  }
  return offers;
}

void DoResign(Game& game, Outside& outside, int resignToTeam) {
  if (TeamIndex(game.currentTeam) < 0) return;
  if (Resign(game, outside, resignToTeam)) {
    game.gameSaved = false;
    AddToHistory(game, 0, 0, 0, 0, kNoTeam, false);
    PlaySfx(outside, "sfx_captureking");
    VictoryTest(game);
    if (game.gameMode == ModeVictorySetUp)
      outside.SetMenuEnabled(Menu::Resign, false);
    else
      PassTurn(game, outside);
    outside.GameEventDone();
  }
  game.boardChanged = true;
}

}  // namespace varkesh
