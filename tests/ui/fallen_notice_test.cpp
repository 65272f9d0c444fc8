// A local human whose kingdom falls is told so on the board, and once no
// local human is left the computers' moves are previewed to the end.
#include <QLabel>

#include "ui_test_support.h"

namespace varkesh {
namespace {

using test::RunningProgram;

TEST(FallenKingdom, IsToldAndTheLastHumanFallingTurnsOnThePreview) {
  RunningProgram run;
  ASSERT_TRUE(run.Started());
  ASSERT_TRUE(run.StartFromTitle());
  MainWindow& window = run.window();
  window.SetMenuChecked(Menu::OptionsShowComp, false);
  Game& game = run.game();
  QLabel& notice = window.view().NoticeLabel();
  EXPECT_TRUE(notice.isHidden());

  game.match.position.kingdomFallen = {false, false, true, false};
  ASSERT_TRUE(run.WaitFor([&] { return !notice.isHidden(); }, 3000));
  EXPECT_EQ(notice.text(), "The kingdom of Black has fallen.");
  EXPECT_FALSE(window.IsMenuChecked(Menu::OptionsShowComp)) << "three humans play on";

  game.match.position.kingdomFallen = {true, true, true, true};
  ASSERT_TRUE(run.WaitFor([&] { return window.IsMenuChecked(Menu::OptionsShowComp); }, 3000));
  game.turn.gameMode = ModeTitle;  // the game is over: the player's choice comes back
  ASSERT_TRUE(run.WaitFor([&] { return !window.IsMenuChecked(Menu::OptionsShowComp); }, 3000));
}

}  // namespace
}  // namespace varkesh
