#include "support/scripted_outside.h"

#include "core/apply_move.h"
#include "flow/game.h"

namespace varkesh {

ScriptedOutside::ScriptedOutside()
    : HeadlessOutside({Menu::OptionsSfx, Menu::OptionIndicator, Menu::OptionsShowComp,
                       Menu::OptionsHints, Menu::History0}) {
  manualClock = true;
  AttachNetLink(this);
}

void ScriptedOutside::TellSelection(const Game& game) {
  const TurnState& t = game.turn;
  told.push_back("selection " + std::to_string(t.moveFromX) + "," + std::to_string(t.moveFromY) +
                 "-" + std::to_string(t.moveToX) + "," + std::to_string(t.moveToY) + " mode " +
                 std::to_string(t.gameMode));
}

void ScriptedOutside::TellMove(const Game&, const MoveEffects& effects) {
  static constexpr const char* kOutcomes[] = {"plain", "captured", "freed", "lost", "stayed"};
  told.push_back(std::string("move ") + kOutcomes[static_cast<int>(effects.pawn)]);
}

void ScriptedOutside::TellResignation(const Game&, int concedeTeam) {
  told.push_back("resign " + std::to_string(concedeTeam));
}

void ScriptedOutside::TellGameStarted(Game&, bool loaded) {
  told.push_back(loaded ? "game loaded" : "game started");
}

void ScriptedOutside::OnGameEvent(const Game&) {
  told.push_back("event");
}

}  // namespace varkesh
