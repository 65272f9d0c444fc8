// The loop's own screens, the computer's turn, faults survived, and whole
// games played to their end through the passes alone.
#include <regex>
#include <stdexcept>

#include "flow/accept_move.h"
#include "flow/new_game.h"
#include "flow_fixture.h"

namespace varkesh::testing {
namespace {

constexpr Menu kLockedMenus[] = {Menu::Game, Menu::Options, Menu::Resign, Menu::Help};

using MainLoopTest = FlowTest;

TEST_F(MainLoopTest, AComputerTurnLocksTheMenusThenPreviewsAndPlays) {
  PutArmies();
  game.match.setup.playerKinds = {kBalanced, kDefensive, kHuman, kHuman};
  game.net.netRole = kNetHosting;
  BeginTurn(kWhite);
  Pass();
  for (Menu menu : kLockedMenus) EXPECT_FALSE(outside.IsMenuEnabled(menu));
  EXPECT_EQ(SentMessages().at(1), "GUGS}9");
  Pass();
  EXPECT_EQ(view.moves, 2) << "the preview blinks twice";
  EXPECT_EQ(game.match.position.currentTeam, kBlue);
  for (Menu menu : kLockedMenus) EXPECT_TRUE(outside.IsMenuEnabled(menu));

  game.net.netRole = kNetClient;
  game.net.myNodeId = 2;
  Pass();
  EXPECT_EQ(game.turn.gameMode, ModeComputerThinks) << "a client waits for the host's choice";
}

// Blue's King is walled in by its own Pawns in its keep, where a Pawn has no
// move: with nothing to play the computer gives up, to the first enemy.
TEST_F(MainLoopTest, AComputerWithoutAMoveResignsAndTheGameGoesOn) {
  PutArmies();
  Put(2, 6, kNoTeam, kNoPiece);
  Put(2, 10, kNoTeam, kNoPiece);
  for (auto [x, y] : {std::pair{1, 7}, {2, 7}, {0, 8}, {2, 8}, {1, 9}, {2, 9}})
    Put(x, y, kBlue, kPawn);
  game.match.position.castleRight[kBlue - 1] = false;
  game.match.setup.playerKinds[kBlue - 1] = kAggressive;
  game.net.netRole = kNetHosting;
  BeginTurn(kBlue);
  Pass();
  EXPECT_TRUE(outside.messages.empty()) << "no question is asked";
  EXPECT_EQ(At(2, 8).team, kWhite);
  EXPECT_EQ(SentMessages(), std::vector<std::string>{"GRES}1"});
  EXPECT_EQ(game.match.position.currentTeam, kBlack);
  for (Menu menu : kLockedMenus) EXPECT_TRUE(outside.IsMenuEnabled(menu));
}

struct ThrowingView : CountingView {
  void DrawBoardWithPieces(Game&) override { throw std::runtime_error("picture lost"); }
};

TEST_F(MainLoopTest, AFaultInAProcedureIsLoggedUnderItsNameAndTheGameGoesOn) {
  PutArmies();
  BeginTurn(kWhite);
  const Board before = game.match.position.board;
  game.turn.moveFromX = 40;  // a damaged message from another machine
  NetAcceptMove(game, outside);
  EXPECT_EQ(game.match.position.board, before);
  outside.entryPaths["newgamedata"] = folder.File("missing.txt");
  outside.newGameChoices.push_back({true, kAnarchy, kKingdomGained, {}, "Broken"});
  NewGameCommand(game, outside);
  ThrowingView throwing;
  RunPass(game, outside, throwing);

  const std::string block =
      "\r\n-{20}\r\nError Generated at: \\d{4}-(Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec)-"
      "[1-9]\\d? \\d\\d:\\d\\d:\\d\\d \\.\\.\\.\r\nModule = (\\w+)\r\nSub = ([\\w.]+)\r\n"
      "ErrNum = \\d+\r\nErrDesc = [^\r]*\r\n={20}\r\n";
  EXPECT_TRUE(std::regex_match(Log(), std::regex("(" + block + "){3}"))) << Log();
  for (const char* named :
       {"Module = frmMain\r\nSub = NetAcceptMove\r\n", "Sub = mnuGameNew.Click\r\n", "missing.txt",
        "Module = modVarkesh\r\nSub = Main\r\n", "ErrDesc = picture lost\r\n"})
    EXPECT_NE(Log().find(named), std::string::npos) << named;
  EXPECT_EQ(outside.messages.size(), 3u);
  BeginTurn(kWhite);
  Click(8, 14);
  EXPECT_EQ(game.turn.gameMode, ModeChooseDestination) << "the next pass runs as ever";
}

struct Match {
  int gameType, rule, seed;
};

class WholeGameTest : public FlowTest, public ::testing::WithParamInterface<Match> {};

TEST_P(WholeGameTest, ComputersPlayToTheEnd) {
  const Match& match = GetParam();
  outside.SetMenuChecked(Menu::OptionsShowComp, false);
  game.random.Seed(static_cast<std::uint64_t>(match.seed));
  game.turn.gameMode = ModeNoGame;
  outside.newGameChoices.push_back(
      {true, match.gameType, match.rule, {kAggressive, kBalanced, kDefensive, kBalanced}, "Bots"});
  for (int passes = 0; game.turn.gameMode != ModeVictory && passes < 20000; ++passes) Pass();
  ASSERT_EQ(game.turn.gameMode, ModeVictory) << "round " << game.match.position.roundNumber;
  EXPECT_FALSE(ErrorShown());
  ASSERT_NE(game.match.position.winner, kNoTeam);
  EXPECT_FALSE(game.match.position.kingdomFallen[static_cast<std::size_t>(game.match.position.winner - 1)]);
}

INSTANTIATE_TEST_SUITE_P(EachTypeAndRule, WholeGameTest,
                         ::testing::Values(Match{kAlliedNeighbors, kKingdomGained, 1},
                                           Match{kCrossroadAllies, kKingdomLost, 2},
                                           Match{kAnarchy, kKingdomFrozen, 4}));

}  // namespace
}  // namespace varkesh::testing
