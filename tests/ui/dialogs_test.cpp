#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "ui/concede_dialog.h"
#include "ui/new_game_dialog.h"
#include "ui/pawn_options_dialog.h"
#include "ui_test_support.h"

namespace varkesh {
namespace {

template <class T>
T& Child(QWidget& parent, const char* name) {
  T* child = parent.findChild<T*>(name);
  if (child == nullptr) throw std::runtime_error(std::string("no control ") + name);
  return *child;
}

TEST(NewGameDialog, OpensWithTheLastPlayersAndTheProposedNameSelected) {
  NewGameDialog dialog({0, 3, 1, 2}, "Moat Keep", nullptr);
  auto& name = Child<QLineEdit>(dialog, "txtGameName");
  EXPECT_EQ(name.text(), "Moat Keep");
  EXPECT_EQ(name.selectedText(), "Moat Keep");
  EXPECT_EQ(Child<QComboBox>(dialog, "cmbPlayer1").currentText(), "Computer - Defensive");
  EXPECT_EQ(Child<QComboBox>(dialog, "cmbPlayer3").currentIndex(), kBalanced);
  EXPECT_TRUE(Child<QRadioButton>(dialog, "optGameType0").isChecked());
  EXPECT_TRUE(Child<QRadioButton>(dialog, "optKingCapture0").isChecked());
  EXPECT_EQ(Child<QLabel>(dialog, "lblPlayer2").buddy(), &Child<QComboBox>(dialog, "cmbPlayer2"));
  EXPECT_EQ(Child<QLabel>(dialog, "lblGameName").buddy(), &name);
}

TEST(NewGameDialog, StartNeedsANameThatIsNotOnlyBlanks) {
  NewGameDialog dialog({}, "Moat Keep", nullptr);
  dialog.show();
  auto& name = Child<QLineEdit>(dialog, "txtGameName");
  auto& start = Child<QPushButton>(dialog, "cmdStart");
  name.selectAll();
  QTest::keyClicks(&name, "   ");
  EXPECT_FALSE(start.isEnabled());
  QTest::keyClick(&dialog, Qt::Key_Return);
  EXPECT_TRUE(dialog.isVisible()) << "Enter must not start a game without a name";
  QTest::keyClicks(&name, "x ");
  EXPECT_TRUE(start.isEnabled());
}

TEST(NewGameDialog, DoubleQuotesAreDroppedAsTheyAreTyped) {
  NewGameDialog dialog({}, "", nullptr);
  dialog.show();
  auto& name = Child<QLineEdit>(dialog, "txtGameName");
  QTest::keyClicks(&name, "Ab\"c\"d");
  EXPECT_EQ(name.text(), "Abcd");
  name.setCursorPosition(2);
  QTest::keyClick(&name, '"');
  QTest::keyClicks(&name, "X");
  EXPECT_EQ(name.text(), "AbXcd") << "the caret stays where the quote would have gone";
}

TEST(NewGameDialog, StartHandsOverTheChoicesWithTheNameTrimmed) {
  NewGameDialog dialog({}, "  Friday  ", nullptr);
  dialog.show();
  QTest::mouseClick(&Child<QRadioButton>(dialog, "optGameType2"), Qt::LeftButton);
  QTest::mouseClick(&Child<QRadioButton>(dialog, "optKingCapture1"), Qt::LeftButton);
  Child<QComboBox>(dialog, "cmbPlayer3").setCurrentIndex(kDefensive);
  QTest::mouseClick(&Child<QPushButton>(dialog, "cmdStart"), Qt::LeftButton);

  const NewGameChoice choice = dialog.Choice();
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_TRUE(choice.accepted);
  EXPECT_EQ(choice.name, "Friday");
  EXPECT_EQ(choice.gameType, kAnarchy);
  EXPECT_EQ(choice.kingCaptureRule, kKingdomLost);
  EXPECT_EQ(choice.players, (PerTeam<int>{kHuman, kHuman, kHuman, kDefensive}));
}

TEST(NewGameDialog, CancelAndEscapeAcceptNothing) {
  NewGameDialog cancelled({}, "Moat Keep", nullptr);
  cancelled.show();
  QTest::mouseClick(&Child<QPushButton>(cancelled, "cmdCancel"), Qt::LeftButton);
  EXPECT_FALSE(cancelled.Choice().accepted);

  NewGameDialog escaped({}, "Moat Keep", nullptr);
  escaped.show();
  QTest::keyClick(&escaped, Qt::Key_Escape);
  EXPECT_FALSE(escaped.isVisible());
  EXPECT_FALSE(escaped.Choice().accepted);
}

TEST(PawnOptionsDialog, ItsTimerFillsTheListAndChoosesTheFirstLine) {
  PawnOptionsDialog dialog({"Capture Black's Rook", "Free your Queen"}, nullptr);
  auto& list = Child<QListWidget>(dialog, "lstPawnOptions");
  dialog.show();
  EXPECT_EQ(list.count(), 0) << "filled by the timer, not at once";
  QTRY_COMPARE_WITH_TIMEOUT(list.count(), 2, 1000);
  EXPECT_EQ(list.currentRow(), 0);
  EXPECT_EQ(list.item(1)->text(), "Free your Queen");

  list.setCurrentRow(1);
  QTest::mouseClick(&Child<QPushButton>(dialog, "cmdSelect"), Qt::LeftButton);
  EXPECT_EQ(dialog.ChosenLine(), 1);
  EXPECT_FALSE(dialog.isVisible());
}

TEST(PawnOptionsDialog, WithoutOptionsItClosesByItself) {
  PawnOptionsDialog dialog({}, nullptr);
  dialog.show();
  QTRY_VERIFY_WITH_TIMEOUT(!dialog.isVisible(), 1000);
  EXPECT_EQ(dialog.ChosenLine(), -1);
}

TEST(PawnOptionsDialog, ClosingWithoutSelectChoosesNothing) {
  PawnOptionsDialog dialog({"Free your Knight"}, nullptr);
  dialog.show();
  QTRY_COMPARE_WITH_TIMEOUT(Child<QListWidget>(dialog, "lstPawnOptions").count(), 1, 1000);
  QTest::keyClick(&dialog, Qt::Key_Escape);
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(dialog.ChosenLine(), -1);
}

TEST(ConcedeDialog, OffersTheTeamsOnNumberedButtonsAndHidesTheRest) {
  ConcedeDialog dialog({kBlack, kRed}, nullptr);
  dialog.show();
  EXPECT_EQ(Child<QPushButton>(dialog, "cmdConcedeTeam0").text(), "&1 - Concede to Black");
  EXPECT_EQ(Child<QPushButton>(dialog, "cmdConcedeTeam1").text(), "&2 - Concede to Red");
  EXPECT_FALSE(Child<QPushButton>(dialog, "cmdConcedeTeam2").isVisible());

  QTest::mouseClick(&Child<QPushButton>(dialog, "cmdConcedeTeam1"), Qt::LeftButton);
  EXPECT_EQ(dialog.ConcedeTeam(), kRed);
  EXPECT_FALSE(dialog.isVisible());
}

TEST(ConcedeDialog, OnlyItsButtonsCloseIt) {
  ConcedeDialog dialog({kRed}, nullptr);
  dialog.show();
  QTest::keyClick(&dialog, Qt::Key_Escape);
  dialog.close();
  EXPECT_TRUE(dialog.isVisible());

  QTest::mouseClick(&Child<QPushButton>(dialog, "cmdWithdraw"), Qt::LeftButton);
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(dialog.ConcedeTeam(), 0);
}

}  // namespace
}  // namespace varkesh
