// Positions with one right answer: the Master finds each within a fixed
// number of nodes, whatever greedier capture lies beside it.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "ai/search/evaluation.h"
#include "ai/search/king_danger.h"
#include "ai/search/levels.h"
#include "ai/search/search.h"
#include "core/apply_move.h"
#include "core/rules.h"
#include "search_fixture.h"

namespace varkesh {
namespace {

using test::Garrison;
using test::HandMade;
using test::Piece;
using test::With;

constexpr std::uint64_t kMasterNodes = 60'000;

struct Tactic {
  std::string name;
  Position position;
  // Whether the position after the chosen move shows the answer.
  std::function<bool(const Position& before, const Move& move, const Position& after)> solved;
};

bool NoPieceOf(const Position& position, int team, int piece) {
  for (const Square& square : position.board.squares)
    if (square.team == team && square.piece == piece) return false;
  return true;
}

std::vector<Piece> Kings(std::initializer_list<int> teams) {
  static constexpr Piece kKings[] = {
      {8, 16, kWhite, kKing}, {0, 8, kBlue, kKing}, {8, 0, kBlack, kKing}, {16, 8, kRed, kKing}};
  std::vector<Piece> pieces;
  for (int team : teams) {
    pieces.push_back(kKings[team - 1]);
    pieces = With(pieces, Garrison(team));
  }
  return pieces;
}

std::vector<Tactic> Tactics() {
  std::vector<Tactic> tactics;
  // Black has fallen: taking Red's King ends the game, worth more than Red's Queen.
  tactics.push_back({"TakeTheLastKing",
                     HandMade(kAlliedNeighbors, kWhite,
                              With(Kings({kWhite, kBlue, kRed}), {{10, 8, kRed, kKing},
                                                                  {10, 11, kWhite, kRook},
                                                                  {5, 6, kRed, kQueen},
                                                                  {6, 8, kWhite, kKnight}}),
                              {kBlack}),
                     [](const Position&, const Move&, const Position& after) {
                       return after.Finished() && after.winner != kBlack && after.winner != kRed;
                     }});
  // In Anarchy with two kingdoms fallen, Red's King taken wins; Red's Rook is the bait.
  tactics.push_back(
      {"TakeTheLastKingInAnarchy",
       HandMade(kAnarchy, kWhite,
                With(With(Kings({kWhite}), Garrison(kRed)), {{10, 8, kRed, kKing},
                                                             {10, 11, kWhite, kRook},
                                                             {5, 6, kRed, kRook},
                                                             {6, 8, kWhite, kKnight}}),
                {kBlue, kBlack}),
       [](const Position&, const Move&, const Position& after) {
         return after.Finished() && after.winner == kWhite;
       }});
  // Black's Rook eyes White's King down the file; Black's Queen is the bait.
  tactics.push_back({"SaveOwnKing",
                     HandMade(kAlliedNeighbors, kWhite,
                              With(With(Kings({kBlue, kBlack, kRed}), Garrison(kWhite)),
                                   {{8, 10, kWhite, kKing},
                                    {8, 5, kBlack, kRook},
                                    {11, 5, kBlack, kQueen},
                                    {12, 7, kWhite, kKnight}})),
                     [](const Position&, const Move&, const Position& after) {
                       return !search::KingAttacked(after, kWhite);
                     }});
  // Blue moves next and its Rook would take Black's King: White, Black's
  // ally, must block or take the Rook rather than Red's Queen.
  tactics.push_back({"SaveAllysKing",
                     HandMade(kCrossroadAllies, kWhite,
                              With(With(Kings({kWhite, kBlue, kRed}), Garrison(kBlack)),
                                   {{8, 6, kBlack, kKing},
                                    {4, 6, kBlue, kRook},
                                    {4, 11, kWhite, kRook},
                                    {11, 10, kRed, kQueen},
                                    {12, 12, kWhite, kKnight}})),
                     [](const Position&, const Move&, const Position& after) {
                       return !search::KingAttacked(after, kBlack);
                     }});
  // A White Pawn in Black's moat steps into the keep and spends itself on the Queen.
  tactics.push_back({"PawnRaidWinsTheQueen",
                     HandMade(kAlliedNeighbors, kWhite,
                              With(Kings({kWhite, kBlue, kRed}), {{8, 0, kBlack, kKing},
                                                                  {9, 1, kBlack, kQueen},
                                                                  {6, 2, kBlack, kRook},
                                                                  {10, 2, kBlack, kRook},
                                                                  {7, 1, kBlack, kBishop},
                                                                  {8, 3, kWhite, kPawn}})),
                     [](const Position&, const Move&, const Position& after) {
                       return NoPieceOf(after, kBlack, kQueen);
                     }});
  return tactics;
}

class TacticsTest : public ::testing::TestWithParam<int> {};

TEST_P(TacticsTest, MasterFindsTheAnswer) {
  const Tactic tactic = Tactics()[static_cast<std::size_t>(GetParam())];
  search::SearchLimits limits;
  limits.nodes = kMasterNodes;
  search::Searcher searcher;
  const search::SearchResult result =
      searcher.Think(tactic.position, LevelSettings(kLevelMaster, kBalanced, limits));
  ASSERT_TRUE(result.found) << tactic.name;
  ASSERT_TRUE(IsLegal(tactic.position, result.best)) << tactic.name;
  Position after = tactic.position;
  ApplyMove(after, result.best);
  EXPECT_TRUE(tactic.solved(tactic.position, result.best, after))
      << tactic.name << ": chose " << int{result.best.fromX} << "," << int{result.best.fromY} << "-"
      << int{result.best.toX} << "," << int{result.best.toY} << "/" << result.best.option;
}

INSTANTIATE_TEST_SUITE_P(Suite, TacticsTest, ::testing::Range(0, 5),
                         [](const ::testing::TestParamInfo<int>& info) {
                           return Tactics()[static_cast<std::size_t>(info.param)].name;
                         });

// A King taken to end the game scores as a win, and deepening stops there.
TEST(TacticsTest, WinningKingCaptureScoresAsAWin) {
  const Tactic tactic = Tactics()[0];
  search::SearchLimits limits;
  limits.depth = 2;
  search::Searcher searcher;
  const search::SearchResult result =
      searcher.Think(tactic.position, LevelSettings(kLevelMaster, kBalanced, limits));
  EXPECT_GT(result.score, search::kWinBound);
  EXPECT_EQ(result.depth, 1) << "a won game needs no deeper search";
}

}  // namespace
}  // namespace varkesh
