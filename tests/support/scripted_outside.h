// The outside the tests drive the game through: the headless outside with
// every option of the menus checked, a clock that moves only when the logic
// yields, and a record of what the game told a NetPlay session.
#pragma once

#include <string>
#include <vector>

#include "flow/headless_outside.h"
#include "flow/net_link.h"

namespace varkesh {

class ScriptedOutside : public HeadlessOutside, public NetLink {
 public:
  ScriptedOutside();

  // "selection FX,FY-TX,TY mode M", "move OUTCOME", "resign TEAM",
  // "game started" or "game loaded", "event", in order.
  std::vector<std::string> told;

  void TellSelection(const Game& game) override;
  void TellMove(const Game& game, const MoveEffects& effects) override;
  void TellResignation(const Game& game, int concedeTeam) override;
  void TellGameStarted(Game& game, bool loaded) override;
  void OnGameEvent(const Game& game) override;
};

}  // namespace varkesh
