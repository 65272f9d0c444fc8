#include "ai/attack_scores.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "ai/ai_values.h"
#include "ai/choice_ladder.h"
#include "ai_fixture.h"
#include "core/match.h"

namespace varkesh {
namespace {

// The move as the evaluator lands it: a castle move swaps the two pieces.
Board Landed(Board board, const MoveRec& move) {
  Square& from = board.at(move.fromX, move.fromY);
  Square& to = board.at(move.toX, move.toY);
  if (to.team == from.team) {
    std::swap(from.piece, to.piece);
  } else {
    to = {from.team, from.piece, to.terrain, to.realm};
    from.team = kNoTeam;
    from.piece = kNoPiece;
  }
  return board;
}

// Seeded games of every game type, with frozen kingdoms left on the board:
// after every candidate move of every turn, judging only the squares the
// move reaches must give what judging the whole board gives.
TEST(AttackScores, ChangedSquaresAloneGiveTheWholeBoardsScores) {
  for (int gameType : {kAlliedNeighbors, kCrossroadAllies, kAnarchy}) {
    Match match;
    match.position.gameType = gameType;
    match.position.kingCaptureRule = kKingdomFrozen;
    match.position.board = LoadNewGameDataFile(VARKESH_PACK_DIR "/newgamedata.txt");
    match.position.Refresh();
    match.setup.playerKinds = {kAggressive, kBalanced, kDefensive, kBalanced};
    match.BeginRecord();
    Random random(static_cast<std::uint64_t>(gameType) * 7);
    test::NotingAiOutside outside;
    AiMoveList moves;
    int judged = 0;
    while (match.position.roundNumber <= 80 && !match.position.Finished()) {
      const Position& position = match.position;
      const int personality = TeamEntry(match.setup.playerKinds, position.currentTeam);
      const AttackJudge judge{position.gameType, position.currentTeam,
                              EnemyTeams(position.gameType, position.currentTeam), personality};
      const BoardAttacks before = ScoreBoard(position.board, judge);
      BuildAiMoveList(position, moves);
      for (const MoveRec& move : moves) {
        const Board after = Landed(position.board, move);
        ASSERT_EQ(ScoreChangedBoard(before, after, judge, Board::Index(move.fromX, move.fromY),
                                    Board::Index(move.toX, move.toY)),
                  ScoreBoard(after, judge).total)
            << "game type " << gameType << ", round " << position.roundNumber << ", (" << move.fromX
            << ", " << move.fromY << ") to (" << move.toX << ", " << move.toY << ")";
        ++judged;
      }
      const AiChoice choice = ChooseAImove(match.position, match.setup, moves, random, outside);
      if (choice.index == 0) break;
      PlayMove(match, ChosenMove(moves, choice));
    }
    EXPECT_GT(judged, 5000) << "game type " << gameType;
  }
}

}  // namespace
}  // namespace varkesh
