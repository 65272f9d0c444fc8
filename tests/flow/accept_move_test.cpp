// A human turn clicked through the loop's modes 1 to 3, and what the
// confirmed move does: captures, the castle move, the fall of a kingdom and
// the end of the game.
#include "flow/accept_move.h"
#include "core/fate.h"
#include "core/labels.h"
#include "flow_fixture.h"

namespace varkesh::testing {
namespace {

class HumanTurnTest : public FlowTest {
 protected:
  HumanTurnTest() {
    PutArmies();
    Put(8, 8, kWhite, kRook);
    BeginTurn(kWhite);
  }
  DungeonPiece LastPrisoner(int captor) {
    const Dungeon& dungeon = Pos().dungeons[static_cast<std::size_t>(captor - 1)];
    return dungeon.prisoners[dungeon.PrisonerCount()];
  }
  void Fall(int team) {
    Pos().kingdomFallen[static_cast<std::size_t>(team - 1)] = true;
    ClearBoardOfTeam(Pos(), team);
  }
};

// A left click in mode 1 chooses only a square marked as a moveable piece of
// the team on turn; any other is used up and chooses nothing.
TEST_F(HumanTurnTest, AClickOnNoMoveablePieceChoosesNothing) {
  const struct {
    const char* name;
    int x, y;
  } kSquares[] = {{"empty", 7, 9},         {"frozen", 9, 9},
                  {"enemy's piece", 1, 8}, {"own piece, no move", 8, 16},
                  {"off the board", 0, 0}, {"off the array", 17, 3}};
  Put(9, 9, kWhite, -kBishop);  // frozen: no piece of the team on turn
  Put(8, 16, kWhite, kPawn);    // behind its King in the keep, where a Pawn has no move
  BeginTurn(kWhite);
  ASSERT_EQ(Mark(8, 16), kUnmarked);
  for (const auto& square : kSquares) {
    Click(square.x, square.y);
    EXPECT_EQ(game.turn.gameMode, ModeChoosePiece) << square.name;
    EXPECT_EQ(game.turn.moveFromX + game.turn.moveFromY, 0) << square.name;
    EXPECT_FALSE(game.view.clickPending) << square.name;
  }
  EXPECT_TRUE(outside.told.empty()) << "no selection to tell";
  EXPECT_EQ(outside.pieceLabel, "");
  EXPECT_EQ(Mark(8, 8), kMarkMoveable);
  EXPECT_EQ(Mark(8, 10), kUnmarked) << "no destinations shown";
}

TEST_F(HumanTurnTest, ChoosingChangingAndCancellingASelection) {
  Click(8, 8, false);  // a right click chooses nothing and is left waiting
  EXPECT_TRUE(game.view.clickPending);
  EXPECT_EQ(game.turn.gameMode, ModeChoosePiece);
  Click(8, 8);
  EXPECT_EQ(game.turn.gameMode, ModeChooseDestination);
  EXPECT_EQ(Mark(8, 10), kMarkDestination);
  EXPECT_EQ(outside.pieceLabel, "White's Rook");
  Click(6, 14);  // a change of mind: the other pieces stayed choosable
  EXPECT_EQ(game.turn.moveFromX, 6);
  EXPECT_EQ(Mark(8, 10), kUnmarked);
  Click(17, 3);  // off the board: dropped, not a cancel
  EXPECT_EQ(game.turn.gameMode, ModeChooseDestination);
  Click(7, 9);
  EXPECT_EQ(game.turn.gameMode, ModeChoosePiece);
  EXPECT_EQ(game.turn.moveFromX + game.turn.moveFromY + game.turn.moveToX + game.turn.moveToY, 0);
  EXPECT_EQ(Mark(6, 14), kMarkMoveable);
  EXPECT_EQ(outside.told,
            (std::vector<std::string>{"selection 8,8-0,0 mode 2", "selection 6,14-0,0 mode 2",
                                      "selection 0,0-0,0 mode 1"}));
}

TEST_F(HumanTurnTest, OnlyARightClickOnTheChosenDestinationPlaysTheMove) {
  Click(8, 8);
  Click(8, 10);
  EXPECT_EQ(game.turn.gameMode, ModeConfirmMove);
  Click(8, 11, false);  // a right click elsewhere is dropped
  EXPECT_FALSE(game.view.clickPending);
  Click(8, 9);  // another destination: the marks stayed
  EXPECT_EQ(At(8, 8).piece, kRook);
  Click(8, 9, false);
  EXPECT_EQ(At(8, 9).piece, kRook);
  EXPECT_EQ(At(8, 8).piece, kNoPiece);
  EXPECT_EQ(game.match.record.events,
            std::vector<RecordEvent>{RecordEvent::Of(Move::Of(8, 8, 8, 9))});
  EXPECT_FALSE(game.turn.gameSaved);
  EXPECT_EQ(game.turn.gameMode, ModeChoosePiece);
  EXPECT_EQ(Mark(1, 8), kMarkMoveable) << "Blue's pieces are marked";
  EXPECT_EQ(outside.turnLabel, "1st Round, Blue Player (Human)");
  EXPECT_EQ(outside.pieceLabel, "");
  EXPECT_EQ(outside.told.back(), "event");
  EXPECT_EQ(outside.told.end()[-2], "move plain");
}

TEST_F(HumanTurnTest, ClicksOnAnotherMachinesSeatAreDropped) {
  game.net.netRole = kNetClient;
  game.net.myNodeId = 2;
  Click(8, 8);
  EXPECT_EQ(game.turn.gameMode, ModeChoosePiece);
  EXPECT_FALSE(game.view.clickPending);
  EXPECT_FALSE(outside.IsMenuEnabled(Menu::Resign));
}

// What each move does to the board the rules' own tests tell; here, what the
// player hears of it and where the turn goes next.
TEST_F(HumanTurnTest, EachKindOfMoveHasItsSoundAndTheTurnGoesRound) {
  Put(8, 16, kWhite, kCastlePawn);
  PlayMove(8, 15, 8, 16);    // the castle move
  Put(4, 6, kWhite, kPawn);  // a Pawn taken
  PlayMove(2, 6, 4, 6);
  Put(8, 4, kWhite, kBishop);  // another piece taken
  PlayMove(8, 2, 8, 4);
  Put(12, 8, kBlack, kCastlePawn);
  PlayMove(14, 8, 12, 8);
  Put(8, 1, kNoTeam, kNoPiece);  // a King taken
  Put(8, 12, kBlack, kKing);
  PlayMove(8, 8, 8, 12);
  EXPECT_EQ(outside.sounds,
            (std::vector<std::string>{"sfx_click", "sfx_capture", "sfx_capturequeen", "sfx_capture",
                                      "sfx_captureking"}));
  game.match.setup.playerKinds[kWhite - 1] = kBalanced;
  PlayMove(2, 10, 4, 10);
  EXPECT_EQ(Pos().currentTeam, kRed) << "a fallen kingdom is skipped";
  PlayMove(14, 6, 12, 6);
  EXPECT_EQ(outside.turnLabel, "3rd Round, White Player (Balanced)");
  EXPECT_EQ(game.turn.gameMode, ModeComputerThinks);
  EXPECT_EQ(game.match.record.events.size(), 7u) << "every move was played";
}

TEST(TurnLabelTest, CountsRoundsInOrdinals) {
  Position position;
  const std::pair<int, const char*> ordinals[] = {{1, "1st"},   {2, "2nd"},   {3, "3rd"},
                                                  {4, "4th"},   {11, "11th"}, {12, "12th"},
                                                  {13, "13th"}, {21, "21st"}, {102, "102nd"}};
  for (auto [round, text] : ordinals) {
    position.roundNumber = round;
    EXPECT_EQ(TurnText(position, varkesh::Setup{}),
              std::string(text) + " Round, White Player (Human)");
  }
}

struct KingdomFall {
  const char* name;
  int gameType;
  std::vector<int> fallen;  // before the move
  int victim;
  bool lackOfMaterial, victimIsHuman;
  int winner, coWinner;
};

class KingdomFallTest : public HumanTurnTest, public ::testing::WithParamInterface<KingdomFall> {};

// White's Rook takes on (8, 10) the victim's King, or a Pawn whose loss
// leaves Blue a Queen and a Rook (4): too little material.
TEST_P(KingdomFallTest, TheKingGoesToTheTakerAndTheLastOfASideEndsTheGame) {
  const KingdomFall& f = GetParam();
  Pos().gameType = f.gameType;
  game.match.setup.playerKinds[static_cast<std::size_t>(f.victim - 1)] =
      f.victimIsHuman ? kHuman : kAggressive;
  for (int team : f.fallen) Fall(team);
  if (f.lackOfMaterial)
    Put(2, 10, kNoTeam, kNoPiece);
  else
    Put(KingColumn(Pos(), f.victim), KingRow(Pos(), f.victim), kNoTeam, kNoPiece);
  Put(8, 10, f.victim, f.lackOfMaterial ? kPawn : kKing);
  BeginTurn(kWhite);
  PlayMove(8, 8, 8, 10);
  EXPECT_TRUE(Pos().kingdomFallen[static_cast<std::size_t>(f.victim - 1)]);
  EXPECT_EQ(LastPrisoner(kWhite), (DungeonPiece{static_cast<std::int8_t>(f.victim), kKing}));
  EXPECT_EQ(At(f.victim == kBlue ? 2 : 14, 8).team, kWhite) << "the taker gains the Queen";
  ASSERT_EQ(outside.boxes.size(), f.lackOfMaterial && f.victimIsHuman ? 1u : 0u);
  for (const auto& box : outside.boxes)
    EXPECT_EQ(box.text, "Blue King is removed from the game due to lack of materials.");
  EXPECT_EQ(Pos().winner, f.winner);
  EXPECT_EQ(Pos().coWinner, f.coWinner);
  EXPECT_EQ(Pos().currentTeam, f.winner ? kWhite : kBlack) << "an ended game keeps its turn";
  if (!f.winner) return;

  EXPECT_FALSE(outside.IsMenuEnabled(Menu::Resign));
  Pass();
  Pass();
  EXPECT_EQ(view.coWinnerFrames, std::vector<int>{f.coWinner ? 0 : -1})
      << "a second flag for a co-winner only";
  Click(3, 3);
  Click(8, 8);
  EXPECT_EQ(game.turn.gameMode, ModeGameOver);
  EXPECT_FALSE(game.view.clickPending) << "the game is over: clicks are dropped";
}

INSTANTIATE_TEST_SUITE_P(
    KingTakenOrLackOfMaterial, KingdomFallTest,
    ::testing::Values(
        KingdomFall{"AnarchyWon", kAnarchy, {kBlack, kRed}, kBlue, false, true, kWhite, kNoTeam},
        KingdomFall{"NeighborsWon", kAlliedNeighbors, {kBlack}, kRed, false, true, kWhite, kBlue},
        KingdomFall{"CrossroadWon", kCrossroadAllies, {kBlue}, kRed, false, true, kWhite, kBlack},
        KingdomFall{"HumanLacks", kAnarchy, {}, kBlue, true, true, kNoTeam, kNoTeam},
        KingdomFall{"ComputerLacks", kAnarchy, {}, kBlue, true, false, kNoTeam, kNoTeam},
        KingdomFall{
            "LastEnemyLacks", kAnarchy, {kBlack, kRed}, kBlue, true, true, kWhite, kNoTeam}),
    [](const auto& info) { return std::string(info.param.name); });

// A move told by another machine that leaves Blue too little material. In a
// session a player's move shows the box on every machine; a computer seat's
// move (sent so when the host's search chose its own pawn option) shows it
// only for a human victim and leaves a waiting click alone, as the
// computer's moves do.
TEST_F(HumanTurnTest, AMoveFromAnotherMachineTellsALackOfMaterialByWhoMadeIt) {
  const struct {
    const char* name;
    int mover, victim;
    bool box;
  } cases[] = {{"player's move, computer victim", kHuman, kAggressive, true},
               {"computer's move, computer victim", kBalanced, kAggressive, false},
               {"computer's move, human victim", kBalanced, kHuman, true}};
  Put(2, 10, kNoTeam, kNoPiece);
  Put(8, 10, kBlue, kPawn);
  const Game before = game;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    game = before;
    game.match.setup.playerKinds = {c.mover, c.victim, kHuman, kHuman};
    game.net.netRole = kNetClient;
    BeginTurn(kWhite);
    outside.boxes.clear();
    game.view.clickPending = true;
    game.turn.moveFromX = 8;
    game.turn.moveFromY = 8;
    game.turn.moveToX = 8;
    game.turn.moveToY = 10;
    NetAcceptMove(game, outside, kOptionNone);
    EXPECT_TRUE(Pos().kingdomFallen[kBlue - 1]);
    EXPECT_EQ(outside.boxes.size(), c.box ? 1u : 0u);
    EXPECT_EQ(game.view.clickPending, c.mover != kHuman);
  }
}

}  // namespace
}  // namespace varkesh::testing
