#include "flow/resign.h"

#include <algorithm>

#include "core/resign.h"
#include "flow/turn.h"

namespace varkesh {

namespace {

constexpr const char* kResignTitle = "Request to Resign";
constexpr const char* kResignQuestion = "Are you sure you wish to resign from the game?";

// Whether this machine's player really resigns, and to whom under Kingdom
// Gained; 0 withdraws. A resignation from elsewhere goes through as told.
bool PlayerConfirms(const Game& game, Outside& outside, int& concedeTeam) {
  if (game.match.position.kingCaptureRule == kKingdomGained) {
    const std::vector<int> offers = ConcedeOffers(game.match.position);
    concedeTeam = outside.RunConcedeDialog(offers);
    return std::find(offers.begin(), offers.end(), concedeTeam) != offers.end();
  }
  return outside.AskYesNo(kResignTitle, kResignQuestion);
}

}  // namespace

void DoResign(Game& game, Outside& outside, int resignToTeam) {
  const int rule = game.match.position.kingCaptureRule;
  int concedeTeam = resignToTeam;
  const bool local = resignToTeam < 0;
  if (local && (rule < kKingdomGained || rule > kKingdomFrozen ||
                !PlayerConfirms(game, outside, concedeTeam))) {
    game.view.boardChanged = true;
    return;
  }
  const ResignEffects effects = PlayResign(game.match, concedeTeam);
  if (effects.done) {
    game.turn.gameSaved = false;
    PlaySfx(outside, "sfx_captureking");
    if (local) {
      if (NetLink* link = outside.Link()) link->TellResignation(game, effects.concedeTeam);
    }
    if (effects.gameOver) {
      game.turn.gameMode = ModeVictorySetUp;
      outside.SetMenuEnabled(Menu::Resign, false);
    } else {
      BeginNextTurn(game, outside);
    }
    if (NetLink* link = outside.Link()) link->OnGameEvent(game);
  }
  game.view.boardChanged = true;
}

}  // namespace varkesh
