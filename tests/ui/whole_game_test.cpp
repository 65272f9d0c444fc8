// Whole games in the real window, against computer seats, driven with the
// mouse, the menus and the dialogs as a player would.
#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "core/rules.h"
#include "running_program.h"
#include "ui/qt_outside.h"

namespace varkesh {
namespace {

using test::RunningProgram;

struct Setup {
  int gameType = 0;  // index of the option button
  int rule = 0;
  PerTeam<int> players{};
};

// Answers the next New Game dialog with the setup and Start.
[[nodiscard]] std::unique_ptr<QTimer> AnswerNewGame(const Setup& setup) {
  return test::WhenModalOpens([setup](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Varkesh: New Game");
    const QString gameType = "optGameType" + QString::number(setup.gameType);
    const QString rule = "optKingCapture" + QString::number(setup.rule);
    QTest::mouseClick(dialog.findChild<QRadioButton*>(gameType), Qt::LeftButton);
    QTest::mouseClick(dialog.findChild<QRadioButton*>(rule), Qt::LeftButton);
    for (int i = 0; i < kTeamCount; ++i) {
      dialog.findChild<QComboBox*>("cmbPlayer" + QString::number(i))
          ->setCurrentIndex(setup.players[static_cast<std::size_t>(i)]);
    }
    QTest::mouseClick(dialog.findChild<QPushButton*>("cmdStart"), Qt::LeftButton);
  });
}

// Answers the next question box with Yes or No, after checking its title.
[[nodiscard]] std::unique_ptr<QTimer> AnswerQuestion(const QString& title,
                                                     QMessageBox::StandardButton answer) {
  return test::WhenModalOpens([title, answer](QWidget& box) {
    EXPECT_EQ(box.windowTitle(), title);
    QTest::mouseClick(static_cast<QMessageBox&>(box).button(answer), Qt::LeftButton);
  });
}

// From the title to the first turn of a new game.
void StartGame(RunningProgram& run, const Setup& setup) {
  ASSERT_EQ(run.game().gameMode, ModeTitle);
  const auto answer = AnswerNewGame(setup);
  // A right click ends the title screen just as a left click does.
  run.ClickSquare(8, 8, Qt::RightButton);
  ASSERT_TRUE(run.WaitFor([&run] {
    return run.game().gameMode == ModeChoosePiece || run.game().gameMode == ModeComputerThinks;
  }));
}

// Chooses the first moveable piece and its first destination, and confirms
// with a right click on that square. The square moved to.
BoardSquare PlayFirstMove(RunningProgram& run) {
  Game& game = run.game();
  EXPECT_EQ(game.gameMode, ModeChoosePiece);
  const BoardSquare from = game.moveablePieces[1];
  run.ClickSquare(from.x, from.y);
  EXPECT_TRUE(run.WaitForMode(ModeChooseDestination));
  EXPECT_FALSE(run.window().pieceLabel().text().isEmpty());
  const BoardSquare to = game.moveablePieces[1];
  run.ClickSquare(to.x, to.y);
  EXPECT_TRUE(run.WaitForMode(ModeConfirmMove));
  run.ClickSquare(to.x, to.y, Qt::RightButton);
  EXPECT_TRUE(run.WaitFor([&game] { return game.gameMode != ModeConfirmMove; }));
  return to;
}

bool WaitForHumanTurn(RunningProgram& run, int team) {
  Game& game = run.game();
  return run.WaitFor(
      [&game, team] { return game.gameMode == ModeChoosePiece && game.currentTeam == team; },
      120000);
}

std::vector<DungeonPiece> Pieces(const Board& board) {
  std::vector<DungeonPiece> pieces;
  for (const Square& square : board.squares) pieces.push_back({square.team, square.piece});
  return pieces;
}

TEST(WholeGame, MovesSavingLoadingAPawnRaidAndResigningUpToTheVictoryScreen) {
  RunningProgram run;
  ASSERT_TRUE(run.Started());
  Game& game = run.game();
  MainWindow& window = run.window();
  window.menuAction(Menu::OptionsShowComp).trigger();

  StartGame(run, {0, 1, {kHuman, kHuman, kAggressive, kBalanced}});
  EXPECT_TRUE(window.gameDescriptionLabel().text().endsWith("(Allied Neighbors/Kingdom Lost)"));
  EXPECT_EQ(window.turnLabel().text(), "1st Round, White Player (Human)");
  EXPECT_TRUE(window.menuAction(Menu::Resign).isEnabled());
  EXPECT_FALSE(window.view().PauseButton().isHidden());

  const BoardSquare whiteMove = PlayFirstMove(run);
  EXPECT_EQ(game.board.at(whiteMove.x, whiteMove.y).team, kWhite);
  ASSERT_TRUE(WaitForHumanTurn(run, kBlue));
  PlayFirstMove(run);

  // The computer seats think with the menus shut, and hand the turn back.
  bool menusShutWhileThinking = false;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, [&] {
    if (game.gameMode == ModeComputerThinks && !window.menuAction(Menu::Game).isEnabled())
      menusShutWhileThinking = true;
  });
  watch.start(1);
  ASSERT_TRUE(WaitForHumanTurn(run, kWhite));
  watch.stop();
  EXPECT_TRUE(menusShutWhileThinking);
  EXPECT_TRUE(window.menuAction(Menu::Game).isEnabled());
  EXPECT_EQ(game.history[0].team, kRed);
  EXPECT_EQ(window.turnLabel().text(), "2nd Round, White Player (Human)");

