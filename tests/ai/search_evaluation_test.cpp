// The searching computer's judgement as a game grows long: trades and the
// hunt for a team near its fall come to pay, so that games end.
#include <gtest/gtest.h>

#include <string>

#include "ai/search/evaluation.h"
#include "search_fixture.h"

namespace varkesh {
namespace {

using test::Garrison;
using test::HandMade;
using test::Piece;
using test::With;

constexpr int kEarly = 1;
constexpr int kLate = 150;

// A King, six pawns and two more in the keep: material enough that losing a
// Rook or a Knight brings no team near its fall.
std::vector<Piece> Kingdom(int team) {
  static constexpr Piece kKings[] = {
      {8, 16, kWhite, kKing}, {0, 8, kBlue, kKing}, {8, 0, kBlack, kKing}, {16, 8, kRed, kKing}};
  static constexpr Piece kSpare[][2] = {{{9, 14, kWhite, kPawn}, {8, 15, kWhite, kPawn}},
                                        {{2, 9, kBlue, kPawn}, {1, 8, kBlue, kPawn}},
                                        {{9, 2, kBlack, kPawn}, {8, 1, kBlack, kPawn}},
                                        {{14, 9, kRed, kPawn}, {15, 8, kRed, kPawn}}};
  const std::size_t i = static_cast<std::size_t>(team - 1);
  return With(With({kKings[i]}, Garrison(team)), {kSpare[i][0], kSpare[i][1]});
}

// A King and its six pawns alone: one or two captures from its fall.
std::vector<Piece> ThinKingdom(int team) {
  return With({Kingdom(team).front()}, Garrison(team));
}

int Score(const Position& position, int round) {
  const search::Sides sides{position.gameType, position.currentTeam};
  return search::Evaluate(position, sides, search::WeightsOf(kBalanced, position.gameType, round));
}

struct Trade {
  std::string name;
  int gameType;
  Piece mine, theirs;  // of White, and of the other side
};

// Early a trade of Rooks is at best even; late it pays, in Anarchy too,
// where a piece of one of three others counts for less than one's own.
TEST(SearchEvaluationTest, AnEvenTradePaysLateInTheGame) {
  const Trade trades[] = {
      {"AlliedNeighbors", kAlliedNeighbors, {5, 12, kWhite, kRook}, {5, 4, kBlack, kRook}},
      {"CrossroadAllies", kCrossroadAllies, {5, 12, kWhite, kRook}, {12, 5, kRed, kRook}},
      {"Anarchy", kAnarchy, {5, 12, kWhite, kRook}, {12, 5, kRed, kRook}},
  };
  for (const Trade& trade : trades) {
    SCOPED_TRACE(trade.name);
    std::vector<Piece> armies;
    for (int team = kWhite; team <= kRed; ++team) armies = With(armies, Kingdom(team));
    const Position before =
        HandMade(trade.gameType, kWhite, With(armies, {trade.mine, trade.theirs}));
    const Position after = HandMade(trade.gameType, kWhite, armies);
    EXPECT_LE(Score(after, kEarly) - Score(before, kEarly), 0);
    EXPECT_GT(Score(after, kLate) - Score(before, kLate), 0);
  }
}

struct Approach {
  std::string name;
  int gameType;
  int thin;         // the hostile team near its fall
  Piece near, far;  // White's Knight, each as far from the middle
};

// Late in the game a Knight is worth more beside a team that one or two
// captures would bring down; early the middle alone decides.
TEST(SearchEvaluationTest, LatePiecesCloseInOnATeamNearItsFall) {
  const Approach approaches[] = {
      {"AlliedNeighbors",
       kAlliedNeighbors,
       kRed,
       {12, 8, kWhite, kKnight},
       {4, 8, kWhite, kKnight}},
      {"Anarchy", kAnarchy, kBlue, {4, 8, kWhite, kKnight}, {12, 8, kWhite, kKnight}},
  };
  for (const Approach& approach : approaches) {
    SCOPED_TRACE(approach.name);
    std::vector<Piece> armies;
    for (int team = kWhite; team <= kRed; ++team)
      armies = With(armies, team == approach.thin ? ThinKingdom(team) : Kingdom(team));
    const Position near = HandMade(approach.gameType, kWhite, With(armies, {approach.near}));
    const Position far = HandMade(approach.gameType, kWhite, With(armies, {approach.far}));
    EXPECT_EQ(Score(near, kEarly), Score(far, kEarly));
    EXPECT_GT(Score(near, kLate), Score(far, kLate));
  }
}

struct Raid {
  std::string name;
  int raider;             // White's Pawn or Castle Pawn
  DungeonPiece prisoner;  // held by Red; none when its team is 0
  bool keeper;            // a Red Rook stands in Red's keep
  bool drawn;
};

// Late in the game a pawn heads for a hostile keep where a raid wins
// something: a piece of its own team held prisoner there, to free, or a
// hostile piece standing in the keep, to take. The two squares are otherwise
// alike, each two steps from a hostile keep.
TEST(SearchEvaluationTest, LatePawnsHeadForAKeepWhereARaidWins) {
  const Raid raids[] = {
      {"NoPrize", kPawn, {}, false, false},
      {"AnotherTeamsRookPrisoner", kPawn, {kBlack, kRook}, false, false},
      {"OwnRookPrisoner", kPawn, {kWhite, kRook}, false, true},
      {"RookInTheKeep", kPawn, {}, true, true},
      {"CastlePawnToo", kCastlePawn, {}, true, true},
  };
  std::vector<Piece> armies;
  for (int team = kWhite; team <= kRed; ++team) armies = With(armies, Kingdom(team));
  for (const Raid& raid : raids) {
    SCOPED_TRACE(raid.name);
    std::vector<Piece> board = armies;
    if (raid.keeper) board = With(board, {{15, 9, kRed, kRook}});
    Position near = HandMade(kAnarchy, kWhite, With(board, {{12, 8, kWhite, raid.raider}}));
    Position far = HandMade(kAnarchy, kWhite, With(board, {{4, 8, kWhite, raid.raider}}));
    if (raid.prisoner.team != kNoTeam)
      for (Position* position : {&near, &far})
        position->dungeons[kRed - 1].prisoners.Add(raid.prisoner);
    EXPECT_EQ(Score(near, kEarly), Score(far, kEarly));
    EXPECT_EQ(Score(near, kLate) > Score(far, kLate), raid.drawn);
    if (!raid.drawn) {
      EXPECT_EQ(Score(near, kLate), Score(far, kLate));
    }
  }
}

}  // namespace
}  // namespace varkesh
