// What playing one move does, what the checked entry points let through,
// and taking moves back.
#include <sstream>
#include <string>
#include <tuple>
#include <utility>

#include "core/apply_move.h"
#include "rules_fixture.h"

namespace varkesh {
namespace {

// White can castle; its Knight can take Black's King; its Bishop can take a Red Pawn
// that leaves Red short of material; White's Pawn can enter Black's keep,
// where a Rook and a Bishop stand and White's Queen is a prisoner.
constexpr const char* kKingHunt =
    "WK 8,15 WC 8,16 WN 7,3 WB 11,4 WP 8,13 WP 6,3 BK 1,8 BP 3,7 BN 2,9 KK 8,1 KR 7,2 KB 9,1 KP "
    "9,3 "
    "KP 11,3 KC 8,0 RK 15,8 RR 14,7 RP 13,9 RP 10,3 RP 13,7";

test::Layout KingHunt(int rule) {
  return {kAnarchy, rule, kKingHunt, "WK", "", "", "K:WQ"};
}

// Squares written "WQ 6,2 -- 7,2": the piece expected there, "--" for none.
void ExpectPieces(const Position& position, const std::string& expected, const char* name) {
  std::istringstream in(expected);
  std::string code;
  int x = 0, y = 0;
  char comma = 0;
  while (in >> code >> x >> comma >> y) {
    const Square& square = position.board.at(x, y);
    const bool empty = code == "--";
    const bool frozen = code[0] == '-' && !empty;
    const int team = empty ? kNoTeam : test::TeamOf(code[frozen]);
    const int kind = empty ? kNoPiece : test::KindOf(code[frozen + 1u]);
    EXPECT_EQ((std::pair{int{square.team}, int{square.piece}}),
              (std::pair{team, frozen ? -kind : kind}))
        << name << ": " << code << " " << x << "," << y;
  }
}

struct EffectCase {
  const char* name;
  test::Layout layout;
  Move move;
  MoveOutcome outcome;
  PawnOutcome pawn;
  int materialLoser;
  int optionCount;
  int nextTeam;
  PerTeam<int> prisonerCounts;
  const char* after;  // pieces after the move
};

TEST(ApplyMove, EffectsAndBoardOfEachKindOfMove) {
  using O = MoveOutcome;
  using P = PawnOutcome;
  const test::Layout gained = KingHunt(kKingdomGained);
  const test::Layout victory{
      kAlliedNeighbors, kKingdomLost, "WN 13,7 WK 8,15 RK 15,8 RR 14,7", "", "K", "K0"};
  // clang-format off
  const EffectCase cases[] = {
      {"plain", gained, Move::Of(8, 13, 8, 11), O::Plain, P::NotDue, kNoTeam, 0, kBlue,
       {0, 0, 1, 0}, "-- 8,13 WP 8,11"},
      {"castle", gained, Move::Of(8, 15, 8, 16), O::Castle, P::NotDue, kNoTeam, 0, kBlue,
       {0, 0, 1, 0}, "WC 8,15 WK 8,16"},
      {"King taken, gained", gained, Move::Of(7, 3, 8, 1), O::KingTaken, P::NotDue, kNoTeam, 0,
       kBlue, {1, 0, 1, 0}, "WN 8,1 WR 7,2 WB 9,1 WP 9,3 WC 8,0 -- 7,3 RP 10,3"},
      {"King taken, lost", KingHunt(kKingdomLost), Move::Of(7, 3, 8, 1), O::KingTaken, P::NotDue,
       kNoTeam, 0, kBlue, {1, 0, 1, 0}, "WN 8,1 -- 7,2 -- 9,3 -- 8,0 -- 10,3 -- 11,3"},
      {"King taken, frozen", KingHunt(kKingdomFrozen), Move::Of(7, 3, 8, 1), O::KingTaken,
       P::NotDue, kNoTeam, 0, kBlue, {1, 0, 1, 0},
       "WN 8,1 -KR 7,2 -KP 9,3 -KC 8,0 -- 10,3 -KP 11,3"},
      {"Pawn taken, its team short of material", gained, Move::Of(11, 4, 10, 3), O::PawnTaken,
       P::NotDue, kRed, 0, kBlue, {1, 0, 1, 0}, "WB 10,3 -- 15,8 WR 14,7 WP 13,9"},
      {"piece taken", gained, Move::Of(6, 3, 7, 2, kOptionClosed), O::PieceTaken, P::Stayed,
       kNoTeam, 2, kBlue, {1, 0, 1, 0}, "WP 7,2"},
      {"pawn takes in the keep", gained, Move::Of(6, 3, 6, 2, 1), O::Plain, P::CapturedInKeep,
       kNoTeam, 3, kBlue, {1, 0, 1, 0}, "-- 6,2 -- 9,1 KR 7,2"},
      {"pawn frees the Queen", gained, Move::Of(6, 3, 6, 2, 2), O::Plain, P::Freed, kNoTeam, 3,
       kBlue, {0, 0, 0, 0}, "WQ 6,2 KB 9,1"},
      {"pawn stays", gained, Move::Of(6, 3, 6, 2, kOptionClosed), O::Plain, P::Stayed, kNoTeam, 3,
       kBlue, {0, 0, 1, 0}, "WP 6,2"},
      {"the computer takes the Bishop first", gained, Move::Of(6, 3, 6, 2, kOptionComputer),
       O::Plain, P::CapturedInKeep, kNoTeam, 3, kBlue, {1, 0, 1, 0}, "-- 6,2 -- 9,1 KR 7,2"},
      {"no line: the pawn is lost", {kAnarchy, kKingdomGained, "WP 8,3 WK 8,15 BK 1,8"},
       Move::Of(8, 3, 8, 2), O::Plain, P::Lost, kNoTeam, 0, kBlue, {0, 0, 0, 0}, "-- 8,2 -- 8,3"},
      {"victory: the turn stays", victory, Move::Of(13, 7, 15, 8), O::KingTaken, P::NotDue,
       kNoTeam, 0, kWhite, {1, 0, 0, 0}, "WN 15,8 -- 14,7"},
  };
  // clang-format on
  for (const EffectCase& c : cases) {
    Position position = test::Place(c.layout);
    ASSERT_TRUE(IsLegal(position, c.move)) << c.name;
    const MoveEffects effects = ApplyMove(position, c.move);
    EXPECT_TRUE(effects.played) << c.name;
    EXPECT_EQ(effects.mover, kWhite) << c.name;
    EXPECT_EQ(effects.outcome, c.outcome) << c.name;
    EXPECT_EQ(effects.pawn, c.pawn) << c.name;
    EXPECT_EQ(effects.materialLoser, c.materialLoser) << c.name;
    EXPECT_EQ(effects.optionCount, c.optionCount) << c.name;
    EXPECT_EQ(effects.gameOver, c.nextTeam == kWhite) << c.name;
    EXPECT_EQ(position.currentTeam, c.nextTeam) << c.name;
    ExpectPieces(position, c.after, c.name);
    PerTeam<int> counts{};
    for (int t = 0; t < kTeamCount; ++t) counts[t] = position.dungeons[t].PrisonerCount();
    EXPECT_EQ(counts, c.prisonerCounts) << c.name;
    Position refreshed = position;
    refreshed.Refresh();
    EXPECT_EQ(position.pieces, refreshed.pieces) << c.name << ": the piece sets fell behind";
  }
}

TEST(ApplyMove, TheCastleRightGoesWithAnyMoveOfKingOrCastlePawnAndWithTakingEither) {
  const std::tuple<const char*, Move, bool> cases[] = {
      {"WK 8,15 WC 8,16 WN 8,8", Move::Of(8, 8, 9, 6), true},
      {"WK 8,15 WC 8,16 WN 8,8", Move::Of(8, 15, 8, 14), false},
      {"WK 8,15 WC 8,16 WN 8,8", Move::Of(8, 15, 8, 16), false},
      {"WK 8,12 WC 8,13", Move::Of(8, 13, 7, 13), false},
      {"WK 8,15 WC 8,16 WN 8,8 RC 9,6", Move::Of(8, 8, 9, 6), false},
      {"WK 8,15 WC 8,16 WN 8,8 RK 9,6", Move::Of(8, 8, 9, 6), false},
  };
  for (const auto& [pieces, move, kept] : cases) {
    Position position = test::Place({kAnarchy, kKingdomLost, pieces, "WR"});
    ASSERT_TRUE(IsLegal(position, move)) << pieces;
    ApplyMove(position, move);
    EXPECT_EQ(position.castleRight[kWhite - 1], kept) << pieces;
    EXPECT_TRUE(position.castleRight[kRed - 1]) << pieces;
  }
}

TEST(IsLegal, APawnOptionMustBeOneTheRulesOffer) {
  const Position position = test::Place(KingHunt(kKingdomGained));
  const std::pair<Move, bool> cases[] = {
      {Move::Of(6, 3, 6, 2, 0), true},
      {Move::Of(6, 3, 6, 2, 2), true},
      {Move::Of(6, 3, 6, 2, 3), false},  // three lines
      {Move::Of(6, 3, 6, 2, kOptionClosed), true},
      {Move::Of(6, 3, 6, 2, kOptionComputer), true},
      {Move::Of(6, 3, 6, 2, kOptionNone), false},  // a choice is due
      {Move::Of(8, 13, 8, 12, kOptionNone), true},
      {Move::Of(8, 13, 8, 12, 0), false},  // nothing to choose
      {Move::Of(8, 13, 8, 12, kOptionClosed), false},
  };
  for (const auto& [move, legal] : cases)
    EXPECT_EQ(IsLegal(position, move), legal) << testing::PrintToString(move);
  const Position lost = test::Place({kAnarchy, kKingdomGained, "WP 8,3 WK 8,15"});
  EXPECT_TRUE(IsLegal(lost, Move::Of(8, 3, 8, 2, kOptionNone)));
  EXPECT_FALSE(IsLegal(lost, Move::Of(8, 3, 8, 2, kOptionClosed)));
}

TEST(ApplyMove, SquaresOffTheArrayChangeNothing) {
  Position position = test::Place(KingHunt(kKingdomGained));
  const Position before = position;
  for (const Move& move : {Move::Of(-1, 3, 8, 2), Move::Of(6, 3, 17, 2), Move::Of(6, 30, 6, 2)}) {
    Undo undo;
    EXPECT_FALSE(ApplyMove(position, move, &undo).played);
    UndoMove(position, move, undo);
    EXPECT_TRUE(position == before);
  }
}

}  // namespace
}  // namespace varkesh
