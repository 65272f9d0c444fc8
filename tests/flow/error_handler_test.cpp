// Unexpected faults: logged in the program folder, told to the player, and
// survived.
#include "flow/error_handler.h"

#include <regex>
#include <stdexcept>

#include "flow/new_game.h"
#include "flow_fixture.h"

namespace varkesh::testing {
namespace {

class ErrorHandlerTest : public FlowTest {
 protected:
  std::string Log() { return FileText(folder.File("error_main.log")); }
};

struct ThrowingView : CountingView {
  int draws = 0;
  void DrawBoardWithPieces(Game&) override {
    if (++draws == 1) throw std::runtime_error("picture lost");
  }
};

TEST_F(ErrorHandlerTest, TheBlockIsAppendedAndThePlayerTold) {
  ReportError(outside, "frmMain", "AcceptMove", 1, "first");
  ReportError(outside, "modVarkesh", "Main", 7, "second");
  std::regex block(
      "\r\n--------------------\r\n"
      "Error Generated at: \\d{4}-(Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec)-"
      "[1-9]\\d? \\d\\d:\\d\\d:\\d\\d \\.\\.\\.\r\n"
      "Module = frmMain\r\nSub = AcceptMove\r\nErrNum = 1\r\nErrDesc = first\r\n"
      "====================\r\n"
      "\r\n--------------------\r\n"
      "Error Generated at: [^\r]+\r\n"
      "Module = modVarkesh\r\nSub = Main\r\nErrNum = 7\r\nErrDesc = second\r\n"
      "====================\r\n");
  EXPECT_TRUE(std::regex_match(Log(), block)) << Log();
  ASSERT_EQ(outside.messages.size(), 2u);
  EXPECT_EQ(outside.messages[0].title, "Varkesh Error");
  EXPECT_EQ(outside.messages[0].text,
            "An error has been detected with the game application.\n"
            "Details are being written to a log file: 'error_main.log'");
}

TEST_F(ErrorHandlerTest, AFaultInTheNewGameCommandIsReportedUnderItsName) {
  outside.entryPaths["newgamedata"] = folder.File("missing.txt");
  outside.newGameChoices.push_back({true, kAnarchy, kKingdomGained, {}, "Broken"});
  NewGameCommand(game, outside);
  EXPECT_TRUE(ErrorShown());
  EXPECT_NE(Log().find("Module = frmMain\r\nSub = mnuGameNew.Click\r\n"), std::string::npos);
  EXPECT_NE(Log().find("missing.txt"), std::string::npos);
}

TEST_F(ErrorHandlerTest, AFaultInAPassLeavesTheLoopRunning) {
  PutArmies();
  BeginTurn(kWhite);
  ThrowingView throwing;
  RunPass(game, outside, throwing);
  EXPECT_TRUE(ErrorShown());
  EXPECT_NE(Log().find("Module = modVarkesh\r\nSub = Main\r\n"), std::string::npos);
  EXPECT_NE(Log().find("ErrDesc = picture lost\r\n"), std::string::npos);

  game.clickPending = true;
  game.clickLeft = true;
  game.clickX = 8;
  game.clickY = 14;
  RunPass(game, outside, throwing);
  EXPECT_EQ(game.gameMode, ModeChooseDestination);
}

}  // namespace
}  // namespace varkesh::testing
