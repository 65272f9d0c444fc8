// The board turned to each army and drawn at more than one scale: clicks
// land on the piece drawn under them, and the keyboard plays the moves meant.
#include <QKeyEvent>

#include "core/geometry.h"
#include "core/rules.h"
#include "engine/gdi.h"
#include "ui/board_turn.h"
#include "ui_test_support.h"

namespace varkesh {
namespace {

using test::RunningProgram;

// The tips of the four keeps, White, Blue, Black, Red.
constexpr SquarePoint kKeepTips[kTeamCount] = {{8, 16}, {0, 8}, {8, 0}, {16, 8}};

TEST(BoardTurn, EachArmyTurnedToTheBottomAndBackAgain) {
  for (int bottom = kWhite; bottom <= kRed; ++bottom) {
    SCOPED_TRACE(bottom);
    const SquarePoint tip = kKeepTips[bottom - 1];
    EXPECT_EQ(DrawnSquare(tip.x, tip.y, bottom), (SquarePoint{8, 16}));
    EXPECT_EQ(DrawnSide(bottom, bottom), 1);
    // The armies keep their order round the board: the next one clockwise is on the left.
    EXPECT_EQ(DrawnSide(bottom % kTeamCount + 1, bottom), 2);
    for (int y = 0; y < kBoardSide; ++y)
      for (int x = 0; x < kBoardSide; ++x) {
        const SquarePoint drawn = DrawnSquare(x, y, bottom);
        ASSERT_EQ(GameSquare(drawn.x, drawn.y, bottom), (SquarePoint{x, y}));
        ASSERT_EQ(OnDiamond(drawn.x, drawn.y), OnDiamond(x, y));
      }
  }
  EXPECT_EQ(GameSquare(17, 0, kBlue), (SquarePoint{17, 0})) << "off the board stays off";
}

// Which army is turned down otherwise is seen in the games played here and
// in NetPlay.
TEST(BoardTurn, UnturnedAtHomeAComputerOnTurnLeavesTheBoardAChoiceStandsInASession) {
  Game game;
  game.turn.gameMode = ModeChoosePiece;
  game.match.setup.playerKinds = {kHuman, kHuman, kAggressive, kHuman};
  game.match.position.currentTeam = kRed;
  EXPECT_EQ(BottomTeamFor(game, TurnChoice::Unchosen), kWhite) << "unturned at home";
  game.view.bottomTeam = kRed;
  game.match.position.currentTeam = kBlack;
  EXPECT_EQ(BottomTeamFor(game, TurnChoice::Mine), kRed);
  game.net.netRole = kNetClient;
  game.net.myNodeId = 3;
  game.net.seatNode = {1, 3, 2, 3};
  EXPECT_EQ(BottomTeamFor(game, TurnChoice::White), kWhite);
}

QRgb ScreenPixel(RunningProgram& run, QPoint at) {
  ViewWidget& view = run.window().view();
  const QImage& screen = run.program().gdi->ScreenImage(run.program().mainView);
  const QPoint local = at - view.contentsRect().topLeft();
  return screen.pixel(static_cast<int>(local.x() * view.devicePixelRatioF()),
                      static_cast<int>(local.y() * view.devicePixelRatioF()));
}

// The middle of the White Knight on the sheet of pieces, at the present scale.
QRgb KnightCentre(RunningProgram& run) {
  const Gdi& gdi = *run.program().gdi;
  constexpr int kSheetWidth = 225, kSheetHeight = 135, kKnightCentre = 4 * 30 + 15;
  for (PicNum pic = 0; gdi.PictureWidth(pic) >= 0; ++pic) {
    if (gdi.PictureWidth(pic) != kSheetWidth || gdi.PictureHeight(pic) != kSheetHeight) continue;
    const double scale = gdi.Scale();
    return gdi.Picture(pic).pixel(static_cast<int>((kKnightCentre + 0.5) * scale),
                                  static_cast<int>(15.5 * scale));
  }
  ADD_FAILURE() << "no sheet of pieces";
  return 0;
}

TEST(TurnedBoard, AClickOnTheDrawnSquareOfAPieceSelectsItAtEachTurnAndScale) {
  const TurnChoice choices[] = {TurnChoice::White, TurnChoice::Blue, TurnChoice::Black,
                                TurnChoice::Red};
  RunningProgram run;
  ASSERT_TRUE(run.Started());
  ASSERT_TRUE(run.StartFromTitle());
  Game& game = run.game();
  for (const double scale : {1.0, 2.0}) {
    ASSERT_TRUE(test::SetViewSide(run.window(), static_cast<int>(600 * scale)));
    ASSERT_TRUE(run.WaitFor([&] { return run.program().gdi->Scale() == scale; }, 3000)) << scale;
    for (int i = 0; i < kTeamCount; ++i) {
      SCOPED_TRACE(testing::Message() << "scale " << scale << ", turned to " << i + 1);
      run.window().SetChosenTurn(choices[i]);
      ASSERT_TRUE(run.WaitFor([&] { return game.view.bottomTeam == i + 1; }, 3000));
      QTest::qWait(50);  // drawn and shown
      // The White Knight at (7, 14) is what the screen shows under the click.
      const QPoint at = run.SquareCentre(7, 14);
      EXPECT_NEAR(qGray(ScreenPixel(run, at)), qGray(KnightCentre(run)), 40);
      QTest::mouseClick(&run.window().view(), Qt::LeftButton, {}, at);
      ASSERT_TRUE(run.WaitFor(ModeChooseDestination));
      EXPECT_EQ(std::pair(game.turn.moveFromX, game.turn.moveFromY), std::pair(7, 14));
      // A click on a square off the diamond lets it go again.
      QTest::mouseClick(&run.window().view(), Qt::LeftButton, {},
                        run.window().view().contentsRect().topLeft() + QPoint(4, 4));
      ASSERT_TRUE(run.WaitFor(ModeChoosePiece));
    }
  }
}

void Key(RunningProgram& run, Qt::Key key) {
  QTest::keyClick(&run.window().view(), key);
  QTest::qWait(30);  // a pass of the loop takes it
}

// Arrow keys until the cursor stands on the square (x, y) of the game.
void CursorTo(RunningProgram& run, int x, int y) {
  ViewState& view = run.game().view;
  if (!view.cursorShown) Key(run, Qt::Key_Down);
  for (int presses = 0; presses < 64; ++presses) {
    if (view.cursorX == x && view.cursorY == y) return;
    const SquarePoint at = DrawnSquare(view.cursorX, view.cursorY, view.bottomTeam);
    const SquarePoint to = DrawnSquare(x, y, view.bottomTeam);
    // Toward the target along an axis whose next square lies on the diamond.
    const SquarePoint down{at.x, at.y + (to.y > at.y ? 1 : -1)};
    const SquarePoint downSquare = GameSquare(down.x, down.y, view.bottomTeam);
    const bool vertical = at.y != to.y && OnDiamond(downSquare.x, downSquare.y);
    if (vertical)
      Key(run, to.y > at.y ? Qt::Key_Down : Qt::Key_Up);
    else if (at.x != to.x)
      Key(run, to.x > at.x ? Qt::Key_Right : Qt::Key_Left);
    else
      Key(run, to.y > at.y ? Qt::Key_Down : Qt::Key_Up);
  }
  ADD_FAILURE() << "the cursor did not reach " << x << "," << y;
}

// Tab until the cursor stands on the piece at (x, y).
void TabTo(RunningProgram& run, int x, int y) {
  const ViewState& view = run.game().view;
  for (int presses = 0; presses < 40; ++presses) {
    Key(run, Qt::Key_Tab);
    if (view.cursorX == x && view.cursorY == y) return;
  }
  ADD_FAILURE() << "Tab never reached " << x << "," << y;
}

// A round and a bit on a board turned to each army in its turn, each time
// another move the rules list, chosen, let go, chosen again and played.
TEST(TurnedBoard, MovesPlayedFromTheKeyboardAreTheMovesMeant) {
  RunningProgram run;
  ASSERT_TRUE(run.Started());
  ASSERT_TRUE(run.StartFromTitle());
  Game& game = run.game();
  ASSERT_EQ(game.view.bottomTeam, kWhite) << "unturned by default at home";
  run.window().SetChosenTurn(TurnChoice::Mine);
  run.window().view().setFocus();
  for (int i = 0; i < 6; ++i) {
    MoveList moves;
    ListMoves(game.match.position, moves);
    const Move move = moves[(7 * i) % moves.Count()];
    SCOPED_TRACE(testing::Message() << move.fromX << "," << move.fromY);
    ASSERT_TRUE(
        run.WaitFor([&] { return game.view.bottomTeam == game.match.position.currentTeam; }));
    TabTo(run, move.fromX, move.fromY);
    Key(run, Qt::Key_Space);
    ASSERT_TRUE(run.WaitFor(ModeChooseDestination));
    Key(run, Qt::Key_Escape);  // thought better of it
    ASSERT_TRUE(run.WaitFor(ModeChoosePiece));
    Key(run, Qt::Key_Return);
    ASSERT_TRUE(run.WaitFor(ModeChooseDestination));
    CursorTo(run, move.toX, move.toY);
    Key(run, Qt::Key_Return);
    ASSERT_TRUE(run.WaitFor(ModeConfirmMove));
    Key(run, Qt::Key_Return);
    ASSERT_TRUE(run.WaitFor([&] { return game.turn.gameMode != ModeConfirmMove; }));
    ASSERT_TRUE(run.WaitFor(ModeChoosePiece));
    ASSERT_EQ(game.match.record.events.size(), static_cast<std::size_t>(i + 1));
    EXPECT_TRUE(game.match.record.events.back().move.SameSquares(move));
  }
}

}  // namespace
}  // namespace varkesh
