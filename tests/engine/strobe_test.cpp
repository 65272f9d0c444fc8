#include "engine/strobe.h"

#include <gtest/gtest.h>

#include "engine/gdi.h"
#include "engine/general_engine.h"
#include "engine/random.h"

namespace varkesh {
namespace {

constexpr Rgb kGreen{0, 64, 0};
constexpr Rgb kYellow{255, 255, 0};
constexpr Rgb kBlack{0, 0, 0};

StrobeRec Started(int type, Random& random) {
  StrobeRec strobe;
  StartStrobe(strobe, {kGreen, kYellow, type, 1.0, 0.0, 0}, 0.0, random);
  return strobe;
}

TEST(Strobe, BackAndForthReturnsToItsStartAfterTwoPeriods) {
  Random random(3);
  GeneralEngine engine;
  double now = 0.0;
  Gdi gdi(
      engine, [&now] { return now; }, random);
  StrobeNum strobe = gdi.NewStrobe();
  gdi.InitStrobe(strobe, {kGreen, kYellow, 2, 1.0, 0.0, 0});
  EXPECT_EQ(gdi.StrobeColour(strobe), kGreen);

  const std::pair<double, Rgb> expected[] = {
      {0.5, {127, 159, 0}}, {1.0, kYellow}, {1.5, {128, 160, 0}}, {2.0, kGreen}};
  for (const auto& [time, colour] : expected) {
    now = time;
    gdi.AdvanceStrobes();
    EXPECT_EQ(gdi.StrobeColour(strobe), colour) << "at " << time << " s";
  }
}

TEST(Strobe, EverySweepFlipsThePhase) {
  Random random(3);
  StrobeRec strobe = Started(2, random);
  EXPECT_TRUE(strobe.phase);
  AdvanceStrobe(strobe, 1.0, random);
  EXPECT_FALSE(strobe.phase);
  AdvanceStrobe(strobe, 1.5, random);
  EXPECT_FALSE(strobe.phase) << "only the end of a sweep flips it";
  AdvanceStrobe(strobe, 2.0, random);
  EXPECT_TRUE(strobe.phase);
  EXPECT_EQ(strobe.current, kGreen);
}

TEST(Strobe, ASimpleSweepStartsOverFromItsStartColour) {
  Random random(3);
  StrobeRec strobe = Started(1, random);
  AdvanceStrobe(strobe, 1.0, random);
  EXPECT_EQ(strobe.current, kYellow);
  AdvanceStrobe(strobe, 1.5, random);
  EXPECT_EQ(strobe.current, (Rgb{127, 159, 0}));
}

TEST(Strobe, RandomSweepsMoveOnFromWhereTheyEnded) {
  Random zero = Random::Zero();
  StrobeRec onward = Started(3, zero);
  AdvanceStrobe(onward, 1.0, zero);
  EXPECT_EQ(onward.settings.start, kYellow);
  EXPECT_EQ(onward.settings.end, kBlack) << "a source of zeros draws black";

  // Type 4 goes back first, while the phase is False, then onward.
  StrobeRec mixed = Started(4, zero);
  AdvanceStrobe(mixed, 1.0, zero);
  EXPECT_EQ(mixed.settings.start, kYellow);
  EXPECT_EQ(mixed.settings.end, kGreen);
  AdvanceStrobe(mixed, 2.0, zero);
  EXPECT_EQ(mixed.settings.start, kGreen);
  EXPECT_EQ(mixed.settings.end, kBlack);
}

TEST(Strobe, SparklesStayWithinTheirRangeAroundTheStartColour) {
  Random random(11);
  StrobeRec strobe;
  const Rgb base{100, 150, 200};
  StartStrobe(strobe, {base, kBlack, 5, 0.1, 0.0, 20}, 0.0, random);
  EXPECT_EQ(strobe.current, base);
  AdvanceStrobe(strobe, 0.05, random);
  EXPECT_EQ(strobe.current, base) << "nothing before the period has passed";

  bool changed = false;
  for (int round = 1; round <= 20; ++round) {
    AdvanceStrobe(strobe, 0.1 * round + 0.001, random);
    EXPECT_NEAR(strobe.current.red, base.red, base.red * 0.2 + 1);
    EXPECT_NEAR(strobe.current.blue, base.blue, base.blue * 0.2 + 1);
    changed = changed || !(strobe.current == base);
  }
  EXPECT_TRUE(changed);
}

TEST(Strobe, NumbersOutOfRangeReadBlackAndChangeNothing) {
  Random random(3);
  GeneralEngine engine;
  Gdi gdi(
      engine, [] { return 0.0; }, random);
  gdi.InitStrobe(0, {kGreen, kYellow, 2, 1.0, 0.0, 0});
  EXPECT_EQ(gdi.StrobeColour(0), kBlack);
  EXPECT_EQ(gdi.StrobeColour(-1), kBlack);
}

}  // namespace
}  // namespace varkesh
