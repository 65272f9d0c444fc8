#include <gtest/gtest.h>

#include "core/dungeon.h"

namespace varkesh {
namespace {

std::vector<DungeonPiece> Prisoners(const Game& game, int captor) {
  const Dungeon& dungeon = game.dungeons[static_cast<std::size_t>(captor - 1)];
  return {dungeon.prisoners.begin(), dungeon.prisoners.end()};
}

TEST(Dungeon, APrisonerLiesWithItsCaptor) {
  Game game;
  AddPieceToDungeon(game, kWhite, kBlack, kQueen);
  EXPECT_EQ(game.dungeons[0].PrisonerCount(), 1);
  EXPECT_EQ(game.dungeons[0].prisoners[1], (DungeonPiece{kBlack, kQueen}));
  for (int captor : {kBlue, kBlack, kRed}) EXPECT_TRUE(Prisoners(game, captor).empty());
}

TEST(Dungeon, RemovingTakesTheEarliestEqualPrisonerAndKeepsTheOrder) {
  Game game;
  AddPieceToDungeon(game, kRed, kBlack, kRook);
  AddPieceToDungeon(game, kRed, kBlack, kKnight);
  AddPieceToDungeon(game, kRed, kBlack, kRook);
  RemovePieceFromDungeon(game, kRed, kBlack, kRook);
  EXPECT_EQ(Prisoners(game, kRed), (std::vector<DungeonPiece>{{kBlack, kKnight}, {kBlack, kRook}}));

  RemovePieceFromDungeon(game, kRed, kWhite, kRook);   // not held
  RemovePieceFromDungeon(game, kBlue, kBlack, kRook);  // another dungeon
  EXPECT_EQ(game.dungeons[3].PrisonerCount(), 2);

  RemovePieceFromDungeon(game, kRed, kBlack, kKnight);
  RemovePieceFromDungeon(game, kRed, kBlack, kRook);
  EXPECT_EQ(game.dungeons[3].PrisonerCount(), 0);
  RemovePieceFromDungeon(game, kRed, kBlack, kRook);
  EXPECT_EQ(game.dungeons[3].PrisonerCount(), 0);
}

TEST(Dungeon, ACaptorThatNamesNoTeamHasNoDungeon) {
  Game game;
  AddPieceToDungeon(game, kNoTeam, kBlack, kQueen);
  AddPieceToDungeon(game, 5, kBlack, kQueen);
  RemovePieceFromDungeon(game, -1, kBlack, kQueen);
  for (int captor = kWhite; captor <= kRed; ++captor) EXPECT_TRUE(Prisoners(game, captor).empty());
}

}  // namespace
}  // namespace varkesh
