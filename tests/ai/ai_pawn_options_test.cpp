#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "ai/computer.h"
#include "ai_fixture.h"
#include "flow/scripted_outside.h"

namespace varkesh {
namespace {

using Prisoners = std::vector<DungeonPiece>;
using Sounds = std::vector<std::string>;

struct Raid {
  Game game;
  Sounds sounds;
};

// A White pawn that has just stepped onto (8, 2) in Black's keep.
Raid RaidBlacksKeep(int gameType, std::initializer_list<test::Placed> keep,
                    Prisoners blacksPrisoners) {
  Raid raid{test::EmptyGame(gameType, {{8, 2, kWhite, kPawn}}), {}};
  test::Put(raid.game.board, keep);
  for (const DungeonPiece& prisoner : blacksPrisoners)
    raid.game.dungeons[2].prisoners.Add(prisoner);
  raid.game.moveToX = 8;
  raid.game.moveToY = 2;
  ScriptedOutside outside;
  AIpawnOptions(raid.game, outside);
  raid.sounds = outside.sounds;
  return raid;
}

Prisoners HeldBy(const Game& game, int holder) {
  const auto& prisoners = game.dungeons[static_cast<std::size_t>(holder - 1)].prisoners;
  return {prisoners.begin(), prisoners.end()};
}

TEST(AIpawnOptions, TakesTheOwnersMostValuableKindFirst) {
  const Raid queen = RaidBlacksKeep(kAnarchy, {{7, 1, kBlack, kRook}, {9, 2, kBlack, kQueen}}, {});
  EXPECT_EQ(queen.game.board.at(8, 2).piece, kNoPiece);  // the pawn is spent
  EXPECT_EQ(queen.game.board.at(9, 2).piece, kNoPiece);
  EXPECT_EQ(HeldBy(queen.game, kWhite), (Prisoners{{kBlack, kQueen}}));
  EXPECT_EQ(queen.sounds, Sounds{"sfx_capturequeen"});

  const Raid knights = RaidBlacksKeep(
      kAnarchy, {{9, 1, kBlack, kKnight}, {7, 1, kBlack, kKnight}, {8, 0, kBlack, kKnight}}, {});
  EXPECT_EQ(knights.game.board.at(8, 0).piece, kNoPiece);  // lowest row, then lowest column

  const Raid none = RaidBlacksKeep(
      kAnarchy, {{7, 1, kRed, kRook}, {9, 1, kBlack, -kQueen}, {8, 1, kBlack, kKing}}, {});
  EXPECT_EQ(none.game.board.at(8, 2).piece, kPawn);  // a guest or a frozen piece is no target
  EXPECT_EQ(none.game.board.at(7, 1).piece, kRook);
  EXPECT_TRUE(none.sounds.empty());
}

TEST(AIpawnOptions, FreesTheMoversMostValuablePrisoner) {
  const Raid bishop = RaidBlacksKeep(kAnarchy, {{8, 1, kBlack, kKing}},
                                     {{kWhite, kRook}, {kWhite, kKing}, {kWhite, kBishop}});
  EXPECT_EQ(bishop.game.board.at(8, 2), (Square{kWhite, kBishop, 0, kKeep, kBlack}));
  EXPECT_EQ(HeldBy(bishop.game, kBlack), (Prisoners{{kWhite, kRook}, {kWhite, kKing}}));
  EXPECT_EQ(bishop.sounds, Sounds{"sfx_newgame"});

  const Raid ally = RaidBlacksKeep(kAlliedNeighbors, {}, {{kBlue, kBishop}, {kWhite, kKing}});
  EXPECT_EQ(ally.game.board.at(8, 2).piece, kPawn);
  EXPECT_EQ(HeldBy(ally.game, kBlack), (Prisoners{{kBlue, kBishop}, {kWhite, kKing}}));
  EXPECT_TRUE(ally.sounds.empty());
}

TEST(AIpawnOptions, FindsTheKeepOnEachSide) {
  for (auto [x, y, queenX, queenY, owner] :
       {std::array{2, 8, 0, 8, kBlue}, {14, 8, 16, 8, kRed}, {8, 14, 8, 16, kWhite}}) {
    Game game = test::EmptyGame(kAnarchy, {{x, y, kBlack, kPawn}, {queenX, queenY, owner, kQueen}});
    game.currentTeam = kBlack;
    game.moveToX = x;
    game.moveToY = y;
    ScriptedOutside outside;
    AIpawnOptions(game, outside);
    EXPECT_EQ(game.board.at(queenX, queenY).piece, kNoPiece) << owner;
  }
}

}  // namespace
}  // namespace varkesh
