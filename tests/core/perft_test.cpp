// The number of branches to each depth from fixed positions: the anchor of
// the rules. A change in what a piece may do, in what a capture, a fallen
// kingdom or a pawn in a keep leaves behind, or in whose turn comes next,
// shows in these counts. Those to depth 3, and to depth 4 for the pawn
// options, the victory and the start under Anarchy, were checked branch by
// branch against the program as it was before its rules became values,
// played one move at a time through its command-line tool.
#include <cstdint>
#include <string>
#include <vector>

#include "core/apply_move.h"
#include "core/perft.h"
#include "rules_fixture.h"

namespace varkesh {
namespace {

using Counts = std::vector<std::uint64_t>;  // perft at depth 1, 2, ...

// White can take Black's King with its Knight at once. Red stands at exactly
// five material, so losing any piece costs it its King; White's Pawn and
// Black's prisoner give White pawn options in Black's keep.
constexpr const char* kKingHunt =
    "WK 8,15 WN 7,3 WB 11,4 WP 8,13 WP 6,3 BK 1,8 BP 3,7 BN 2,9 KK 8,1 KR 7,2 KB 9,1 KP 9,3 "
    "KP 11,3 KC 8,0 RK 15,8 RR 14,7 RP 13,9 RP 10,3 RP 13,7";
// Crossroad Allies: two White Pawns and a Black Castle Pawn at Red's keep
// with lines to take and to free, and a Blue Pawn at White's keep with none.
constexpr const char* kPawnOptions =
    "WK 8,15 WP 13,7 WP 13,10 WC 8,16 BK 1,8 BP 6,13 BN 3,8 KK 8,1 KC 13,6 RK 16,8 RB 15,8 "
    "BN 14,9 RP 12,8";
// Allied Neighbors with Black fallen: White's Knight takes Red's King and
// the game is won in the first ply of that branch.
constexpr const char* kVictory = "WK 8,15 WN 13,7 WP 9,13 BK 1,8 BP 3,9 RK 15,8 RR 14,7 RP 13,9";
// Every team holds its castle move, Red's corner beside its King; White's
// Knight can take Black's Castle Pawn.
constexpr const char* kCastle =
    "WK 8,15 WC 8,16 WN 7,2 WP 9,13 BK 2,8 BC 0,8 BP 3,9 KK 8,1 KC 8,0 KB 9,1 RK 15,8 RR 14,7 "
    "RP 13,9";
// Blue is frozen in the middle of the board; Black's King can fall under
// the same rule.
constexpr const char* kFrozen =
    "WK 8,15 WQ 8,8 WN 7,3 WP 7,13 -BR 8,6 -BP 3,8 -BN 6,10 -BQ 1,8 KK 8,1 KR 6,2 KP 9,3 "
    "RK 15,8 RP 13,8 RB 12,7";

struct PerftCase {
  const char* name;
  test::Layout layout;
  Counts nodes;
};

const PerftCase kHandMade[] = {
    {"king hunt, gained",
     {kAnarchy, kKingdomGained, kKingHunt, "", "", "", "K:WQ"},
     {31, 372, 6012, 111936}},
    {"king hunt, lost",
     {kAnarchy, kKingdomLost, kKingHunt, "", "", "", "K:WQ"},
     {31, 372, 5964, 102726}},
    {"king hunt, frozen",
     {kAnarchy, kKingdomFrozen, kKingHunt, "", "", "", "K:WQ"},
     {31, 372, 5964, 102558}},
    {"pawn options",
     {kCrossroadAllies, kKingdomGained, kPawnOptions, "", "", "", "R:WR,WK,KQ"},
     {16, 274, 3128, 29577}},
    {"victory, lost",
     {kAlliedNeighbors, kKingdomLost, kVictory, "", "K", "K0"},
     {14, 104, 1728, 24784}},
    {"victory, gained",
     {kAlliedNeighbors, kKingdomGained, kVictory, "", "K", "KR"},
     {14, 104, 1728, 24784}},
    {"castle", {kAnarchy, kKingdomGained, kCastle, "WBKR"}, {14, 154, 2453, 52624}},
    {"frozen", {kAnarchy, kKingdomFrozen, kFrozen, "", "B", "B0"}, {43, 806, 15815, 628034}},
};

void ExpectCounts(const std::string& name, Position position, const Counts& nodes,
                  int playedDepth) {
  const Position before = position;
  for (int depth = 1; depth <= static_cast<int>(nodes.size()); ++depth) {
    const std::uint64_t expected = nodes[static_cast<std::size_t>(depth - 1)];
    EXPECT_EQ(Perft(position, depth), expected) << name << " depth " << depth;
    if (depth <= playedDepth) {
      EXPECT_EQ(PerftPlayingLeaves(position, depth), expected) << name << " depth " << depth;
    }
  }
  EXPECT_EQ(Perft(position, 0), 1u);
  EXPECT_TRUE(position == before) << name << ": the count left the position changed";
}

TEST(Perft, HandMadePositions) {
  for (const PerftCase& c : kHandMade) ExpectCounts(c.name, test::Place(c.layout), c.nodes, 4);
}

TEST(Perft, StartPositionUnderEveryGameTypeAndRule) {
  const Board board = LoadNewGameDataFile(VARKESH_PACK_DIR "/newgamedata.txt");
  // The teams meet in the fifth ply, where only allies let a Bishop's
  // capture on a neighbour's moat pass; no King can fall that early, so the
  // rule changes nothing yet.
  const Counts alliedNeighbors = {17, 288, 4879, 82367, 1779920};
  const Counts others = {17, 288, 4879, 82367, 1798860};
  for (int gameType = kAlliedNeighbors; gameType <= kAnarchy; ++gameType) {
    for (int rule = kKingdomGained; rule <= kKingdomFrozen; ++rule) {
      ExpectCounts("start, type " + std::to_string(gameType) + " rule " + std::to_string(rule),
                   StartPosition(board, gameType, rule),
                   gameType == kAlliedNeighbors ? alliedNeighbors : others, 3);
    }
  }
}

// Plays every branch two plies deep, checking that the piece sets keep step
// with the board and that taking a move back restores every field.
void WalkAndTakeBack(Position& position, int depth, const char* name) {
  if (depth == 0) return;
  MoveList branches;
  ListBranches(position, branches);
  for (const Move& move : branches) {
    const Position before = position;
    Undo undo;
    ApplyMove(position, move, &undo);
    Position refreshed = position;
    refreshed.Refresh();
    ASSERT_EQ(position.pieces, refreshed.pieces) << name << " " << testing::PrintToString(move);
    WalkAndTakeBack(position, depth - 1, name);
    UndoMove(position, move, undo);
    ASSERT_TRUE(position == before) << name << " " << testing::PrintToString(move);
  }
}

TEST(Perft, EveryBranchIsTakenBackExactly) {
  for (const PerftCase& c : kHandMade) {
    Position position = test::Place(c.layout);
    WalkAndTakeBack(position, 2, c.name);
  }
}

}  // namespace
}  // namespace varkesh
