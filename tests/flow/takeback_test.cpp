// Take Back Move and Redo: back to the last human turn exactly as it was,
// forward again until a new move, and a loaded game back to its start.
#include "flow/takeback.h"

#include "flow/new_game.h"
#include "flow/save_load.h"
#include "flow_fixture.h"
#include "persist/game_text.h"
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

// A game sent over the network begins a record of its own, unless it stands
// where the record of before passed: then that part is kept.
TEST_F(TakebackTest, AGameSentAgainKeepsTheRecordThatLeadsToIt) {
  StartAgainstComputers();
  for (int round = 0; round < 3; ++round) PlayRound();
  const Record played = game.match.record;
  for (std::size_t turn = 0; turn < humanTurns.size(); ++turn) {
    SCOPED_TRACE(turn);
    const Match& then = humanTurns[turn];
    Game sent;
    ASSERT_FALSE(LoadGameText(sent, outside, WriteGameText(then.position, then.setup)));
    EXPECT_TRUE(KeepRecordThrough(sent.match, played));
    EXPECT_EQ(sent.match.record, then.record);
  }

  // A position the record never passed: the record begun at the load stays.
  Game other;
  Position moved = humanTurns[1].position;
  moved.roundNumber += 7;
  ASSERT_FALSE(LoadGameText(other, outside, WriteGameText(moved, humanTurns[1].setup)));
  const Record begun = other.match.record;
  EXPECT_FALSE(KeepRecordThrough(other.match, played));
  EXPECT_EQ(other.match.record, begun);
}

// In a session a node may take back only the last human move, and only when
// it holds that move's seat; which seat and mode allow it the session's own
// tests show. Here, what they do not: a game that is over may be taken back.
TEST_F(TakebackTest, InASessionAnEndedGameMayBeTakenBackButNotWithoutTheLink) {
  StartAgainstComputers();
  PlayRound();
  game.net.netRole = kNetClient;
  game.net.myNodeId = 2;
  game.net.seatNode = {2, 0, 0, 0};
  game.turn.gameMode = ModeGameOver;
  EXPECT_EQ(TakebackTeamOf(game, 2), kWhite);
  EXPECT_FALSE(CanTakeBack(game)) << "without a session's link";
}

}  // namespace
}  // namespace varkesh::testing
