// Take Back Move between two whole programs over a loopback port: the menu
// entry follows whose move can be taken back, the host takes back its own
// move by itself, and a client's request is answered in the host's box.
#include <QAction>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>

#include "ui/chat_window.h"
#include "ui/netplay_session.h"
#include "ui_controls.h"
#include "ui_test_support.h"

namespace varkesh {
namespace {

using test::RunningProgram;

using test::FreePort;

void Open(RunningProgram& run, const char* entry, const QString& name, int port) {
  const auto fill = test::WhenModalOpens([&](QWidget& dialog) {
    QTest::keyClicks(dialog.findChild<QLineEdit*>("txtName"), name);
    dialog.findChild<QLineEdit*>("txtPort")->setText(QString::number(port));
    QTest::mouseClick(dialog.findChild<QPushButton*>("cmdConnect"), Qt::LeftButton);
  });
  run.window().findChild<QAction*>(entry)->trigger();
}

// The team on turn's first moveable piece to its first destination, by clicks.
bool PlayByClicks(RunningProgram& run) {
  return run.PlayByClicks(run.game().view.moveablePieces[1]);
}

QAction& TakeBackEntry(RunningProgram& run) {
  return *run.window().findChild<QAction*>("mnuGameTakeBack");
}

TEST(NetPlayTakeback, TheHostTakesBackItsOwnMoveAndAnswersAClientsRequest) {
  const int port = FreePort();
  ASSERT_NE(port, 0);
  RunningProgram host, bo;
  ASSERT_TRUE(host.Started() && bo.Started());
  ASSERT_TRUE(
      host.WaitFor([&] { return host.game().turn.titleLoaded && bo.game().turn.titleLoaded; }));
  Open(host, "mnuNetPlayHost", "Ada", port);
  Open(bo, "mnuNetPlayConnect", "Bo", port);
  ChatWindow& hostChat = host.window().netPlay()->window();
  ASSERT_TRUE(
      host.WaitFor([&] { return hostChat.findChild<QListWidget*>("lstNodes")->count() == 2; }));
  ASSERT_TRUE(host.StartFromTitle());
  ASSERT_TRUE(bo.WaitFor(ModeChoosePiece, kWhite));
  hostChat.findChild<QListWidget*>("lstNodes")->setCurrentRow(1);
  QTest::mouseClick(hostChat.findChild<QAbstractButton*>("cmdAssign0"), Qt::LeftButton);
  ASSERT_TRUE(bo.WaitFor([&] { return bo.game().net.seatNode[0] == 1; }));

  // Bo plays White, Ada Blue: the entry is each one's only after its own move.
  const Match whitesTurn = host.game().match;
  ASSERT_TRUE(PlayByClicks(bo));
  ASSERT_TRUE(host.WaitFor(ModeChoosePiece, kBlue));
  EXPECT_TRUE(bo.WaitFor([&] { return TakeBackEntry(bo).isEnabled(); }));
  EXPECT_FALSE(TakeBackEntry(host).isEnabled());
  const Match bluesTurn = host.game().match;
  ASSERT_TRUE(PlayByClicks(host));
  ASSERT_TRUE(bo.WaitFor(ModeChoosePiece, kBlack));
  EXPECT_TRUE(host.WaitFor([&] { return TakeBackEntry(host).isEnabled(); }));
  EXPECT_TRUE(bo.WaitFor([&] { return !TakeBackEntry(bo).isEnabled(); }));

  // The host's own move goes back without a question.
  TakeBackEntry(host).trigger();
  EXPECT_EQ(host.game().match.position, bluesTurn.position);
  ASSERT_TRUE(bo.WaitFor([&] { return bo.game().match.position == bluesTurn.position; }));
  EXPECT_EQ(bo.game().match.record, bluesTurn.record);

  // Bo's move goes back once Ada allows it.
  QString asked;
  const auto allow = test::WhenModalOpens([&asked](QWidget& box) {
    asked = box.windowTitle() + "|" + static_cast<QMessageBox&>(box).text();
    QTest::mouseClick(static_cast<QMessageBox&>(box).button(QMessageBox::Yes), Qt::LeftButton);
  });
  ASSERT_TRUE(bo.WaitFor([&] { return TakeBackEntry(bo).isEnabled(); }));
  TakeBackEntry(bo).trigger();
  ASSERT_TRUE(host.WaitFor([&] { return host.game().match.position == whitesTurn.position; }));
  EXPECT_EQ(asked, "Take Back Move?|Bo asks to take back White's last move. Allow it?");
  ASSERT_TRUE(bo.WaitFor([&] { return bo.game().match.position == whitesTurn.position; }));
  EXPECT_EQ(bo.game().match.record, whitesTurn.record);
  EXPECT_TRUE(bo.WaitFor(ModeChoosePiece, kWhite));
  EXPECT_FALSE(bo.window().findChild<QAction*>("mnuGameRedo")->isEnabled());
  host.game().turn.gameSaved = true;
  bo.game().turn.gameSaved = true;
}

}  // namespace
}  // namespace varkesh
