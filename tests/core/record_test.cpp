// Resigning, and the record of a game: what it keeps and how it replays.
#include "core/match.h"
#include "rules_fixture.h"

namespace varkesh {
namespace {

constexpr const char* kPieces =
    "WK 8,15 WP 8,13 WN 7,3 BK 1,8 BP 3,7 KK 8,1 KR 7,2 RK 15,8 RP 13,9";

TEST(Resign, EachRuleDisposesOfTheTeamOnTurnAndPassesTheTurn) {
  struct Case {
    int gameType, rule, concedeTo;
    int received;   // concedeTeam reported
    int kingPiece;  // then White's Pawn square
    int pawnTeam, pawnPiece;
  };
  const Case cases[] = {
      {kAnarchy, kKingdomGained, kRed, kRed, kNoPiece, kRed, kPawn},
      {kAnarchy, kKingdomGained, kWhite, kBlue, kNoPiece, kBlue, kPawn},  // not an offer
      {kAlliedNeighbors, kKingdomGained, kBlue, kBlack, kNoPiece, kBlack, kPawn},
      {kAnarchy, kKingdomLost, kRed, kNoTeam, kNoPiece, kNoTeam, kNoPiece},
      {kAnarchy, kKingdomFrozen, kRed, kNoTeam, kNoPiece, kWhite, -kPawn},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(&c - cases);
    Position position = test::Place({c.gameType, c.rule, kPieces});
    const ResignEffects effects = Resign(position, c.concedeTo);
    EXPECT_TRUE(effects.done);
    EXPECT_EQ(effects.team, kWhite);
    EXPECT_EQ(effects.concedeTeam, c.received);
    EXPECT_TRUE(position.kingdomFallen[kWhite - 1]);
    EXPECT_EQ(position.board.at(8, 15).piece, c.kingPiece);
    EXPECT_EQ((std::pair{int{position.board.at(8, 13).team}, int{position.board.at(8, 13).piece}}),
              (std::pair{c.pawnTeam, c.pawnPiece}));
    EXPECT_EQ(position.currentTeam, kBlue);
    for (const Dungeon& dungeon : position.dungeons) EXPECT_EQ(dungeon.PrisonerCount(), 0);
    Position refreshed = position;
    refreshed.Refresh();
    EXPECT_EQ(position.pieces, refreshed.pieces);
  }
  // Under Kingdom Gained with nobody left to receive the pieces nothing happens.
  Position alone = test::Place({kAnarchy, kKingdomGained, kPieces, "", "BKR"});
  const Position before = alone;
  EXPECT_FALSE(Resign(alone, kRed).done);
  EXPECT_TRUE(alone == before);
}

TEST(Record, KeepsMovesAndResignationsAndReplaysToAnyPoint) {
  Match match;
  match.position = test::Place({kAnarchy, kKingdomLost, kPieces, "", "", "", "K:WQ"});
  match.BeginRecord();
  std::vector<Position> seen{match.position};
  const RecordEvent events[] = {
      RecordEvent::Of(Move::Of(8, 13, 8, 11)), RecordEvent::Of(Move::Of(3, 7, 4, 7)),
      RecordEvent::Resignation(kNoTeam), RecordEvent::Of(Move::Of(15, 8, 14, 8)),
      RecordEvent::Of(Move::Of(7, 3, 8, 1))};
  for (const RecordEvent& event : events) {
    if (event.kind == RecordEvent::Kind::Resign)
      EXPECT_TRUE(PlayResign(match, event.concedeTeam).done);
    else
      EXPECT_TRUE(PlayMove(match, event.move).played);
    seen.push_back(match.position);
  }
  EXPECT_EQ(match.record.events, std::vector<RecordEvent>(std::begin(events), std::end(events)));
  for (int count = 0; count <= 5; ++count) {
    Position replayed;
    EXPECT_EQ(Replay(match.record, count, replayed), count);
    EXPECT_TRUE(replayed == seen[static_cast<std::size_t>(count)]) << count;
  }
  Position all;
  EXPECT_EQ(Replay(match.record, 99, all), 5);

  // An event that does not fit ends the replay there.
  Record broken = match.record;
  broken.events[1] = RecordEvent::Of(Move::Of(8, 11, 8, 10));  // White's, on Blue's turn
  Position replayed;
  EXPECT_EQ(Replay(broken, 5, replayed), 1);
  EXPECT_TRUE(replayed == seen[1]);
  const Position before = replayed;
  EXPECT_FALSE(PlayEvent(replayed, RecordEvent::Of(Move::Of(6, 3, 6, 2, 7))));
  EXPECT_TRUE(replayed == before);
}

}  // namespace
}  // namespace varkesh
