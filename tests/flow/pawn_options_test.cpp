// A pawn entering a hostile keep, played on a client and repeated on the host
// with the option the client chose: both games must end up alike.
#include "core/dungeon.h"
#include "flow/accept_move.h"
#include "flow_fixture.h"

namespace varkesh::testing {
namespace {

struct KeepEntry {
  const char* name;
  int pick;             // the dialog's answer; -1 closes it
  bool nothingOnOffer;  // no piece to take in the keep, no prisoner to free
  int team, piece;      // on (9, 2) afterwards
  int whitePrisoners, blackPrisoners;
  const char* told;
};

class KeepEntryTest : public FlowTest, public ::testing::WithParamInterface<KeepEntry> {};

TEST_P(KeepEntryTest, IsPlayedAlikeHereAndOnTheHost) {
  const KeepEntry& e = GetParam();
  PutArmies();
  Put(9, 3, kWhite, kPawn);
  Put(7, 2, kRed, -kKnight);  // a frozen piece is no option
  AddPieceToDungeon(Pos(), kBlack, kWhite, kKnight);
  AddPieceToDungeon(Pos(), kBlack, kBlue, kRook);   // nor another team's prisoner
  AddPieceToDungeon(Pos(), kBlack, kWhite, kKing);  // nor a King
  AddPieceToDungeon(Pos(), kBlack, kWhite, kQueen);
  if (e.nothingOnOffer) {
    for (int x : {6, 8, 10}) Put(x, 2, kNoTeam, kNoPiece);
    Pos().dungeons[kBlack - 1].prisoners.Clear();
  }
  game.net.netRole = kNetClient;
  game.net.myNodeId = 1;
  game.net.seatNode = {1, 0, 0, 0};
  BeginTurn(kWhite);
  Game there = game;
  there.net.netRole = kNetHosting;
  there.net.myNodeId = 0;
  outside.pawnOptionPicks.push_back(e.pick);
  PlayMove(9, 3, 9, 2);

  std::vector<std::vector<std::string>> dialogs;
  if (!e.nothingOnOffer)
    dialogs.push_back({"Capture Black's Rook", "Capture Black's Queen", "Capture Black's Rook",
                       "Free your Knight", "Free your Queen"});
  EXPECT_EQ(outside.pawnOptionDialogs, dialogs);
  EXPECT_EQ(At(9, 2).team, e.team);
  EXPECT_EQ(At(9, 2).piece, e.piece);
  EXPECT_EQ(Pos().dungeons[kWhite - 1].PrisonerCount(), e.whitePrisoners);
  EXPECT_EQ(Pos().dungeons[kBlack - 1].PrisonerCount(), e.blackPrisoners);
  EXPECT_EQ(outside.told, (std::vector<std::string>{"selection 9,3-0,0 mode 2",
                                                    "selection 9,3-9,2 mode 3", e.told, "event"}));
  ASSERT_EQ(game.match.record.events.size(), 1u);

  std::tie(there.turn.moveFromX, there.turn.moveFromY, there.turn.moveToX, there.turn.moveToY) =
      std::tuple{9, 3, 9, 2};
  ScriptedOutside thereOutside;
  NetAcceptMove(there, thereOutside, game.match.record.events[0].move.option);
  EXPECT_TRUE(SameMatch(there.match, game.match));
  EXPECT_EQ(there.turn.gameMode, game.turn.gameMode);
  EXPECT_EQ(thereOutside.sounds, outside.sounds);
  EXPECT_TRUE(thereOutside.pawnOptionDialogs.empty());
  EXPECT_EQ(thereOutside.told, std::vector<std::string>{"event"}) << "nothing to tell on";
  EXPECT_TRUE(there.turn.gameSaved);
}

INSTANTIATE_TEST_SUITE_P(
    EachOutcome, KeepEntryTest,
    ::testing::Values(KeepEntry{"DialogClosed", -1, false, kWhite, kPawn, 0, 4, "move stayed"},
                      KeepEntry{"QueenTaken", 1, false, kNoTeam, kNoPiece, 1, 4, "move captured"},
                      KeepEntry{"QueenFreed", 4, false, kWhite, kQueen, 0, 3, "move freed"},
                      KeepEntry{"PawnLost", -1, true, kNoTeam, kNoPiece, 0, 0, "move lost"}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace varkesh::testing
