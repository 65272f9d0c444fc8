// How strongly the computer plays, as the player sets it in the window: the
// level of each seat in the new game dialog, kept in the game and its saved
// file, and the Master's thinking time in the Options menu, kept in the
// settings.
#include <QAction>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QMenu>
#include <QTimer>

#include "ui/record_commands.h"
#include "ui_controls.h"
#include "ui_test_support.h"

namespace varkesh {
namespace {

using test::Child;
using test::RunningProgram;

// Opens the new game dialog, lets choose act on it, and starts the game.
void NewGame(RunningProgram& run, const std::function<void(QWidget&)>& choose) {
  const auto answer = test::WhenModalOpens([&](QWidget& dialog) {
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
  const auto answer = test::WhenModalOpens([&](QWidget& dialog) {
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

}  // namespace
}  // namespace varkesh
