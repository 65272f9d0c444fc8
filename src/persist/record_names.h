// What the record's writer and reader share: the names of game types,
// rules and players, the result line, the standard start.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/apply_move.h"
#include "core/position.h"

namespace varkesh::record_text {

constexpr std::array<const char*, 3> kGameTypeNames = {"Allied Neighbors", "Crossroad Allies",
                                                       "Anarchy"};
constexpr std::array<const char*, 3> kRuleNames = {"Kingdom Gained", "Kingdom Lost",
                                                   "Kingdom Frozen"};
constexpr std::array<const char*, 4> kPlayerNames = {"Human", "Aggressive", "Balanced",
                                                     "Defensive"};
constexpr const char* kStandardStart = "standard";
constexpr const char* kUnfinished = "*";

template <std::size_t N>
const char* NameIn(const std::array<const char*, N>& names, int index) {
  return index >= 0 && index < static_cast<int>(N) ? names[static_cast<std::size_t>(index)]
                                                   : "~~error~~";
}

template <std::size_t N>
int IndexIn(const std::array<const char*, N>& names, std::string_view name) {
  for (std::size_t i = 0; i < N; ++i)
    if (name == names[i]) return static_cast<int>(i);
  return -1;
}

int TeamOfName(std::string_view name);
std::string ResultText(const Position& position);
bool IsCapture(MoveOutcome outcome);

}  // namespace varkesh::record_text
