// The loop's own screens and the computer's turn, and whole games played to
// their end through the passes alone.
#include "flow_fixture.h"

namespace varkesh::testing {
namespace {

constexpr Menu kLockedMenus[] = {Menu::Game, Menu::Options, Menu::Resign, Menu::Help};

class MainLoopTest : public FlowTest {
 protected:
  // A Blue computer whose King is walled in by its own Pawns, in its keep
  // where a Pawn has no move: Blue has nothing to play.
  void WallInBlue(int rule) {
    PutArmies();
    game.kingCaptureRule = rule;
    Put(2, 6, kNoTeam, kNoPiece);
    Put(2, 10, kNoTeam, kNoPiece);
    for (auto [x, y] : {std::pair{1, 7}, {2, 7}, {0, 8}, {2, 8}, {1, 9}, {2, 9}})
      Put(x, y, kBlue, kPawn);
    game.castleRight[kBlue - 1] = false;
    game.playerKinds[kBlue - 1] = kAggressive;
    BeginTurn(kBlue);
  }
};

TEST_F(MainLoopTest, TheTitleScreenReturnsToTheModeItInterrupted) {
  game.gameMode = ModeTitle;
  game.modeAfterTitle = ModeChooseDestination;
  Click(4, 4);  // the first pass loads the picture and ignores the click
  EXPECT_TRUE(game.titleLoaded);
  EXPECT_EQ(game.gameMode, ModeTitle);
  game.boardChanged = false;
  Pass();
  EXPECT_EQ(game.gameMode, ModeChooseDestination);
  EXPECT_FALSE(game.titleLoaded);
  EXPECT_TRUE(game.boardChanged);
}

TEST_F(MainLoopTest, WithoutAGameTheDialogIsOfferedOnceThenOnAClick) {
  game.gameMode = ModeNoGame;
  Pass();
  Pass();
  EXPECT_EQ(outside.newGameDialogs.size(), 1u);
  Click(8, 8);
  Pass();
  EXPECT_EQ(outside.newGameDialogs.size(), 2u);

  game.netRole = kNetClient;
  Click(8, 8);
  Pass();
  EXPECT_EQ(outside.newGameDialogs.size(), 2u) << "a client waits for the host's game";

  game.gameMode = ModeGameOver;
  Click(8, 8);
  EXPECT_FALSE(game.clickPending);
  EXPECT_EQ(game.gameMode, ModeGameOver);
}

TEST_F(MainLoopTest, AComputerTurnLocksTheMenusThenPreviewsAndPlays) {
  PutArmies();
  game.playerKinds = {kBalanced, kHuman, kHuman, kHuman};
  game.netRole = kNetHosting;
  BeginTurn(kWhite);
  ASSERT_EQ(game.gameMode, ModeComputerThinks);
  Pass();
  EXPECT_EQ(game.gameMode, ModeComputerMoves);
  for (Menu menu : kLockedMenus) EXPECT_FALSE(outside.IsMenuEnabled(menu));
  std::vector<std::string> sent = SentMessages();
  ASSERT_EQ(sent.size(), 2u);
  EXPECT_EQ(sent[0],
            "GUPM}" + Fields({game.moveFromX, game.moveFromY, game.moveToX, game.moveToY}));
  EXPECT_EQ(sent[1], "GUGS}9");
  EXPECT_NE(outside.pieceLabel, "");

  double before = outside.clock;
  Pass();
  EXPECT_GT(outside.clock - before, 1.6) << "the preview blinks twice";
  EXPECT_EQ(view.moves, 2);
  EXPECT_EQ(game.currentTeam, kBlue);
  EXPECT_EQ(game.gameMode, ModeChoosePiece);
  for (Menu menu : kLockedMenus) EXPECT_TRUE(outside.IsMenuEnabled(menu));

  outside.SetMenuChecked(Menu::OptionsShowComp, false);
  game.playerKinds[kBlue - 1] = kDefensive;
  BeginTurn(kBlue);
  Pass();
  Pass();
  EXPECT_EQ(view.moves, 2) << "without the preview the move is played at once";
  EXPECT_EQ(game.currentTeam, kBlack);
}

TEST_F(MainLoopTest, AClientWaitsForTheHostsChoice) {
  PutArmies();
  game.playerKinds = {kBalanced, kHuman, kHuman, kHuman};
  game.netRole = kNetClient;
  game.myNodeId = 2;
  BeginTurn(kWhite);
  Pass();
  EXPECT_EQ(game.gameMode, ModeComputerThinks);
  EXPECT_TRUE(outside.IsMenuEnabled(Menu::Game));
}

TEST_F(MainLoopTest, AComputerWithoutAMoveConcedesToTheFirstEnemy) {
  WallInBlue(kKingdomGained);
  game.netRole = kNetHosting;
  Pass();
  EXPECT_TRUE(game.kingdomFallen[kBlue - 1]);
  EXPECT_EQ(At(2, 8).team, kWhite);
  EXPECT_EQ(game.currentTeam, kBlack);
  EXPECT_EQ(SentMessages(), std::vector<std::string>{"GRES}1"});
  for (Menu menu : kLockedMenus) EXPECT_TRUE(outside.IsMenuEnabled(menu));
}

TEST_F(MainLoopTest, AComputerWithoutAMoveLosesItsKingdom) {
  WallInBlue(kKingdomLost);
  Pass();
  EXPECT_TRUE(game.kingdomFallen[kBlue - 1]);
  EXPECT_EQ(At(2, 8).piece, kNoPiece);
  EXPECT_TRUE(outside.sent.empty());
  EXPECT_EQ(game.currentTeam, kBlack);
}

struct Match {
  int gameType;
  int rule;
  std::uint64_t seed;
};

void PrintTo(const Match& match, std::ostream* out) {
  *out << "type " << match.gameType << ", rule " << match.rule << ", seed " << match.seed;
}

class WholeGameTest : public FlowTest, public ::testing::WithParamInterface<Match> {};

TEST_P(WholeGameTest, ComputersPlayToTheEnd) {
  const Match& match = GetParam();
  outside.SetMenuChecked(Menu::OptionsShowComp, false);
  game.random.Seed(match.seed);
  game.gameMode = ModeNoGame;
  outside.newGameChoices.push_back({true,
                                    match.gameType,
                                    match.rule,
                                    {kAggressive, kBalanced, kDefensive, kBalanced},
                                    "Robots"});
  int passes = 0;
  while (game.gameMode != ModeVictory && passes < 20000) {
    Pass();
    ++passes;
  }
  ASSERT_EQ(game.gameMode, ModeVictory)
      << "after " << passes << " passes, round " << game.roundNumber << ", fallen "
      << game.kingdomFallen[0] << game.kingdomFallen[1] << game.kingdomFallen[2]
      << game.kingdomFallen[3];
  EXPECT_FALSE(ErrorShown());
  EXPECT_NE(game.winner, kNoTeam);
  EXPECT_FALSE(game.kingdomFallen[static_cast<std::size_t>(game.winner - 1)]);
}

INSTANTIATE_TEST_SUITE_P(SomeTypesAndRules, WholeGameTest,
                         ::testing::Values(Match{kAlliedNeighbors, kKingdomGained, 1},
                                           Match{kCrossroadAllies, kKingdomLost, 2},
                                           Match{kAnarchy, kKingdomGained, 3},
                                           Match{kAnarchy, kKingdomLost, 3},
                                           Match{kAnarchy, kKingdomFrozen, 4}));

}  // namespace
}  // namespace varkesh::testing
