// The program's dialogs and its NetPlay windows on their own: what each
// offers, what it accepts, and what it gives back.
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextEdit>

#include "persist/settings.h"
#include "ui/chat_window.h"
#include "ui/concede_dialog.h"
#include "ui/connect_dialog.h"
#include "ui/new_game_dialog.h"
#include "ui/pawn_options_dialog.h"
#include "ui_test_support.h"

namespace varkesh {
namespace {

using namespace test;

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

TEST(ConnectDialog, ConnectNeedsANamePortAndWhenJoiningAnAddress) {
  for (const int role : {kNetHostDialog, kNetConnectDialog}) {
    Game game;
    game.net.netRole = role;
    ConnectDialog dialog(game, nullptr);
    dialog.show();
    const bool hosting = role == kNetHostDialog;
    EXPECT_EQ(Child<QLabel>(dialog, "lblConnectType").text(),
              hosting ? "Hosting ..." : "Connecting ...");
    EXPECT_EQ(Child<QLineEdit>(dialog, "txtIP").isVisible(), !hosting);
    EXPECT_EQ(Child<QLineEdit>(dialog, "txtIP").text(), "localhost");
    auto& connect = Child<QPushButton>(dialog, "cmdConnect");
    auto& address = Child<QLineEdit>(dialog, "txtIP");
    auto& port = Child<QLineEdit>(dialog, "txtPort");
    QTest::keyClicks(&Child<QLineEdit>(dialog, "txtName"), "  ");
    EXPECT_FALSE(connect.isEnabled()) << "a name of blanks";
    QTest::keyClicks(&Child<QLineEdit>(dialog, "txtName"), "Ada ");
    EXPECT_TRUE(connect.isEnabled());
    EXPECT_EQ(Child<QLineEdit>(dialog, "txtName").maxLength(), 64);
    address.setText("   ");
    EXPECT_EQ(connect.isEnabled(), hosting) << "the hidden address counts only when joining";
    address.setText(" 10.0.0.7 ");
    port.setText(" ");
    EXPECT_FALSE(connect.isEnabled());
    port.setText(" 6000x ");
    QTest::mouseClick(&connect, Qt::LeftButton);
    const ConnectChoice choice = dialog.Choice();
    EXPECT_EQ(choice.playerName, "Ada");
    EXPECT_EQ(choice.port, 6000);
    EXPECT_EQ(choice.hostAddress, hosting ? "" : "10.0.0.7");
    EXPECT_EQ(game.net.netRole, role);
  }
  EXPECT_EQ(LeadingNumber("port"), 0);
  EXPECT_EQ(LeadingNumber("99999999999"), std::numeric_limits<int>::max());
}

std::vector<net::ChatRun> Line(const std::string& text, Rgb colour = {127, 127, 0}) {
  return {net::ChatRun{text + "\r\n", colour, false, false}};
}

TEST(ChatWindow, TheHistoryLosesWholeLinesFromTheFrontAndShowsTheNewest) {
  Game game;
  ChatWindow window(game, nullptr, nullptr);
  window.show();
  auto& history = Child<QTextEdit>(window, "txtHistory");
  window.AppendChat(Line("first \u00bb line"), 0);
  window.AppendChat({{"Bo: ", {0, 0, 127}, true, false}, {"hi }\r\n", {0, 0, 127}, false, false}},
                    0);
  window.AppendChat(Line("third"), static_cast<int>(std::string("first \u00bb line\r\n").size()));
  EXPECT_EQ(history.toPlainText(), "Bo: hi }\nthird\n");
  const QTextFragment name = history.document()->begin().begin().fragment();
  EXPECT_EQ(name.text(), "Bo: ");
  EXPECT_TRUE(name.charFormat().font().bold());
  EXPECT_EQ(name.charFormat().foreground().color(), QColor(0, 0, 127));

  for (int i = 0; i < 200; ++i) window.AppendChat(Line("line " + std::to_string(i)), 0);
  QScrollBar& scroll = *history.verticalScrollBar();
  EXPECT_GT(scroll.maximum(), 0);
  EXPECT_EQ(scroll.value(), scroll.maximum());
}

TEST(ChatWindow, ResizingKeepsTheSmallestSizeAndStretchesOnlyTheChat) {
  Game game;
  ChatWindow window(game, nullptr, nullptr);
  window.show();
  auto& history = Child<QTextEdit>(window, "txtHistory");
  auto& entry = Child<QLineEdit>(window, "txtChat");
  auto& nodes = Child<QWidget>(window, "lstNodes");
  const QRect seatButton = Child<QPushButton>(window, "cmdAgr2").geometry();
  window.resize(60, 60);
  QTest::qWait(20);
  EXPECT_EQ(window.width(), 2 * nodes.x() + nodes.width());
  EXPECT_EQ(window.height(), history.y() + 4 * entry.height());

  window.resize(800, 520);
  QTest::qWait(20);
  const int margin = Child<QPushButton>(window, "cmdAssign0").width() / 2;
  EXPECT_EQ(entry.geometry().right() + 1, 800 - margin);
  EXPECT_EQ(history.geometry().right() + 1, 800 - margin);
  EXPECT_EQ(history.geometry().bottom() + 1, 520 - Child<QPushButton>(window, "cmdChat").height());
  EXPECT_EQ(Child<QPushButton>(window, "cmdAgr2").geometry(), seatButton);
}

TEST(ChatWindow, ItsPlaceIsKeptAndTheProgramsOwnCloseAsksNothing) {
  QTemporaryDir folder;
  SettingsStore store(folder.filePath("settings.ini").toStdString());
  Game game;
  {
    ChatWindow window(game, &store, nullptr);
    window.show();
    window.setGeometry(40, 50, 640, 470);
    window.CloseBySystem();
    EXPECT_FALSE(window.isVisible());
  }
  EXPECT_EQ(store.Read("ChatWidth"), "640");
  EXPECT_EQ(store.Read("ChatWindow"), "0");
  ChatWindow window(game, &store, nullptr);
  EXPECT_EQ(window.geometry(), QRect(40, 50, 640, 470));
  EXPECT_FALSE(window.isModal());
}

}  // namespace
}  // namespace varkesh
