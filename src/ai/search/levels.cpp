#include "ai/search/levels.h"

namespace varkesh {

namespace {

struct LevelShape {
  int shareDivisor;  // of the Master's nodes and time
  int depthCap;      // 0: none
};

LevelShape ShapeOf(int level) {
  switch (level) {
    case kLevelClub:
      return {4, 3};
    case kLevelExpert:
      return {2, 6};
    default:
      return {1, 0};
  }
}

}  // namespace

int ParseLevel(const std::string& text) {
  for (int level = kLevelClassic; level <= kLevelMaster; ++level) {
    std::string lower = LevelName(level);
    for (char& c : lower) c = static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
    if (text == lower || text == std::to_string(level)) return level;
  }
  return 0;
}

int SeatLevel(int stored) {
  return stored >= kLevelClassic && stored <= kLevelMaster ? stored : kLevelClassic;
}

search::SearchSettings LevelSettings(int level, int personality,
                                     const search::SearchLimits& master) {
  search::SearchSettings settings;
  settings.personality = personality;
  search::SearchLimits limits = master;
  if (limits.depth == 0 && limits.nodes == 0 && limits.movetimeMs == 0)
    limits.movetimeMs = kMasterMovetimeMs;
  const LevelShape shape = ShapeOf(level);
  if (shape.shareDivisor > 1) {
    // Never nothing: a level always gets to look.
    if (limits.nodes > 0)
      limits.nodes = limits.nodes / static_cast<unsigned>(shape.shareDivisor) + 1;
    if (limits.movetimeMs > 0) limits.movetimeMs = limits.movetimeMs / shape.shareDivisor + 1;
  }
  if (master.depth == 0) limits.depth = shape.depthCap;
  settings.limits = limits;
  return settings;
}

}  // namespace varkesh
