#include "ui/board_view.h"

#include <gtest/gtest.h>

#include <QImage>
#include <memory>
#include <string>
#include <vector>

#include "engine/general_engine.h"
#include "engine/random.h"
#include "persist/temp_folder.h"
#include "ui/board_art.h"
#include "ui/board_layout.h"

namespace varkesh {
namespace {

TEST(BoardLayout, PrisonersFillTriangleAfterTriangleFromTheCorners) {
  EXPECT_EQ(DungeonPlace(kWhite, 1), (PixelPoint{497, 548}));
  EXPECT_EQ(DungeonPlace(kWhite, 4), (PixelPoint{392, 548}));
  EXPECT_EQ(DungeonPlace(kWhite, 10), (PixelPoint{497, 443}));
  EXPECT_EQ(DungeonPlace(kWhite, 11), (PixelPoint{490, 541}));
  EXPECT_EQ(DungeonPlace(kBlue, 5), (PixelPoint{23, 462}));
  EXPECT_EQ(DungeonPlace(kBlack, 21), (PixelPoint{87, 36}));
  EXPECT_EQ(DungeonPlace(kRed, 9), (PixelPoint{513, 143}));
}

TEST(BoardLayout, SpritesAreFoundByKindAndTeam) {
  EXPECT_EQ(SpriteCell(kWhite, kPawn), (PixelPoint{0, 0}));
  EXPECT_EQ(SpriteCell(kRed, -kQueen), (PixelPoint{150, 90})) << "a frozen piece by its kind";
  EXPECT_EQ(SpriteCell(kBlue, 9), (PixelPoint{195, 30}));
  EXPECT_EQ(SpriteCell(kNoTeam, kKing), (PixelPoint{180, 105}));
}

TEST(BoardLayout, APathStepsHalfASquareBackOnEachBorder) {
  EXPECT_EQ(MovePath(5, 5, 8, 8),
            (std::vector<PathCell>{{385, {196, 196}}, {385, {231, 231}}, {385, {266, 266}}}))
      << "a bishop's three squares down and right";
  EXPECT_EQ(MovePath(10, 8, 8, 8), (std::vector<PathCell>{{140, {335, 283}}, {140, {300, 283}}}))
      << "a rook's two squares to the left";
  EXPECT_EQ(MovePath(7, 14, 6, 12), (std::vector<PathCell>{{210, {248, 475}}, {350, {230, 440}}}))
      << "a knight goes straight first, then diagonally";
  EXPECT_EQ(MovePath(8, 4, 9, 3), (std::vector<PathCell>{{280, {301, 125}}}));
  EXPECT_EQ(MovePath(9, 3, 8, 4), (std::vector<PathCell>{{315, {300, 126}}}));
  EXPECT_TRUE(MovePath(8, 8, 8, 8).empty());
}

// The board view over the real art, with a move sheet whose every cell is a
// solid colour of its own, so that a pixel tells which cell was drawn.
class BoardViewTest : public ::testing::Test {
 protected:
  BoardViewTest() {
    view = NewMainView(gdi);
    art = LoadBoardArt(gdi, engine, view, PackFile);
    art.history = CodedSheet(12, 6);
    art.victoryWords = CodedSheet(1, 5, 270, 95);
    boardView = std::make_unique<BoardView>(
        gdi, engine, art,
        BoardViewHooks{PackFile, [this](Menu menu) { return IsChecked(menu); },
                       [this] { return now; },
                       [this](const std::string& text) { frameRates.push_back(text); }});
  }

  static std::string PackFile(const std::string& entry) {
    return std::string(VARKESH_PACK_DIR) + "/" + entry + ".png";
  }

  bool IsChecked(Menu menu) const {
    for (Menu on : checked)
      if (on == menu) return true;
    return false;
  }

  // Masks black all over, and the cell in column c, row r of colour (c, r, 77).
  PicNum CodedSheet(int columns, int rows, int width = kSquarePixels, int height = kSquarePixels) {
    PicNum sheet = gdi.NewPicNum();
    gdi.CreateWorkspace(sheet, columns * width, rows * height);
    gdi.FillPicture(sheet, {0, 0, 0});
    PicNum patch = gdi.NewPicNum();
    gdi.CreateWorkspace(patch, width, height);
    for (int row = 1; row < rows; ++row) {
      for (int column = 0; column < columns; ++column) {
        gdi.FillPicture(patch, CellCode(column, row));
        gdi.Blit(patch, 0, 0, width, height, sheet, column * width, row * height, RasterOp::Copy);
      }
    }
    return sheet;
  }

  static Rgb CellCode(int column, int row) { return {column, row, 77}; }
  static Rgb MarkerCode(int cellX, int row) { return CellCode(cellX / kSquarePixels, row); }

