#include "engine/gdi.h"

#include <gtest/gtest.h>

#include <QRegion>
#include <numeric>
#include <tuple>
#include <vector>

#include "engine/general_engine.h"
#include "engine/random.h"
#include "engine/strobe.h"

namespace varkesh {
namespace {

constexpr Rgb kTeal{10, 200, 30};
constexpr Rgb kRed{230, 20, 40};
constexpr Rgb kBlack{0, 0, 0};
constexpr Rgb kWhite{255, 255, 255};

Rgb Colour(const QImage& image, int x, int y) {
  QRgb pixel = image.pixel(x, y);
  return {qRed(pixel), qGreen(pixel), qBlue(pixel)};
}

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

  int Viewport(int width, int height, QSize size) {
    windowSize = size;
    int view = gdi.NewViewport("picTest", width, height);
    Attach(view);
    return view;
  }
  void Attach(int view) {
    gdi.AttachWindow(view, {[this] { return windowSize; },
                            [this](const QRect& area) { repaints.push_back(area); }});
  }

  GeneralEngine engine;
  Random random{7};
  double now = 0.0;
  Gdi gdi{engine, [this] { return now; }, random};
  std::vector<QRect> repaints;
  QSize windowSize;  // of the window a view is shown in; empty when minimized
};

TEST_F(GdiTest, OnlyNumbersHandedOutHaveASizeAndOnlyPicturesWithPixelsAreDrawnFrom) {
  EXPECT_EQ(gdi.PictureWidth(0), -1);
  PicNum pic = Workspace(12, 7, kTeal);
  EXPECT_EQ(gdi.PictureWidth(pic), 12);
  EXPECT_EQ(gdi.PictureHeight(pic), 7);
  EXPECT_EQ(gdi.PictureHeight(pic + 1), -1);

  PicNum empty = gdi.NewPicNum();
  gdi.ClearPicture(empty);
  gdi.Blit(empty, 0, 0, 4, 4, pic, 0, 0, RasterOp::Copy);
  gdi.Blit(empty + 1, 0, 0, 4, 4, pic, 0, 0, RasterOp::Copy);
  EXPECT_EQ(Pixel(pic, 2, 2), kTeal);
  gdi.LoadPicture(pic, "/nonexistent/missing.png");
  EXPECT_FALSE(gdi.IsValid(pic)) << "a picture that cannot be read leaves none behind";
}

TEST_F(GdiTest, ShowingAViewRepaintsJustTheDrawnAreasThatChangedAndStartsAgain) {
  int view = Viewport(40, 30, QSize(40, 30));
  PicNum back = gdi.BackBuffer(view);
  EXPECT_EQ(gdi.Dirty(view), (DirtyEdges{0, 0, 40, 30})) << "a new view is dirty all over";
  gdi.ShowViewport(view);
  EXPECT_EQ(gdi.Dirty(view), (DirtyEdges{0, 0, 0, 0}));

  Paint(back, QRect(20, 10, 5, 5), kRed);
  Paint(back, QRect(2, 3, 1, 1), kTeal);
  EXPECT_EQ(gdi.Dirty(view), (DirtyEdges{0, 0, 25, 15}));
  Paint(back, QRect(30, 20, 4, 4), kBlack);  // drawn, but as it was
  const std::size_t before = repaints.size();
  gdi.ShowViewport(view);
  const QRegion repainted =
      std::accumulate(repaints.begin() + static_cast<long>(before), repaints.end(), QRegion());
  EXPECT_EQ(repainted, QRegion(QRect(20, 10, 5, 5)) + QRect(2, 3, 1, 1))
      << "each drawn area on its own, just where it differs from the last show";
  EXPECT_EQ(Colour(gdi.ScreenImage(view), 22, 12), kRed);
  EXPECT_EQ(Colour(gdi.ScreenImage(view), 2, 3), kTeal);
  EXPECT_EQ(gdi.Dirty(view), (DirtyEdges{0, 0, 0, 0}));

  gdi.FillPicture(back, kTeal);
  EXPECT_EQ(gdi.Dirty(view), (DirtyEdges{0, 0, 40, 30}));
}

TEST_F(GdiTest, AWindowOfAnotherSizeShowsTheWholePictureStretched) {
  int view = Viewport(40, 40, QSize(80, 20));
  PicNum back = gdi.BackBuffer(view);
  Paint(back, QRect(0, 0, 20, 40), kRed);
  Paint(back, QRect(20, 0, 20, 40), kTeal);

  gdi.ShowViewport(view);
  const QImage& screen = gdi.ScreenImage(view);
  EXPECT_EQ(screen.size(), QSize(80, 20));
  EXPECT_EQ(Colour(screen, 10, 10), kRed);
  EXPECT_EQ(Colour(screen, 70, 10), kTeal);
  EXPECT_EQ(repaints.back(), QRect(0, 0, 80, 20));
  Paint(back, QRect(0, 0, 20, 40), kRed);
  gdi.ShowViewport(view);
  EXPECT_EQ(repaints.size(), 1u) << "the same picture again is not stretched anew";
  Paint(back, QRect(0, 0, 1, 1), kTeal);
  gdi.ShowViewport(view);
  EXPECT_EQ(repaints.size(), 2u);
}

TEST_F(GdiTest, AFrameThatChangedNothingIsNotRepaintedAndAMinimizedWindowWaits) {
  int view = Viewport(40, 30, QSize(40, 30));
  PicNum back = gdi.BackBuffer(view);
  Paint(back, QRect(0, 0, 40, 30), kTeal);
  gdi.ShowViewport(view);
  ASSERT_EQ(repaints.size(), 1u);

  Paint(back, QRect(0, 0, 40, 30), kTeal);  // as the title is drawn on each pass
  gdi.ShowViewport(view);
  EXPECT_EQ(repaints.size(), 1u);
  EXPECT_EQ(gdi.Dirty(view), (DirtyEdges{0, 0, 0, 0}));

  windowSize = QSize();  // minimized
  Paint(back, QRect(5, 6, 2, 2), kRed);
  gdi.ShowViewport(view);
  EXPECT_EQ(repaints.size(), 1u);
  windowSize = QSize(40, 30);
  gdi.ShowViewport(view);
  ASSERT_EQ(repaints.size(), 2u) << "what changed while minimized comes on show";
  EXPECT_EQ(repaints.back(), QRect(5, 6, 2, 2));
  EXPECT_EQ(Colour(gdi.ScreenImage(view), 6, 7), kRed);

  Attach(view);
  gdi.ShowViewport(view);
  EXPECT_EQ(repaints.back(), QRect(0, 0, 40, 30)) << "a new window is filled whole";
}

TEST_F(GdiTest, TextInAMissingFamilyIsStillDrawnAndMarkedChanged) {
  int view = Viewport(100, 40, QSize(100, 40));
  PicNum back = gdi.BackBuffer(view);
  gdi.ShowViewport(view);
  gdi.DrawText(back, {"No Such Family Anywhere", 8, true}, kWhite, 10, 5, "Human");
  const DirtyEdges dirty = gdi.Dirty(view);
  const QRect marked(QPoint(10, 5), QPoint(dirty.right - 1, dirty.bottom - 1));
  int inside = 0, outside = 0;
  for (int y = 0; y < 40; ++y)
    for (int x = 0; x < 100; ++x)
      if (Pixel(back, x, y) != kBlack) ++(marked.contains(x, y) ? inside : outside);
  EXPECT_GT(inside, 0);
  EXPECT_EQ(outside, 0) << "the text starts at its corner and stays in the rectangle";
}

constexpr Rgb kGreen{0, 64, 0};
constexpr Rgb kYellow{255, 255, 0};

StrobeRec Started(int type, Random& random, const Rgb& start = kGreen) {
  StrobeRec strobe;
  StartStrobe(strobe, {start, kYellow, type, 1.0, 0.0, type == 5 ? 20 : 0}, 0.0, random);
  return strobe;
}

TEST_F(GdiTest, StrobeBackAndForthIsAtItsStartAfterTwoPeriodsWithThePhaseTrue) {
  StrobeNum number = gdi.NewStrobe();
  gdi.InitStrobe(number, {kGreen, kYellow, 2, 1.0, 0.0, 0});
  StrobeRec strobe = Started(2, random);
  const std::tuple<double, Rgb, bool> expected[] = {{0.5, {127, 159, 0}, true},
                                                    {1.0, kYellow, false},
                                                    {1.5, {128, 160, 0}, false},
                                                    {2.0, kGreen, true}};
  for (const auto& [time, colour, phase] : expected) {
    now = time;
    gdi.AdvanceStrobes();
    AdvanceStrobe(strobe, time, random);
    EXPECT_EQ(gdi.StrobeColour(number), colour) << time << " s";
    EXPECT_EQ(strobe.phase, phase) << time << " s";
  }
  EXPECT_EQ(gdi.StrobeColour(number + 1), kBlack) << "a number out of range reads black";
}

TEST(Strobe, OtherSweepsStartOverOrMoveOnFromWhereTheyEnded) {
  Random zero = Random::Zero();  // draws black for every random colour
  StrobeRec simple = Started(1, zero), onward = Started(3, zero), mixed = Started(4, zero);
  for (StrobeRec* strobe : {&simple, &onward, &mixed}) AdvanceStrobe(*strobe, 1.0, zero);
  AdvanceStrobe(simple, 1.5, zero);
  EXPECT_EQ(simple.current, (Rgb{127, 159, 0}));
  EXPECT_EQ(std::tie(onward.settings.start, onward.settings.end), std::tie(kYellow, kBlack));
  EXPECT_EQ(mixed.settings.end, kGreen) << "back first, while the phase is False";
  AdvanceStrobe(mixed, 2.0, zero);
  EXPECT_EQ(std::tie(mixed.settings.start, mixed.settings.end), std::tie(kGreen, kBlack));
}

TEST(Strobe, SparklesStayWithinTheirRangeAroundTheStartColour) {
  Random random(11);
  const Rgb base{100, 150, 200};
  StrobeRec strobe = Started(5, random, base);
  AdvanceStrobe(strobe, 0.5, random);
  EXPECT_EQ(strobe.current, base) << "nothing before the period has passed";
  bool changed = false;
  for (int round = 1; round <= 20; ++round) {
    AdvanceStrobe(strobe, round + 0.01, random);
    EXPECT_NEAR(strobe.current.blue, base.blue, base.blue * 0.2 + 1);
    changed = changed || strobe.current != base;
  }
  EXPECT_TRUE(changed);
}

}  // namespace
}  // namespace varkesh
