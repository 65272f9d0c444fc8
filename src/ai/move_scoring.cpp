#include "ai/move_scoring.h"

#include <charconv>
#include <string>
#include <utility>

#include "ai/ai_values.h"
#include "ai/attack_scores.h"
#include "core/labels.h"
#include "core/piece_moves.h"

namespace varkesh {
namespace {

std::string PieceOf(int team, int piece) {
  return std::string(" (") + TeamName(team) + " " + PieceName(piece) + ")";
}

void LogMoveHead(const Position& position, AiOutside& outside, const AiLog& log, int index,
                 const MoveRec& move) {
  const std::string piece = PieceText(position, move.fromX, move.fromY, move.toX, move.toY);
  outside.SetPieceLabel(piece);
  WriteAiLog(log, "     Move #" + TwoDigits(index) + ": (" + std::to_string(move.fromX) + ", " +
                      std::to_string(move.fromY) + ") " + piece + " (" + std::to_string(move.toX) +
                      ", " + std::to_string(move.toY) + ")");
}

void LogMoveScores(const AiLog& log, int index, const MoveRec& move) {
  const std::string head = "                    »» Move #" + TwoDigits(index);
  WriteAiLog(log, head + " Immediate Score: " + std::to_string(ImmediateScore(move)));
  WriteAiLog(log, head + " Full Score: " + std::to_string(FullScore(move)));
}

int LivePieces(const Board& board) {
  int live = 0;
  for (const Square& square : board.squares) live += square.piece > 0;
  return live;
}

// The board right after the move, as the evaluator pictures it: the piece
// lands, and nothing else happens; a move onto the team's own piece is the
// castle move and the two change places. False when the move names a square
// off the board and nothing is played.
bool PlayOnScratch(Board& scratch, MoveRec& move, int personality, const AiLog& log) {
  if (!Board::InBounds(move.fromX, move.fromY) || !Board::InBounds(move.toX, move.toY))
    return false;
  Square& from = scratch.at(move.fromX, move.fromY);
  Square& to = scratch.at(move.toX, move.toY);
  if (to.team == from.team) {
    std::swap(from.piece, to.piece);
    return true;
  }
  if (to.piece > 0) {
    move.captureScore = AiValue(personality, kCaptureValue, to.piece);
    if (log.On())
      WriteAiLog(log, "          # Capture: " + std::to_string(move.captureScore) +
                          PieceOf(to.team, to.piece));
  }
  to.piece = from.piece;
  to.team = from.team;
  from.piece = kNoPiece;
  from.team = kNoTeam;
  return true;
}

// The log names every attacked piece, so it judges the whole board; otherwise
// only what the move can have changed is judged again.
AttackScores ScoreAttacks(const Board& scratch, const BoardAttacks& before,
                          const AttackJudge& judge, const MoveRec& move, const AiLog& log) {
  if (log.On()) {
    AttackScores sum;
    for (int y = 0; y < kBoardSide; ++y) {
      for (int x = 0; x < kBoardSide; ++x) {
        const AttackScores here = ScoreSquare(scratch, judge, x, y, log);
        sum.threat += here.threat;
        sum.weakThreat += here.weakThreat;
        sum.danger += here.danger;
      }
    }
    return sum;
  }
  return ScoreChangedBoard(before, scratch, judge, Board::Index(move.fromX, move.fromY),
                           Board::Index(move.toX, move.toY));
}

// The buffer keeps its room from move to move, so the label costs no allocation.
void ShowProgress(AiOutside& outside, std::string& text, int done, int total) {
  const int percent = (done * 200 + total) / (2 * total);  // rounded to the nearest
  char digits[12];
  char* end = std::to_chars(digits, digits + sizeof digits, percent).ptr;
  text.assign("Evaluating Moves (");
  text.append(digits, end);
  text.append("%)");
  outside.SetPieceLabel(text);
  outside.Yield();
}

}  // namespace

int TieBreak(Random& random) {
  return static_cast<int>(random.Next() * 2);
}

void BuildAiMoveList(const Position& position, AiMoveList& moves) {
  moves.Clear();
  for (int y = 0; y < kBoardSide; ++y) {
    for (int x = 0; x < kBoardSide; ++x) {
      if (position.board.at(x, y).team != position.currentTeam) continue;
      FindMoves(position, x, y, [&](int toX, int toY) {
        MoveRec move;
        move.fromX = x;
        move.fromY = y;
        move.toX = toX;
        move.toY = toY;
        moves.Add(move);
      });
    }
  }
}

ScoreSummary ScoreAiMoves(const Position& position, AiMoveList& moves, Random& random,
                          AiOutside& outside, int personality, const AiLog& log) {
  ScoreSummary summary;
  summary.pieceCount = LivePieces(position.board);
  const AttackJudge judge{position.gameType, position.currentTeam,
                          EnemyTeams(position.gameType, position.currentTeam), personality};
  const BoardAttacks before = ScoreBoard(position.board, judge);
  std::string progress;
  progress.reserve(32);
  Board scratch = position.board;
  // The count is read anew each time: the yields let events run in between.
  for (int i = 1; i <= moves.Count(); ++i) {
    MoveRec& move = moves[i];
    if (log.On()) LogMoveHead(position, outside, log, i, move);
    const bool played = PlayOnScratch(scratch, move, personality, log);
    const AttackScores attacks =
        played ? ScoreAttacks(scratch, before, judge, move, log) : before.total;
    move.threatScore += attacks.threat;
    move.weakThreatScore += attacks.weakThreat;
    move.dangerScore += attacks.danger;
    if (played) {
      scratch.at(move.fromX, move.fromY) = position.board.at(move.fromX, move.fromY);
      scratch.at(move.toX, move.toY) = position.board.at(move.toX, move.toY);
    }

    // A tie rises by at most 1, so a later equal move wins only on a 1.
    if (ImmediateScore(move) == summary.bestImmediate) move.captureScore += TieBreak(random);
    if (ImmediateScore(move) > summary.bestImmediate) {
      summary.bestImmediate = ImmediateScore(move);
      summary.bestImmediateMove = i;
    }
    if (FullScore(move) == summary.bestFull) move.threatScore += TieBreak(random);
    if (FullScore(move) > summary.bestFull) {
      summary.bestFull = FullScore(move);
      summary.bestFullMove = i;
    }
    if (log.On()) LogMoveScores(log, i, move);
    ShowProgress(outside, progress, i, moves.Count());
  }
  return summary;
}

}  // namespace varkesh
