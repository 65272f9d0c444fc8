#include "ai/search/evaluation.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "ai/ai_values.h"
#include "core/alliances.h"
#include "core/geometry.h"
#include "core/pawn_options.h"
#include "core/terrain.h"

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
  int count = 0;  // material as the rules count it
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
    count += MaterialWorth(piece);
    const bool hostileRealm = square.realm != kNoTeam && InTeams(hostile, square.realm) &&
                              (square.terrain == kMoat || square.terrain == kKeep);
    if (piece == kPawn) {
      if (hostileRealm && square.terrain == kMoat)
        raid += 70;
      else if (square.terrain == kBattlefield) {
        raid += 4;
        centre += 8 - CentreDistance(index);
      }
    } else if (hostileRealm) {
      raid += 20;
    }
    if (piece >= 0 && piece <= kKing)
      centre += kCentreStep[static_cast<std::size_t>(piece)] * (8 - CentreDistance(index));
  });
  tally.count = count;
  tally.score += raid * weights.raid / 100 + centre * weights.centre / 100 -
                 ThinMaterial(count) * weights.safety / 100;
  return tally;
}

// Hostile pieces within two steps of the King, and friends next to it. Only
// the squares around the King are looked at, not every piece.
int KingSafety(const Position& position, int team, int king) {
  int danger = 0;
  const int kingX = SquareX(king), kingY = SquareY(king);
  for (int y = kingY - 2; y <= kingY + 2; ++y) {
    if (y < 0 || y >= kBoardSide) continue;
    for (int x = kingX - 2; x <= kingX + 2; ++x) {
      if (x < 0 || x >= kBoardSide || (x == kingX && y == kingY)) continue;
      const Square& square = position.board.at(x, y);
      if (square.piece <= 0) continue;
      const bool near = std::abs(x - kingX) <= 1 && std::abs(y - kingY) <= 1;
      if (IsHostile(position.gameType, team, square.team))
        danger += kKingThreat[static_cast<std::size_t>(square.piece)] * (near ? 2 : 1);
      else if (near)
        danger -= 8;
    }
  }
  return -danger;
}

// The rounds a game plays as it starts, and the rounds over which the
// weights then turn towards ending it.
constexpr int kPatientRounds = 20;
constexpr int kImpatienceRamp = 80;
// Percent added at the end of the turn: to the weight of the other side's
// score (in Anarchy against the average of the three others, so that a
// trade with one of them pays), and to the pull towards the enemy.
constexpr int kLateOpponents = 100;
constexpr int kLateOpponentsAnarchy = 400;
constexpr int kLateHunt = 300;

// Per step nearer the nearest target, by piece kind.
constexpr std::array<int, kKing + 1> kHuntStep = {0, 2, 1, 3, 3, 4, 5, 0};
constexpr int kFarthest = 16;
// A team this thin falls with one or two more captures: each of its pieces
// is worth going after.
constexpr int kThinCount = 7;
constexpr int kMaxTargets = kTeamCount * 32;

struct Targets {
  std::array<int, kMaxTargets> squares{};
  int count = 0;
};

bool StandingHostile(const Position& position, int team, int other) {
  return !TeamEntry(position.kingdomFallen, other) && IsHostile(position.gameType, team, other);
}

// The hostile Kings, and every piece of a hostile team close to falling.
Targets TargetsOf(const Position& position, int team,
                  const std::array<TeamTally, kTeamCount>& tallies) {
  Targets targets;
  for (int other = kWhite; other <= kRed; ++other) {
    const std::size_t i = static_cast<std::size_t>(other - 1);
    if (!StandingHostile(position, team, other)) continue;
    if (tallies[i].count > kThinCount) {
      if (tallies[i].king != kNoKing && targets.count < kMaxTargets)
        targets.squares[static_cast<std::size_t>(targets.count++)] = tallies[i].king;
      continue;
    }
    position.pieces[i].ForEach([&](int index) {
      if (targets.count < kMaxTargets)
        targets.squares[static_cast<std::size_t>(targets.count++)] = index;
    });
  }
  return targets;
}

// How many steps a square lies past the moat line in front of the keep
// first held by place, counted towards that keep.
int PastMoatLine(int place, int index) {
  return StepsPastMoatLine(place, SquareX(index), SquareY(index));
}

// How far a square is from the moat line in front of the keep of other,
// where a pawn begins its raid.
int MoatLineDistance(int other, int index) {
  return std::min(std::abs(PastMoatLine(other, index)), kFarthest);
}

