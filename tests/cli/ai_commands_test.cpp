#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <regex>
#include <string>

#include "core/new_game_data.h"
#include "persist/game_text.h"
#include "persist/temp_folder.h"

namespace varkesh {
namespace {

struct CliRun {
  int code = -1;
  std::string out;
  std::string err;
};

class AiCommands : public ::testing::Test {
 protected:
  CliRun Run(const std::string& arguments) const {
    const std::string command = std::string("'") + VARKESH_CLI + "' " + arguments + " >'" +
                                folder_.File("out.txt") + "' 2>'" + folder_.File("err.txt") + "'";
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1,
            testing::FileText(folder_.File("out.txt")), testing::FileText(folder_.File("err.txt"))};
  }

  std::string Write(const Game& game) const {
    const std::string path = folder_.File("game.txt");
    testing::PutFile(path, WriteGameText(game));
    return "'" + path + "'";
  }

  std::string WriteStart(PerTeam<int> players) const {
    Game game;
    game.playerKinds = players;
    LoadNewGameDataFile(game, VARKESH_PACK_DIR "/newgamedata.txt");
    return Write(game);
  }

  // White's King on the tip of its keep behind three of its pawns: no move.
  std::string WriteStuck() const {
    Game game;
    game.playerKinds = {kBalanced, kBalanced, kBalanced, kBalanced};
    game.castleRight = {false, false, false, false};
    LayOutTerrain(game.board);
    for (int x = 7; x <= 9; ++x) game.board.at(x, 15) = {kWhite, kPawn, 0, kKeep, kWhite};
    game.board.at(8, 16) = {kWhite, kKing, 0, kKeep, kWhite};
    game.board.at(8, 0) = {kBlack, kKing, 0, kKeep, kBlack};
    return Write(game);
  }

  testing::TempFolder folder_;
};

TEST_F(AiCommands, ScoresAndAimove) {
  const std::string aggressive = WriteStart({kAggressive, 0, 0, 0});
  const CliRun scores = Run("scores " + aggressive);
  ASSERT_EQ(scores.code, 0) << scores.err;
  // One line a move, numbered from 1: a pawn's double step attacks nothing.
  EXPECT_TRUE(std::regex_search(
      scores.out, std::regex("^1 5 13 5 12 0 0 0 0\n2 5 13 5 11 0 0 0 0\n3 6 13 6 12 ")));
  EXPECT_TRUE(std::regex_match(scores.out, std::regex("(\\d+( -?\\d+){8}\n)+")));
  EXPECT_TRUE(
      std::regex_match(Run("aimove " + aggressive).out, std::regex("\\d+ starting pawn\n")));

  // A human seat needs a personality; the Defensive one keeps to three squares.
  const std::string human = WriteStart({kHuman, 0, 0, 0});
  for (const std::string command : {"scores", "aimove"}) {
    const CliRun refused = Run(command + " " + human);
    EXPECT_EQ(refused.code, 2);
    EXPECT_EQ(refused.err.rfind("usage: varkesh-cli " + command + " FILE [--personality P]", 0), 0u)
        << refused.err;
    EXPECT_EQ(Run(command + " " + human + " --personality 4").code, 2);
    EXPECT_EQ(Run(command + " '" + folder_.File("missing.txt") + "'").code, 1);
  }
  const CliRun defensive = Run("aimove " + human + " --personality 3");
  std::smatch chosen;
  ASSERT_TRUE(std::regex_match(defensive.out, chosen, std::regex("(\\d+) starting pawn\n")))
      << defensive.out;
  const std::regex line("\n" + chosen[1].str() + " (6|8|10) 13 ");
  EXPECT_TRUE(std::regex_search("\n" + Run("scores " + human + " --personality 3").out, line));

  EXPECT_EQ(Run("aimove " + WriteStuck()).out, "0 none\n");
}

TEST_F(AiCommands, ApplyComputer) {
  const std::string file = WriteStart({1, 2, 3, 1});
  const CliRun run = Run("apply --computer " + file + " 8 15 8 16");
  ASSERT_EQ(run.code, 0) << run.err;
  Game after;
  ASSERT_FALSE(ReadGameText(run.out, after).has_value());
  EXPECT_EQ(after.board.at(8, 16).piece, kKing);
  EXPECT_EQ(after.board.at(8, 15).piece, kCastlePawn);
  EXPECT_EQ(after.currentTeam, kBlue);

  EXPECT_EQ(Run("apply --computer " + file + " 8 15 8 14").code, 1);  // onto its own Queen
  EXPECT_EQ(Run("apply --computer " + file + " 8 3 8 4").code, 1);    // Black's pawn
  const CliRun usage = Run("apply --computer " + file + " 8 15");
  EXPECT_EQ(usage.code, 2);
  EXPECT_EQ(usage.err.rfind("usage: varkesh-cli apply --computer FILE FX FY TX TY", 0), 0u);
}

TEST_F(AiCommands, Selfplay) {
  const CliRun run = Run("selfplay --games 2 --seed 5 --max-rounds 3");
  ASSERT_EQ(run.code, 0) << run.err;
  const std::string game =
      "game [12] seed [56] type [123] rule [123] players [123],[123],[123],[123] unfinished winner "
      "none cowinner none rounds 3 moves 12 seconds [0-9.]+\n";
  EXPECT_TRUE(std::regex_match(
      run.out, std::regex(game + game +
                          "summary games 2 won 0 unfinished 2 average-rounds 3.0 "
                          "games-per-second [0-9.]+\n"
                          "wins-by-team White 0 Blue 0 Black 0 Red 0\n"
                          "wins-by-personality Aggressive 0 Balanced 0 Defensive 0\n")))
      << run.out;
  const auto withoutTimes = [](const std::string& text) {
    return std::regex_replace(text, std::regex("seconds? [0-9.]+"), "");
  };
  EXPECT_EQ(withoutTimes(Run("selfplay --games 2 --seed 5 --max-rounds 3").out),
            withoutTimes(run.out));
  EXPECT_EQ(Run("selfplay --games 1 --seed 6 --max-rounds 1 --type 3 --rule 2 --players 3,3,1,2")
                .out.rfind("game 1 seed 6 type 3 rule 2 players 3,3,1,2 unfinished", 0),
            0u);

  for (const char* arguments : {"--players 0,1,2,3", "--players 1,2,3", "--games 0", "--type 4",
                                "--max-rounds 0", "--seed x", "extra"}) {
    const CliRun refused = Run(std::string("selfplay ") + arguments);
    EXPECT_EQ(refused.code, 2) << arguments;
    EXPECT_EQ(refused.err.rfind("usage: varkesh-cli selfplay", 0), 0u) << refused.err;
  }
}

}  // namespace
}  // namespace varkesh
