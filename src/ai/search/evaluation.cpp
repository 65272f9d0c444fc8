#include "ai/search/evaluation.h"

#include <array>
#include <cstdlib>

#include "ai/ai_values.h"
#include "core/alliances.h"
#include "core/geometry.h"

namespace varkesh::search {

namespace {

constexpr int kNoKing = -1;

int CentreDistance(int index) {
  return std::abs(SquareX(index) - 8) + std::abs(SquareY(index) - 8);
}

int Chebyshev(int a, int b) {
  const int dx = std::abs(SquareX(a) - SquareX(b));
  const int dy = std::abs(SquareY(a) - SquareY(b));
  return dx > dy ? dx : dy;
}

// Centre bonus per step nearer the middle, by piece kind.
constexpr std::array<int, kKing + 1> kCentreStep = {0, 3, 0, 4, 2, 5, 3, 0};
// The threat a hostile piece near a King carries, by kind.
constexpr std::array<int, kKing + 1> kKingThreat = {0, 25, 10, 45, 55, 50, 90, 20};

struct TeamTally {
  int score = 0;
  int king = kNoKing;
};

// A team whose count falls under five loses its King to the captor: the
// nearer the count is to that edge, the fewer captures it can afford.
int ThinMaterial(int count) {
  if (count <= 5) return 1500;
  if (count == 6) return 800;
  if (count == 7) return 300;
  return 0;
}

TeamTally TallyTeam(const Position& position, int team, const EvalWeights& weights) {
  TeamTally tally;
  int raid = 0, centre = 0, count = 0;
  const auto& squares = position.board.squares;
  const unsigned hostile = HostileTeamsOf(position.gameType, team);
  position.pieces[static_cast<std::size_t>(team - 1)].ForEach([&](int index) {
    const Square& square = squares[static_cast<std::size_t>(index)];
    const int piece = square.piece;
    if (piece == kKing) {
      tally.king = index;
      return;
    }
    tally.score += PieceValue(weights.personality, piece);
    count += piece == kPawn || piece == kCastlePawn ? 1 : 2;
    const bool hostileRealm = square.realm != kNoTeam && InTeams(hostile, square.realm) &&
                              (square.terrain == kMoat || square.terrain == kKeep);
    if (piece == kPawn) {
      if (hostileRealm && square.terrain == kMoat)
        raid += 70;
      else if (square.terrain == kBattlefield)
        raid += 4 + (8 - CentreDistance(index));
    } else if (hostileRealm) {
      raid += 20;
    }
    if (piece >= 0 && piece <= kKing)
      centre += kCentreStep[static_cast<std::size_t>(piece)] * (8 - CentreDistance(index));
  });
  tally.score += raid * weights.raid / 100 + centre * weights.centre / 100 -
                 ThinMaterial(count) * weights.safety / 100;
  return tally;
}

// Hostile pieces within two steps of the King, and friends next to it.
int KingSafety(const Position& position, int team, int king) {
  int danger = 0;
  const auto& squares = position.board.squares;
  for (int other = kWhite; other <= kRed; ++other) {
    const bool hostile = IsHostile(position.gameType, team, other);
    position.pieces[static_cast<std::size_t>(other - 1)].ForEach([&](int index) {
      const int distance = Chebyshev(index, king);
      if (distance > 2) return;
      const int piece = squares[static_cast<std::size_t>(index)].piece;
      if (hostile)
        danger += kKingThreat[static_cast<std::size_t>(piece)] * (distance == 1 ? 2 : 1);
      else if (distance == 1)
        danger -= 8;
    });
  }
  return -danger;
}

}  // namespace

EvalWeights WeightsOf(int personality) {
  switch (personality) {
    case kAggressive:
      return {kAggressive, 150, 75, 120};
    case kDefensive:
      return {kDefensive, 75, 150, 80};
    default:
      return {kBalanced, 100, 100, 100};
  }
}

int PieceValue(int personality, int piece) {
  return AiValue(personality, kCaptureValue, piece);
}

int Evaluate(const Position& position, const Sides& sides, const EvalWeights& weights) {
  std::array<int, kTeamCount> team{};
  for (int t = kWhite; t <= kRed; ++t) {
    const std::size_t i = static_cast<std::size_t>(t - 1);
    if (position.kingdomFallen[i]) {
      team[i] = -kFallenKingdom;
      continue;
    }
    const TeamTally tally = TallyTeam(position, t, weights);
    team[i] = tally.score;
    if (tally.king != kNoKing)
      team[i] += KingSafety(position, t, tally.king) * weights.safety / 100;
  }
  if (sides.PoolsReplies()) {
    // The lone team against the average of the three others.
    int others = 0;
    for (int t = kWhite; t <= kRed; ++t)
      if (t != sides.rootTeam) others += team[static_cast<std::size_t>(t - 1)];
    return team[static_cast<std::size_t>(sides.rootTeam - 1)] - others / 3;
  }
  int score = 0;
  for (int t = kWhite; t <= kRed; ++t)
    score += sides.Of(t) == 0 ? team[static_cast<std::size_t>(t - 1)]
                              : -team[static_cast<std::size_t>(t - 1)];
  return score;
}

}  // namespace varkesh::search
