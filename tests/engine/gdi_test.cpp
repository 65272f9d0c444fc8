#include "engine/gdi.h"

#include <gtest/gtest.h>

#include <QImage>
#include <vector>

#include "engine/general_engine.h"
#include "engine/random.h"
#include "persist/temp_folder.h"

namespace varkesh {
namespace {

constexpr Rgb kTeal{10, 200, 30};
constexpr Rgb kRed{230, 20, 40};
constexpr Rgb kBlack{0, 0, 0};
constexpr Rgb kWhite{255, 255, 255};

class GdiTest : public ::testing::Test {
 protected:
  PicNum Workspace(int width, int height, Rgb fill) {
    PicNum pic = gdi.NewPicNum();
    gdi.CreateWorkspace(pic, width, height);
    gdi.FillPicture(pic, fill);
    return pic;
  }

  // Paints a rectangle of a picture in one colour, by way of a blit.
  void Paint(PicNum pic, const QRect& area, Rgb colour) {
    PicNum patch = Workspace(area.width(), area.height(), colour);
    gdi.Blit(patch, 0, 0, area.width(), area.height(), pic, area.x(), area.y(), RasterOp::Copy);
  }

  Rgb Pixel(PicNum pic, int x, int y) const { return Colour(gdi.Picture(pic), x, y); }

  static Rgb Colour(const QImage& image, int x, int y) {
    QRgb pixel = image.pixel(x, y);
    return {qRed(pixel), qGreen(pixel), qBlue(pixel)};
  }

  GeneralEngine engine;
  Random random{7};
  double now = 0.0;
  Gdi gdi{engine, [this] { return now; }, random};
};

TEST_F(GdiTest, OnlyNumbersHandedOutHaveASize) {
  EXPECT_EQ(gdi.PictureWidth(0), -1);
  EXPECT_EQ(gdi.PictureHeight(-1), -1);
  PicNum pic = Workspace(12, 7, kBlack);
  EXPECT_EQ(gdi.PictureWidth(pic), 12);
  EXPECT_EQ(gdi.PictureHeight(pic), 7);
  EXPECT_EQ(gdi.PictureWidth(pic + 1), -1);
}

TEST_F(GdiTest, ClearingAPictureNeverLoadedOnlyMarksItCleared) {
  PicNum pic = gdi.NewPicNum();
  gdi.ClearPicture(pic);
  EXPECT_TRUE(gdi.IsCleared(pic));
  EXPECT_FALSE(gdi.IsValid(pic));

  // The number stays usable for a new surface.
  gdi.CreateWorkspace(pic, 3, 3);
  EXPECT_TRUE(gdi.IsValid(pic));
  EXPECT_FALSE(gdi.IsCleared(pic));
}

TEST_F(GdiTest, BlitCopiesOrCombinesThePixelsBitwise) {
  const Rgb target{0xF0, 0x0F, 0xAA};
  const Rgb source{0x3C, 0x3C, 0x0F};
  PicNum from = Workspace(2, 2, source);
  PicNum copied = Workspace(2, 2, target);
  PicNum anded = Workspace(2, 2, target);
  PicNum ored = Workspace(2, 2, target);
  gdi.Blit(from, 0, 0, 2, 2, copied, 0, 0, RasterOp::Copy);
  gdi.Blit(from, 0, 0, 2, 2, anded, 0, 0, RasterOp::And);
  gdi.Blit(from, 0, 0, 2, 2, ored, 0, 0, RasterOp::Or);
  EXPECT_EQ(Pixel(copied, 1, 1), source);
  EXPECT_EQ(Pixel(anded, 1, 1), (Rgb{0x30, 0x0C, 0x0A}));
  EXPECT_EQ(Pixel(ored, 1, 1), (Rgb{0xFC, 0x3F, 0xAF}));
}

TEST_F(GdiTest, MaskedBlitDrawsTheSourceOnlyWhereTheMaskIsBlack) {
  PicNum target = Workspace(20, 20, kTeal);
  PicNum sprite = Workspace(8, 8, kBlack);
  Paint(sprite, QRect(2, 2, 4, 4), kRed);
  PicNum mask = Workspace(8, 8, kWhite);
  Paint(mask, QRect(2, 2, 4, 4), kBlack);

  gdi.MaskedBlit(sprite, 0, 0, 8, 8, mask, 0, 0, target, 10, 10);
  EXPECT_EQ(Pixel(target, 10, 10), kTeal) << "white mask, black source: the target stays";
  EXPECT_EQ(Pixel(target, 17, 17), kTeal);
  EXPECT_EQ(Pixel(target, 13, 13), kRed);
  EXPECT_EQ(Pixel(target, 9, 9), kTeal) << "nothing outside the rectangle";
}

TEST_F(GdiTest, MaskedBlitMayTakeSpriteAndMaskFromOneSheet) {
  // A sheet in the manner of the move markers: the mask left, the sprite right.
  PicNum sheet = Workspace(8, 4, kBlack);
  Paint(sheet, QRect(0, 0, 4, 4), kWhite);
  Paint(sheet, QRect(1, 1, 2, 2), kBlack);
  Paint(sheet, QRect(5, 1, 2, 2), kRed);
  PicNum target = Workspace(4, 4, kTeal);
  gdi.MaskedBlit(sheet, 4, 0, 4, 4, sheet, 0, 0, target, 0, 0);
  EXPECT_EQ(Pixel(target, 0, 0), kTeal);
  EXPECT_EQ(Pixel(target, 2, 2), kRed);
}

TEST_F(GdiTest, ABlitWithinOnePictureReadsThePixelsAsTheyWere) {
  PicNum strip = Workspace(4, 1, kBlack);
  Paint(strip, QRect(0, 0, 1, 1), kRed);
  Paint(strip, QRect(1, 0, 1, 1), kTeal);
  gdi.Blit(strip, 0, 0, 3, 1, strip, 1, 0, RasterOp::Copy);
  EXPECT_EQ(Pixel(strip, 0, 0), kRed);
  EXPECT_EQ(Pixel(strip, 1, 0), kRed);
  EXPECT_EQ(Pixel(strip, 2, 0), kTeal);
  EXPECT_EQ(Pixel(strip, 3, 0), kBlack);
}

TEST_F(GdiTest, DrawingFromAPictureWithoutPixelsChangesNothing) {
  PicNum target = Workspace(4, 4, kTeal);
  PicNum empty = gdi.NewPicNum();
  gdi.Blit(empty, 0, 0, 4, 4, target, 0, 0, RasterOp::Copy);
  gdi.Blit(empty + 1, 0, 0, 4, 4, target, 0, 0, RasterOp::Copy);
  EXPECT_EQ(Pixel(target, 2, 2), kTeal);
}

struct Shown {
  std::vector<QRect> repaints;
  QSize size;
};

class GdiViewTest : public GdiTest {
 protected:
  int Viewport(int width, int height, QSize windowSize) {
    int view = gdi.NewViewport("picTest", width, height);
    window.size = windowSize;
    gdi.AttachWindow(view, {[this] { return window.size; },
                            [this](const QRect& area) { window.repaints.push_back(area); }});
    return view;
  }

