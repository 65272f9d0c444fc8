// NetPlay between whole programs in one process, joined over a loopback
// port: the connect dialog, seats, a move played by clicks on a client, chat
// both ways, a seat taken over by the computer mid-selection, a boot and the
// closing question. Under VARKESH_SCREENSHOTS it also takes the
// pictures of the documentation.
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QTcpServer>
#include <QTextBlock>
#include <QTextEdit>

#include "ui/chat_window.h"
#include "ui/netplay_session.h"
#include "ui_test_support.h"

namespace varkesh {
namespace {

using namespace test;

ChatWindow& Chat(RunningProgram& run) {
  NetPlaySession* netPlay = run.window().netPlay();
  if (netPlay == nullptr) throw std::runtime_error("no NetPlay session is open");
  return netPlay->window();
}

QString History(RunningProgram& run) {
  return Child<QTextEdit>(Chat(run), "txtHistory").toPlainText();
}

QStringList NodeLines(RunningProgram& run) {
  QStringList lines;
  auto& list = Child<QListWidget>(Chat(run), "lstNodes");
  for (int i = 0; i < list.count(); ++i) lines << list.item(i)->text();
  return lines;
}

QString SeatCaption(RunningProgram& run, int team) {
  return Child<QLabel>(Chat(run), "lblPlayerName" + QString::number(team - 1)).text();
}

void SelectNode(RunningProgram& run, int node) {
  auto& list = Child<QListWidget>(Chat(run), "lstNodes");
  for (int i = 0; i < list.count(); ++i)
    if (list.item(i)->data(Qt::UserRole).toInt() == node) list.setCurrentRow(i);
}

// Through the NetPlay menu and the connect dialog, as the player does it.
void OpenNetPlay(RunningProgram& run, const char* entry, const QString& name, int port,
                 const char* shot = nullptr) {
  const auto fill = WhenModalOpens([&](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Varkesh (NetPlay)");
    auto& connect = Child<QPushButton>(dialog, "cmdConnect");
    EXPECT_FALSE(connect.isEnabled()) << "no name yet";
    QTest::keyClicks(&Child<QLineEdit>(dialog, "txtName"), name);
    auto& portBox = Child<QLineEdit>(dialog, "txtPort");
    EXPECT_EQ(portBox.text(), "5337");
    portBox.setText(QString::number(port));
    if (shot != nullptr) Shoot(run.window(), shot, &dialog);
    QTest::mouseClick(&connect, Qt::LeftButton);
  });
  run.window().findChild<QAction*>(entry)->trigger();
}

void Say(RunningProgram& run, const QString& text) {
  auto& entry = Child<QLineEdit>(Chat(run), "txtChat");
  entry.setFocus();
  QTest::keyClicks(&entry, text);
  QTest::keyClick(&entry, Qt::Key_Return);
}

bool HistoryShows(RunningProgram& run, const QString& line) {
  return run.WaitFor([&] { return History(run).split('\n').contains(line); }, 10000);
}

bool SameBoards(RunningProgram& a, RunningProgram& b) {
  return a.game().match.position.board.squares == b.game().match.position.board.squares &&
         a.game().match.position.currentTeam == b.game().match.position.currentTeam;
}

TEST(NetPlay, AHostAndTwoClientsPlayChatTradeSeatsAndPart) {
  const int port = FreePort();
  ASSERT_NE(port, 0);
  RunningProgram host, bo, cy;
  ASSERT_TRUE(host.Started() && bo.Started() && cy.Started());

  ASSERT_TRUE(
      host.WaitFor([&] { return host.game().turn.titleLoaded && bo.game().turn.titleLoaded; }));
  OpenNetPlay(host, "mnuNetPlayHost", "Ada", port, "connect-hosting");
  ChatWindow& hostChat = Chat(host);
  EXPECT_EQ(hostChat.windowTitle(), "Varkesh NetPlay");
  EXPECT_FALSE(hostChat.isModal());
  EXPECT_EQ(host.game().net.netRole, kNetHosting);
  EXPECT_FALSE(host.window().menuAction(Menu::NetPlay).isEnabled());
  EXPECT_TRUE(History(host).startsWith("Hosting as 'Ada' on IP="));
  EXPECT_EQ(NodeLines(host), QStringList{"Ada (host/you)"});
  EXPECT_EQ(SeatCaption(host, kWhite), "Ada(host/you)");

  // The client waits on the title for a game of the host's.
  OpenNetPlay(bo, "mnuNetPlayConnect", "Bo", port, "connect-joining");
  ChatWindow& boChat = Chat(bo);
  EXPECT_FALSE(Child<QPushButton>(boChat, "cmdChat").isEnabled()) << "before its node number";
  ASSERT_TRUE(bo.WaitFor([&] { return Child<QPushButton>(boChat, "cmdChat").isEnabled(); }));
  EXPECT_EQ(bo.game().net.netRole, kNetClient);
  for (const char* hidden :
       {"cmdBoot", "cmdAssign0", "cmdAgr1", "cmdDef3", "lblCompOpp", "cmbLevel2", "lblLevel"})
    EXPECT_TRUE(Child<QWidget>(boChat, hidden).isHidden()) << hidden;
  EXPECT_FALSE(Child<QWidget>(boChat, "cmdExit").isHidden());
  for (const Menu menu : {Menu::GameNew, Menu::GameLoad, Menu::GameSave, Menu::NetPlay})
    EXPECT_FALSE(bo.window().menuAction(menu).isEnabled());
  EXPECT_EQ(bo.game().turn.gameMode, ModeTitle);
  Shoot(bo.window(), "netplay-waiting");
  {  // Cy has passed the title and declined a game of its own
    const auto cancel = WhenModalOpens([](QWidget& dialog) { Click(dialog, "cmdCancel"); });
    cy.ClickSquare(8, 8);
    ASSERT_TRUE(
        cy.WaitFor([&] { return !cancel->isActive() && cy.game().turn.gameMode == ModeNoGame; }));
  }
  OpenNetPlay(cy, "mnuNetPlayConnect", "Cy", port);
  EXPECT_EQ(cy.game().turn.gameMode, ModeTitle) << "a client without a game waits on the title";
  const QStringList everyone{"Ada (host/you)", "Bo", "Cy"};
  ASSERT_TRUE(host.WaitFor([&] { return NodeLines(host) == everyone; }))
      << NodeLines(host).join('|').toStdString();
  ASSERT_TRUE(HistoryShows(bo, "     *** Cy has joined."));

  // The host starts a game of four human seats; everyone follows it.
  ASSERT_TRUE(host.StartFromTitle());
  ASSERT_TRUE(bo.WaitFor(ModeChoosePiece, kWhite));
  ASSERT_TRUE(cy.WaitFor(ModeChoosePiece, kWhite));
  EXPECT_TRUE(bo.window().view().PauseButton().isHidden());

  // White goes to Bo, Red to Cy.
  SelectNode(host, 1);
  Click(hostChat, "cmdAssign0");
  SelectNode(host, 2);
  Click(hostChat, "cmdAssign3");
  ASSERT_TRUE(bo.WaitFor([&] { return SeatCaption(bo, kWhite) == "Bo(you)"; }));
  EXPECT_EQ(SeatCaption(host, kWhite), "Bo");
  EXPECT_EQ(SeatCaption(bo, kBlue), "Ada(host)");
  ASSERT_TRUE(HistoryShows(cy, "     *** Red is now controlled by Cy"));
  // Unless told otherwise, each sees its own army at the bottom, the host
  // the first of its two.
  EXPECT_TRUE(cy.WaitFor([&] { return cy.game().view.bottomTeam == kRed; }));
  EXPECT_TRUE(bo.WaitFor([&] { return bo.game().view.bottomTeam == kWhite; }));
  EXPECT_TRUE(host.WaitFor([&] { return host.game().view.bottomTeam == kBlue; }));

  // Bo plays White by clicks; the host and Cy see it.
  ASSERT_TRUE(bo.ChooseByClicks({7, 14}, BoardSquare{6, 12}));
  ASSERT_TRUE(host.WaitFor(ModeConfirmMove)) << "the selection is mirrored";
  bo.ClickSquare(6, 12, Qt::RightButton);
  ASSERT_TRUE(host.WaitFor(ModeChoosePiece, kBlue));
  EXPECT_EQ(host.game().match.position.board.at(6, 12).piece, kKnight);
  EXPECT_EQ(host.game().match.position.board.at(6, 12).team, kWhite);
  ASSERT_TRUE(cy.WaitFor([&] { return SameBoards(cy, host); }));
  Shoot(host.window(), "netplay-board");

  // The host plays Blue and Black, Cy plays Red, Bo White, a few rounds.
  for (int round = 0; round < 3; ++round) {
    for (int team : {kBlue, kBlack}) {
      ASSERT_TRUE(host.WaitFor(ModeChoosePiece, team));
      ASSERT_TRUE(host.PlayByClicks(host.game().view.moveablePieces[1]));
      ASSERT_TRUE(bo.WaitFor([&] { return SameBoards(bo, host) && SameBoards(cy, host); }));
    }
    ASSERT_TRUE(cy.WaitFor(ModeChoosePiece, kRed));
    ASSERT_TRUE(cy.PlayByClicks(cy.game().view.moveablePieces[1]));
    ASSERT_TRUE(bo.WaitFor(ModeChoosePiece, kWhite));
    if (round < 2) {
      ASSERT_TRUE(bo.PlayByClicks(bo.game().view.moveablePieces[1]));
    }
  }

  // Chat both ways: blanks send nothing, "}" goes through, one's own lines
  // stand in italics.
  Say(bo, "   ");
  EXPECT_EQ(Child<QLineEdit>(boChat, "txtChat").text(), "   ");
  Child<QLineEdit>(boChat, "txtChat").clear();
  Say(bo, "GCHT}a move}or two");
  EXPECT_TRUE(Child<QLineEdit>(boChat, "txtChat").text().isEmpty());
  ASSERT_TRUE(HistoryShows(host, "Bo: GCHT}a move}or two"));
  ASSERT_TRUE(HistoryShows(bo, QString::fromUtf8(" \u00bbBo: GCHT}a move}or two")))
      << "the host sends the line back; it is Bo's own";
  Say(host, "Good } move, Bo");
  ASSERT_TRUE(HistoryShows(bo, "Ada: Good } move, Bo"));
  ASSERT_TRUE(HistoryShows(cy, "Ada: Good } move, Bo"));
  const QTextDocument& hostLines = *Child<QTextEdit>(hostChat, "txtHistory").document();
  const QTextBlock own = hostLines.find(QString::fromUtf8(" \u00bbAda: Good")).block();
  ASSERT_TRUE(own.isValid());
  EXPECT_TRUE(own.begin().fragment().charFormat().fontItalic());
  EXPECT_TRUE(own.begin().fragment().charFormat().font().bold());
  Shoot(hostChat, "netplay-host");
  Shoot(boChat, "netplay-client");

  // Bo has a White piece chosen when the host gives White to the computer:
  // the computer takes the turn at once, on every board.
  // Its level is the host's alone to choose: only the host plays computer moves.
  auto& level = Child<QComboBox>(hostChat, "cmbLevel0");
  EXPECT_EQ(level.currentText(), "Classic");
  host.window().SetThinkingTime(500);
  level.setCurrentIndex(level.findText("Club"));
  EXPECT_EQ(host.game().match.setup.levels[0], kLevelClub);
  ASSERT_TRUE(bo.ChooseByClicks(bo.game().view.moveablePieces[1]));
  ASSERT_TRUE(host.WaitFor(ModeConfirmMove, kWhite));
  Click(hostChat, "cmdDef0");
  EXPECT_EQ(host.game().turn.gameMode, ModeComputerThinks);
  ASSERT_TRUE(host.WaitFor(ModeChoosePiece, kBlue));
  EXPECT_EQ(host.game().match.position.history[0].team, kWhite);
  ASSERT_TRUE(bo.WaitFor([&] { return SameBoards(bo, host); }));
  EXPECT_EQ(SeatCaption(bo, kWhite), "Comp (Def)");
  EXPECT_EQ(bo.game().match.setup.playerKinds[0], kDefensive);
  EXPECT_EQ(bo.game().match.setup.levels[0], kLevelClassic) << "the level goes to nobody";
  EXPECT_EQ(level.currentText(), "Club");

  // Cy is booted while holding Red: Red falls back to the host.
  const auto reason = WhenModalOpens([](QWidget& box) {
    EXPECT_EQ(box.windowTitle(), "Boot User");
    EXPECT_TRUE(box.findChild<QLabel*>()->text().startsWith("Reason for booting 'Cy' ..."));
    box.findChild<QLineEdit*>()->setText("  lag  ");
    QTest::keyClick(box.findChild<QLineEdit*>(), Qt::Key_Return);
  });
  SelectNode(host, 2);
  Click(hostChat, "cmdBoot");
  ASSERT_TRUE(HistoryShows(cy, "***** You are being booted by the host!"));
  EXPECT_TRUE(History(cy).contains("REASON: '  lag  '")) << "the reason goes out as typed";
  ASSERT_TRUE(HistoryShows(host, "     *** Cy has disconnected"));
  ASSERT_TRUE(HistoryShows(bo, "   *** Cy is being booted by the host."));
  ASSERT_TRUE(host.WaitFor([&] { return NodeLines(host).size() == 2; }));
  EXPECT_EQ(SeatCaption(host, kRed), "Ada(host/you)");
  EXPECT_EQ(cy.game().net.netRole, kNetClient) << "a booted client keeps its window";

  // Bo leaves: No keeps the window, Yes closes it and gives the menus back.
  for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
    const auto asked = AnswerQuestion("Exit NetPlay?", answer);
    Click(boChat, "cmdExit");
    ASSERT_TRUE(bo.WaitFor([&] { return !asked->isActive(); }, 5000));
  }
  ASSERT_TRUE(bo.WaitFor([&] { return bo.window().netPlay() == nullptr; }));
  EXPECT_EQ(bo.game().net.netRole, kNetNone);
  for (const Menu menu : {Menu::GameNew, Menu::GameLoad, Menu::GameSave, Menu::NetPlay})
    EXPECT_TRUE(bo.window().menuAction(menu).isEnabled());
  EXPECT_FALSE(bo.window().view().PauseButton().isHidden()) << "White is the computer's";
  EXPECT_FALSE(bo.settings().Read("ChatWidth").empty());
  EXPECT_EQ(bo.settings().Read("ChatWindow"), "0");
  ASSERT_TRUE(HistoryShows(host, "     *** Bo has disconnected"));

