#include "ai/move_scoring.h"

#include <charconv>
#include <string>
#include <utility>

#include "ai/ai_values.h"
#include "ai/threats.h"
#include "core/labels.h"
#include "core/rules.h"

namespace varkesh {
namespace {

std::string PieceOf(int team, int piece) {
  return std::string(" (") + TeamName(team) + " " + PieceName(piece) + ")";
}

std::string ScoredSquareLine(const char* head, int x, int y, int value, const Square& square) {
  return head + std::to_string(x) + ", " + std::to_string(y) + ": " + std::to_string(value) +
         PieceOf(square.team, square.piece);
}

void LogMoveHead(Game& game, Outside& outside, const AiLog& log, int index, const MoveRec& move) {
  ShowPiece(game, outside, move.fromX, move.fromY, move.toX, move.toY);
  WriteAiLog(log, "     Move #" + TwoDigits(index) + ": (" + std::to_string(move.fromX) + ", " +
                      std::to_string(move.fromY) + ") " +
                      PieceText(game, move.fromX, move.fromY, move.toX, move.toY) + " (" +
                      std::to_string(move.toX) + ", " + std::to_string(move.toY) + ")");
}

void LogMoveScores(const AiLog& log, int index, const MoveRec& move) {
  const std::string head = "                    »» Move #" + TwoDigits(index);
  WriteAiLog(log, head + " Immediate Score: " + std::to_string(ImmediateScore(move)));
  WriteAiLog(log, head + " Full Score: " + std::to_string(FullScore(move)));
}

// Copies everything but the marks; returns the live pieces.
int CopyBoardToScratch(Game& game) {
  int live = 0;
  for (std::size_t s = 0; s < game.board.squares.size(); ++s) {
    const Square& from = game.board.squares[s];
    Square& to = game.scratchBoard.squares[s];
    to.team = from.team;
    to.piece = from.piece;
    to.terrain = from.terrain;
    to.realm = from.realm;
    if (from.piece > 0) ++live;
  }
  return live;
}

void PlayOnScratch(Game& game, MoveRec& move, int personality, const AiLog& log) {
  if (!Board::InBounds(move.fromX, move.fromY) || !Board::InBounds(move.toX, move.toY)) return;
  Square& from = game.scratchBoard.at(move.fromX, move.fromY);
  Square& to = game.scratchBoard.at(move.toX, move.toY);
  if (to.team == from.team) {
    // The castle move onto the team's own piece: the two change places.
    std::swap(from.piece, to.piece);
    return;
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
}

// Every attacked piece counts, whoever attacks it and however often.
void ScoreAttacks(Game& game, MoveRec& move, int personality, unsigned enemies, const AiLog& log) {
  for (int y = 0; y < kBoardSide; ++y) {
    for (int x = 0; x < kBoardSide; ++x) {
      const Square& square = game.scratchBoard.at(x, y);
      if (square.piece < 1) continue;
      const bool own = square.team == game.currentTeam;
      const bool enemy = IsEnemy(enemies, square.team);
      Attacker attacker;
      if (TestThreat(game, x, y, log.On() ? &attacker : nullptr)) {
        if (log.On())
          WriteAiLog(log, "               *** Threat from " + std::string(TeamName(attacker.team)) +
                              " " + PieceName(attacker.piece) + " at " +
                              std::to_string(attacker.x) + "," + std::to_string(attacker.y));
        if (own) {
          const int value = AiValue(personality, kDangerValue, square.piece);
          move.dangerScore += value;
          if (log.On())
            WriteAiLog(log, ScoredSquareLine("          * Danger at ", x, y, value, square));
        } else if (enemy) {
          const int value = AiValue(personality, kThreatValue, square.piece);
          move.threatScore += value;
          if (log.On())
            WriteAiLog(log, ScoredSquareLine("          Threaten at ", x, y, value, square));
        }
      } else if (enemy && TestMoatlessThreat(game, x, y)) {
        const int value = AiValue(personality, kWeakThreatValue, square.piece);
        move.weakThreatScore += value;
        if (log.On())
          WriteAiLog(log, ScoredSquareLine("          Give Weak Threat at ", x, y, value, square));
      }
    }
  }
}

// The buffer keeps its room from move to move, so the label costs no allocation.
void ShowProgress(Outside& outside, std::string& text, int done, int total) {
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

void BuildAiMoveList(Game& game) {
  game.moveList.Clear();
  game.computerPieces.Clear();
  FindMoveablePieces(game, game.currentTeam, false, true);
  for (int i = 1; i <= game.computerPieces.Count(); ++i) {
    const BoardSquare piece = game.computerPieces[i];
    FindMoves(game, piece.x, piece.y, false, true);
  }
  game.computerPieces.Clear();
}

ScoreSummary ScoreAiMoves(Game& game, Outside& outside, int personality, const AiLog& log) {
  ScoreSummary summary;
  const unsigned enemies = EnemyTeams(game.gameType, game.currentTeam);
  std::string progress;
  progress.reserve(32);
  // The count is read anew each time: the yields let events run in between.
  for (int i = 1; i <= game.moveList.Count(); ++i) {
    MoveRec& move = game.moveList[i];
    if (log.On()) LogMoveHead(game, outside, log, i, move);
    const int live = CopyBoardToScratch(game);
    if (i == 1) summary.pieceCount = live;
    PlayOnScratch(game, move, personality, log);
    ScoreAttacks(game, move, personality, enemies, log);

    // A tie rises by at most 1, so a later equal move wins only on a 1.
    if (ImmediateScore(move) == summary.bestImmediate) move.captureScore += TieBreak(game.random);
    if (ImmediateScore(move) > summary.bestImmediate) {
      summary.bestImmediate = ImmediateScore(move);
      summary.bestImmediateMove = i;
    }
    if (FullScore(move) == summary.bestFull) move.threatScore += TieBreak(game.random);
    if (FullScore(move) > summary.bestFull) {
      summary.bestFull = FullScore(move);
      summary.bestFullMove = i;
    }
    if (log.On()) LogMoveScores(log, i, move);
    ShowProgress(outside, progress, i, game.moveList.Count());
  }
  return summary;
}

}  // namespace varkesh
