// The one random generator of a game. Seeded from the clock in the program;
// tests and the command-line tool seed it, or make it give 0 every time.
#pragma once

#include <cstdint>
#include <random>

namespace varkesh {

class Random {
 public:
  explicit Random(std::uint64_t seed = 0) : engine_(seed) {}

  // A source that always answers 0, so that no tie-break raises anything.
  static Random Zero() {
    Random r;
    r.zero_ = true;
    return r;
  }

  void Seed(std::uint64_t seed) {
    engine_.seed(seed);
    zero_ = false;
  }

  // A number from 0 up to but not including 1.
  double Next() {
    if (zero_) return 0.0;
    return static_cast<double>(engine_() >> 11) * 0x1.0p-53;
  }

  // A whole number from 0 to count - 1, each with the same chance.
  int Below(int count) {
    int n = static_cast<int>(Next() * count);
    return n < count ? n : count - 1;
  }

 private:
  std::mt19937_64 engine_;
  bool zero_ = false;
};

}  // namespace varkesh