  // The host's program ends with its NetPlay window open: no question.
  host.game().turn.gameSaved = true;
  host.window().close();
  ASSERT_TRUE(host.WaitFor([&] { return host.Ended(); }));
  EXPECT_FALSE(host.settings().Read("ChatTop").empty());
}

TEST(NetPlay, AHostThatCannotListenSaysSoAndGivesTheMenuBack) {
  QTcpServer taken;
  ASSERT_TRUE(taken.listen(QHostAddress::Any, 0));
  RunningProgram host;
  OpenNetPlay(host, "mnuNetPlayHost", "Ada", taken.serverPort());
  EXPECT_EQ(host.game().net.netRole, kNetNone);
  EXPECT_TRUE(host.window().menuAction(Menu::NetPlay).isEnabled());
  EXPECT_FALSE(Child<QPushButton>(Chat(host), "cmdDef0").isEnabled()) << "no seats to hand out";
}

TEST(NetPlay, CancellingTheConnectDialogOpensNothing) {
  RunningProgram run;
  const auto cancel = WhenModalOpens([](QWidget& dialog) {
    EXPECT_TRUE(Child<QLineEdit>(dialog, "txtIP").isHidden());
    Click(dialog, "cmdCancel");
  });
  run.window().findChild<QAction*>("mnuNetPlayHost")->trigger();
  EXPECT_EQ(run.game().net.netRole, kNetNone);
  EXPECT_EQ(run.window().netPlay(), nullptr);
  EXPECT_TRUE(run.window().menuAction(Menu::NetPlay).isEnabled());
}

}  // namespace
}  // namespace varkesh
