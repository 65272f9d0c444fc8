// The computer's move played on every machine alike, and the fixed rule that
// picks its pawn option in a hostile keep.
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "ai_fixture.h"
#include "flow/accept_move.h"
#include "support/scripted_outside.h"

namespace varkesh {
namespace {

using Sounds = std::vector<std::string>;
using Prisoners = std::vector<DungeonPiece>;

void Play(Game& game, Outside& outside, int fromX, int fromY, int toX, int toY) {
  std::tie(game.turn.moveFromX, game.turn.moveFromY, game.turn.moveToX, game.turn.moveToY) =
      std::tie(fromX, fromY, toX, toY);
  CarryOutAImove(game, outside);
}

Prisoners HeldBy(const Game& game, int holder) {
  const auto& held = game.match.position.dungeons[static_cast<std::size_t>(holder - 1)].prisoners;
  return {held.begin(), held.end()};
}

// Every machine of a session plays the move alike: nothing is asked, drawn
// from the random generator or told, and the pending click is the main
// loop's business.
TEST(CarryOutAImove, PawnOptionWithoutDialogOrDraw) {
  Game game = test::EmptyGame(
      kAlliedNeighbors, {{8, 3, kWhite, kPawn}, {7, 1, kBlack, kQueen}, {9, 1, kBlack, kKing}});
  game.net.netRole = kNetHosting;
  game.view.clickPending = true;
  game.random = Random(5);
  ScriptedOutside outside;
  Play(game, outside, 8, 3, 8, 2);
  EXPECT_EQ(HeldBy(game, kWhite), (Prisoners{{kBlack, kQueen}}));
  EXPECT_EQ(outside.sounds, (Sounds{"sfx_click", "sfx_capturequeen"}));
  EXPECT_TRUE(outside.pawnOptionDialogs.empty());
  EXPECT_TRUE(outside.told.empty()) << "the move is not told";
  EXPECT_EQ(game.random.Next(), Random(5).Next());
  EXPECT_TRUE(game.view.clickPending);
  EXPECT_FALSE(game.turn.gameSaved);
  EXPECT_EQ(game.turn.gameMode, ModeComputerThinks);  // Blue's turn
  EXPECT_EQ(game.match.record.events,
            std::vector<RecordEvent>{RecordEvent::Of(Move::Of(8, 3, 8, 2, kOptionComputer))});
}

// Black keeps four pawns after losing one, so its King goes.
TEST(CarryOutAImove, LackOfMaterialIsToldOnlyToAHumanVictimEvenInANetworkGame) {
  const std::vector<test::Placed> pieces = {
      {8, 8, kWhite, kKnight}, {9, 6, kBlack, kPawn}, {8, 1, kBlack, kKing}, {6, 3, kBlack, kPawn},
      {7, 3, kBlack, kPawn},   {8, 3, kBlack, kPawn}, {9, 3, kBlack, kPawn}};
  for (auto [victim, boxes] : {std::pair{kHuman, 1u}, {kDefensive, 0u}}) {
    Game game = test::EmptyGame(kAlliedNeighbors, pieces);
    game.match.setup.playerKinds[kBlack - 1] = victim;
    game.net.netRole = kNetHosting;
    ScriptedOutside outside;
    Play(game, outside, 8, 8, 9, 6);
    EXPECT_TRUE(game.match.position.kingdomFallen[kBlack - 1]);
    EXPECT_EQ(outside.boxes.size(), boxes);
    EXPECT_EQ(outside.sounds, (Sounds{"sfx_capture", "sfx_captureking"}));
  }
}

TEST(CarryOutAImove, LastKingOfASideEndsTheGameWithoutPassingTheTurn) {
  Game game = test::EmptyGame(kAlliedNeighbors, {{7, 3, kWhite, kPawn}, {8, 2, kBlack, kKing}});
  game.match.position.kingdomFallen[kRed - 1] = true;
  ScriptedOutside outside;
  outside.SetMenuEnabled(Menu::Resign, true);
  Play(game, outside, 7, 3, 8, 2);
  EXPECT_EQ(game.turn.gameMode, ModeVictorySetUp);
  EXPECT_EQ(game.match.position.currentTeam, kWhite);
  EXPECT_TRUE(outside.IsMenuEnabled(Menu::Resign));
}

// The keep the pawn has just won by taking its King is its own now: nothing
// there is raided.
TEST(CarryOutAImove, AKingdomJustGainedIsNotRaided) {
  Game game = test::EmptyGame(
      kAnarchy, {{7, 3, kWhite, kPawn}, {8, 2, kBlack, kKing}, {8, 1, kBlack, kQueen}});
  ScriptedOutside outside;
  Play(game, outside, 7, 3, 8, 2);
  EXPECT_EQ(game.match.position.board.at(8, 1), (Square{kWhite, kQueen, kKeep, kWhite}));
  EXPECT_EQ(game.match.position.board.at(8, 2).team, kWhite);
  EXPECT_EQ(game.match.position.board.at(8, 2).piece, kPawn);
  EXPECT_EQ(HeldBy(game, kWhite), (Prisoners{{kBlack, kKing}}));
}

// A pawn of the computer steps from a moat into a hostile keep; its pawn
// option is chosen by the fixed order: first take, then free.
struct KeepRaid {
  const char* name;
  int gameType;
  test::Placed pawn;
  BoardSquare to;
  std::vector<test::Placed> others;
  Prisoners blacksPrisoners;
  int pieceAfter;     // on the keep square: kNoPiece when the pawn is spent
  BoardSquare taken;  // emptied by the capture; (0, 0) for none
  int moversPrisoners, blacksPrisonersAfter;
  Sounds sounds;  // after the step's own
};

constexpr test::Placed kWhitePawn{8, 3, kWhite, kPawn};  // before Black's keep

// clang-format off
const KeepRaid kRaids[] = {
  {"the Queen before the Rook", kAnarchy, kWhitePawn, {8, 2},
   {{7, 1, kBlack, kRook}, {9, 2, kBlack, kQueen}}, {}, kNoPiece, {9, 2}, 1, 0, {"sfx_capturequeen"}},
  {"lowest row, then lowest column", kAnarchy, kWhitePawn, {8, 2},
   {{9, 1, kBlack, kKnight}, {7, 1, kBlack, kKnight}, {8, 0, kBlack, kKnight}}, {}, kNoPiece,
   {8, 0}, 1, 0, {"sfx_capturequeen"}},
  {"no guest, frozen piece or King", kAnarchy, kWhitePawn, {8, 2},
   {{7, 1, kRed, kRook}, {9, 1, kBlack, -kQueen}, {8, 1, kBlack, kKing}}, {}, kPawn, {}, 0, 0, {}},
  {"Blue's keep", kAnarchy, {3, 8, kBlack, kPawn}, {2, 8}, {{0, 8, kBlue, kQueen}}, {}, kNoPiece,
   {0, 8}, 1, 1, {"sfx_capturequeen"}},
  {"Red's keep", kAnarchy, {13, 8, kBlack, kPawn}, {14, 8}, {{16, 8, kRed, kQueen}}, {}, kNoPiece,
   {16, 8}, 1, 1, {"sfx_capturequeen"}},
  {"White's keep", kAnarchy, {8, 13, kBlack, kPawn}, {8, 14}, {{8, 16, kWhite, kQueen}}, {},
   kNoPiece, {8, 16}, 1, 1, {"sfx_capturequeen"}},
  {"frees the Bishop, not the King", kAnarchy, kWhitePawn, {8, 2}, {{8, 1, kBlack, kKing}},
   {{kWhite, kRook}, {kWhite, kKing}, {kWhite, kBishop}}, kBishop, {}, 0, 2, {"sfx_newgame"}},
  {"no ally's prisoner", kAlliedNeighbors, kWhitePawn, {8, 2}, {},
   {{kBlue, kBishop}, {kWhite, kKing}}, kPawn, {}, 0, 2, {}},
};
// clang-format on

TEST(ComputerPawnOption, TakesThenFreesInTheFixedOrder) {
  for (const KeepRaid& r : kRaids) {
    std::vector<test::Placed> pieces = r.others;
    pieces.push_back(r.pawn);
    Game game = test::EmptyGame(r.gameType, pieces);
    for (const DungeonPiece& prisoner : r.blacksPrisoners)
      game.match.position.dungeons[kBlack - 1].prisoners.Add(prisoner);
    game.match.position.currentTeam = r.pawn.team;
    ScriptedOutside outside;
    Play(game, outside, r.pawn.x, r.pawn.y, r.to.x, r.to.y);
    const Board& board = game.match.position.board;
    EXPECT_EQ(board.at(r.to.x, r.to.y).piece, r.pieceAfter) << r.name;
    EXPECT_EQ(board.at(r.to.x, r.to.y).team, r.pieceAfter ? r.pawn.team : kNoTeam) << r.name;
    if (r.taken != BoardSquare{}) {
      EXPECT_EQ(board.at(r.taken.x, r.taken.y).piece, kNoPiece) << r.name;
    }
    EXPECT_EQ(HeldBy(game, r.pawn.team).size(), static_cast<std::size_t>(r.moversPrisoners))
        << r.name;
    EXPECT_EQ(HeldBy(game, kBlack).size(), static_cast<std::size_t>(r.blacksPrisonersAfter))
        << r.name;
    outside.sounds.erase(outside.sounds.begin());
    EXPECT_EQ(outside.sounds, r.sounds) << r.name;
  }
}

}  // namespace
}  // namespace varkesh
