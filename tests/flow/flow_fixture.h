// A game on a bare board with the scripted outside, driven by clicks through
// the main loop's passes as the window would drive it.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "core/new_game_data.h"
#include "flow/main_loop.h"
#include "flow/turn.h"
#include "persist/temp_folder.h"
#include "support/scripted_outside.h"

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

// Matches are alike when they stand alike, are played alike and came alike.
inline ::testing::AssertionResult SameMatch(const Match& a, const Match& b) {
  if (!(a.setup == b.setup)) return ::testing::AssertionFailure() << "the setups differ";
  if (!(a.position == b.position)) return ::testing::AssertionFailure() << "the positions differ";
  if (!(a.record == b.record)) return ::testing::AssertionFailure() << "the records differ";
  return ::testing::AssertionSuccess();
}

class FlowTest : public ::testing::Test {
 protected:
  TempFolder folder;  // the program folder, for the logs a test makes
  Game game;
  ScriptedOutside outside;
  CountingView view;

  FlowTest() {
    outside.engine.appPath = folder.Slashed();
    LayOutTerrain(TheBoard());
    Pos().gameType = kAnarchy;
    game.random = Random::Zero();
    outside.clock = 100.0;
    outside.entryPaths["newgamedata"] = VARKESH_PACK_DIR "/newgamedata.txt";
  }

  Position& Pos() { return game.match.position; }
  Board& TheBoard() { return game.match.position.board; }
  const Square& At(int x, int y) { return TheBoard().at(x, y); }
  int Mark(int x, int y) const { return game.view.MarkAt(x, y); }
  // Edits the board behind the rules' back, so the pieces are counted anew.
  void Put(int x, int y, int team, int piece) {
    TheBoard().at(x, y).team = static_cast<std::int8_t>(team);
    TheBoard().at(x, y).piece = static_cast<std::int8_t>(piece);
    Pos().Refresh();
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

  // The start of team's turn, as the previous move would leave it; the
  // record begins here.
  void BeginTurn(int team) {
    Pos().currentTeam = team;
    game.match.BeginRecord();
    ClearMarks(game);
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

  std::string Log() const { return FileText(folder.File("error_main.log")); }
};

}  // namespace varkesh::testing
