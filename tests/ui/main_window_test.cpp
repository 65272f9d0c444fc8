#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QTest>

#include "ui/qt_outside.h"
#include "ui_test_support.h"

namespace varkesh {
namespace {

class MainWindowTest : public ::testing::Test {
 protected:
  void SetUp() override {
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  }

  Game game;
  GeneralEngine engine;
  PackReader pack;
  SoundPlayer sound;
  test::ScriptedDocuments documents;
  MainWindow window{game, DesktopServices{engine, pack, sound, documents}};
};

TEST_F(MainWindowTest, TheShortcutsOfADisabledMenuAreSilent) {
  window.SetMenuEnabled(Menu::Options, false);  // as while the computer thinks
  QTest::keyClick(&window, Qt::Key_F4);
  EXPECT_TRUE(window.IsMenuChecked(Menu::History0));
  window.SetMenuEnabled(Menu::Options, true);
  QTest::keyClick(&window, Qt::Key_F4);
  EXPECT_TRUE(window.IsMenuChecked(Menu::History3) && !window.IsMenuChecked(Menu::History0));
}

TEST_F(MainWindowTest, OnResizeTheBoardStaysSquareAndGrowsWithTheWindow) {
  const QRect& view = window.view().geometry();
  window.resize(1900, 1200);
  EXPECT_TRUE(QTest::qWaitFor(
      [&] { return view.height() > 1000 && view.bottom() == window.centralWidget()->height() - 1; },
      1000));
  EXPECT_EQ(view.width(), view.height());
  window.resize(900, 400);
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return view.bottom() == window.centralWidget()->height() - 1; }, 1000));
  EXPECT_EQ(view.width(), view.height());
  EXPECT_EQ(window.pieceLabel().geometry().right(), view.right());
}

TEST_F(MainWindowTest, AClickGivesItsButtonAndTheSquareOfTheRoundedPosition) {
  ViewWidget& view = window.view();
  ASSERT_TRUE(test::SetViewSide(window, 600));
  const QPoint inner = view.contentsRect().topLeft();
  QTest::mouseClick(&view, Qt::RightButton, {}, inner + QPoint(40, 75));
  EXPECT_TRUE(game.view.clickPending && game.view.clickRight && !game.view.clickLeft);
  EXPECT_EQ(std::pair(game.view.clickX, game.view.clickY), std::pair(1, 2));
  QTest::mouseClick(&view, Qt::LeftButton, {}, inner + QPoint(599, 0));
  EXPECT_TRUE(game.view.clickLeft);
  EXPECT_EQ(std::pair(game.view.clickX, game.view.clickY), std::pair(17, 0)) << "the last pixels";
  EXPECT_EQ(ViewWidget::SquareOfClick(34.5, 600), 1) << "rounded before it is divided";
  EXPECT_EQ(ViewWidget::SquareOfClick(299, 300), 16) << "on a shrunk view";
}

TEST_F(MainWindowTest, AboutAlwaysLeadsBackToWhereThePlayerWas) {
  game.turn.gameMode = ModeChooseDestination;
  QAction& about = *window.findChild<QAction*>("mnuHelpAbout");
  about.trigger();
  about.trigger();  // twice in a row, or while the title shows
  EXPECT_EQ(game.turn.gameMode, ModeTitle);
  EXPECT_EQ(game.turn.modeAfterTitle, ModeChooseDestination);
}

TEST_F(MainWindowTest, TheHelpMenuOpensLocalChaptersAndTheLogFolder) {
  engine.appPath = "/opt/varkesh game/";
  engine.logPath = "/home/ann/.local/share/varkesh/logs/";
  for (const char* name :
       {"mnuHelpWebsite", "mnuHelpMsgBrd", "mnuHelpGamesPub", "mnuHelpLogFolder"})
    window.findChild<QAction*>(name)->trigger();
  EXPECT_EQ(documents.opened,
            (std::vector<std::string>{"file:///opt/varkesh game/help/help.htm#board",
                                      "file:///opt/varkesh game/help/help.htm#netplay",
                                      "file:///opt/varkesh game/help/help.htm#opponents",
                                      "/home/ann/.local/share/varkesh/logs/"}));
}

TEST(FileFilter, TheBarSeparatedFormBecomesQtsForm) {
  EXPECT_EQ(QtFileFilter("Game Files (*.vsh)|*.vsh|All Files (*.*)|*.*"),
            "Game Files (*.vsh);;All Files (*.*)");
  EXPECT_EQ(QtFileFilter("Pictures|*.png;*.bmp"), "Pictures (*.png *.bmp)");
}

}  // namespace
}  // namespace varkesh