  Rgb BackPixel(int x, int y) const {
    QRgb pixel = gdi.Picture(art.backBuffer).pixel(x, y);
    return {qRed(pixel), qGreen(pixel), qBlue(pixel)};
  }
  Rgb SquareMiddle(int x, int y) const {
    PixelPoint corner = SquareCorner(x, y);
    return BackPixel(corner.x + 17, corner.y + 17);
  }
  // Points of a square that a path ending there from below or from the left
  // leaves uncovered, and one starting there upward or rightward.
  Rgb EndProbe(int x, int y) const {
    PixelPoint corner = SquareCorner(x, y);
    return BackPixel(corner.x + 30, corner.y + 3);
  }
  Rgb StartProbe(int x, int y) const {
    PixelPoint corner = SquareCorner(x, y);
    return BackPixel(corner.x + 3, corner.y + 30);
  }
  QImage SquareImage(int x, int y) const {
    PixelPoint corner = SquareCorner(x, y);
    return gdi.Picture(art.backBuffer).copy(corner.x, corner.y, kSquarePixels, kSquarePixels);
  }

  void Put(int x, int y, int team, int piece) {
    game.board.at(x, y).team = team;
    game.board.at(x, y).piece = piece;
  }

  void Redraw() {
    game.boardChanged = true;
    boardView->DrawBoardWithPieces(game);
  }

