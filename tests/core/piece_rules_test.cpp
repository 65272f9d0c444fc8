// Each piece's destinations, in order, on boards with only the named pieces.
#include "rules_fixture.h"

namespace varkesh {
namespace {

using test::Join;
using test::Ray;
using test::Squares;

struct Placed {
  int x, y, team, piece;
};

struct MoveCase {
  const char* name;
  int gameType;
  std::vector<Placed> pieces;  // the first one moves
  Squares expected;
  std::vector<int> fallenRealms = {};
  PerTeam<bool> castleRight = {};
};

void Check(const std::vector<MoveCase>& cases) {
  for (const MoveCase& c : cases) {
    Game game = test::EmptyGame(c.gameType);
    game.castleRight = c.castleRight;
    for (const Placed& p : c.pieces) test::Put(game, p.x, p.y, p.team, p.piece);
    for (int team : c.fallenRealms) test::FellRealm(game, team);
    EXPECT_EQ(test::Destinations(game, c.pieces[0].x, c.pieces[0].y), c.expected) << c.name;
  }
}

TEST(PieceRules, Pawn) {
  Check({
      {"own moat: single and double step", kAnarchy, {{8, 13, kWhite, kPawn}}, {{8, 12}, {8, 11}}},
      {"the double step never captures",
       kAnarchy,
       {{8, 13, kWhite, kPawn}, {8, 11, kBlack, kRook}},
       {{8, 12}}},
      {"own moat: not along it, not back into the keep",
       kAnarchy,
       {{8, 13, kWhite, kPawn}, {8, 12, kWhite, kKnight}},
       {}},
      {"double step follows its neighbour, after the capture",
       kAnarchy,
       {{8, 13, kWhite, kPawn}, {7, 12, kRed, kBishop}, {9, 12, kWhite, kBishop}},
       {{7, 12}, {8, 12}, {8, 11}}},
      {"Red's own moat", kAnarchy, {{13, 8, kRed, kPawn}}, {{12, 8}, {11, 8}}},
      {"battlefield into a hostile moat",
       kAlliedNeighbors,
       {{8, 4, kWhite, kPawn}},
       {{8, 3}, {7, 4}, {9, 4}, {8, 5}}},
      {"never into an ally's moat",
       kCrossroadAllies,
       {{8, 4, kWhite, kPawn}},
       {{7, 4}, {9, 4}, {8, 5}}},
      {"never onto a fallen moat",
       kAnarchy,
       {{8, 4, kWhite, kPawn}, {7, 3, kBlack, kRook}},
       {{7, 4}, {9, 4}, {8, 5}},
       {kBlack}},
      {"captures on a hostile moat",
       kAnarchy,
       {{8, 4, kWhite, kPawn}, {7, 3, kBlack, kRook}, {9, 3, kRed, kRook}},
       {{7, 3}, {8, 3}, {9, 3}, {7, 4}, {9, 4}, {8, 5}}},
      {"an ally's piece is never taken",
       kAlliedNeighbors,
       {{8, 4, kWhite, kPawn}, {7, 3, kBlack, kRook}, {9, 3, kBlue, kRook}},
       {{7, 3}, {8, 3}, {7, 4}, {9, 4}, {8, 5}}},
      {"hostile pieces in an ally's moat are safe",
       kAlliedNeighbors,
       {{4, 8, kWhite, kPawn}, {3, 7, kBlack, kRook}, {3, 9, kRed, kRook}},
       {{4, 7}, {5, 8}, {4, 9}}},
      {"foreign moat: only into the keep",
       kAnarchy,
       {{8, 3, kWhite, kPawn}, {7, 2, kBlack, kQueen}, {9, 2, kWhite, kRook}},
       {{7, 2}, {8, 2}}},
      {"end of a moat line touches no keep", kAnarchy, {{5, 3, kWhite, kPawn}}, {}},
      {"fallen keep is closed", kAnarchy, {{8, 3, kWhite, kPawn}}, {}, {kBlack}},
      {"in a keep, for good", kAnarchy, {{8, 2, kWhite, kPawn}, {7, 1, kBlack, kRook}}, {}},
      {"in its own keep too", kAnarchy, {{8, 15, kWhite, kPawn}}, {}},
  });
}

TEST(PieceRules, CastlePawn) {
  Check({
      {"from its corner", kAnarchy, {{8, 16, kWhite, kCastlePawn}}, {{8, 15}}},
      {"steps orthogonally, captures diagonally",
       kAnarchy,
       {{8, 15, kWhite, kCastlePawn}, {7, 14, kBlack, kRook}, {9, 14, kWhite, kRook}},
       {{7, 14}, {8, 14}, {7, 15}, {9, 15}, {8, 16}}},
      {"goes on inside an enemy keep",
       kAnarchy,
       {{8, 1, kWhite, kCastlePawn}},
       {{8, 0}, {7, 1}, {9, 1}, {8, 2}}},
      {"never onto its own fallen realm", kAnarchy, {{8, 16, kWhite, kCastlePawn}}, {}, {kWhite}},
      {"nor onto a fallen moat, not even to capture",
       kAnarchy,
       {{8, 4, kRed, kCastlePawn}, {7, 3, kWhite, kQueen}},
       {{7, 4}, {9, 4}, {8, 5}},
       {kBlack}},
  });
}

TEST(PieceRules, KnightAndKing) {
  Check({
      {"Knight lands on moats and keeps",
       kAnarchy,
       {{6, 4, kWhite, kKnight}},
       {{7, 2}, {8, 3}, {4, 5}, {8, 5}, {5, 6}, {7, 6}},
       {kBlack}},
      {"Knight takes only hostile pieces, jumping over what stands between",
       kAlliedNeighbors,
       {{8, 8, kWhite, kKnight},
        {7, 6, kBlack, kPawn},
        {9, 6, kBlue, kPawn},
        {6, 7, kWhite, kPawn},
        {10, 7, kRed, -kRook},
        {9, 7, kWhite, kQueen}},
       {{7, 6}, {6, 9}, {10, 9}, {7, 10}, {9, 10}}},
      {"King: neighbours, then the castle corner",
       kAnarchy,
       {{8, 8, kWhite, kKing}},
       {{7, 7}, {8, 7}, {9, 7}, {7, 8}, {9, 8}, {7, 9}, {8, 9}, {9, 9}, {8, 16}},
       {},
       {true, false, false, false}},
      {"King: frozen, own and hostile neighbours; no right, no corner",
       kAnarchy,
       {{8, 8, kWhite, kKing},
        {8, 7, kBlue, -kBishop},
        {9, 9, kBlack, kQueen},
        {7, 9, kWhite, kRook}},
       {{7, 7}, {9, 7}, {7, 8}, {9, 8}, {8, 9}, {9, 9}},
       {},
       {false, true, true, true}},
      {"castle move onto the own Castle Pawn",
       kAnarchy,
       {{8, 15, kWhite, kKing}, {8, 16, kWhite, kCastlePawn}},
       {{7, 14}, {8, 14}, {9, 14}, {7, 15}, {9, 15}, {8, 16}},
       {},
       {true, false, false, false}},
      {"an empty corner beside the King stands twice",
       kAnarchy,
       {{15, 8, kRed, kKing}},
       {{14, 7}, {15, 7}, {14, 8}, {16, 8}, {14, 9}, {15, 9}, {16, 8}},
       {},
       {false, false, false, true}},
      {"a King of no team has no corner",
       kAnarchy,
       {{8, 8, kNoTeam, kKing}},
       {{7, 7}, {8, 7}, {9, 7}, {7, 8}, {9, 8}, {7, 9}, {8, 9}, {9, 9}},
       {},
       {true, true, true, true}},
  });
}

TEST(PieceRules, Sliders) {
  const Squares rookUp5 = Ray(8, 7, 0, -1, 5), rookDown8 = Ray(8, 9, 0, 1, 8),
                rookLeft5 = Ray(7, 8, -1, 0, 5), rookRight5 = Ray(9, 8, 1, 0, 5);
  Check({
      {"stops on a hostile moat, passes its own",
       kAnarchy,
       {{8, 8, kWhite, kRook}},
       Join({rookUp5, rookDown8, rookLeft5, rookRight5})},
      {"passes an ally's moat",
       kAlliedNeighbors,
       {{8, 8, kWhite, kRook}},
       Join({rookUp5, rookDown8, Ray(7, 8, -1, 0, 8), rookRight5})},
      {"passes an ally's moat, crossroad",
       kCrossroadAllies,
       {{8, 8, kWhite, kRook}},
       Join({Ray(8, 7, 0, -1, 8), rookDown8, rookLeft5, rookRight5})},
      {"frozen wall, ally stops, hostile taken",
       kAlliedNeighbors,
       {{8, 8, kWhite, kRook},
        {8, 4, kRed, -kQueen},
        {8, 11, kBlue, kPawn},
        {5, 8, kBlack, kPawn},
        {11, 8, kWhite, kPawn}},
       Join({Ray(8, 7, 0, -1, 3), Ray(8, 9, 0, 1, 2), Ray(7, 8, -1, 0, 3), Ray(9, 8, 1, 0, 2)})},
      {"hostile pieces taken on a moat and in a keep",
       kAnarchy,
       {{8, 8, kWhite, kRook}, {8, 3, kBlack, kPawn}, {8, 15, kBlue, kQueen}},
       Join({rookUp5, Ray(8, 9, 0, 1, 7), rookLeft5, rookRight5})},
      {"leaves a foreign realm across its moat in one move",
       kAnarchy,
       {{8, 15, kBlack, kRook}},
       Join({Ray(8, 14, 0, -1, 15), {{8, 16}, {7, 15}, {9, 15}}})},
      {"runs along the moat line it stands on",
       kAnarchy,
       {{8, 3, kWhite, kRook}},
       Join({Ray(8, 2, 0, -1, 3), Ray(8, 4, 0, 1, 13), Ray(7, 3, -1, 0, 3), Ray(9, 3, 1, 0, 3)})},
      {"and along a fallen one",
       kAnarchy,
       {{7, 13, kBlue, kRook}},
       Join(
           {Ray(7, 12, 0, -1, 10), Ray(7, 14, 0, 1, 2), Ray(6, 13, -1, 0, 2), Ray(8, 13, 1, 0, 4)}),
       {kWhite}},
      {"from the battlefield a fallen moat ends the ray",
       kAnarchy,
       {{8, 8, kRed, kRook}},
       Join({rookUp5, Ray(8, 9, 0, 1, 5), rookLeft5, Ray(9, 8, 1, 0, 8)}),
       {kWhite}},
      {"Bishop from a keep crosses that realm's moat",
       kAnarchy,
       {{7, 15, kBlack, kBishop}},
       Join({Ray(6, 14, -1, -1, 4), Ray(8, 14, 1, -1, 6), {{8, 16}}})},
      {"Bishop from one fallen moat stops on another",
       kAnarchy,
       {{7, 13, kBlue, kBishop}},
       Join({Ray(6, 12, -1, -1, 6), Ray(8, 12, 1, -1, 6), Ray(8, 14, 1, 1, 2),
             Ray(6, 14, -1, 1, 1)}),
       {kWhite, kRed}},
      {"a Queen there slides on",
       kAnarchy,
       {{7, 13, kBlue, kQueen}},
       Join({Ray(7, 12, 0, -1, 10), Ray(7, 14, 0, 1, 2), Ray(6, 13, -1, 0, 2), Ray(8, 13, 1, 0, 4),
             Ray(6, 12, -1, -1, 6), Ray(8, 12, 1, -1, 7), Ray(8, 14, 1, 1, 2),
             Ray(6, 14, -1, 1, 1)}),
       {kWhite, kRed}},
  });
}

}  // namespace
}  // namespace varkesh
