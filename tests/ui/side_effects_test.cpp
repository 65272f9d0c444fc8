// A sound or picture that cannot be had, as when the temporary folder is
// removed under the running game, never leaves a move or the title halfway.
#include <QAction>
#include <filesystem>
#include <fstream>

#include "persist/temp_folder.h"
#include "ui_test_support.h"

namespace varkesh {
namespace {

using test::RunningProgram;

TEST(FailedSideEffects, AMoveWithoutItsSoundAndATitleWithoutItsPictureStillComplete) {
  RunningProgram run;
  ASSERT_TRUE(run.Started());
  Game& game = run.game();
  ASSERT_TRUE(run.StartFromTitle());
  // The pack's files can no longer be written: a file stands where the folder was.
  std::filesystem::remove_all(run.folder() + "temp");
  std::ofstream(run.folder() + "temp") << "in the way";

  int boxes = 0;
  const auto countBoxes = test::WhenModalOpens(
      [&boxes](QWidget& box) {
        ++boxes;
        box.close();
      },
      false);
  ASSERT_TRUE(run.window().IsMenuChecked(Menu::OptionsSfx));
  const BoardSquare from = game.view.moveablePieces[1];
  ASSERT_TRUE(run.PlayByClicks(from));
  EXPECT_TRUE(run.WaitFor(ModeChoosePiece, kBlue)) << "the turn passed without the sound";
  EXPECT_EQ(game.match.position.board.at(from.x, from.y).piece, kNoPiece);

  run.window().findChild<QAction*>("mnuHelpAbout")->trigger();
  ASSERT_TRUE(run.WaitFor([&game] { return game.turn.titleLoaded; }));
  QTest::qWait(100);  // some passes of the title without its picture
  run.ClickSquare(8, 8);
  EXPECT_TRUE(run.WaitFor(ModeChoosePiece, kBlue)) << "the click leaves the title";
  EXPECT_EQ(boxes, 0);
  const std::string log = testing::FileText(run.folder() + "error_main.log");
  EXPECT_EQ(testing::Occurrences(log, "Sub = LoadTitle\r\n"), 1) << log;
}

}  // namespace
}  // namespace varkesh
