// Take Back Move and Redo: back to the last human turn exactly as it was,
// forward again until a new move, and a loaded game back to its start.
#include "flow/takeback.h"

#include "flow/new_game.h"
#include "flow/save_load.h"
#include "flow_fixture.h"
#include "support/first_move.h"

namespace varkesh::testing {
namespace {

class TakebackTest : public FlowTest {
 protected:
  TakebackState state;
  std::vector<Match> humanTurns;  // the match at the start of each of White's turns

  // White is the one human against three computers, under Kingdom Gained.
  void StartAgainstComputers() {
    NewGameChoice choice;
    choice.accepted = true;
    choice.gameType = kAlliedNeighbors;
    choice.kingCaptureRule = kKingdomGained;
    choice.players = {kHuman, kAggressive, kBalanced, kDefensive};
    choice.name = "Take Back";
    outside.newGameChoices.push_back(choice);
    NewGameCommand(game, outside);
    ASSERT_EQ(game.turn.gameMode, ModeChoosePiece);
    humanTurns.push_back(game.match);
  }

  // White's first listed move, then the computers until White is on turn.
  void PlayRound() {
    const Move move = FirstListedMove(game);
    PlayMove(move.fromX, move.fromY, move.toX, move.toY);
    for (int pass = 0; pass < 200 && game.turn.gameMode != ModeChoosePiece; ++pass) Pass();
    ASSERT_EQ(game.turn.gameMode, ModeChoosePiece);
    humanTurns.push_back(game.match);
  }

  void ExpectAt(std::size_t turn) {
    ASSERT_LT(turn, humanTurns.size());
    EXPECT_EQ(game.match.position, humanTurns[turn].position) << "turn " << turn;
    EXPECT_EQ(game.match.record, humanTurns[turn].record) << "turn " << turn;
    EXPECT_EQ(game.turn.gameMode, ModeChoosePiece);
    EXPECT_EQ(game.match.position.currentTeam, kWhite);
  }
};

TEST_F(TakebackTest, TakesBackToWhitesTurnsAndRedoesUntilANewMove) {
  StartAgainstComputers();
  EXPECT_FALSE(CanTakeBack(game)) << "nothing played yet";
  for (int round = 0; round < 4; ++round) PlayRound();
  ASSERT_EQ(humanTurns.back().record.events.size(), 16u);

  EXPECT_TRUE(TakeBack(game, outside, state));
  ExpectAt(3);
  EXPECT_TRUE(TakeBack(game, outside, state));
  ExpectAt(2);
  EXPECT_TRUE(Redo(game, outside, state));
  ExpectAt(3);
  EXPECT_TRUE(Redo(game, outside, state));
  ExpectAt(4);
  EXPECT_FALSE(CanRedo(game, state));

  EXPECT_TRUE(TakeBack(game, outside, state));
  ExpectAt(3);
  EXPECT_TRUE(CanRedo(game, state));
  PlayRound();
  EXPECT_FALSE(CanRedo(game, state)) << "a new move ends the redo";
  EXPECT_FALSE(Redo(game, outside, state));

  while (CanTakeBack(game)) TakeBack(game, outside, state);
  ExpectAt(0);
}

TEST_F(TakebackTest, ASavedGameLoadedAndTakenBackToItsStartIsTheNewGame) {
  StartAgainstComputers();
  for (int round = 0; round < 3; ++round) PlayRound();
  const std::string path = folder.File("taken.vsh");
  SaveGame(game, outside, path);

  Game loaded;
  loaded.random = Random::Zero();
  LoadGame(loaded, outside, path);
  ASSERT_EQ(loaded.match.record, game.match.record);
  TakebackState fresh;
  int steps = 0;
  while (TakeBack(loaded, outside, fresh)) ++steps;
  EXPECT_EQ(steps, 3);
  const Match& start = humanTurns.front();
  EXPECT_EQ(loaded.match.setup, start.setup);
  EXPECT_EQ(loaded.match.position, start.position);
  EXPECT_EQ(loaded.match.record, start.record);
}

TEST_F(TakebackTest, NotInASessionNorWhileTheComputerThinks) {
  StartAgainstComputers();
  PlayRound();
  game.net.netRole = kNetHosting;
  EXPECT_FALSE(CanTakeBack(game));
  EXPECT_FALSE(TakeBack(game, outside, state));
  game.net.netRole = kNetNone;
  game.turn.gameMode = ModeComputerThinks;
  EXPECT_FALSE(CanTakeBack(game));
  game.turn.gameMode = ModeChoosePiece;
  EXPECT_TRUE(CanTakeBack(game));
}

}  // namespace
}  // namespace varkesh::testing
