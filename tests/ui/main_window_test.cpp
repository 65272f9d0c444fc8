#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTest>

#include "engine/general_engine.h"
#include "engine/sound.h"
#include "persist/pack_reader.h"
#include "ui/main_window.h"
#include "ui/qt_outside.h"
#include "ui/view_widget.h"
#include "ui/window_layout.h"
#include "ui_test_support.h"

namespace varkesh {
namespace {

class MainWindowTest : public ::testing::Test {
 protected:
  MainWindowTest() { engine.appPath = "/opt/varkesh/"; }

  QAction& Entry(const char* name) { return *window.findChild<QAction*>(name); }

  Game game;
  GeneralEngine engine;
  PackReader pack;
  SoundPlayer sound;
  test::ScriptedDocuments documents;
  MainWindow window{game, DesktopServices{engine, pack, sound, documents}};
};

TEST_F(MainWindowTest, StartsAsTheFormLoadSays) {
  EXPECT_EQ(window.size(), QSize(620, 700));
  const QRect screen = window.screen()->geometry();
  EXPECT_EQ(window.x(), screen.width() / 2 - 310);
  EXPECT_EQ(window.y(), 10);
  EXPECT_FALSE(window.view().FrameRateLabel().isVisible());
}

TEST_F(MainWindowTest, MenusStartWithTheirMarksAndTheResignMenuOff) {
  EXPECT_FALSE(window.menuAction(Menu::Resign).isEnabled());
  for (Menu option : {Menu::OptionsSfx, Menu::OptionIndicator, Menu::OptionsShowComp,
                      Menu::OptionsHints, Menu::History0})
    EXPECT_TRUE(window.IsMenuChecked(option));
  EXPECT_FALSE(window.IsMenuChecked(Menu::History1));
  EXPECT_FALSE(window.IsMenuChecked(Menu::History3));
}

TEST_F(MainWindowTest, OptionsFlipTheirMarksAndOnlyTheIndicatorRedrawsTheBoard) {
  game.boardChanged = false;
  window.menuAction(Menu::OptionsSfx).trigger();
  EXPECT_FALSE(window.IsMenuChecked(Menu::OptionsSfx));
  EXPECT_FALSE(game.boardChanged);
  window.menuAction(Menu::OptionIndicator).trigger();
  EXPECT_FALSE(window.IsMenuChecked(Menu::OptionIndicator));
  EXPECT_TRUE(game.boardChanged);
}

TEST_F(MainWindowTest, HistoryEntriesAreExclusiveAndRedrawTheBoard) {
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  game.boardChanged = false;
  QTest::keyClick(&window, Qt::Key_F4);
  EXPECT_TRUE(window.IsMenuChecked(Menu::History3));
  EXPECT_FALSE(window.IsMenuChecked(Menu::History0));
  EXPECT_TRUE(game.boardChanged);
  window.menuAction(Menu::History1).trigger();
  EXPECT_TRUE(window.IsMenuChecked(Menu::History1));
  EXPECT_FALSE(window.IsMenuChecked(Menu::History3));
}

TEST_F(MainWindowTest, ADisabledMenuAlsoSilencesTheShortcutsOfItsEntries) {
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  window.SetMenuEnabled(Menu::Options, false);
  QTest::keyClick(&window, Qt::Key_F3);
  EXPECT_TRUE(window.IsMenuChecked(Menu::History0)) << "the computer is thinking";
  window.SetMenuEnabled(Menu::Options, true);
  QTest::keyClick(&window, Qt::Key_F3);
  EXPECT_TRUE(window.IsMenuChecked(Menu::History1));
}

TEST_F(MainWindowTest, AboutShowsTheTitleAndRemembersTheMode) {
  game.gameMode = ModeConfirmMove;
  Entry("mnuHelpAbout").trigger();
  EXPECT_EQ(game.gameMode, ModeTitle);
  EXPECT_EQ(game.modeAfterTitle, ModeConfirmMove);
}

TEST_F(MainWindowTest, HelpEntriesOpenTheProgramsFilesAndTheWebPages) {
  for (const char* entry :
       {"mnuHelpHelp", "mnuHelpReadMe", "mnuHelpWebsite", "mnuHelpMsgBrd", "mnuHelpGamesPub"})
    Entry(entry).trigger();
  EXPECT_EQ(documents.opened,
            (std::vector<std::string>{"/opt/varkesh/help/help.htm", "/opt/varkesh/ReadMe.txt",
                                      WebPages::kHome, WebPages::kMessageBoard,
                                      WebPages::kFindOpponents}));
}

TEST_F(MainWindowTest, NetPlaySaysPlainlyThatItIsNotThere) {
  QString shown;
  const auto answer = test::WhenModalOpens([&shown](QWidget& box) {
    shown = static_cast<QMessageBox&>(box).text();
    box.close();
  });
  Entry("mnuNetPlayHost").trigger();
  EXPECT_TRUE(shown.contains("not available")) << shown.toStdString();
  EXPECT_EQ(game.netRole, kNetNone);
}

TEST_F(MainWindowTest, ClosingAnUnsavedGameAsksAndNoKeepsItGoing) {
  window.show();
  game.gameSaved = false;
  QString title;
  const auto answer = test::WhenModalOpens([&title](QWidget& box) {
    title = box.windowTitle();
    QTest::mouseClick(static_cast<QMessageBox&>(box).button(QMessageBox::No), Qt::LeftButton);
  });
  window.close();
  EXPECT_EQ(title, "Exit without Saving?");
  EXPECT_TRUE(window.isVisible());
  EXPECT_FALSE(game.quitRequested);

  game.gameSaved = true;
  window.close();
  EXPECT_FALSE(window.isVisible());
  EXPECT_TRUE(game.quitRequested);
}

TEST_F(MainWindowTest, ThePauseButtonHoldsTheGameAndSaysHowToGoOn) {
  window.show();
  QPushButton& pause = window.view().PauseButton();
  pause.show();
  QTest::mouseClick(&pause, Qt::LeftButton);
  EXPECT_TRUE(game.paused);
  EXPECT_EQ(pause.text(), "R&esume");
  QTest::mouseClick(&pause, Qt::LeftButton);
  EXPECT_FALSE(game.paused);
  EXPECT_EQ(pause.text(), "&Pause");
}

TEST_F(MainWindowTest, AClickOnTheViewGivesItsSquareAndButton) {
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  ViewWidget& view = window.view();
  ASSERT_EQ(view.contentsRect().size(), QSize(600, 600));
  const QPoint inner = view.contentsRect().topLeft();

  QTest::mouseClick(&view, Qt::RightButton, {}, inner + QPoint(40, 75));
  EXPECT_TRUE(game.clickPending);
  EXPECT_TRUE(game.clickRight);
  EXPECT_FALSE(game.clickLeft);
  EXPECT_EQ(game.clickX, 1);
  EXPECT_EQ(game.clickY, 2);

  QTest::mouseClick(&view, Qt::LeftButton, {}, inner + QPoint(599, 0));
  EXPECT_TRUE(game.clickLeft);
  EXPECT_EQ(game.clickX, 17) << "the last pixels lie beyond the 17th column";
  EXPECT_EQ(game.clickY, 0);
}

TEST(ClickMapping, TheCellIsTheRoundedSeventeenthOfTheInnerSize) {
  EXPECT_EQ(ViewWidget::SquareOfClick(0, 600), 0);
  EXPECT_EQ(ViewWidget::SquareOfClick(34.4, 600), 0);
  EXPECT_EQ(ViewWidget::SquareOfClick(34.5, 600), 1) << "the click is rounded first";
  EXPECT_EQ(ViewWidget::SquareOfClick(594, 600), 16);
  EXPECT_EQ(ViewWidget::SquareOfClick(595, 600), 17);
  EXPECT_EQ(ViewWidget::SquareOfClick(299, 300), 16) << "cell 18 on a shrunk view";
  EXPECT_EQ(ViewWidget::SquareOfClick(3, 5), 3) << "a tiny view still gives a square";
}

TEST(WindowLayout, TheViewFillsTheWidthUpTo604) {
  const auto layout = LayOutWindow(620, 700, 16, 16);
  ASSERT_TRUE(layout);
  EXPECT_EQ(layout->gameDescription, QRect(2, 2, 604, 20));
  EXPECT_EQ(layout->turn, QRect(2, 24, 301, 20));
  EXPECT_EQ(layout->piece, QRect(305, 24, 301, 20));
  EXPECT_EQ(layout->view, QRect(2, 46, 604, 604));
  EXPECT_EQ(layout->piece.right(), layout->gameDescription.right());

  const auto wide = LayOutWindow(1900, 1200, 16, 16);
  EXPECT_EQ(wide->view, QRect(2, 46, 604, 604)) << "never beyond the back buffer";
}

TEST(WindowLayout, ALowWindowLetsTheHeightDecide) {
  const auto layout = LayOutWindow(620, 346, 16, 16);
  ASSERT_TRUE(layout);
  EXPECT_EQ(layout->view, QRect(2, 46, 300, 300));
  EXPECT_EQ(layout->gameDescription.width(), 300);
  EXPECT_EQ(layout->turn.width(), 149);
  EXPECT_EQ(layout->piece.left(), 300 - 149 + 2);
}

TEST(WindowLayout, TooSmallAnAreaIsNotLaidOut) {
  EXPECT_FALSE(LayOutWindow(620, 99, 16, 16));
  EXPECT_FALSE(LayOutWindow(19, 700, 16, 16));
  EXPECT_FALSE(LayOutWindow(0, 0, 16, 16));
  EXPECT_TRUE(LayOutWindow(20, 100, 16, 16));
}

TEST(FileFilter, TheBarSeparatedFormBecomesQtsForm) {
  EXPECT_EQ(QtFileFilter("Game Files (*.vsh)|*.vsh|All Files (*.*)|*.*"),
            "Game Files (*.vsh);;All Files (*.*)");
  EXPECT_EQ(QtFileFilter("Pictures|*.png;*.bmp"), "Pictures (*.png *.bmp)");
  EXPECT_EQ(QtFileFilter(""), "");
}

}  // namespace
}  // namespace varkesh
