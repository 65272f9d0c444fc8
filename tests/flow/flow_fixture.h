// A game on a bare board with the scripted outside, driven by clicks through
// the main loop's passes as the window would drive it.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/fate.h"
#include "core/new_game_data.h"
#include "core/rules.h"
#include "core/turn.h"
#include "flow/main_loop.h"
#include "flow/scripted_outside.h"
#include "persist/temp_folder.h"

namespace varkesh::testing {

// Counts what the loop asked to draw.
struct CountingView : GameView {
  int hints = 0;
  int moves = 0;
  int victories = 0;
  std::vector<std::pair<int, int>> flagFrames;
  void DrawHint(Game&, Hint) override { ++hints; }
  void DrawMove(Game&, int, int, int, int, bool) override { ++moves; }
  void DrawVictory(const Game&) override { ++victories; }
  void DrawVictoryFlags(const Game&, int winner, int coWinner) override {
    flagFrames.emplace_back(winner, coWinner);
  }
};

inline std::string Fields(std::initializer_list<int> values) {
  std::string text;
  for (int value : values) {
    if (!text.empty()) text += kFieldSeparator;
    text += std::to_string(value);
  }
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
    LayOutTerrain(game.board);
    game.gameType = kAnarchy;
    game.gameName = "Test";
    game.random = Random::Zero();
    outside.clock = 100.0;
    outside.entryPaths["newgamedata"] = VARKESH_PACK_DIR "/newgamedata.txt";
  }

  Square& At(int x, int y) { return game.board.at(x, y); }

  void Put(int x, int y, int team, int piece) {
    At(x, y).team = team;
    At(x, y).piece = piece;
  }

  // Four Kings, each with enough material to stay clear of lack of material.
  void PutArmies() {
    Put(8, 15, kWhite, kKing);
    Put(6, 14, kWhite, kRook);
    Put(10, 14, kWhite, kRook);
    Put(8, 14, kWhite, kQueen);
    Put(1, 8, kBlue, kKing);
    Put(2, 6, kBlue, kRook);
    Put(2, 10, kBlue, kRook);
    Put(2, 8, kBlue, kQueen);
    Put(8, 1, kBlack, kKing);
    Put(6, 2, kBlack, kRook);
    Put(10, 2, kBlack, kRook);
    Put(8, 2, kBlack, kQueen);
    Put(15, 8, kRed, kKing);
    Put(14, 6, kRed, kRook);
    Put(14, 10, kRed, kRook);
    Put(14, 8, kRed, kQueen);
  }

  // The start of team's turn, as the previous move would leave it.
  void BeginTurn(int team) {
    game.currentTeam = team;
    ClearMarks(game);
    ClearMoveablePieces(game);
    StartTurn(game, outside);
  }

  void Pass() { RunPass(game, outside, view); }

  void Click(int x, int y, bool left = true) {
    game.clickPending = true;
    game.clickX = x;
    game.clickY = y;
    game.clickLeft = left;
    game.clickRight = !left;
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

  bool ErrorShown() const {
    for (const ScriptedOutside::Message& message : outside.messages)
      if (message.title == "Varkesh Error") return true;
    return false;
  }
};

}  // namespace varkesh::testing