// Without a pull towards the enemy nothing draws a side into the attack once
// the captures run out, and a long game goes round in circles.
// How far a square is from the nearest standing hostile team's moat line.
int MoatDistance(const Position& position, int team, int index) {
  int nearest = kFarthest;
  for (int other = kWhite; other <= kRed; ++other)
    if (StandingHostile(position, team, other))
      nearest = std::min(nearest, MoatLineDistance(other, index));
  return nearest;
}

// The nine squares of each keep, by the team whose keep it was at the
// start: a gained keep changes its realm, never its place.
constexpr std::size_t kKeepSize = 9;
using KeepSquares = std::array<std::array<int, kKeepSize>, kTeamCount>;
constexpr KeepSquares MakeKeepSquares() {
  KeepSquares keeps{};
  std::array<std::size_t, kTeamCount> count{};
  for (int index : kGeometry.diamond) {
    const Square laid = LaidOutSquare(SquareX(index), SquareY(index));
    if (laid.terrain != kKeep) continue;
    const std::size_t place = static_cast<std::size_t>(laid.realm - 1);
    keeps[place][count[place]++] = index;
  }
  return keeps;
}
constexpr KeepSquares kKeepSquares = MakeKeepSquares();

// The strongest piece of each team standing in each keep, by place and
// team, looked at once per evaluation: what a pawn of a team hostile to that
// one may be spent to take there.
using KeepSurvey = std::array<std::array<int, kTeamCount>, kTeamCount>;

KeepSurvey SurveyKeeps(const Position& position, int personality) {
  KeepSurvey survey{};
  const auto& squares = position.board.squares;
  for (std::size_t place = 0; place < kTeamCount; ++place)
    for (int index : kKeepSquares[place]) {
      const Square& square = squares[static_cast<std::size_t>(index)];
      const int team = TeamIndex(square.team);
      if (team >= 0 && CanBeTakenByOption(square.piece)) {
        int& best = survey[place][static_cast<std::size_t>(team)];
        best = std::max(best, PieceValue(personality, square.piece));
      }
    }
  return survey;
}

// What a pawn of team that gets into the keep at place can win there at
// best: the strongest hostile piece standing in the keep, or the strongest
// piece of its team that the keep's owner holds prisoner, which it may turn
// into. hostile holds the teams hostile to team.
int RaidPrize(const Position& position, const KeepSurvey& keeps, int team, unsigned hostile,
              int place, int personality) {
  const std::size_t i = static_cast<std::size_t>(place - 1);
  const int realm = position.board.squares[static_cast<std::size_t>(kKeepSquares[i][0])].realm;
  if (TeamIndex(realm) < 0 || !StandingHostile(position, team, realm)) return 0;
  int prize = 0;
  for (int other = kWhite; other <= kRed; ++other)
    if (InTeams(hostile, other))
      prize = std::max(prize, keeps[i][static_cast<std::size_t>(other - 1)]);
  for (const DungeonPiece& prisoner :
       position.dungeons[static_cast<std::size_t>(realm - 1)].prisoners)
    if (prisoner.team == team && prisoner.piece != kKing)
      prize = std::max(prize, PieceValue(personality, prisoner.piece));
  return prize;
}

// How many steps a square lies outside the keep at place, counted along the
// line from the keep to the middle; 0 inside it.
int KeepDistance(int place, int index) {
  return std::max(0, 1 - PastMoatLine(place, index));
}

// A share of the prize, the larger the nearer the pawn stands to the keep.
constexpr int kRaidProspectShare = 4;

// Thin teams late in a game often have nothing left to attack with but
// pawns, and a hostile keep with a prize in it is the one way to more
// material that the other side cannot refuse by keeping out of reach: this
// draws pawns and Castle Pawns there.
int RaidProspect(const Position& position, const KeepSurvey& keeps, int team, int personality) {
  const unsigned hostile = HostileTeamsOf(position.gameType, team);
  std::array<int, kTeamCount> prize{};
  bool any = false;
  for (int place = kWhite; place <= kRed; ++place) {
    prize[static_cast<std::size_t>(place - 1)] =
        RaidPrize(position, keeps, team, hostile, place, personality);
    any = any || prize[static_cast<std::size_t>(place - 1)] > 0;
  }
  if (!any) return 0;
  int prospect = 0;
  const auto& squares = position.board.squares;
  position.pieces[static_cast<std::size_t>(team - 1)].ForEach([&](int index) {
    const int piece = squares[static_cast<std::size_t>(index)].piece;
    if (piece != kPawn && piece != kCastlePawn) return;
    int best = 0;
    for (int place = kWhite; place <= kRed; ++place) {
      const int worth = prize[static_cast<std::size_t>(place - 1)];
      if (worth > 0)
        best = std::max(best, worth * (kFarthest - KeepDistance(place, index)) / kFarthest);
    }
    prospect += best;
  });
  return prospect / kRaidProspectShare;
}