  Shown window;
};

TEST_F(GdiViewTest, ShowingAViewCopiesWhatChangedAndStartsTheRectangleAgain) {
  int view = Viewport(40, 30, QSize(40, 30));
  PicNum back = gdi.BackBuffer(view);
  EXPECT_EQ(gdi.Dirty(view), (DirtyEdges{0, 0, 40, 30})) << "a new view is dirty all over";
  gdi.ShowViewport(view);
  EXPECT_EQ(gdi.Dirty(view), (DirtyEdges{0, 0, 0, 0}));

  Paint(back, QRect(20, 10, 5, 5), kRed);
  EXPECT_EQ(gdi.Dirty(view), (DirtyEdges{0, 0, 25, 15}));
  Paint(back, QRect(2, 3, 1, 1), kTeal);
  EXPECT_EQ(gdi.Dirty(view), (DirtyEdges{0, 0, 25, 15}));

  gdi.ShowViewport(view);
  EXPECT_EQ(window.repaints.back(), QRect(0, 0, 26, 16));
  EXPECT_EQ(Colour(gdi.ScreenImage(view), 22, 12), kRed);
  EXPECT_EQ(Colour(gdi.ScreenImage(view), 2, 3), kTeal);
  EXPECT_EQ(gdi.Dirty(view), (DirtyEdges{0, 0, 0, 0}));
}

TEST_F(GdiViewTest, FillingABackBufferMakesItDirtyAllOver) {
  int view = Viewport(40, 30, QSize(40, 30));
  gdi.ShowViewport(view);
  gdi.FillPicture(gdi.BackBuffer(view), kTeal);
  EXPECT_EQ(gdi.Dirty(view), (DirtyEdges{0, 0, 40, 30}));
}

TEST_F(GdiViewTest, AWindowOfAnotherSizeShowsTheWholePictureStretched) {
  int view = Viewport(40, 40, QSize(80, 20));
  PicNum back = gdi.BackBuffer(view);
  Paint(back, QRect(0, 0, 20, 40), kRed);
  Paint(back, QRect(20, 0, 20, 40), kTeal);

  gdi.ShowViewport(view);
  const QImage& screen = gdi.ScreenImage(view);
  EXPECT_EQ(screen.size(), QSize(80, 20));
  EXPECT_EQ(Colour(screen, 10, 10), kRed);
  EXPECT_EQ(Colour(screen, 70, 10), kTeal);
  EXPECT_EQ(window.repaints.back(), QRect(0, 0, 80, 20));

  // The rectangle is left alone and goes on growing.
  EXPECT_EQ(gdi.Dirty(view), (DirtyEdges{0, 0, 40, 40}));
  Paint(back, QRect(30, 35, 20, 10), kBlack);
  EXPECT_EQ(gdi.Dirty(view), (DirtyEdges{0, 0, 50, 45}));
}

TEST_F(GdiViewTest, TextInAMissingFamilyIsStillDrawnAndMarkedChanged) {
  int view = Viewport(100, 40, QSize(100, 40));
  PicNum back = gdi.BackBuffer(view);
  gdi.FillPicture(back, kBlack);
  gdi.ShowViewport(view);

  gdi.DrawText(back, {"No Such Family Anywhere", 8, true}, kWhite, 10, 5, "Human");
  DirtyEdges dirty = gdi.Dirty(view);
  EXPECT_GT(dirty.right, 10 + 20);
  EXPECT_GT(dirty.bottom, 5 + 8);
  QImage written = gdi.Picture(back).copy(10, 5, dirty.right - 10, dirty.bottom - 5);
  QImage blank(written.size(), written.format());
  blank.fill(Qt::black);
  EXPECT_NE(written, blank);
  QImage left = gdi.Picture(back).copy(0, 0, 10, 40);
  QImage leftBlank(left.size(), left.format());
  leftBlank.fill(Qt::black);
  EXPECT_EQ(left, leftBlank) << "the text starts at its corner";
}

TEST_F(GdiTest, FrameRateIsFramesOverTheSecondsOfEachSpan) {
  EXPECT_EQ(gdi.FrameRate(250), -1.0);
  now = 0.1;
  EXPECT_EQ(gdi.FrameRate(250), -1.0);
  now = 0.2;
  EXPECT_EQ(gdi.FrameRate(250), -1.0);
  now = 0.32;
  EXPECT_DOUBLE_EQ(gdi.FrameRate(250), 4 / 0.32);
  now = 0.4;
  EXPECT_DOUBLE_EQ(gdi.FrameRate(250), 4 / 0.32) << "the rate stands until the next span ends";
  now = 0.6;
  EXPECT_DOUBLE_EQ(gdi.FrameRate(250), 2 / (0.6 - 0.32));
}

TEST_F(GdiTest, PicturesLoadWhateverTheirFilesAreCalled) {
  testing::TempFolder folder;
  QImage image(6, 5, QImage::Format_RGB32);
  image.fill(QColor(kRed.red, kRed.green, kRed.blue));
  std::string path = folder.File("entry.otm");
  ASSERT_TRUE(image.save(QString::fromStdString(path), "PNG"));

  PicNum pic = gdi.NewPicNum();
  gdi.LoadPicture(pic, path);
  ASSERT_TRUE(gdi.IsValid(pic));
  EXPECT_EQ(gdi.PictureWidth(pic), 6);
  EXPECT_EQ(gdi.PictureHeight(pic), 5);
  EXPECT_EQ(Pixel(pic, 3, 3), kRed);

  gdi.LoadPicture(pic, folder.File("missing.png"));
  EXPECT_FALSE(gdi.IsValid(pic));
}

TEST(GdiLog, EachLevelLogsItsOwnLines) {
  auto run = [](int level) {
    testing::TempFolder folder;
    GeneralEngine engine;
    StartGeneralEngine(engine, level, folder.Slashed());
    Random random;
    Gdi gdi(
        engine, [] { return 0.0; }, random);
    gdi.NewViewport("picViewPort", 60, 50);
    gdi.LoadPicture(gdi.NewPicNum(), folder.File("absent.png"));
    gdi.ShutdownGraphics();
    ShutdownGeneralEngine(engine);
    return testing::FileText(folder.File("engine.log"));
  };
  auto has = [](const std::string& log, const std::string& line) {
    return log.find(line) != std::string::npos;
  };

  std::string basic = run(1);
  EXPECT_TRUE(has(basic, ">> New Viewport Initialized: picViewPort <<"));
  EXPECT_TRUE(has(basic, "     Backbuffer set to 60x50"));
  EXPECT_TRUE(has(basic, "ERROR: Failure to get hBITMAP for file: "));
  EXPECT_TRUE(has(basic, ">> OstrelGDI Graphics Engine Shutdown <<"));
  EXPECT_FALSE(has(basic, "Handed out new PicNum"));

  std::string detailed = run(2);
  EXPECT_TRUE(has(detailed, "Handed out new PicNum: 0"));
  EXPECT_TRUE(has(detailed, "Creating Workspace for Pic #0: 60x50"));
  EXPECT_TRUE(has(detailed, "Loading Pic #1 from file: "));
  EXPECT_TRUE(has(detailed, "Cleared PicNum: 1"));
  EXPECT_LT(detailed.find("Cleared PicNum: 1"), detailed.find("Cleared PicNum: 0"))
      << "pictures are cleared from the last to the first";
}

}  // namespace
}  // namespace varkesh
