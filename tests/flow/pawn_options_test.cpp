// A pawn entering a hostile keep, played on a client and repeated on the host
// from the messages the client sent: both games must end up alike.
#include <algorithm>
#include <iterator>
#include <sstream>

#include "core/dungeon.h"
#include "flow/accept_move.h"
#include "flow_fixture.h"
#include "persist/game_text.h"

namespace varkesh::testing {
namespace {

std::vector<int> NumbersOf(std::string message) {
  std::replace(message.begin(), message.end(), kFieldSeparator, ' ');
  std::istringstream fields(message.substr(message.find('}') + 1));
  return {std::istream_iterator<int>(fields), std::istream_iterator<int>()};
}

struct KeepEntry {
  const char* name;
  int pick;             // the dialog's answer; -1 closes it
  bool nothingOnOffer;  // no piece to take in the keep, no prisoner to free
  int team, piece;      // on (9, 2) afterwards
  int whitePrisoners, blackPrisoners;
  std::array<int, 3> message;
};

class KeepEntryTest : public FlowTest, public ::testing::WithParamInterface<KeepEntry> {};

TEST_P(KeepEntryTest, IsPlayedAlikeHereAndOnTheHost) {
  const KeepEntry& e = GetParam();
  PutArmies();
  Put(9, 3, kWhite, kPawn);
  Put(7, 2, kRed, -kKnight);  // a frozen piece is no option
  AddPieceToDungeon(game, kBlack, kWhite, kKnight);
  AddPieceToDungeon(game, kBlack, kBlue, kRook);   // nor another team's prisoner
  AddPieceToDungeon(game, kBlack, kWhite, kKing);  // nor a King
  AddPieceToDungeon(game, kBlack, kWhite, kQueen);
  if (e.nothingOnOffer) {
    for (int x : {6, 8, 10}) Put(x, 2, kNoTeam, kNoPiece);
    game.match.position.dungeons[kBlack - 1].prisoners.Clear();
  }
  game.net.netRole = kNetClient;
  game.net.myNodeId = 1;
  game.net.seatNode = {1, 0, 0, 0};
  BeginTurn(kWhite);
  Game there = game;
  there.netRole = kNetHosting;
  there.myNodeId = 0;
  outside.pawnOptionPicks.push_back(e.pick);
  PlayMove(9, 3, 9, 2);

  std::vector<std::vector<std::string>> dialogs;
  if (!e.nothingOnOffer)
    dialogs.push_back({"Capture Black's Rook", "Capture Black's Queen", "Capture Black's Rook",
                       "Free your Knight", "Free your Queen"});
  EXPECT_EQ(outside.pawnOptionDialogs, dialogs);
  EXPECT_EQ(At(9, 2).team, e.team);
  EXPECT_EQ(At(9, 2).piece, e.piece);
  EXPECT_EQ(game.match.position.dungeons[kWhite - 1].PrisonerCount(), e.whitePrisoners);
  EXPECT_EQ(game.match.position.dungeons[kBlack - 1].PrisonerCount(), e.blackPrisoners);
  std::vector<std::string> sent = SentMessages();
  ASSERT_EQ(sent.size(), 5u);
  EXPECT_EQ(sent[1] + " " + sent[3], "GUGS}2 GUGS}3") << "each selection tells the mode";
  EXPECT_EQ(sent[4], "GAMV}" + Fields({e.message[0], e.message[1], e.message[2]}));

  std::vector<int> move = NumbersOf(sent[2]), kind = NumbersOf(sent[4]);
  std::tie(there.moveFromX, there.moveFromY, there.moveToX, there.moveToY) =
      std::tie(move.at(0), move.at(1), move.at(2), move.at(3));
  std::tie(there.netMoveKind, there.netMoveArg1, there.netMoveArg2) =
      std::tie(kind.at(0), kind.at(1), kind.at(2));
  ScriptedOutside thereOutside;
  NetAcceptMove(there, thereOutside);
  EXPECT_EQ(there.board, game.match.position.board);
  EXPECT_EQ(WriteGameText(there), WriteGameText(game));
  EXPECT_EQ(there.gameMode, game.turn.gameMode);
  EXPECT_EQ(thereOutside.sounds, outside.sounds);
  EXPECT_TRUE(there.gameSaved && thereOutside.sent.empty()) << "nothing to save or send on";
}

INSTANTIATE_TEST_SUITE_P(
    EachOutcome, KeepEntryTest,
    ::testing::Values(KeepEntry{"DialogClosed", -1, false, kWhite, kPawn, 0, 4, {0, 0, 0}},
                      KeepEntry{"QueenTaken", 1, false, kNoTeam, kNoPiece, 1, 4, {1, 8, 2}},
                      KeepEntry{"QueenFreed", 4, false, kWhite, kQueen, 0, 3, {2, 4, 0}},
                      KeepEntry{"PawnLost", -1, true, kNoTeam, kNoPiece, 0, 0, {3, 0, 0}}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace varkesh::testing
