// Each piece's destinations in order, and the frame around them: whose
// pieces are listed, in which order, and what the checked entry points accept.
#include <cstdio>
#include <cstring>

#include "core/piece_moves.h"
#include "rules_fixture.h"

namespace varkesh {
namespace {

// White's Castle Pawn is boxed in by its King, the Pawn in its own keep
// cannot move, the Rook is frozen; a Black Pawn waits for its turn.
test::Layout SmallLayout() {
  return {kAlliedNeighbors, kKingdomGained,
          "WN 11,5 WQ 8,8 WP 5,8 WK 8,15 WC 8,16 -WR 6,14 WP 7,15 KP 8,3", "W"};
}

TEST(ListMoves, ThePiecesOfTheTeamOnTurnInScanOrderEachSquareOnce) {
  Position position = test::Place(SmallLayout());
  MoveList moves;
  ListMoves(position, moves);
  test::Squares from;
  for (const Move& move : moves) {
    if (from.empty() || from.back() != BoardSquare{move.fromX, move.fromY})
      from.push_back({move.fromX, move.fromY});
    EXPECT_EQ(move.option, kOptionNone);
  }
  EXPECT_EQ(from, test::At("11,5 5,8 8,8 8,15"));
  EXPECT_EQ(CountBranches(position), moves.Count());

  position.currentTeam = kBlack;
  EXPECT_EQ(test::Destinations(position, 8, 3), test::At("8,4 8,5"));
  position.winner = kWhite;  // a finished game has no moves
  ListMoves(position, moves);
  EXPECT_TRUE(moves.Empty());
  EXPECT_EQ(CountBranches(position), 0);
  EXPECT_FALSE(IsListedMove(position, 8, 3, 8, 4));
}

// The first piece named moves. Most of each piece's rule shows in the perft
// counts and in the branch counter's agreement with the list; these are the
// cases those miss.
struct MoveCase {
  const char* name;
  int gameType;
  const char* pieces;
  const char* expected;
  const char* fallenRealms = "";  // team letters
  int castling = kNoTeam;         // the one team with its castle right
};

void Check(const std::vector<MoveCase>& cases) {
  for (const MoveCase& c : cases) {
    Position position = test::Place(c.gameType, c.pieces);
    if (c.castling != kNoTeam)
      position.castleRight[static_cast<std::size_t>(c.castling - 1)] = true;
    for (Square& square : position.board.squares) {
      if (square.realm != kNoTeam && std::strchr(c.fallenRealms, "WBKR"[square.realm - 1]))
        square.realm = kNoTeam;
    }
    int x = 0, y = 0;
    std::sscanf(c.pieces, "%*s %d,%d", &x, &y);
    position.currentTeam = position.board.at(x, y).team;
    EXPECT_EQ(test::Destinations(position, x, y), test::At(c.expected)) << c.name;
  }
}

TEST(PieceRules, Pawn) {
  Check({
      {"takes first, the double step never", kAnarchy, "WP 8,13 RB 7,12 WB 9,12 KR 8,11",
       "7,12 8,12"},
      {"hostile pieces in an ally's moat are safe", kAlliedNeighbors, "WP 4,8 KR 3,7 RR 3,9",
       "4,7 5,8 4,9"},
      {"foreign moat: only into the keep", kAnarchy, "WP 8,3 KQ 7,2 WR 9,2", "7,2 8,2"},
      {"fallen keep is closed", kAnarchy, "WP 8,3", "", "K"},
      {"in a keep, for good", kAnarchy, "WP 8,2 KR 7,1", ""},
  });
}

TEST(PieceRules, CastlePawn) {
  Check({
      {"from its corner", kAnarchy, "WC 8,16", "8,15"},
      {"steps orthogonally, takes diagonally", kAnarchy, "WC 8,15 KR 7,14 WR 9,14",
       "7,14 8,14 7,15 9,15 8,16"},
      {"goes on inside an enemy keep", kAnarchy, "WC 8,1", "8,0 7,1 9,1 8,2"},
  });
}

TEST(PieceRules, KnightAndKing) {
  Check({
      {"Knight lands on any ground", kAnarchy, "WN 6,4", "7,2 8,3 4,5 8,5 5,6 7,6", "K"},
      {"King: frozen, own and hostile neighbours; another team's right is no corner", kAnarchy,
       "WK 8,8 -BB 8,7 KQ 9,9 WR 7,9", "7,7 9,7 7,8 9,8 8,9 9,9", "", kBlue},
      {"King: the castle move onto its Castle Pawn comes last", kAnarchy, "WK 8,15 WC 8,16",
       "7,14 8,14 9,14 7,15 9,15 8,16", "", kWhite},
      {"an empty corner beside the King stands once", kAnarchy, "RK 15,8",
       "14,7 15,7 14,8 16,8 14,9 15,9", "", kRed},
  });
  // The rule book finds that corner twice, as the computer's list has it.
  Position position = test::Place(kAnarchy, "RK 15,8");
  position.castleRight[kRed - 1] = true;
  EXPECT_EQ(FindMoves(position, 15, 8, [](int, int) {}), 7);
}

TEST(PieceRules, Sliders) {
  Check({
      {"runs along the moat line it stands on", kAnarchy, "WR 8,3",
       "8,2..8,0 8,4..8,16 7,3..5,3 9,3..11,3"},
      {"and along a fallen one", kAnarchy, "BR 7,13", "7,12..7,3 7,14..7,15 6,13..5,13 8,13..11,13",
       "W"},
      {"from the battlefield a fallen moat ends the ray", kAnarchy, "RR 8,8",
       "8,7..8,3 8,9..8,13 7,8..3,8 9,8..16,8", "W"},
      {"Bishop from one fallen moat stops on another", kAnarchy, "BB 7,13",
       "6,12..1,7 8,12..13,7 8,14..9,15 6,14", "WR"},
      {"a Queen there slides on", kAnarchy, "BQ 7,13",
       "7,12..7,3 7,14..7,15 6,13..5,13 8,13..11,13 6,12..1,7 8,12..14,6 8,14..9,15 6,14", "WR"},
  });
}

}  // namespace
}  // namespace varkesh
