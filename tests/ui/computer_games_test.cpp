// Games against the computer in the real window. How strongly it plays, as
// the player sets it: the level of each seat in the new game dialog, kept in
// the game and its saved file, and the Master's thinking time in the Options
// menu, kept in the settings. Then Take Back Move, Redo, the move list and
// record files, by keys and clicks, in a game of one human against three
// computers. Under VARKESH_SCREENSHOTS the tests also take the pictures of
// the documentation.
#include <QAction>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QMenu>
#include <QTableWidget>
#include <QTimer>

#include "core/rules.h"
#include "ui/move_list.h"
#include "ui/record_commands.h"
#include "ui_test_support.h"

namespace varkesh {
namespace {

using namespace test;

// Opens the new game dialog, lets choose act on it, and starts the game.
void NewGame(RunningProgram& run, const std::function<void(QWidget&)>& choose) {
  const auto answer = WhenModalOpens([&](QWidget& dialog) {
    choose(dialog);
    QTest::mouseClick(dialog.findChild<QAbstractButton*>("cmdStart"), Qt::LeftButton);
  });
  run.window().findChild<QAction*>("mnuGameNew")->trigger();
  ASSERT_TRUE(run.WaitFor([&] { return !answer->isActive(); }));
}

TEST(SeatLevels, TheDialogGivesThemToTheGameAndASavedGameKeepsThem) {
  RunningProgram run;
  ASSERT_TRUE(run.Started());
  const PerTeam<int> chosen = {kLevelClassic, kLevelExpert, kLevelClassic, kLevelMaster};
  NewGame(run, [](QWidget& dialog) {
    EXPECT_FALSE(Child<QComboBox>(dialog, "cmbLevel1").isEnabled()) << "a human seat has no level";
    Child<QComboBox>(dialog, "cmbPlayer1").setCurrentIndex(kBalanced);
    EXPECT_TRUE(Child<QComboBox>(dialog, "cmbLevel1").isEnabled());
    Child<QComboBox>(dialog, "cmbLevel1").setCurrentIndex(kLevelExpert - kLevelClassic);
    Child<QComboBox>(dialog, "cmbPlayer3").setCurrentIndex(kDefensive);
    Child<QComboBox>(dialog, "cmbLevel3").setCurrentIndex(kLevelMaster - kLevelClassic);
  });
  ASSERT_TRUE(run.WaitFor(ModeChoosePiece, kWhite));
  EXPECT_EQ(run.game().match.setup.levels, chosen);
  EXPECT_EQ(run.game().match.setup.playerKinds,
            (PerTeam<int>{kHuman, kBalanced, kHuman, kDefensive}));

  const std::string saved = run.folder() + "levels.vsh";
  run.documents().answers.push_back(saved);
  run.window().findChild<QAction*>("mnuGameSave")->trigger();
  ASSERT_TRUE(QFileInfo::exists(QString::fromStdString(saved)));

  // The next dialog shows the last game's levels; this game plays Club.
  NewGame(run, [](QWidget& dialog) {
    EXPECT_EQ(Child<QComboBox>(dialog, "cmbLevel1").currentText(), "Expert");
    EXPECT_EQ(Child<QComboBox>(dialog, "cmbLevel3").currentText(), "Master");
    Child<QComboBox>(dialog, "cmbLevel1").setCurrentIndex(kLevelClub - kLevelClassic);
  });
  ASSERT_TRUE(run.WaitFor(ModeChoosePiece, kWhite));
  EXPECT_EQ(run.game().match.setup.levels[1], kLevelClub);

  run.documents().answers.push_back(saved);
  run.window().findChild<QAction*>("mnuGameLoad")->trigger();
  ASSERT_TRUE(run.WaitFor(ModeChoosePiece, kWhite));
  EXPECT_EQ(run.game().match.setup.levels, chosen);
}

// A Master given ten seconds: the window answers while it thinks, and a
// new game ends its search at once, with no move played.
TEST(SeatLevels, TheWindowAnswersWhileTheMasterThinksAndANewGameStopsIt) {
  RunningProgram run({}, false, true, {{"ThinkingTime", "10000"}});
  ASSERT_TRUE(run.Started());
  NewGame(run, [](QWidget& dialog) {
    Child<QComboBox>(dialog, "cmbPlayer0").setCurrentIndex(kAggressive);
    Child<QComboBox>(dialog, "cmbLevel0").setCurrentIndex(kLevelMaster - kLevelClassic);
  });
  bool movedFirst = true;
  const auto answer = WhenModalOpens([&](QWidget& dialog) {
    movedFirst = !run.game().match.record.events.empty();
    Child<QComboBox>(dialog, "cmbPlayer0").setCurrentIndex(kHuman);
    QTest::mouseClick(dialog.findChild<QAbstractButton*>("cmdStart"), Qt::LeftButton);
  });
  // The search holds the main loop's pass, so what the player does while it
  // thinks comes from events served inside it, as a timer's are.
  QWidget& window = run.window();
  bool sawSearch = false;
  QElapsedTimer clock;
  QTimer player;
  QObject::connect(&player, &QTimer::timeout, [&] {
    if (sawSearch || !run.game().turn.searching) return;
    sawSearch = true;
    EXPECT_TRUE(window.findChild<QMenu*>("mnuOptions")->menuAction()->isEnabled());
    EXPECT_FALSE(window.findChild<QMenu*>("mnuResign")->menuAction()->isEnabled());
    window.findChild<QAction*>("mnuOptionsMoveList")->trigger();
    EXPECT_FALSE(run.window().recordCommands().ListShown()) << "the options answer at once";
    clock.start();
    window.findChild<QAction*>("mnuGameNew")->trigger();
  });
  player.start(10);
  ASSERT_TRUE(run.WaitFor([&] { return sawSearch && !answer->isActive(); }, 8000));
  EXPECT_LT(clock.elapsed(), 2000) << "the search went on after the new game was asked for";
  EXPECT_FALSE(movedFirst) << "the search ran to its end before the new game";
  ASSERT_TRUE(run.WaitFor(ModeChoosePiece, kWhite));
  EXPECT_TRUE(run.game().match.record.events.empty());
  EXPECT_FALSE(run.game().turn.searching);
}

TEST(ThinkingTime, TheOptionsMenuOffersItsTimesAndTheSettingsKeepTheChoice) {
  const std::vector<std::pair<const char*, int>> stored = {
      {"5000", 5000}, {"750", 1000}, {"fast", 1000}, {"", 1000}};
  for (const auto& [text, expected] : stored) {
    SCOPED_TRACE(text);
    RunningProgram run({}, false, true, {{"ThinkingTime", text}});
    ASSERT_TRUE(run.Started());
    EXPECT_EQ(run.window().ThinkingTimeMs(), expected);
    EXPECT_TRUE(run.window().thinkingTimeEntry(expected).isChecked());
  }

  RunningProgram run;
  ASSERT_TRUE(run.Started());
  QStringList captions;
  for (QAction* entry : run.window().findChild<QMenu*>("mnuThinkingTime")->actions())
    captions << entry->text();
  EXPECT_EQ(captions,
            (QStringList{"&0.5 Seconds", "&1 Second", "&2 Seconds", "&5 Seconds", "&10 Seconds"}));
  run.window().thinkingTimeEntry(2000).trigger();
  EXPECT_EQ(run.window().outside().ThinkingTimeMs(), 2000);
  EXPECT_FALSE(run.window().thinkingTimeEntry(1000).isChecked());
  run.window().close();
  ASSERT_TRUE(run.WaitFor([&] { return run.Ended(); }));
  EXPECT_EQ(run.settings().Read("ThinkingTime"), "2000");
}

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
  EXPECT_FALSE(commands.TakeBackAction().isEnabled()) << "nothing to take back";

