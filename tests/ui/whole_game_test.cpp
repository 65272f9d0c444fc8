// A whole game in the real window against computer seats, played with the mouse,
// the menus and the dialogs, and the start of the run. Under VARKESH_SCREENSHOTS
// the game also takes the pictures of the documentation at its landmarks.
// Then what the window tells of a fallen kingdom, and a sound or picture that
// cannot be had never leaving a move or the title halfway.
#include <QAction>
#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <filesystem>
#include <fstream>

#include "core/dungeon.h"
#include "core/rules.h"
#include "flow/turn.h"
#include "persist/temp_folder.h"
#include "ui_test_support.h"

namespace varkesh {
namespace {

using test::RunningProgram;

void Resign(RunningProgram& run) {
  const auto yes = test::AnswerQuestion("Request to Resign", QMessageBox::Yes);
  run.PressShortcut(Qt::Key_R);
}

TEST(WholeGame, FromTheFirstRunToTheVictoryScreenAndBackFromTheCommandLine) {
  RunningProgram run({}, true);
  ASSERT_TRUE(run.Started());
  EXPECT_EQ(run.documents().opened, std::vector<std::string>{run.folder() + "ReadMe.txt"});
  Game& game = run.game();
  MainWindow& window = run.window();
  window.menuAction(Menu::OptionsShowComp).trigger();
  ASSERT_TRUE(run.WaitFor([&game] { return game.turn.titleLoaded; }));
  test::Shoot(run.window(), "title");

  {
    const auto answer = test::WhenModalOpens([](QWidget& dialog) {
      dialog.findChild<QComboBox*>("cmbPlayer2")->setCurrentIndex(kAggressive);
      dialog.findChild<QComboBox*>("cmbPlayer3")->setCurrentIndex(kBalanced);
      for (const char* button : {"optKingCapture2", "cmdStart"})
        QTest::mouseClick(dialog.findChild<QAbstractButton*>(button), Qt::LeftButton);
    });
    run.ClickSquare(8, 8, Qt::RightButton);  // ends the title as a left click does
    ASSERT_TRUE(run.WaitFor(ModeChoosePiece));
  }
  test::Shoot(run.window(), "game-start");
  EXPECT_TRUE(window.gameDescriptionLabel().text().endsWith("(Allied Neighbors/Kingdom Frozen)"));
  EXPECT_EQ(window.turnLabel().text(), "1st Round, White Player (Human)");
  EXPECT_TRUE(window.menuAction(Menu::Resign).isEnabled());
  EXPECT_FALSE(window.view().PauseButton().isHidden());
  ASSERT_TRUE(run.PlayByClicks({7, 14}, BoardSquare{6, 12}, "move-path"));  // a White Knight
  ASSERT_TRUE(run.WaitFor(ModeChoosePiece, kBlue));
  ASSERT_TRUE(run.PlayByClicks(game.view.moveablePieces[1]));
  ASSERT_TRUE(run.WaitFor(ModeChoosePiece, kWhite));
  EXPECT_EQ(game.match.position.history[0].team, kRed) << "the computer seats have played";

  // Saved through the file dialog, changed by a move, and loaded back.
  const std::string saved = run.folder() + "match.vsh";
  run.documents().answers = {saved, saved};
  run.PressShortcut(Qt::Key_S);
  ASSERT_TRUE(QFileInfo::exists(QString::fromStdString(saved)));
  const Board savedBoard = game.match.position.board;
  ASSERT_TRUE(run.PlayByClicks(game.view.moveablePieces[1]));
  EXPECT_NE(game.match.position.board.squares, savedBoard.squares);
  {  // the game is no longer saved, so loading asks first
    const auto yes = test::AnswerQuestion("Load Different Game?", QMessageBox::Yes);
    run.PressShortcut(Qt::Key_L);
  }
  EXPECT_EQ(game.match.position.board.squares, savedBoard.squares);

  // A White Pawn at the door of Black's keep walks in and takes its second option.
  game.match.position.board.at(8, 3).team = kWhite;
  game.match.position.board.at(8, 3).piece = kPawn;
  game.match.position.board.at(8, 2).team = kNoTeam;
  game.match.position.board.at(8, 2).piece = kNoPiece;
  game.match.position.Refresh();
  MarkMoveablePieces(game, true);
  game.view.boardChanged = true;
  const int prisonersBefore = game.match.position.dungeons[0].PrisonerCount();
  QString chosenLine;
  {
    const auto select = test::WhenModalOpens([&](QWidget& dialog) {
      auto* list = dialog.findChild<QListWidget*>("lstPawnOptions");
      EXPECT_TRUE(QTest::qWaitFor([list] { return list->count() > 0; }, 1000));
      test::Shoot(run.window(), "pawn-options", &dialog);
      list->setCurrentRow(1);
      chosenLine = list->currentItem()->text();
      QTest::mouseClick(dialog.findChild<QPushButton*>("cmdSelect"), Qt::LeftButton);
    });
    ASSERT_TRUE(run.PlayByClicks({8, 3}, BoardSquare{8, 2}));
  }
  ASSERT_TRUE(run.WaitFor(ModeChoosePiece, kBlue));
  EXPECT_EQ(game.match.position.board.at(8, 2).piece, kNoPiece)
      << "the pawn is spent with its capture";
  ASSERT_EQ(game.match.position.dungeons[0].PrisonerCount(), prisonersBefore + 1);
  const DungeonPiece taken = game.match.position.dungeons[0].prisoners[prisonersBefore + 1];
  EXPECT_EQ(chosenLine, QString("Capture Black's ") + PieceName(taken.piece));

  // Blue and then White resign: Black and Red have won.
  Resign(run);
  EXPECT_TRUE(game.match.position.kingdomFallen[1]);
  ASSERT_TRUE(run.WaitFor(ModeChoosePiece, kWhite));
  test::Shoot(run.window(), "frozen-kingdom");
  for (int captor = kWhite; captor <= kRed; ++captor)  // dungeons past their first ten
    for (int i = 0; i < 13; ++i)
      AddPieceToDungeon(game.match.position, captor, (captor + i % 3) % kTeamCount + 1,
                        kBishop + i % 5);
  game.view.boardChanged = true;
  test::Shoot(run.window(), "full-dungeon");
  Resign(run);
  ASSERT_TRUE(run.WaitFor(ModeVictory));
  test::Shoot(run.window(), "victory");
  EXPECT_EQ(std::pair(game.match.position.winner, game.match.position.coWinner),
            std::pair(kBlack, kRed));
  EXPECT_TRUE(window.view().PauseButton().isHidden());
  EXPECT_FALSE(window.menuAction(Menu::Resign).isEnabled());
  run.ClickSquare(3, 3);
  ASSERT_TRUE(run.WaitFor(ModeGameOver));

  // Leaving asks about the unsaved game; No keeps it going, Yes ends the run
  // and stores the options.
  for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
    const auto asked = test::AnswerQuestion("Exit without Saving?", answer);
    window.close();
    EXPECT_EQ(window.isVisible(), answer == QMessageBox::No);
  }
  ASSERT_TRUE(run.WaitFor([&run] { return run.Ended(); }));
  EXPECT_EQ(run.settings().Read("ShowComp"), "0");
  EXPECT_EQ(run.settings().Read("Sfx"), "-1");
  EXPECT_EQ(run.settings().Read("MainWidth"), std::to_string(window.width()));
  EXPECT_EQ(run.settings().Read("First"), "Done");