int Hunt(const Position& position, int team, const Targets& targets) {
  if (targets.count == 0) return 0;
  int bonus = 0;
  const auto& squares = position.board.squares;
  position.pieces[static_cast<std::size_t>(team - 1)].ForEach([&](int index) {
    const int piece = squares[static_cast<std::size_t>(index)].piece;
    if (piece <= 0 || piece >= kKing) return;
    int nearest = piece == kPawn ? MoatDistance(position, team, index) : kFarthest;
    for (int k = 0; k < targets.count; ++k) {
      const int distance = Chebyshev(index, targets.squares[static_cast<std::size_t>(k)]);
      if (distance < nearest) nearest = distance;
    }
    bonus += kHuntStep[static_cast<std::size_t>(piece)] * (kFarthest - nearest);
  });
  return bonus;
}

}  // namespace

EvalWeights WeightsOf(int personality, int gameType, int round) {
  EvalWeights weights;
  switch (personality) {
    case kAggressive:
      weights = {kAggressive, 150, 75, 120};
      break;
    case kDefensive:
      weights = {kDefensive, 75, 150, 80};
      break;
    default:
      weights = {kBalanced, 100, 100, 100};
      break;
  }
  const int late = std::clamp(round - kPatientRounds, 0, kImpatienceRamp);
  weights.centre -= weights.centre * late / kImpatienceRamp;
  weights.opponents +=
      (gameType == kAnarchy ? kLateOpponentsAnarchy : kLateOpponents) * late / kImpatienceRamp;
  weights.hunt = kLateHunt * late / kImpatienceRamp;
  return weights;
}

int PieceValue(int personality, int piece) {
  return AiValue(personality, kCaptureValue, piece);
}

int PiecesWorth(const Position& position, int team, int personality) {
  const int index = TeamIndex(team);
  if (index < 0) return 0;
  int worth = 0;
  position.pieces[static_cast<std::size_t>(index)].ForEach([&](int square) {
    const int piece = position.board.squares[static_cast<std::size_t>(square)].piece;
    if (piece != kKing) worth += PieceValue(personality, piece);
  });
  return worth;
}

int Evaluate(const Position& position, const Sides& sides, const EvalWeights& weights) {
  std::array<int, kTeamCount> team{};
  std::array<TeamTally, kTeamCount> tallies{};
  for (int t = kWhite; t <= kRed; ++t) {
    const std::size_t i = static_cast<std::size_t>(t - 1);
    if (position.kingdomFallen[i]) {
      team[i] = -kFallenKingdom;
      continue;
    }
    tallies[i] = TallyTeam(position, t, weights);
    team[i] = tallies[i].score;
    if (tallies[i].king != kNoKing)
      team[i] += KingSafety(position, t, tallies[i].king) * weights.safety / 100;
  }
  if (weights.hunt > 0) {
    const KeepSurvey keeps = SurveyKeeps(position, weights.personality);
    for (int t = kWhite; t <= kRed; ++t)
      if (!position.kingdomFallen[static_cast<std::size_t>(t - 1)])
        team[static_cast<std::size_t>(t - 1)] +=
            (Hunt(position, t, TargetsOf(position, t, tallies)) +
             RaidProspect(position, keeps, t, weights.personality)) *
            weights.hunt / 100;
  }
  if (sides.PoolsReplies()) {
    // The lone team against the average of the three others.
    int others = 0;
    for (int t = kWhite; t <= kRed; ++t)
      if (t != sides.rootTeam) others += team[static_cast<std::size_t>(t - 1)];
    return team[static_cast<std::size_t>(sides.rootTeam - 1)] - others * weights.opponents / 300;
  }
  int mine = 0, theirs = 0;
  for (int t = kWhite; t <= kRed; ++t)
    (sides.Of(t) == 0 ? mine : theirs) += team[static_cast<std::size_t>(t - 1)];
  return mine - theirs * weights.opponents / 100;
}

}  // namespace varkesh::search
