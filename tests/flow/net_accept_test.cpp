// A move accepted on the player's machine and repeated on another machine
// from the messages it sent must leave both games alike.
#include "core/dungeon.h"
#include "flow/accept_move.h"
#include "flow_fixture.h"

namespace varkesh::testing {
namespace {

// The numbers of a message, after its verb.
std::vector<int> NumbersOf(const std::string& message) {
  std::vector<int> numbers;
  std::size_t start = message.find('}') + 1;
  for (std::size_t end; (end = message.find(kFieldSeparator, start)) != std::string::npos;
       start = end + 1)
    numbers.push_back(std::stoi(message.substr(start, end - start)));
  numbers.push_back(std::stoi(message.substr(start)));
  return numbers;
}

class NetAcceptTest : public FlowTest {
 protected:
  NetAcceptTest() {
    PutArmies();
    for (int x : {6, 8, 10}) Put(x, 2, kNoTeam, kNoPiece);
    Put(9, 3, kWhite, kPawn);
    Put(7, 1, kBlack, kRook);
    AddPieceToDungeon(game, kBlack, kWhite, kKnight);
    game.netRole = kNetClient;
    game.myNodeId = 1;
    game.seatNode = {1, 0, 0, 0};
    BeginTurn(kWhite);
  }

  // Plays the move here, then on a copy of the game as the host does from
  // the last GUPM and the GAMV.
  void PlayHereAndThere(int fromX, int fromY, int toX, int toY) {
    Game there = game;
    there.netRole = kNetHosting;
    there.myNodeId = 0;
    ScriptedOutside thereOutside;
    PlayMove(fromX, fromY, toX, toY);

    std::vector<std::string> sent = SentMessages();
    ASSERT_GE(sent.size(), 3u);
    std::vector<int> move = NumbersOf(sent[sent.size() - 3]);
    std::vector<int> kind = NumbersOf(sent.back());
    ASSERT_EQ(move.size(), 4u);
    ASSERT_EQ(kind.size(), 3u);
    std::tie(there.moveFromX, there.moveFromY, there.moveToX, there.moveToY) =
        std::tie(move[0], move[1], move[2], move[3]);
    std::tie(there.netMoveKind, there.netMoveArg1, there.netMoveArg2) =
        std::tie(kind[0], kind[1], kind[2]);
    NetAcceptMove(there, thereOutside);

    EXPECT_EQ(there.board, game.board);
    EXPECT_EQ(there.dungeons, game.dungeons);
    EXPECT_EQ(there.history, game.history);
    EXPECT_EQ(there.castleRight, game.castleRight);
    EXPECT_EQ(there.kingdomFallen, game.kingdomFallen);
    EXPECT_EQ(there.currentTeam, game.currentTeam);
    EXPECT_EQ(there.gameMode, game.gameMode);
    EXPECT_EQ(thereOutside.sounds, outside.sounds);
    EXPECT_EQ(thereOutside.messages.size(), outside.messages.size());
    EXPECT_TRUE(there.gameSaved) << "another machine's move leaves this game saved";
    EXPECT_TRUE(thereOutside.sent.empty());
  }
};

TEST_F(NetAcceptTest, APlainMove) {
  PlayHereAndThere(6, 14, 6, 12);
}

TEST_F(NetAcceptTest, APieceTakenInTheKeep) {
  outside.pawnOptionPicks.push_back(0);
  PlayHereAndThere(9, 3, 9, 2);
  EXPECT_EQ(At(7, 1).piece, kNoPiece);
}

TEST_F(NetAcceptTest, APrisonerFreed) {
  outside.pawnOptionPicks.push_back(1);
  PlayHereAndThere(9, 3, 9, 2);
  EXPECT_EQ(At(9, 2).piece, kKnight);
}

TEST_F(NetAcceptTest, APawnLostWithoutAnOption) {
  Put(7, 1, kNoTeam, kNoPiece);
  game.dungeons[kBlack - 1].prisoners.Clear();
  PlayHereAndThere(9, 3, 9, 2);
  EXPECT_EQ(At(9, 2).piece, kNoPiece);
}

TEST_F(NetAcceptTest, ALackOfMaterialIsToldOnEveryMachine) {
  game.playerKinds[kBlue - 1] = kDefensive;
  Put(2, 10, kNoTeam, kNoPiece);
  Put(2, 6, kNoTeam, kNoPiece);
  Put(6, 12, kBlue, kRook);
  PlayHereAndThere(6, 14, 6, 12);
  EXPECT_TRUE(game.kingdomFallen[kBlue - 1]);
  EXPECT_EQ(outside.messages.size(), 1u);
}

TEST_F(NetAcceptTest, AMoveOffTheBoardIsReportedNotPlayed) {
  Board before = game.board;
  game.moveFromX = 40;
  game.moveToX = -2;
  NetAcceptMove(game, outside);
  EXPECT_TRUE(ErrorShown());
  EXPECT_EQ(game.board, before);
  EXPECT_EQ(game.currentTeam, kWhite);
}

}  // namespace
}  // namespace varkesh::testing