  // The saved game named on the command line skips the title; the stored
  // options come back, a "History" of 2 read as 3.
  RunningProgram resumed(ParseCommandLine(std::vector<std::string>{saved}), false, true,
                         {{"showcomp", "0"}, {"History", "2"}});
  ASSERT_TRUE(resumed.Started());
  EXPECT_EQ(resumed.game().turn.gameMode, ModeChoosePiece);
  EXPECT_FALSE(resumed.window().IsMenuChecked(Menu::OptionsShowComp));
  EXPECT_TRUE(resumed.window().IsMenuChecked(Menu::History3));
  EXPECT_FALSE(resumed.window().IsMenuChecked(Menu::History0));
  EXPECT_EQ(resumed.game().match.position.board.squares, savedBoard.squares);
  EXPECT_EQ(resumed.game().match.setup.playerKinds,
            (PerTeam<int>{kHuman, kHuman, kAggressive, kBalanced}));
  EXPECT_TRUE(
      resumed.window().gameDescriptionLabel().text().endsWith("(Allied Neighbors/Kingdom Frozen)"));
}

TEST(StartOfTheRun, AMissingPackOrAMissingOrDamagedSavedGameIsExplained) {
  const struct {
    bool withPack;
    std::string savedGame, explanation;
  } cases[] = {{false, "", "'r.opk'"},
               {true, "/no/such/game.vsh", "/no/such/game.vsh"},
               {true, VARKESH_BIN_DIR "/r.opk", "r.opk' could not be loaded"}};
  for (const auto& c : cases) {
    QString shown;  // the last message
    const auto closeAll = test::WhenModalOpens(
        [&shown](QWidget& box) {
          shown = static_cast<QMessageBox&>(box).text();
          box.close();
        },
        false);
    RunningProgram run(ParseCommandLine(std::vector<std::string>{c.savedGame}), false, c.withPack);
    EXPECT_EQ(run.Started(), c.withPack);
    EXPECT_TRUE(shown.contains(QString::fromStdString(c.explanation))) << shown.toStdString();
    EXPECT_EQ(run.game().turn.gameMode, ModeTitle);
    EXPECT_EQ(run.window().isVisible(), c.withPack);
  }
}

// A local human whose kingdom falls is told so on the board, and once no
// local human is left the computers' moves are previewed to the end.
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

// As when the temporary folder is removed under the running game.
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