  // Saved through the file dialog, changed by a move, and loaded back.
  const std::string saved = run.folder() + "match.vsh";
  run.documents().saveAnswers.push_back(saved);
  run.PressShortcut(Qt::Key_S);
  ASSERT_TRUE(QFileInfo::exists(QString::fromStdString(saved)));
  EXPECT_EQ(run.documents().requests.back().title, "Save Game ...");
  EXPECT_TRUE(game.gameSaved);
  const std::vector<DungeonPiece> savedPieces = Pieces(game.board);

  PlayFirstMove(run);
  EXPECT_NE(Pieces(game.board), savedPieces);
  EXPECT_FALSE(game.gameSaved);
  run.documents().loadAnswers.push_back(saved);
  const auto loadAnswer = AnswerQuestion("Load Different Game?", QMessageBox::Yes);
  run.PressShortcut(Qt::Key_L);
  EXPECT_EQ(Pieces(game.board), savedPieces);
  EXPECT_EQ(game.currentTeam, kWhite);
  EXPECT_EQ(game.roundNumber, 2);
  EXPECT_EQ(game.gameMode, ModeChoosePiece);

  // A White Pawn at the door of Black's keep walks in and captures there.
  game.board.at(8, 3).team = kWhite;
  game.board.at(8, 3).piece = kPawn;
  game.board.at(8, 2).team = kNoTeam;
  game.board.at(8, 2).piece = kNoPiece;
  ClearMarks(game);
  ClearMoveablePieces(game);
  FindMoveablePieces(game, kWhite, true, false);
  game.boardChanged = true;
  const int prisonersBefore = game.dungeons[0].PrisonerCount();
  QString chosenLine;
  const auto pawnAnswer = test::WhenModalOpens([&chosenLine](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Pawn's Options");
    auto* list = dialog.findChild<QListWidget*>("lstPawnOptions");
    EXPECT_TRUE(QTest::qWaitFor([list] { return list->count() > 0; }, 1000));
    chosenLine = list->currentItem()->text();
    QTest::mouseClick(dialog.findChild<QPushButton*>("cmdSelect"), Qt::LeftButton);
  });
  run.ClickSquare(8, 3);
  ASSERT_TRUE(run.WaitForMode(ModeChooseDestination));
  run.ClickSquare(8, 2);
  ASSERT_TRUE(run.WaitForMode(ModeConfirmMove));
  run.ClickSquare(8, 2, Qt::RightButton);
  ASSERT_TRUE(WaitForHumanTurn(run, kBlue));
  EXPECT_TRUE(chosenLine.startsWith("Capture Black's")) << chosenLine.toStdString();
  EXPECT_EQ(game.board.at(8, 2).piece, kNoPiece) << "the pawn is spent with its capture";
  EXPECT_EQ(game.dungeons[0].PrisonerCount(), prisonersBefore + 1);

  // Blue and then White resign: Black and Red have won.
  const auto blueResigns = AnswerQuestion("Request to Resign", QMessageBox::Yes);
  run.PressShortcut(Qt::Key_R);
  EXPECT_TRUE(game.kingdomFallen[1]);
  ASSERT_TRUE(WaitForHumanTurn(run, kWhite));
  const auto whiteResigns = AnswerQuestion("Request to Resign", QMessageBox::Yes);
  window.findChild<QAction*>("mnuResignResign")->trigger();
  ASSERT_TRUE(run.WaitForMode(ModeVictory));
  EXPECT_EQ(game.winner, kBlack);
  EXPECT_EQ(game.coWinner, kRed);
  EXPECT_TRUE(window.view().PauseButton().isHidden());
  EXPECT_FALSE(window.menuAction(Menu::Resign).isEnabled());
  run.ClickSquare(3, 3);
  ASSERT_TRUE(run.WaitForMode(ModeGameOver));

