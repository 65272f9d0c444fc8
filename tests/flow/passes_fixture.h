// A game run through the main loop's passes with the scripted outside, and
// clicks on the board as the window would pass them on.
#pragma once

#include <gtest/gtest.h>

#include "flow/game_view.h"
#include "flow/main_loop.h"
#include "persist/temp_folder.h"
#include "support/scripted_outside.h"

namespace varkesh::testing {

class PassesTest : public ::testing::Test {
 protected:
  TempFolder folder;  // the program folder, for the logs a test makes
  Game game;
  ScriptedOutside outside;
  GameView view;

  PassesTest() {
    outside.engine.appPath = folder.Slashed();
    game.random = Random::Zero();
    outside.clock = 100.0;
    outside.entryPaths["newgamedata"] = VARKESH_PACK_DIR "/newgamedata.txt";
  }

  void Pass() { RunPass(game, outside, view); }
  void Click(int x, int y, bool left = true) {
    game.view.clickPending = true;
    game.view.clickX = x;
    game.view.clickY = y;
    game.view.clickLeft = left;
    game.view.clickRight = !left;
    Pass();
  }
  // Left click on the piece, left click on the destination, right click there.
  void PlayMove(int fromX, int fromY, int toX, int toY) {
    Click(fromX, fromY);
    Click(toX, toY);
    Click(toX, toY, false);
  }
};

}  // namespace varkesh::testing
