// Running the built varkesh-cli as a player runs it, in a fresh folder, on
// games a test lays out.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <sstream>
#include <string>

#include "core/new_game_data.h"
#include "flow/game.h"
#include "persist/game_text.h"
#include "persist/temp_folder.h"

namespace varkesh::testing {

struct CliRun {
  int code = -1;
  std::string out, err;
};

class CliTest : public ::testing::Test {
 protected:
  // Runs in the test's folder, so that files are named as a player names them.
  CliRun Cli(const std::string& arguments) const {
    const std::string command = "cd '" + folder_.Slashed() + "' && '" + VARKESH_CLI + "' " +
                                arguments + " >out.txt 2>err.txt";
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, FileText(Path("out.txt")),
            FileText(Path("err.txt"))};
  }
  std::string Path(const std::string& name) const { return folder_.File(name); }
  void Put(const std::string& name, const Game& game) const {
    PutFile(Path(name), WriteGameText(game.match.position, game.match.setup));
  }

  TempFolder folder_;
};

// The start of a new game, with these players.
inline Game StartGame(PerTeam<int> players = {}) {
  Game game;
  game.match.setup.gameName = "Start";
  game.match.setup.playerKinds = players;
  game.match.position.board = LoadNewGameDataFile(VARKESH_PACK_DIR "/newgamedata.txt");
  game.match.position.Refresh();
  return game;
}

// The real terrain with only the pieces written "WP 8,13 -KQ 8,4": team
// letter W, B, K (Black) or R, kind letter P, C, B, R, N, Q or K, '-' before
// a frozen piece. No castle rights unless a test grants them.
inline Game Placed(int gameType, const std::string& pieces) {
  Game game;
  game.match.setup.gameName = "Placed";
  Position& position = game.match.position;
  position.gameType = gameType;
  position.castleRight = {false, false, false, false};
  LayOutTerrain(position.board);
  std::istringstream in(pieces);
  std::string code;
  int x = 0, y = 0;
  char comma = 0;
  while (in >> code >> x >> comma >> y) {
    const bool frozen = code[0] == '-';
    const auto team = std::string("WBKR").find(code[frozen]);
    const auto kind = std::string("PCBRNQK").find(code[frozen + 1]);
    if (team == std::string::npos || kind == std::string::npos || !Board::InBounds(x, y)) {
      ADD_FAILURE() << "no piece " << code << " " << x << "," << y;
      continue;
    }
    Square& square = position.board.at(x, y);
    square.team = static_cast<std::int8_t>(team + 1);
    square.piece = static_cast<std::int8_t>(frozen ? -(kind + 1) : kind + 1);
  }
  position.Refresh();
  return game;
}

}  // namespace varkesh::testing