  std::vector<Position> whitesTurns{game.match.position};
  for (int round = 0; round < 2; ++round) {
    PlayRound(run);
    whitesTurns.push_back(game.match.position);
  }
  // The list and the entries follow the game by themselves.
  MoveListView& list = run.window().moveList();
  ASSERT_TRUE(run.WaitFor([&] { return list.rowCount() == 2; }, 3000)) << "rounds 1 and 2";
  EXPECT_EQ(list.item(0, kWhite)->text().left(1), "P");

  // A click on Blue's first move shows the position after it.
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                    list.visualItemRect(list.item(0, kBlue)).center());
  ASSERT_TRUE(list.Browsing());
  EXPECT_EQ(list.BrowsedPlies(), 2);
  Shoot(run.window(), "replay");
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

  ASSERT_TRUE(commands.TakeBackAction().isEnabled());
  EXPECT_FALSE(commands.RedoAction().isEnabled());
  Shoot(run.window(), "move-list");
  run.PressShortcut(Qt::Key_Z);
  EXPECT_EQ(game.match.position, whitesTurns[1]);
  EXPECT_EQ(game.turn.gameMode, ModeChoosePiece);
  Shoot(run.window(), "takeback");
  EXPECT_TRUE(commands.RedoAction().isEnabled());
  run.PressShortcut(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(game.match.position, whitesTurns[2]);
  EXPECT_FALSE(commands.RedoAction().isEnabled());
  for (int step = 0; step < 2; ++step) run.PressShortcut(Qt::Key_Z);
  EXPECT_EQ(game.match.position, whitesTurns[0]);
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
    const auto ok = WhenModalOpens([&shown](QWidget& box) {
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
