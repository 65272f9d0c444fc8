// A game on a bare board with the scripted outside, driven by clicks through
// the main loop's passes as the window would drive it.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "core/fate.h"
#include "core/new_game_data.h"
#include "core/rules.h"
#include "core/turn.h"
#include "flow/main_loop.h"
#include "support/scripted_outside.h"
#include "persist/temp_folder.h"

namespace varkesh::testing {

// Counts what the loop asked to draw.
struct CountingView : GameView {
  int moves = 0;
  std::vector<int> coWinnerFrames;
  void DrawMove(Game&, int, int, int, int, bool) override { ++moves; }
  void DrawVictoryFlags(const Game&, int, int coWinner) override {
    coWinnerFrames.push_back(coWinner);
  }
};

// The fields of a message after its verb, as they go over the wire.
inline std::string Fields(std::initializer_list<int> values) {
  std::string text;
  for (int value : values)
    text += (text.empty() ? "" : std::string(1, kFieldSeparator)) + std::to_string(value);
  return text;
}

class FlowTest : public ::testing::Test {
 protected:
  TempFolder folder;  // the program folder, for the logs a test makes
  Game game;
  ScriptedOutside outside;
  CountingView view;

  FlowTest() {
    outside.engine.appPath = folder.Slashed();
    LayOutTerrain(game.match.position.board);
    game.match.position.gameType = kAnarchy;
    game.random = Random::Zero();
    outside.clock = 100.0;
    outside.entryPaths["newgamedata"] = VARKESH_PACK_DIR "/newgamedata.txt";
  }

  Square& At(int x, int y) { return game.match.position.board.at(x, y); }
  void Put(int x, int y, int team, int piece) {
    At(x, y).team = team;
    At(x, y).piece = piece;
  }

  // Each King on its edge with a Queen in front and a Rook two squares to
  // either side of her: material 6, clear of lack of material.
  void PutArmies() {
    for (auto [team, x, y, dx, dy] : {std::array{kWhite, 8, 15, 0, -1},
                                      {kBlue, 1, 8, 1, 0},
                                      {kBlack, 8, 1, 0, 1},
                                      {kRed, 15, 8, -1, 0}}) {
      Put(x, y, team, kKing);
      Put(x + dx, y + dy, team, kQueen);
      Put(x + dx + 2 * dy, y + dy + 2 * dx, team, kRook);
      Put(x + dx - 2 * dy, y + dy - 2 * dx, team, kRook);
    }
  }

  // The start of team's turn, as the previous move would leave it.
  void BeginTurn(int team) {
    game.match.position.currentTeam = team;
    ClearMarks(game);
    ClearMoveablePieces(game);
    StartTurn(game, outside);
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

  std::vector<std::string> SentMessages() const {
    std::vector<std::string> texts;
    for (const ScriptedOutside::Sent& message : outside.sent) texts.push_back(message.message);
    return texts;
  }
  std::string Log() const { return FileText(folder.File("error_main.log")); }
  bool ErrorShown() const {
    for (const ScriptedOutside::Message& message : outside.messages)
      if (message.title == "Varkesh Error") return true;
    return false;
  }
};

}  // namespace varkesh::testing
