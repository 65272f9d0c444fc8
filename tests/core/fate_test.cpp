#include "core/fate.h"
#include "core/dungeon.h"
#include "rules_fixture.h"

namespace varkesh {
namespace {

using test::Place;

std::vector<DungeonPiece> Prisoners(const Position& position, int captor) {
  const Dungeon& dungeon = position.dungeons[static_cast<std::size_t>(captor - 1)];
  return {dungeon.prisoners.begin(), dungeon.prisoners.end()};
}

TEST(Dungeon, PrisonersLieWithTheCaptorAndTheEarliestEqualOneLeavesFirst) {
  Position position;
  AddPieceToDungeon(position, kRed, kBlack, kRook);
  AddPieceToDungeon(position, kRed, kBlack, kKnight);
  AddPieceToDungeon(position, kRed, kBlack, kRook);
  AddPieceToDungeon(position, kNoTeam, kBlack, kQueen);  // no team, no dungeon
  EXPECT_EQ(RemovePieceFromDungeon(position, kRed, kBlack, kRook), 1);
  EXPECT_EQ(RemovePieceFromDungeon(position, kRed, kWhite, kRook), 0);     // not held
  EXPECT_EQ(RemovePieceFromDungeon(position, kBlue, kBlack, kKnight), 0);  // another dungeon
  EXPECT_EQ(Prisoners(position, kRed),
            (std::vector<DungeonPiece>{{kBlack, kKnight}, {kBlack, kRook}}));
  for (int captor : {kWhite, kBlue, kBlack}) EXPECT_TRUE(Prisoners(position, captor).empty());
}

// White falls to Black with a frozen Queen on the battlefield, Blue pawns and
// a Rook on its moat and a Red Pawn in its keep.
TEST(ApplyFate, GainedSwapsLostAndFrozenSweepOnlyOtherTeamsPawnsFromTheMoat) {
  const std::string before = "WP 8,13 WC 8,16 -WQ 8,8 KR 9,9 BP 9,13 BC 10,13 BR 7,13 RP 8,15";
  struct Case {
    int rule;
    std::string after;
    int realmAfter;
  };
  const Case cases[] = {
      {kKingdomGained, "KP 8,13 KC 8,16 -KQ 8,8 KR 9,9 BP 9,13 BC 10,13 BR 7,13 RP 8,15", kBlack},
      {kKingdomLost, "KR 9,9 BR 7,13 RP 8,15", kNoTeam},
      {kKingdomFrozen, "-WP 8,13 -WC 8,16 -WQ 8,8 KR 9,9 BR 7,13 RP 8,15", kNoTeam},
      {0, before, kWhite},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.rule);
    Position position = Place(kAnarchy, before);
    position.kingCaptureRule = c.rule;
    ApplyFate(position, kWhite, kBlack);
    Position expected = Place(kAnarchy, c.after);
    for (Square& square : expected.board.squares)
      if (square.realm == kWhite) square.realm = static_cast<std::int8_t>(c.realmAfter);
    test::ExpectSameBoard(position.board, expected.board);
    EXPECT_EQ(position.pieces, expected.pieces);
  }
  // A gained moat is the pawn's own: it keeps its double step.
  Position position = Place(kAnarchy, before);
  SwapTeams(position, kWhite, kBlack);
  position.currentTeam = kBlack;
  EXPECT_EQ(test::Destinations(position, 8, 13), test::At("8,12 8,11"));
  SwapTeams(position, kNoTeam, kBlue);  // would fill every empty square
  EXPECT_EQ(position.board.at(0, 0).team, kNoTeam);
}

TEST(SwapTeams, PrisonersChangeColourOnlyInAnEnemyOfTheGainersDungeon) {
  struct Case {
    int gameType, fallen, gainer;
    PerTeam<int> rookAfter;  // the fallen team's Rook in each dungeon
  };
  const Case cases[] = {
      {kAnarchy, kRed, kWhite, {kRed, kWhite, kWhite, kWhite}},
      {kAlliedNeighbors, kWhite, kBlack, {kBlack, kBlack, kWhite, kWhite}},
      {kCrossroadAllies, kBlue, kWhite, {kBlue, kWhite, kBlue, kWhite}},
  };
  for (const Case& c : cases) {
    Position position = Place(c.gameType, "");
    for (int holder = kWhite; holder <= kRed; ++holder) {
      AddPieceToDungeon(position, holder, c.fallen, kRook);
      AddPieceToDungeon(position, holder, c.fallen, kKing);  // a King never changes
    }
    SwapTeams(position, c.fallen, c.gainer);
    for (int holder = kWhite; holder <= kRed; ++holder) {
      const auto rook = static_cast<std::int8_t>(c.rookAfter[static_cast<std::size_t>(holder - 1)]);
      const auto fallen = static_cast<std::int8_t>(c.fallen);
      EXPECT_EQ(Prisoners(position, holder),
                (std::vector<DungeonPiece>{{rook, kRook}, {fallen, kKing}}))
          << "type " << c.gameType << " holder " << holder;
    }
  }
}

// Which side wins shows in the games of every type; here, the positions
// they never reach.
TEST(VictoryTest, EndsWhenASideHasFallenTheFirstPairTestedFirst) {
  struct Case {
    int gameType;
    PerTeam<bool> fallen;
    int winner, coWinner;  // kNoTeam: the game goes on
  };
  const Case cases[] = {
      {kAlliedNeighbors, {true, true, true, true}, kBlack, kRed},
      {kCrossroadAllies, {true, true, false, false}, kNoTeam, kNoTeam},
      {kCrossroadAllies, {true, true, true, true}, kBlue, kRed},
      {kAnarchy, {true, false, true, false}, kNoTeam, kNoTeam},
      {0, {true, true, true, false}, kNoTeam, kNoTeam},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(&c - cases);
    Position position;
    position.gameType = c.gameType;
    position.kingdomFallen = c.fallen;
    EXPECT_EQ(VictoryTest(position), c.winner != kNoTeam);
    EXPECT_EQ(position.Finished(), c.winner != kNoTeam);
    EXPECT_EQ((std::pair{position.winner, position.coWinner}), (std::pair{c.winner, c.coWinner}));
  }
}

}  // namespace
}  // namespace varkesh
