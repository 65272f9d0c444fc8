// The loop's own screens, the computer's turn and faults survived.
#include <algorithm>
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
  ASSERT_EQ(outside.told.size(), 1u);
  EXPECT_TRUE(outside.told[0].ends_with(" mode 9")) << outside.told[0];
  Pass();
  EXPECT_EQ(view.moves, 2) << "the preview blinks twice";
  EXPECT_EQ(Pos().currentTeam, kBlue);
  EXPECT_EQ(game.match.record.events.size(), 1u);
  for (Menu menu : kLockedMenus) EXPECT_TRUE(outside.IsMenuEnabled(menu));

  game.net.netRole = kNetClient;
  game.net.myNodeId = 2;
  Pass();
  EXPECT_EQ(game.turn.gameMode, ModeComputerThinks) << "a client waits for the host's choice";
  EXPECT_EQ(Pos().currentTeam, kBlue);
}

// Blue's King is walled in by its own Pawns in its keep, where a Pawn has no
// move: with nothing to play the computer gives up, to the first enemy.
TEST_F(MainLoopTest, AComputerWithoutAMoveResignsAndTheGameGoesOn) {
  PutArmies();
  Put(2, 6, kNoTeam, kNoPiece);
  Put(2, 10, kNoTeam, kNoPiece);
  for (auto [x, y] : {std::pair{1, 7}, {2, 7}, {0, 8}, {2, 8}, {1, 9}, {2, 9}})
    Put(x, y, kBlue, kPawn);
  Pos().castleRight[kBlue - 1] = false;
  game.match.setup.playerKinds[kBlue - 1] = kAggressive;
  game.net.netRole = kNetHosting;
  BeginTurn(kBlue);
  Pass();
  EXPECT_TRUE(outside.boxes.empty()) << "no question is asked";
  EXPECT_EQ(At(2, 8).team, kWhite);
  EXPECT_NE(std::find(outside.told.begin(), outside.told.end(), "resign 1"), outside.told.end());
  EXPECT_EQ(game.match.record.events, std::vector<RecordEvent>{RecordEvent::Resignation(kWhite)});
  EXPECT_EQ(Pos().currentTeam, kBlack);
  for (Menu menu : kLockedMenus) EXPECT_TRUE(outside.IsMenuEnabled(menu));
}

struct ThrowingView : CountingView {
  void DrawBoardWithPieces(Game&) override { throw std::runtime_error("picture lost"); }
};

TEST_F(MainLoopTest, AFaultInAProcedureIsLoggedUnderItsNameAndTheGameGoesOn) {
  PutArmies();
  BeginTurn(kWhite);
  const Position before = Pos();
  game.turn.moveFromX = 40;  // a damaged message from another machine
  NetAcceptMove(game, outside, kOptionNone);
  EXPECT_EQ(Pos(), before);
  EXPECT_TRUE(game.match.record.events.empty());
  outside.entryPaths["newgamedata"] = folder.File("missing.txt");
  outside.newGameChoices.push_back({true, kAnarchy, kKingdomGained, {}, "Broken"});
  NewGameCommand(game, outside);
  ThrowingView throwing;
  RunPass(game, outside, throwing);

  const std::string block =
      "\r\n-{20}\r\nError Generated at: \\d{4}-(Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec)-"
      "[1-9]\\d? \\d\\d:\\d\\d:\\d\\d \\.\\.\\.\r\nModule = (\\w+)\r\nSub = ([\\w.]+)\r\n"
      "ErrNum = \\d+\r\nErrDesc = [^\r]*\r\n={20}\r\n";
  EXPECT_TRUE(std::regex_match(Log(), std::regex("(" + block + "){2}"))) << Log();
  for (const char* named : {"Module = frmMain\r\nSub = mnuGameNew.Click\r\n", "missing.txt",
                            "Module = modVarkesh\r\nSub = Main\r\n", "ErrDesc = picture lost\r\n"})
    EXPECT_NE(Log().find(named), std::string::npos) << named;
  EXPECT_EQ(outside.boxes.size(), 2u);
  BeginTurn(kWhite);
  Click(8, 14);
  EXPECT_EQ(game.turn.gameMode, ModeChooseDestination) << "the next pass runs as ever";
}

}  // namespace
}  // namespace varkesh::testing
