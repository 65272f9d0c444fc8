// The levels of a computer seat: "Classic", the one-move evaluator, and the
// searching levels Club, Expert and Master. A searching level is a share of
// the Master's budget and a cap on depth, so each gives way to the next.
#pragma once

#include <string>

#include "ai/search/search.h"
#include "core/setup.h"

namespace varkesh {

// The Master's time a move when nothing else is said.
inline constexpr int kMasterMovetimeMs = 1000;

// A level from its name in lower case or its number; 0 for anything else.
int ParseLevel(const std::string& text);
// A seat's stored level, with anything unknown read as Classic.
int SeatLevel(int stored);

// The search of a level. master holds the Master's limits (no limit of any
// kind: its default time); a lower level takes its share of the nodes and
// of the time, and its depth cap unless a depth is given.
search::SearchSettings LevelSettings(int level, int personality,
                                     const search::SearchLimits& master);

}  // namespace varkesh
