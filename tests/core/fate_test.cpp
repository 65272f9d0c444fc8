#include "core/fate.h"
#include "core/dungeon.h"
#include "rules_fixture.h"

namespace varkesh {
namespace {

using test::Position;

std::vector<DungeonPiece> Prisoners(const Game& game, int captor) {
  const Dungeon& dungeon = game.match.position.dungeons[static_cast<std::size_t>(captor - 1)];
  return {dungeon.prisoners.begin(), dungeon.prisoners.end()};
}

TEST(Dungeon, PrisonersLieWithTheCaptorAndTheEarliestEqualOneLeavesFirst) {
  Game game;
  AddPieceToDungeon(game, kRed, kBlack, kRook);
  AddPieceToDungeon(game, kRed, kBlack, kKnight);
  AddPieceToDungeon(game, kRed, kBlack, kRook);
  AddPieceToDungeon(game, kNoTeam, kBlack, kQueen);  // no team, no dungeon
  RemovePieceFromDungeon(game, kRed, kBlack, kRook);
  RemovePieceFromDungeon(game, kRed, kWhite, kRook);     // not held
  RemovePieceFromDungeon(game, kBlue, kBlack, kKnight);  // another dungeon
  EXPECT_EQ(Prisoners(game, kRed), (std::vector<DungeonPiece>{{kBlack, kKnight}, {kBlack, kRook}}));
  for (int captor : {kWhite, kBlue, kBlack}) EXPECT_TRUE(Prisoners(game, captor).empty());
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
    Game game = Position(kAnarchy, before);
    game.match.position.kingCaptureRule = c.rule;
    ApplyFate(game, kWhite, kBlack);
    Game expected = Position(kAnarchy, c.after);
    for (Square& square : expected.board.squares)
      if (square.realm == kWhite) square.realm = c.realmAfter;
    test::ExpectSameBoard(game.match.position.board, expected.board);
  }
  // A gained moat is the pawn's own: it keeps its double step.
  Game game = Position(kAnarchy, before);
  SwapTeams(game, kWhite, kBlack);
  EXPECT_EQ(test::Destinations(game, 8, 13), test::At("8,12 8,11"));
  SwapTeams(game, kNoTeam, kBlue);  // would fill every empty square
  EXPECT_EQ(game.match.position.board.at(0, 0).team, kNoTeam);
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
    Game game = Position(c.gameType, "");
    for (int holder = kWhite; holder <= kRed; ++holder) {
      AddPieceToDungeon(game, holder, c.fallen, kRook);
      AddPieceToDungeon(game, holder, c.fallen, kKing);  // a King never changes
    }
    SwapTeams(game, c.fallen, c.gainer);
    for (int holder = kWhite; holder <= kRed; ++holder) {
      int rook = c.rookAfter[static_cast<std::size_t>(holder - 1)];
      EXPECT_EQ(Prisoners(game, holder),
                (std::vector<DungeonPiece>{{rook, kRook}, {c.fallen, kKing}}))
          << "type " << c.gameType << " holder " << holder;
    }
  }
}

TEST(VictoryTest, EndsWhenASideHasFallenTheFirstPairTestedFirst) {
  struct Case {
    int gameType;
    PerTeam<bool> fallen;
    int winner, coWinner;  // kNoTeam: the game goes on
  };
  const Case cases[] = {
      {kAlliedNeighbors, {true, true, false, false}, kBlack, kRed},
      {kAlliedNeighbors, {false, false, true, true}, kWhite, kBlue},
      {kAlliedNeighbors, {true, true, true, true}, kBlack, kRed},
      {kCrossroadAllies, {true, true, false, false}, kNoTeam, kNoTeam},
      {kCrossroadAllies, {true, false, true, false}, kBlue, kRed},
      {kCrossroadAllies, {false, true, false, true}, kWhite, kBlack},
      {kCrossroadAllies, {true, true, true, true}, kBlue, kRed},
      {kAnarchy, {true, false, true, false}, kNoTeam, kNoTeam},
      {kAnarchy, {false, true, true, true}, kWhite, kNoTeam},
      {kAnarchy, {true, true, true, false}, kRed, kNoTeam},
      {0, {true, true, true, false}, kNoTeam, kNoTeam},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(&c - cases);
    Game game;
    game.match.position.gameType = c.gameType;
    game.turn.gameMode = ModeChoosePiece;
    game.match.position.kingdomFallen = c.fallen;
    bool ended = c.winner != kNoTeam;
    EXPECT_EQ(VictoryTest(game), ended);
    EXPECT_EQ(game.turn.gameMode, ended ? ModeVictorySetUp : ModeChoosePiece);
    EXPECT_EQ((std::pair{game.match.position.winner, game.match.position.coWinner}), (std::pair{c.winner, c.coWinner}));
  }
}

}  // namespace
}  // namespace varkesh
