// A colour that changes with time, read by number from the drawing engine.
#pragma once

#include "engine/rgb.h"

namespace varkesh {

class Random;

// Types: 1 sweeps from start to end and repeats; 2 sweeps back and forth;
// 3 sweeps on to a random colour each time; 4 alternates 3 and 2; 5 sparkles
// around the start colour at random intervals.
struct StrobeSettings {
  Rgb start, end;
  int type = 1;
  double period = 1.0;  // seconds
  double spread = 0.0;  // type 5: range of the extra wait
  int sparkle = 0;      // type 5: range of the brightness change, in percent
};

struct StrobeRec {
  bool active = false;
  StrobeSettings settings;
  Rgb current;
  double periodStart = 0.0;
  bool phase = true;  // flips at the end of every sweep
  double extraWait = 0.0;
};

void StartStrobe(StrobeRec& strobe, const StrobeSettings& settings, double now, Random& random);
void AdvanceStrobe(StrobeRec& strobe, double now, Random& random);

}  // namespace varkesh
