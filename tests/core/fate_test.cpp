#include <algorithm>

#include "core/dungeon.h"
#include "core/fate.h"
#include "rules_fixture.h"

namespace varkesh {
namespace {

using test::Destinations;
using test::EmptyGame;
using test::Put;

int CountRealm(const Game& game, int team) {
  return static_cast<int>(std::count_if(game.board.squares.begin(), game.board.squares.end(),
                                        [team](const Square& s) { return s.realm == team; }));
}

TEST(SwapTeams, GainerTakesPiecesAndRealm) {
  Game game = EmptyGame(kAnarchy);
  Put(game, 13, 8, kRed, kPawn);
  Put(game, 8, 8, kRed, -kQueen);  // changes colour but stays frozen
  Put(game, 9, 9, kBlack, kRook);
  SwapTeams(game, kRed, kWhite);
  EXPECT_EQ(game.board.at(13, 8), (Square{kWhite, kPawn, 0, kMoat, kWhite}));
  EXPECT_EQ(game.board.at(8, 8).team, kWhite);
  EXPECT_EQ(game.board.at(8, 8).piece, -kQueen);
  EXPECT_EQ(game.board.at(9, 9).team, kBlack);
  EXPECT_EQ(CountRealm(game, kRed), 0);
  EXPECT_EQ(CountRealm(game, kWhite), 32);
  // The gained moat is the pawn's own now: it has its double step.
  EXPECT_EQ(Destinations(game, 13, 8).size(), 2u);

  SwapTeams(game, kNoTeam, kBlue);  // would fill every empty square
  EXPECT_EQ(game.board.at(0, 0).team, kNoTeam);
}

TEST(SwapTeams, PrisonersChangeColourOnlyInAnEnemyOfTheGainersDungeon) {
  struct Case {
    int gameType, fallen, gainer;
    PerTeam<int> teamAfter;  // of the fallen team's Rook in each dungeon
  };
  const Case cases[] = {
      {kAnarchy, kRed, kWhite, {kRed, kWhite, kWhite, kWhite}},
      {kAlliedNeighbors, kWhite, kBlack, {kBlack, kBlack, kWhite, kWhite}},
      {kCrossroadAllies, kBlue, kWhite, {kBlue, kWhite, kBlue, kWhite}},
  };
  for (const Case& c : cases) {
    Game game = EmptyGame(c.gameType);
    for (int holder = kWhite; holder <= kRed; ++holder) {
      AddPieceToDungeon(game, holder, c.fallen, kRook);
      AddPieceToDungeon(game, holder, c.fallen, kKing);  // a King never changes
      AddPieceToDungeon(game, holder, kNoTeam, kRook);
    }
    SwapTeams(game, c.fallen, c.gainer);
    for (int holder = kWhite; holder <= kRed; ++holder) {
      const auto& prisoners = game.dungeons[static_cast<std::size_t>(holder - 1)].prisoners;
      EXPECT_EQ(prisoners[1].team, c.teamAfter[static_cast<std::size_t>(holder - 1)])
          << "type " << c.gameType << " holder " << holder;
      EXPECT_EQ(prisoners[2].team, c.fallen);
      EXPECT_EQ(prisoners[3].team, kNoTeam);
    }
  }
}

// White's moat with a Blue Pawn, a Blue Castle Pawn and a Blue Rook on it,
// White's own Pawn and Castle Pawn, and a Red Pawn inside White's keep.
Game WhiteMoatCrowded(int rule) {
  Game game = EmptyGame(kAnarchy);
  game.kingCaptureRule = rule;
  Put(game, 8, 13, kWhite, kPawn);
  Put(game, 9, 13, kBlue, kPawn);
  Put(game, 10, 13, kBlue, kCastlePawn);
  Put(game, 7, 13, kBlue, kRook);
  Put(game, 8, 15, kRed, kPawn);
  Put(game, 8, 16, kWhite, kCastlePawn);
  return game;
}

TEST(ApplyFate, LostAndFrozenSweepOtherPawnsFromTheMoat) {
  for (int rule : {kKingdomLost, kKingdomFrozen}) {
    Game game = WhiteMoatCrowded(rule);
    ApplyFate(game, kWhite, kBlack);
    int own = rule == kKingdomLost ? kNoPiece : -1;  // the team's own pieces
    EXPECT_EQ(game.board.at(8, 13).piece, own * kPawn) << "rule " << rule;
    EXPECT_EQ(game.board.at(8, 16).piece, own * kCastlePawn);
    EXPECT_EQ(game.board.at(8, 16).team, rule == kKingdomLost ? kNoTeam : kWhite);
    EXPECT_EQ(game.board.at(9, 13), (Square{kNoTeam, kNoPiece, 0, kMoat, kNoTeam}));
    EXPECT_EQ(game.board.at(10, 13).piece, kNoPiece);
    EXPECT_EQ(game.board.at(7, 13), (Square{kBlue, kRook, 0, kMoat, kNoTeam}));
    EXPECT_EQ(game.board.at(8, 15), (Square{kRed, kPawn, 0, kKeep, kNoTeam}));
    EXPECT_EQ(CountRealm(game, kWhite), 0);
  }
}

TEST(ApplyFate, GainedSwapsAndAnUnknownRuleDoesNothing) {
  Game gained = WhiteMoatCrowded(kKingdomGained);
  ApplyFate(gained, kWhite, kBlack);
  EXPECT_EQ(gained.board.at(8, 13), (Square{kBlack, kPawn, 0, kMoat, kBlack}));
  EXPECT_EQ(gained.board.at(9, 13).team, kBlue);

  Game unknown = WhiteMoatCrowded(0);
  ApplyFate(unknown, kWhite, kBlack);
  EXPECT_EQ(unknown.board, WhiteMoatCrowded(0).board);
}

TEST(ApplyFate, AFallenRealmStopsSlidersButNotKnights) {
  for (int rule : {kKingdomLost, kKingdomFrozen}) {
    Game game = EmptyGame(kAnarchy);
    game.kingCaptureRule = rule;
    Put(game, 8, 8, kRed, kRook);
    Put(game, 7, 12, kRed, kKnight);
    ApplyFate(game, kWhite, kRed);
    test::Squares rook = Destinations(game, 8, 8);
    EXPECT_EQ(rook.at(9), (BoardSquare{8, 13})) << "rule " << rule;
    EXPECT_EQ(rook.at(10), (BoardSquare{7, 8}));
    test::Squares knight = Destinations(game, 7, 12);
    EXPECT_NE(std::find(knight.begin(), knight.end(), BoardSquare{8, 14}), knight.end());
  }
}

}  // namespace
}  // namespace varkesh
