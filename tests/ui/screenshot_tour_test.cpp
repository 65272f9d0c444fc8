// Pictures of the program at its landmarks, for the documentation. Runs only
// when VARKESH_SCREENSHOTS names the folder to write them to.
#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QListWidget>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>

#include "core/dungeon.h"
#include "core/rules.h"
#include "running_program.h"

namespace varkesh {
namespace {

using test::RunningProgram;

class ScreenshotTour : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ = qEnvironmentVariable("VARKESH_SCREENSHOTS");
    if (folder_.isEmpty()) GTEST_SKIP() << "VARKESH_SCREENSHOTS is not set";
    ASSERT_TRUE(QDir().mkpath(folder_));
  }

  // The main window, with a dialog drawn where it stands over it.
  void Shoot(RunningProgram& run, const char* name, QWidget* dialog = nullptr) {
    QTest::qWait(400);  // a few passes: the strobe and the flags move
    QPixmap shot = run.window().grab();
    if (dialog != nullptr) {
      // Without a window manager the dialog has no frame: a line stands for it.
      QPainter painter(&shot);
      const QPoint at = dialog->pos() - run.window().pos();
      painter.drawPixmap(at, dialog->grab());
      painter.setPen(QColor(40, 40, 40));
      painter.drawRect(QRect(at, dialog->size()).adjusted(0, 0, -1, -1));
    }
    ASSERT_TRUE(shot.save(folder_ + "/" + name + ".png")) << name;
  }

  QString folder_;
};

std::unique_ptr<QTimer> AnswerNewGame(int gameType, int rule, const PerTeam<int>& players) {
  return test::WhenModalOpens([=](QWidget& dialog) {
    dialog.findChild<QRadioButton*>("optGameType" + QString::number(gameType))->setChecked(true);
    dialog.findChild<QRadioButton*>("optKingCapture" + QString::number(rule))->setChecked(true);
    for (int i = 0; i < kTeamCount; ++i)
      dialog.findChild<QComboBox*>("cmbPlayer" + QString::number(i))
          ->setCurrentIndex(players[static_cast<std::size_t>(i)]);
    dialog.findChild<QPushButton*>("cmdStart")->click();
  });
}

void Resign(RunningProgram& run) {
  const auto yes = test::WhenModalOpens(
      [](QWidget& box) { static_cast<QMessageBox&>(box).button(QMessageBox::Yes)->click(); });
  run.window().findChild<QAction*>("mnuResignResign")->trigger();
}

TEST_F(ScreenshotTour, TheLandmarksOfAGame) {
  RunningProgram run;
  ASSERT_TRUE(run.Started());
  Game& game = run.game();
  ASSERT_TRUE(run.WaitFor([&game] { return game.titleLoaded; }));
  Shoot(run, "title");

  {
    const auto answer = AnswerNewGame(0, 2, {kHuman, kHuman, kBalanced, kAggressive});
    run.ClickSquare(8, 8);
    ASSERT_TRUE(run.WaitForMode(ModeChoosePiece));
  }
  Shoot(run, "game-start");

  // A White Knight chosen and sent forward: the path is drawn.
  run.ClickSquare(7, 14);
  ASSERT_TRUE(run.WaitForMode(ModeChooseDestination));
  run.ClickSquare(6, 12);
  ASSERT_TRUE(run.WaitForMode(ModeConfirmMove));
  Shoot(run, "move-path");

  // A White Pawn raids Black's keep; the dialog offers the captures.
  run.ClickSquare(8, 8);  // an empty square: back to choosing a piece
  ASSERT_TRUE(run.WaitForMode(ModeChoosePiece));
  game.board.at(8, 3) = {kWhite, kPawn, 0, game.board.at(8, 3).terrain, game.board.at(8, 3).realm};
  game.board.at(8, 2).team = kNoTeam;
  game.board.at(8, 2).piece = kNoPiece;
  ClearMarks(game);
  ClearMoveablePieces(game);
  FindMoveablePieces(game, kWhite, true, false);
  game.boardChanged = true;
  run.ClickSquare(8, 3);
  ASSERT_TRUE(run.WaitForMode(ModeChooseDestination));
  run.ClickSquare(8, 2);
  ASSERT_TRUE(run.WaitForMode(ModeConfirmMove));
  {
    const auto shoot = test::WhenModalOpens([&](QWidget& dialog) {
      auto* list = dialog.findChild<QListWidget*>("lstPawnOptions");
      ASSERT_TRUE(QTest::qWaitFor([list] { return list->count() > 0; }, 1000));
      Shoot(run, "pawn-options", &dialog);
      dialog.findChild<QPushButton*>("cmdSelect")->click();
    });
    run.ClickSquare(8, 2, Qt::RightButton);
    ASSERT_TRUE(run.WaitFor([&game] { return game.currentTeam == kBlue; }));
  }

  // Blue gives up under Kingdom Frozen: its pieces stand frozen.
  ASSERT_TRUE(run.WaitForMode(ModeChoosePiece));
  Resign(run);
  ASSERT_TRUE(run.WaitFor(
      [&game] { return game.currentTeam == kWhite && game.gameMode == ModeChoosePiece; }, 60000));
  Shoot(run, "frozen-kingdom");

  // Dungeons filled past their first ten.
  for (int captor = kWhite; captor <= kRed; ++captor)
    for (int i = 0; i < 13; ++i)
      AddPieceToDungeon(game, captor, (captor + i % 3) % kTeamCount + 1, kBishop + i % 5);
  game.boardChanged = true;
  Shoot(run, "full-dungeon");

  // White gives up too: Black and Red have won.
  Resign(run);
  ASSERT_TRUE(run.WaitForMode(ModeVictory));
  Shoot(run, "victory");
}

}  // namespace
}  // namespace varkesh
