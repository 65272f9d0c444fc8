// The count of a position's branches against the list it stands for, on the
// positions of seeded random games under every game type and rule. The
// counter reads its own tables of squares instead of the listing's walk, so
// a square, a ground or a rule it gets wrong shows here as a difference.
#include <gtest/gtest.h>

#include <string>

#include "core/apply_move.h"
#include "core/new_game_data.h"
#include "core/rules.h"
#include "engine/random.h"
#include "rules_fixture.h"

namespace varkesh {
namespace {

bool HasFrozenPiece(const Position& position) {
  for (const Square& square : position.board.squares)
    if (square.piece < 0) return true;
  return false;
}

TEST(CountBranches, MatchesTheListAlongRandomGames) {
  const Board board = LoadNewGameDataFile(VARKESH_PACK_DIR "/newgamedata.txt");
  constexpr int kGamesEach = 4;
  constexpr int kLongestGame = 800;
  int optionLines = 0;
  int frozenPositions = 0;
  MoveList branches;
  for (int gameType = kAlliedNeighbors; gameType <= kAnarchy; ++gameType) {
    for (int rule = kKingdomGained; rule <= kKingdomFrozen; ++rule) {
      for (int game = 1; game <= kGamesEach; ++game) {
        Position position = StartPosition(board, gameType, rule);
        Random random(static_cast<std::uint64_t>(gameType * 100 + rule * 10 + game));
        for (int ply = 0; ply < kLongestGame && !position.Finished(); ++ply) {
          ListBranches(position, branches);
          ASSERT_EQ(CountBranches(position), branches.Count())
              << "type " << gameType << " rule " << rule << " game " << game << " ply " << ply;
          if (branches.Empty()) break;
          for (const Move& move : branches) optionLines += move.option >= 0;
          frozenPositions += HasFrozenPiece(position);
          ApplyMove(position, branches[random.Below(branches.Count())]);
        }
      }
    }
  }
  // The games reach what the counter treats apart from plain steps.
  EXPECT_GT(optionLines, 0);
  EXPECT_GT(frozenPositions, 0);
}

// Corners the random games seldom reach, each counted for every team on turn.
TEST(CountBranches, MatchesTheListInRareCorners) {
  const std::pair<const char*, test::Layout> cases[] = {
      // Black's realm has fallen: a Castle Pawn enters none of its squares,
      // not even to take; a pawn of the battlefield no longer raids its moat.
      {"fallen realm",
       {kAnarchy, kKingdomLost, "WC 8,4 RN 7,3 RP 9,5 WP 10,4 KN 11,3", "", "K", "K0"}},
      // A Castle Pawn and a Pawn at Black's keep, with pieces to take there
      // and prisoners to free; a Pawn in a foreign moat steps only inwards.
      {"raids",
       {kAnarchy, kKingdomGained, "WC 8,3 WP 6,3 KB 7,2 KN 9,2 KK 8,1 BP 5,4 BK 1,8", "", "", "",
        "K:WQ,WR,BN"}},
      // Kings beside their castle corners, the corner empty or taken.
      {"castle corners",
       {kAnarchy, kKingdomGained, "WK 8,15 BK 1,8 BC 0,8 KK 9,1 RK 15,8 RN 16,8", "WBKR"}},
      // Frozen pieces block and cannot be taken.
      {"frozen",
       {kAnarchy, kKingdomFrozen, "WQ 8,8 -BR 8,6 -BN 6,9 WN 5,8 WK 8,15 WP 7,7 -BP 9,7", "", "B",
        "B0"}},
  };
  MoveList branches;
  for (const auto& [name, layout] : cases) {
    Position position = test::Place(layout);
    for (int team = kWhite; team <= kRed; ++team) {
      position.currentTeam = team;
      ListBranches(position, branches);
      EXPECT_EQ(CountBranches(position), branches.Count()) << name << ", team " << team;
    }
  }
}

}  // namespace
}  // namespace varkesh
