// Take Back Move, Redo, the move list and record files in the real window,
// by keys and clicks, in a game of one human against three computers. Under
// VARKESH_SCREENSHOTS the test also takes the pictures of the documentation.
#include <QAction>
#include <QComboBox>
#include <QTableWidget>

#include "core/rules.h"
#include "ui/move_list.h"
#include "ui/record_commands.h"
#include "ui_controls.h"
#include "ui_test_support.h"

namespace varkesh {
namespace {

using test::RunningProgram;

// White human; Blue, Black and Red computers; from the title.
void StartAgainstComputers(RunningProgram& run) {
  ASSERT_TRUE(run.WaitFor([&run] { return run.game().turn.titleLoaded; }));
  ASSERT_TRUE(run.StartFromTitle([](QWidget& dialog) {
    dialog.findChild<QComboBox*>("cmbPlayer1")->setCurrentIndex(kAggressive);
    dialog.findChild<QComboBox*>("cmbPlayer2")->setCurrentIndex(kBalanced);
    dialog.findChild<QComboBox*>("cmbPlayer3")->setCurrentIndex(kDefensive);
  }));
}

// White's first listed move by the mouse, then the computers until White's turn.
void PlayRound(RunningProgram& run) {
  MoveList moves;
  ListMoves(run.game().match.position, moves);
  ASSERT_FALSE(moves.Empty());
  const Move move = moves[moves.Count() / 2];
  ASSERT_TRUE(run.PlayByClicks({move.fromX, move.fromY}, BoardSquare{move.toX, move.toY}));
  ASSERT_TRUE(run.WaitFor([&run] { return run.game().match.position.currentTeam != kWhite; }));
  ASSERT_TRUE(run.WaitFor(ModeChoosePiece, kWhite));
}

// Which positions a takeback and a redo reach is the game logic's own
// business; here, the move list, the keys and the enabled entries.
TEST(Takeback, TheMoveListStepsThroughTheGameAndKeysTakeBackAndRedo) {
  RunningProgram run;
  ASSERT_TRUE(run.Started());
  StartAgainstComputers(run);
  Game& game = run.game();
  RecordCommands& commands = run.window().recordCommands();
  commands.Refresh();
  EXPECT_FALSE(commands.TakeBackAction().isEnabled()) << "nothing to take back";

  std::vector<Position> whitesTurns{game.match.position};
  for (int round = 0; round < 2; ++round) {
    PlayRound(run);
    whitesTurns.push_back(game.match.position);
  }
  MoveListView& list = run.window().moveList();
  list.Follow();
  ASSERT_EQ(list.rowCount(), 2) << "rounds 1 and 2";
  EXPECT_EQ(list.item(0, kWhite)->text().left(1), "P");

  // A click on Blue's first move shows the position after it.
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                    list.visualItemRect(list.item(0, kBlue)).center());
  ASSERT_TRUE(list.Browsing());
  EXPECT_EQ(list.BrowsedPlies(), 2);
  test::Shoot(run.window(), "replay");
  QTest::keyClick(&list, Qt::Key_Left);
  EXPECT_EQ(list.BrowsedPlies(), 1);
  QTest::keyClick(&list, Qt::Key_Home);
  EXPECT_EQ(list.BrowsedPlies(), 0);
  QTest::keyClick(&list, Qt::Key_Right);
  EXPECT_EQ(list.BrowsedPlies(), 1);
  QTest::qWait(100);  // passes would run here if the game did not wait
  EXPECT_EQ(game.match.position, whitesTurns[2]);
  EXPECT_EQ(game.turn.gameMode, ModeChoosePiece);
  QTest::keyClick(&list, Qt::Key_End);
  EXPECT_FALSE(list.Browsing());

  // A click on the board returns to the game, and selects nothing.
  QTest::keyClick(&list, Qt::Key_Left);
  ASSERT_TRUE(list.Browsing());
  run.ClickSquare(8, 14);
  EXPECT_FALSE(list.Browsing());
  QTest::qWait(100);
  EXPECT_EQ(game.turn.gameMode, ModeChoosePiece);

  commands.Refresh();
  ASSERT_TRUE(commands.TakeBackAction().isEnabled());
  EXPECT_FALSE(commands.RedoAction().isEnabled());
  test::Shoot(run.window(), "move-list");
  run.PressShortcut(Qt::Key_Z);
  EXPECT_EQ(game.match.position, whitesTurns[1]);
  EXPECT_EQ(game.turn.gameMode, ModeChoosePiece);
  test::Shoot(run.window(), "takeback");
  commands.Refresh();
  EXPECT_TRUE(commands.RedoAction().isEnabled());
  run.PressShortcut(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(game.match.position, whitesTurns[2]);
  commands.Refresh();
  EXPECT_FALSE(commands.RedoAction().isEnabled());
  for (int step = 0; step < 2; ++step) run.PressShortcut(Qt::Key_Z);
  EXPECT_EQ(game.match.position, whitesTurns[0]);
  commands.Refresh();
  EXPECT_FALSE(commands.TakeBackAction().isEnabled());

  // Hidden from the Options menu, the window gives its width back.
  const int width = run.window().width();
  commands.ShowListAction().trigger();
  EXPECT_TRUE(list.isHidden());
  EXPECT_EQ(run.window().width(), width - MoveListView::kWidth);
}

// The same start and moves. The computer's rule for a pawn option is kept
// only where an option was due, so the options themselves may read otherwise.
bool SameCourse(const Record& a, const Record& b) {
  if (!(a.start == b.start) || a.events.size() != b.events.size()) return false;
  for (std::size_t i = 0; i < a.events.size(); ++i)
    if (a.events[i].kind != b.events[i].kind || !a.events[i].move.SameSquares(b.events[i].move))
      return false;
  return true;
}

TEST(RecordFiles, ExportedAndImportedTheGameComesBackWhole) {
  RunningProgram run;
  ASSERT_TRUE(run.Started());
  StartAgainstComputers(run);
  PlayRound(run);
  Game& game = run.game();
  const Match played = game.match;
  const std::string path = run.folder() + "game.vrec";
  const std::string broken = run.folder() + "broken.vrec";
  run.documents().answers = {path, broken, path};
  run.window().findChild<QAction*>("mnuGameExportRecord")->trigger();
  ASSERT_TRUE(QFileInfo::exists(QString::fromStdString(path)));

  QFile::copy(QString::fromStdString(path), QString::fromStdString(broken));
  {
    QFile file(QString::fromStdString(broken));
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write("9. Red Kz1-z2\n");
  }
  QString shown;
  {
    const auto ok = test::WhenModalOpens([&shown](QWidget& box) {
      shown = static_cast<QMessageBox&>(box).text();
      static_cast<QMessageBox&>(box).accept();
    });
    game.turn.gameSaved = true;
    run.window().findChild<QAction*>("mnuGameImportRecord")->trigger();
  }
  EXPECT_TRUE(shown.contains("line ")) << shown.toStdString();
  EXPECT_TRUE(SameCourse(game.match.record, played.record)) << "a refused record changes nothing";

  PlayRound(run);
  game.turn.gameSaved = true;
  run.window().findChild<QAction*>("mnuGameImportRecord")->trigger();
  EXPECT_EQ(game.match.position, played.position);
  EXPECT_TRUE(SameCourse(game.match.record, played.record));
  EXPECT_EQ(game.match.setup, played.setup);
  EXPECT_EQ(game.turn.gameMode, ModeChoosePiece);
}

}  // namespace
}  // namespace varkesh
