#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "ui/concede_dialog.h"
#include "ui/new_game_dialog.h"
#include "ui/pawn_options_dialog.h"
#include "ui_controls.h"

namespace varkesh {
namespace {

using test::Child;
using test::Click;

TEST(NewGameDialog, OpensWithTheLastPlayersAndStartNeedsANameThatIsNotOnlyBlanks) {
  NewGameDialog dialog({0, 3, 1, 2}, "Moat Keep", nullptr);
  dialog.show();
  EXPECT_EQ(Child<QComboBox>(dialog, "cmbPlayer1").currentText(), "Computer - Defensive");
  auto& name = Child<QLineEdit>(dialog, "txtGameName");
  auto& start = Child<QPushButton>(dialog, "cmdStart");
  EXPECT_EQ(name.selectedText(), "Moat Keep") << "typing replaces the proposed name";
  QTest::keyClicks(&name, "   ");
  EXPECT_FALSE(start.isEnabled());
  QTest::keyClick(&dialog, Qt::Key_Return);
  EXPECT_TRUE(dialog.isVisible()) << "Enter must not start a game without a name";
  QTest::keyClicks(&name, "x ");
  EXPECT_TRUE(start.isEnabled());
}

TEST(NewGameDialog, DoubleQuotesAreRefusedWhereTheyAreTyped) {
  NewGameDialog dialog({}, "", nullptr);
  dialog.show();
  auto& name = Child<QLineEdit>(dialog, "txtGameName");
  QTest::keyClicks(&name, "Ab\"c\"d");
  EXPECT_EQ(name.text(), "Abcd");
  name.setCursorPosition(2);
  QTest::keyClicks(&name, "\"X");
  EXPECT_EQ(name.text(), "AbXcd") << "the caret stays where the quote would have gone";
}

TEST(PawnOptionsDialog, ItsTimerFillsTheListAndSelectPicksTheCurrentLine) {
  PawnOptionsDialog dialog({"Capture Black's Rook", "Free your Queen"}, nullptr);
  auto& list = Child<QListWidget>(dialog, "lstPawnOptions");
  dialog.show();
  EXPECT_EQ(list.count(), 0) << "filled by the timer, not at once";
  ASSERT_TRUE(QTest::qWaitFor([&list] { return list.count() == 2; }, 1000));
  EXPECT_EQ(list.currentRow(), 0);
  list.setCurrentRow(1);
  Click(dialog, "cmdSelect");
  EXPECT_EQ(dialog.ChosenLine(), 1);
}

TEST(ConcedeDialog, OffersTheTeamsOnNumberedButtonsAndOnlyThoseAndWithdrawCloseIt) {
  ConcedeDialog dialog({kBlack, kRed}, nullptr);
  dialog.show();
  EXPECT_EQ(Child<QPushButton>(dialog, "cmdConcedeTeam0").text(), "&1 - Concede to Black");
  EXPECT_EQ(Child<QPushButton>(dialog, "cmdConcedeTeam1").text(), "&2 - Concede to Red");
  EXPECT_FALSE(Child<QPushButton>(dialog, "cmdConcedeTeam2").isVisible());
  QTest::keyClick(&dialog, Qt::Key_Escape);
  dialog.close();
  EXPECT_TRUE(dialog.isVisible());
  Click(dialog, "cmdConcedeTeam1");
  EXPECT_EQ(dialog.ConcedeTeam(), kRed);
  EXPECT_FALSE(dialog.isVisible());

  ConcedeDialog withdrawn({kRed}, nullptr);
  withdrawn.show();
  Click(withdrawn, "cmdWithdraw");
  EXPECT_EQ(withdrawn.ConcedeTeam(), 0);
}

}  // namespace
}  // namespace varkesh
