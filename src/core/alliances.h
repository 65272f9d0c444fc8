// Who fights whom: decided by the game type alone, for the whole game.
#pragma once

#include "core/types.h"

namespace varkesh {

// A team is not its own ally, and team 0 is nobody's.
constexpr bool IsAlly(int gameType, int team, int other) {
  if (TeamIndex(team) < 0 || TeamIndex(other) < 0 || team == other) return false;
  switch (gameType) {
    case kAlliedNeighbors:  // White with Blue, Black with Red
      return (team <= kBlue) == (other <= kBlue);
    case kCrossroadAllies:  // White with Black, Blue with Red
      return team % 2 == other % 2;
    default:
      return false;
  }
}

// True when other is neither team nor its ally.
constexpr bool IsHostile(int gameType, int team, int other) {
  return other != team && !IsAlly(gameType, team, other);
}

// The values 0 to 4 that IsHostile(gameType, team, value) holds for, as bits:
// one look-up instead of the table for each square a piece looks at.
constexpr unsigned HostileTeams(int gameType, int team) {
  unsigned bits = 0;
  for (int other = kNoTeam; other <= kRed; ++other)
    if (IsHostile(gameType, team, other)) bits |= 1u << other;
  return bits;
}

struct HostileTable {
  unsigned bits[4][kTeamCount + 1] = {};  // by game type (0 unused) and team
};
constexpr HostileTable MakeHostileTable() {
  HostileTable table;
  for (int type = kAlliedNeighbors; type <= kAnarchy; ++type)
    for (int team = kNoTeam; team <= kRed; ++team)
      table.bits[type][team] = HostileTeams(type, team);
  return table;
}
inline constexpr HostileTable kHostileTable = MakeHostileTable();

// HostileTeams by table for the game types there are.
constexpr unsigned HostileTeamsOf(int gameType, int team) {
  if (gameType < kAlliedNeighbors || gameType > kAnarchy || team < kNoTeam || team > kRed)
    return HostileTeams(gameType, team);
  return kHostileTable.bits[gameType][team];
}

constexpr bool InTeams(unsigned teams, int team) {
  return team >= kNoTeam && team <= kRed && (teams >> team & 1u) != 0;
}

}  // namespace varkesh
