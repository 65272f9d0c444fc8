// The main window and its board view on their own, without the program's
// loop: the layout, the drawing, the clicks and the menus.
#include <QAction>
#include <QLabel>
#include <memory>

#include "engine/general_engine.h"
#include "ui/board_art.h"
#include "ui/board_layout.h"
#include "ui/board_view.h"
#include "ui/qt_outside.h"
#include "ui_test_support.h"

namespace varkesh {
namespace {

TEST(BoardLayout, PrisonersFillTriangleAfterTriangleFromTheCorners) {
  const struct {
    int team, index;
    PixelPoint at;
  } cases[] = {{kWhite, 1, {497, 548}},  {kWhite, 4, {392, 548}}, {kWhite, 10, {497, 443}},
               {kWhite, 11, {490, 541}}, {kBlue, 5, {23, 462}},   {kBlack, 21, {87, 36}},
               {kRed, 9, {513, 143}}};
  for (const auto& c : cases)
    EXPECT_EQ(DungeonPlace(c.team, c.index), c.at) << "team " << c.team << " index " << c.index;
}

TEST(BoardLayout, APathStepsHalfASquareBackOnEachBorder) {
  EXPECT_EQ(MovePath(5, 5, 8, 8),
            (std::vector<PathCell>{{385, {196, 196}}, {385, {231, 231}}, {385, {266, 266}}}))
      << "a bishop's three squares down and right";
  EXPECT_EQ(MovePath(10, 8, 8, 8), (std::vector<PathCell>{{140, {335, 283}}, {140, {300, 283}}}))
      << "a rook's two squares to the left";
  EXPECT_EQ(MovePath(7, 14, 6, 12), (std::vector<PathCell>{{210, {248, 475}}, {350, {230, 440}}}))
      << "a knight goes straight first, then diagonally";
}

// The board view over the real art, but with a move sheet whose every cell has
// a colour of its own, (column, row, 77), under a mask row left black, so that
// a pixel tells which cell was drawn.
class BoardViewTest : public ::testing::Test {
 protected:
  BoardViewTest() {
    const EntryPath packFile = [](const std::string& entry) {
      return std::string(VARKESH_PACK_DIR) + "/" + entry + ".png";
    };
    art = LoadBoardArt(gdi, engine, NewMainView(gdi), packFile);
    gdi.CreateWorkspace(art.history, 12 * kSquarePixels, 6 * kSquarePixels);
    const PicNum cell = gdi.NewPicNum();
    gdi.CreateWorkspace(cell, kSquarePixels, kSquarePixels);
    for (int row = 1; row < 6; ++row)
      for (int column = 0; column < 12; ++column) {
        gdi.FillPicture(cell, {column, row, 77});
        gdi.Blit(cell, 0, 0, kSquarePixels, kSquarePixels, art.history, column * kSquarePixels,
                 row * kSquarePixels, RasterOp::Copy);
      }
    boardView = std::make_unique<BoardView>(
        gdi, engine, art,
        BoardViewHooks{packFile, [](Menu) { return false; }, [] { return 0.0; }, {}});
  }

  static Rgb Cell(int cellX, int row) { return {cellX / kSquarePixels, row, 77}; }
  // By default the middle of the square; (30, 3) is left free by a path that
  // arrives from below or the left, (3, 30) by one that leaves up or right.
  Rgb Pixel(int x, int y, int dx = 17, int dy = 17) const {
    const PixelPoint corner = SquareCorner(x, y);
    const QRgb pixel = gdi.Picture(art.backBuffer).pixel(corner.x + dx, corner.y + dy);
    return {qRed(pixel), qGreen(pixel), qBlue(pixel)};
  }
  void Put(int x, int y, int team, int piece) {
    game.match.position.board.at(x, y).team = team;
    game.match.position.board.at(x, y).piece = piece;
    game.view.boardChanged = true;
  }

  GeneralEngine engine;
  Random random;
  Gdi gdi{engine, [] { return 0.0; }, random};
  BoardArt art;
  std::unique_ptr<BoardView> boardView;
  Game game;
};

TEST_F(BoardViewTest, AFrozenPieceIsDrawnByItsKindUnderTheFrostOfItsTeam) {
  EXPECT_EQ(SpriteCell(kRed, -kQueen), SpriteCell(kRed, kQueen));
  Put(8, 8, kRed, kQueen);
  boardView->DrawBoardWithPieces(game);
  EXPECT_NE(Pixel(8, 8), Cell(kFrostCell, kRed));
  Put(8, 8, kRed, -kQueen);
  boardView->DrawBoardWithPieces(game);
  EXPECT_EQ(Pixel(8, 8), Cell(kFrostCell, kRed));
}

TEST_F(BoardViewTest, AMoveEndsInTheCaptureCellOnlyOnAnotherTeamsPiece) {
  Put(8, 10, kWhite, kKing);
  Put(10, 10, kWhite, kRook);
  Put(8, 6, kBlack, kPawn);
  boardView->DrawBoardWithPieces(game);
  boardView->DrawMove(game, 8, 10, 10, 10, false);
  EXPECT_EQ(Pixel(8, 10, 3, 30), Cell(kMoveStartCell, kWhite));
  EXPECT_EQ(Pixel(9, 10), Cell(175, kWhite)) << "between the two steps right";
  EXPECT_EQ(Pixel(10, 10, 30, 3), Cell(kMoveEndCell, kWhite)) << "the castle move";
  boardView->DrawMove(game, 8, 10, 8, 6, false);
  EXPECT_EQ(Pixel(8, 6, 30, 3), Cell(kCaptureEndCell, kWhite));
  boardView->DrawMove(game, 8, 10, 12, 10, true);
  EXPECT_EQ(Pixel(12, 10, 30, 3), Cell(kMoveEndCell, kPreviewRow));
}

TEST_F(BoardViewTest, AHumanSeatInASessionIsNamedByItsPlayerAComputerSeatByItsKind) {
  std::string sessionName;
  BoardViewHooks hooks{nullptr, [](Menu) { return false; }, [] { return 0.0; }, {}};
  hooks.seatPlayerName = [&sessionName](const Game&, int) { return sessionName; };
  BoardView named(gdi, engine, art, hooks);
  const QRect whiteName(325, 578, 150, 20);
  const auto drawn = [&](BoardView& view, int whiteKind) {
    game.match.setup.playerKinds[0] = whiteKind;
    game.view.boardChanged = true;
    view.DrawBoardWithPieces(game);
    return gdi.Picture(art.backBuffer).copy(whiteName);
  };
  const QImage human = drawn(*boardView, kHuman);
  EXPECT_EQ(drawn(named, kHuman), human) << "outside a session the seat reads Human";
  sessionName = "Bo the Bold";
  EXPECT_NE(drawn(named, kHuman), human);
  EXPECT_EQ(drawn(named, kAggressive), drawn(*boardView, kAggressive));
}

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
