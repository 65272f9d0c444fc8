#include "engine/strobe.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "engine/random.h"

namespace varkesh {
namespace {

constexpr int kSparkleType = 5;

int ClampChannel(double value) {
  return std::clamp(static_cast<int>(std::trunc(value)), 0, 255);
}

Rgb RandomColour(Random& random) {
  return {random.Below(256), random.Below(256), random.Below(256)};
}

double NewExtraWait(const StrobeSettings& settings, Random& random) {
  double a = random.Next();
  double b = random.Next();
  return std::trunc(settings.spread * a) - std::trunc(settings.spread * b);
}

void Sweep(StrobeRec& strobe, double now) {
  const StrobeSettings& s = strobe.settings;
  // A strobe without a period sits at its end colour.
  double progress = s.period > 0.0 ? (now - strobe.periodStart) / s.period : 1.0;
  auto channel = [progress](int from, int to) {
    return ClampChannel(from + std::trunc((to - from) * progress));
  };
  strobe.current = {channel(s.start.red, s.end.red), channel(s.start.green, s.end.green),
                    channel(s.start.blue, s.end.blue)};
}

void EndSweep(StrobeRec& strobe, double now, Random& random) {
  StrobeSettings& s = strobe.settings;
  strobe.periodStart = now;
  strobe.phase = !strobe.phase;
  bool onToRandom = s.type == 3 || (s.type == 4 && strobe.phase);
  bool backAndForth = s.type == 2 || (s.type == 4 && !strobe.phase);
  if (onToRandom) {
    s.start = s.end;
    s.end = RandomColour(random);
  } else if (backAndForth) {
    std::swap(s.start, s.end);
  }
}

void Sparkle(StrobeRec& strobe, double now, Random& random) {
  const StrobeSettings& s = strobe.settings;
  if (s.period + strobe.periodStart + strobe.extraWait > now) return;
  double a = random.Next();
  double b = random.Next();
  double factor = 1.0 + std::trunc(s.sparkle * a) / 100.0 - std::trunc(s.sparkle * b) / 100.0;
  strobe.current = {ClampChannel(s.start.red * factor), ClampChannel(s.start.green * factor),
                    ClampChannel(s.start.blue * factor)};
  strobe.extraWait = NewExtraWait(s, random);
  strobe.periodStart = now;
}

}  // namespace

void StartStrobe(StrobeRec& strobe, const StrobeSettings& settings, double now, Random& random) {
  strobe.settings = settings;
  strobe.active = true;
  strobe.phase = true;
  strobe.current = settings.start;
  strobe.periodStart = now;
  strobe.extraWait = settings.type == kSparkleType ? NewExtraWait(settings, random) : 0.0;
}

void AdvanceStrobe(StrobeRec& strobe, double now, Random& random) {
  if (!strobe.active) return;
  if (strobe.settings.type == kSparkleType) {
    Sparkle(strobe, now, random);
    return;
  }
  Sweep(strobe, now);
  if (now - strobe.periodStart >= strobe.settings.period) EndSweep(strobe, now, random);
}

}  // namespace varkesh