  GeneralEngine engine;
  Random random{5};
  double now = 0.0;
  Gdi gdi{engine, [this] { return now; }, random};
  int view = 0;
  BoardArt art;
  std::vector<Menu> checked{Menu::OptionIndicator, Menu::History1};
  std::vector<std::string> frameRates;
  std::unique_ptr<BoardView> boardView;
  Game game;
};

TEST_F(BoardViewTest, TheArtOfThePackLoads) {
  for (PicNum pic : {art.board, art.boardCanvas, art.pieces, art.pieceMask, art.squareBase,
                     art.squareCanvas, art.squareMask, art.victory, art.flags, art.hintPiece,
                     art.hintMove, art.hintConfirm, art.hintShade})
    EXPECT_TRUE(gdi.IsValid(pic)) << "picture " << pic;
  EXPECT_EQ(gdi.PictureWidth(art.board), kViewPixels);
  EXPECT_EQ(gdi.PictureWidth(art.boardCanvas), kViewPixels);
  EXPECT_GE(gdi.PictureWidth(art.pieces), 225);
  EXPECT_GE(gdi.PictureHeight(art.pieces), 135);
  EXPECT_EQ(gdi.PictureWidth(art.squareCanvas), kSquarePixels);
}

TEST_F(BoardViewTest, AFrozenPieceIsDrawnByItsKindUnderTheFrost) {
  Redraw();
  QImage empty = SquareImage(8, 8);
  Put(8, 8, kRed, kQueen);
  Redraw();
  QImage live = SquareImage(8, 8);
  EXPECT_NE(live, empty);

  Put(8, 8, kRed, -kQueen);
  Redraw();
  EXPECT_EQ(SquareMiddle(8, 8), MarkerCode(kFrostCell, kRed));
  EXPECT_TRUE(game.viewChanged);
}

TEST_F(BoardViewTest, AMoveEndsInTheCaptureCellOnlyOnAnotherTeamsPiece) {
  Put(8, 10, kWhite, kKing);
  Put(10, 10, kWhite, kRook);
  Put(8, 6, kBlack, kPawn);
  Redraw();

  boardView->DrawMove(game, 8, 10, 10, 10, false);
  EXPECT_EQ(StartProbe(8, 10), MarkerCode(kMoveStartCell, kWhite));
  EXPECT_EQ(EndProbe(10, 10), MarkerCode(kMoveEndCell, kWhite)) << "the castle move";
  EXPECT_EQ(SquareMiddle(9, 10), MarkerCode(175, kWhite)) << "between the two steps right";
  EXPECT_TRUE(game.viewChanged);

  boardView->DrawMove(game, 8, 10, 8, 6, false);
  EXPECT_EQ(EndProbe(8, 6), MarkerCode(kCaptureEndCell, kWhite));

  boardView->DrawMove(game, 8, 10, 12, 10, true);
  EXPECT_EQ(StartProbe(8, 10), MarkerCode(kMoveStartCell, kPreviewRow));
  EXPECT_EQ(EndProbe(12, 10), MarkerCode(kMoveEndCell, kPreviewRow));
}

TEST_F(BoardViewTest, TheSelectionTakesTheColourOfThePieceOrOfThePreview) {
  Put(6, 6, kBlue, kKnight);
  Redraw();
  boardView->DrawSelection(game, 6, 6, false);
  EXPECT_EQ(SquareMiddle(6, 6), MarkerCode(kMoveStartCell, kBlue));
  boardView->DrawSelection(game, 7, 7, false);
  EXPECT_EQ(SquareMiddle(7, 7), MarkerCode(kMoveStartCell, kPreviewRow)) << "an empty square";
  boardView->DrawSelection(game, 6, 6, true);
  EXPECT_EQ(SquareMiddle(6, 6), MarkerCode(kMoveStartCell, kPreviewRow));
}

TEST_F(BoardViewTest, TheHistoryShowsAsManyMovesAsTheMenuAsks) {
  game.history[0] = {8, 12, 8, 11, kWhite, false};
  game.history[1] = {5, 8, 6, 8, kBlue, true};
  game.history[2] = {8, 5, 8, 4, kBlack, false};
  auto shown = [&] {
    Redraw();
    boardView->ShowHistory(game);
    return std::vector<bool>{EndProbe(8, 11) == MarkerCode(kMoveEndCell, kWhite),
                             EndProbe(6, 8) == MarkerCode(kCaptureEndCell, kBlue),
                             EndProbe(8, 4) == MarkerCode(kMoveEndCell, kBlack)};
  };
  checked = {Menu::History0};
  EXPECT_EQ(shown(), (std::vector<bool>{false, false, false}));
  checked = {Menu::History1};
  EXPECT_EQ(shown(), (std::vector<bool>{true, false, false}));
  checked = {Menu::History3};
  EXPECT_EQ(shown(), (std::vector<bool>{true, true, true}));

  game.history[0] = {};
  EXPECT_EQ(shown(), (std::vector<bool>{false, true, true})) << "an empty entry draws nothing";
}

TEST_F(BoardViewTest, TheStrobeRunsOverTheMoveableSquaresAtMostTwentyTimesASecond) {
  Redraw();
  game.moveablePieces.Add({8, 12});
  PixelPoint corner = SquareCorner(8, 12);
  Rgb board = BackPixel(corner.x, corner.y);
  Rgb middle = SquareMiddle(8, 12);
  auto strobeAt = [&](double time) {
    now = time;
    gdi.AdvanceStrobes();
    boardView->DrawSquares(game);
    return BackPixel(corner.x, corner.y);
  };

  checked = {};
  EXPECT_EQ(strobeAt(0.5), board) << "the indicator is off";
  checked = {Menu::OptionIndicator};
  Rgb first = strobeAt(0.5);
  EXPECT_EQ(first, gdi.StrobeColour(art.strobeSquares));
  EXPECT_EQ(strobeAt(0.54), first) << "too soon after the last";
  Rgb later = strobeAt(0.6);
  EXPECT_EQ(later, gdi.StrobeColour(art.strobeSquares));
  EXPECT_NE(later, first);
  EXPECT_EQ(SquareMiddle(8, 12), middle) << "the piece inside the frame stays in sight";
}

TEST_F(BoardViewTest, OneWinnersBannerStandsInTheMiddleAndTwoSideBySide) {
  game.winner = kBlack;
  game.coWinner = kNoTeam;
  boardView->DrawVictory(game);
  EXPECT_EQ(BackPixel(165 + 135, 300 + 47), CellCode(0, kBlack));
  EXPECT_NE(BackPixel(15 + 10, 300 + 47), CellCode(0, kBlack));

  game.winner = kWhite;
  game.coWinner = kBlue;
  boardView->DrawVictory(game);
  EXPECT_EQ(BackPixel(15 + 10, 300 + 47), CellCode(0, kWhite));
  EXPECT_EQ(BackPixel(330 + 260, 300 + 47), CellCode(0, kBlue));
}

TEST_F(BoardViewTest, TheFrameRateIsShownWithTwoDecimals) {
  boardView->UpdateFrameRate();
  now = 0.5;
  boardView->UpdateFrameRate();
  EXPECT_EQ(frameRates, (std::vector<std::string>{"-1.00", "4.00"}));
}

TEST(BoardArtLog, StartUpAnnouncesEachPictureInItsOrder) {
  testing::TempFolder folder;
  GeneralEngine engine;
  StartGeneralEngine(engine, 1, folder.Slashed());
  Random random;
  Gdi gdi(
      engine, [] { return 0.0; }, random);
  int view = NewMainView(gdi);
  LoadBoardArt(gdi, engine, view, [](const std::string& entry) {
    return std::string(VARKESH_PACK_DIR) + "/" + entry + ".png";
  });
  ShutdownGeneralEngine(engine);
  std::string log = testing::FileText(folder.File("engine.log"));

  std::size_t at = 0;
  for (const char* line : {"+ Picture to Load: gameboard", "+ Picture to Load: gamepieces",
                           "+ Picture to Load: piecemask", "+ Picture to Load: squarebase",
                           "+ Picture to Load: squaremask", "+ Picture to Load: victory",
                           "+ Picture to Load: flags", "+ Picture to Load: newvicword",
                           "+ Picture to Load: history", "+ Picture to Load: hintpiece",
                           "+ Picture to Load: hintmove", "+ Picture to Load: hintconfirm",
                           "+ Graphic to Create: HintShade", "+ Strobe to Load: strobeSquares"}) {
    std::size_t found = log.find(line, at);
    ASSERT_NE(found, std::string::npos) << line;
    at = found;
  }
  EXPECT_EQ(log.find("ERROR"), std::string::npos);
}

}  // namespace
}  // namespace varkesh