  // Leaving asks about the unsaved game, then stores the options.
  const auto exitAnswer = AnswerQuestion("Exit without Saving?", QMessageBox::Yes);
  window.close();
  ASSERT_TRUE(run.WaitFor([&run] { return run.Ended(); }, 5000));
  EXPECT_EQ(run.settings().Read("ShowComp"), "0");
  EXPECT_EQ(run.settings().Read("Sfx"), "-1");
  EXPECT_EQ(run.settings().Read("History"), "0");
  EXPECT_EQ(run.settings().Read("MainWindow"), "0");
  EXPECT_EQ(run.settings().Read("MainWidth"), std::to_string(window.width()));
}

TEST(WholeGame, AResignationUnderKingdomGainedNamesTheGainerInTheConcedeDialog) {
  RunningProgram run;
  ASSERT_TRUE(run.Started());
  Game& game = run.game();
  StartGame(run, {2, 0, {kHuman, kHuman, kHuman, kHuman}});
  EXPECT_TRUE(run.window().view().PauseButton().isHidden()) << "no computer seat to pause";

  std::vector<QString> offered;
  const auto concedeAnswer = test::WhenModalOpens([&offered](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Team to Concede To");
    for (QPushButton* button : dialog.findChildren<QPushButton*>())
      if (!button->isHidden()) offered.push_back(button->text());
    QTest::mouseClick(dialog.findChild<QPushButton*>("cmdConcedeTeam2"), Qt::LeftButton);
  });
  run.PressShortcut(Qt::Key_R);
  EXPECT_EQ(offered, (std::vector<QString>{"&1 - Concede to Blue", "&2 - Concede to Black",
                                           "&3 - Concede to Red", "&Withdraw Resignation"}));
  EXPECT_TRUE(game.kingdomFallen[0]);
  EXPECT_EQ(game.board.at(8, 16).team, kRed) << "White's Castle Pawn fights on for Red";
  EXPECT_TRUE(WaitForHumanTurn(run, kBlue));
}

TEST(StartOfTheRun, TheFirstRunOpensTheReadMeAndASavedGameOnTheCommandLineSkipsTheTitle) {
  QTemporaryDir keep;
  const std::string saved = keep.filePath("start.vsh").toStdString();
  {
    RunningProgram first(CommandLine{}, {});
    ASSERT_TRUE(first.Started());
    EXPECT_EQ(first.documents().opened, std::vector<std::string>{first.folder() + "ReadMe.txt"});
    EXPECT_EQ(first.settings().Read("First"), "Done");
    StartGame(first, {1, 2, {kHuman, kDefensive, kHuman, kDefensive}});
    first.documents().saveAnswers.push_back(saved);
    first.window().findChild<QAction*>("mnuGameSave")->trigger();
    ASSERT_TRUE(QFileInfo::exists(QString::fromStdString(saved)));
  }

  RunningProgram second(CommandLine{0, false, saved});
  ASSERT_TRUE(second.Started());
  EXPECT_TRUE(second.documents().opened.empty());
  EXPECT_EQ(second.game().gameMode, ModeChoosePiece);
  EXPECT_EQ(second.game().playerKinds, (PerTeam<int>{kHuman, kDefensive, kHuman, kDefensive}));
  EXPECT_TRUE(
      second.window().gameDescriptionLabel().text().endsWith("(Crossroad Allies/Kingdom Frozen)"));
}

TEST(StartOfTheRun, AMissingOrDamagedSavedGameIsExplainedAndTheTitleFollows) {
  QTemporaryDir folder;
  const std::string damaged = folder.filePath("damaged.vsh").toStdString();
  {
    QFile file(QString::fromStdString(damaged));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("not a saved game");
  }
  for (const std::string& path : {folder.filePath("missing.vsh").toStdString(), damaged}) {
    std::vector<QString> boxes;
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, &closer, [&boxes] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr || !box->isVisible()) return;
      boxes.push_back(box->text());
      box->close();
    });
    closer.start(5);
    RunningProgram run(CommandLine{0, false, path});
    ASSERT_TRUE(run.Started());
    EXPECT_EQ(run.game().gameMode, ModeTitle);
    ASSERT_FALSE(boxes.empty()) << path;
    EXPECT_TRUE(boxes.back().contains(QString::fromStdString(path))) << path;
  }
}

TEST(StartOfTheRun, WithoutItsPackTheProgramSaysSoAndDoesNotStart) {
  QTemporaryDir folder;
  Program program;
  program.settings = std::make_unique<SettingsStore>(folder.filePath("settings.ini").toStdString());
  program.documents = std::make_unique<test::ScriptedDocuments>();
  QString shown;
  const auto note = test::WhenModalOpens([&shown](QWidget& box) {
    shown = static_cast<QMessageBox&>(box).text();
    box.close();
  });
  EXPECT_FALSE(StartUp(program, CommandLine{}, folder.path().toStdString() + "/"));
  EXPECT_TRUE(shown.contains("'r.opk'")) << shown.toStdString();
  EXPECT_FALSE(program.window->isVisible());
}

}  // namespace
}  // namespace varkesh
