// Running the built varkesh-cli as a player runs it, in a fresh folder, on
// games a test lays out.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <string>

#include "core/new_game_data.h"
#include "core/rules_fixture.h"
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
  // Refused: the exit code, exactly this error output, and nothing else.
  void ExpectRefused(const std::string& arguments, int code, const std::string& err) const {
    const CliRun run = Cli(arguments);
    EXPECT_EQ(run.code, code) << arguments;
    EXPECT_EQ(run.err, err) << arguments;
    EXPECT_EQ(run.out, "") << arguments;
  }
  // Run with success, and the game it prints.
  Game Played(const std::string& arguments) const {
    const CliRun run = Cli(arguments);
    EXPECT_EQ(run.code, 0) << arguments << ": " << run.err;
    Game game;
    EXPECT_EQ(ReadGameText(run.out, game.match.position, game.match.setup), std::nullopt)
        << arguments;
    return game;
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
  game.match.position =
      StartPosition(LoadNewGameDataFile(VARKESH_PACK_DIR "/newgamedata.txt"), kAlliedNeighbors);
  return game;
}

// The start of a new game with every piece of White frozen: White has no move.
inline Game WhiteFrozenStart(PerTeam<int> players = {}) {
  Game game = StartGame(players);
  for (Square& square : game.match.position.board.squares)
    if (square.team == kWhite) square.piece = static_cast<std::int8_t>(-square.piece);
  return game;
}

// The real terrain with only the pieces written as the rule tests write
// them ("WP 8,13 -KQ 8,4"), and no castle rights.
inline Game Placed(int gameType, const std::string& pieces) {
  Game game;
  game.match.setup.gameName = "Placed";
  game.match.position = test::Place(gameType, pieces);
  return game;
}

}  // namespace varkesh::testing
