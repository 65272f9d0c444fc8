#include "ai/choice_ladder.h"

#include <algorithm>
#include <cstdlib>
#include <string>

#include "ai/ai_values.h"
#include "ai/threats.h"
#include "core/labels.h"
#include "engine/general_engine.h"

namespace varkesh {
namespace {

// Beyond these the ladder acts at once: 101 and more, not 100.
constexpr int kDecisiveScore = 100;
// A move stays in the running with a full score from -69 up.
constexpr int kShortListFloor = -70;
// More live pieces than this: the opening; fewer than kEndgameBelow: the endgame.
constexpr int kOpeningAbove = 50;
constexpr int kEndgameBelow = 30;

std::string TierLine(AiTier tier, int personality) {
  // The Defensive starting pawn has its own line, without the arrows.
  if (tier == AiTier::StartingPawn && personality == kDefensive)
    return "     Move Chosen (starting pawn): ";
  return std::string("               >>Move Chosen (") + TierName(tier) + "): ";
}

bool StartingPawn(const Board& board, const MoveRec& move) {
  return board.at(move.fromX, move.fromY).piece == kPawn &&
         board.at(move.fromX, move.fromY).terrain == kMoat &&
         board.at(move.toX, move.toY).terrain == kBattlefield;
}

// The middle square of a moat line and the two at distance 2 from it.
bool DefensivePawnSquare(const MoveRec& move) {
  const auto eligible = [](int c) { return c == 6 || c == 8 || c == 10; };
  return ((move.fromX == 3 || move.fromX == 13) && eligible(move.fromY)) ||
         ((move.fromY == 3 || move.fromY == 13) && eligible(move.fromX));
}

// Where the team's Knights stand at the start of a game.
bool KnightHome(int team, int x, int y) {
  static constexpr BoardSquare kHomes[kTeamCount][2] = {
      {{7, 14}, {9, 15}}, {{1, 9}, {2, 7}}, {{7, 1}, {9, 2}}, {{14, 9}, {15, 7}}};
  const int t = TeamIndex(team);
  if (t < 0) return false;
  const BoardSquare square{x, y};
  return kHomes[t][0] == square || kHomes[t][1] == square;
}

bool StartingKnight(const Position& position, const MoveRec& move) {
  const Square& from = position.board.at(move.fromX, move.fromY);
  return from.piece == kKnight && from.terrain == kKeep &&
         KnightHome(position.currentTeam, move.fromX, move.fromY);
}

// The short list needs no list of its own: the ladder only ever raises the
// full score of a move on it, so no move leaves it or joins it.
bool ShortListed(const MoveRec& move) {
  return FullScore(move) > kShortListFloor;
}

// The index of the draw-th short-listed move, counted from 0.
int NthShortListed(const AiMoveList& moves, int draw) {
  for (int i = 1; i <= moves.Count(); ++i)
    if (ShortListed(moves[i]) && draw-- == 0) return i;
  return 0;
}

// The best full score among the short-listed moves that pass the test; a tie
// draws a 0 or 1 into the later move's threat score. 0 when none passes.
template <class Test>
int BestOfTier(AiMoveList& moves, Random& random, Test passes) {
  int best = kNoScore;
  int bestMove = 0;
  for (int index = 1; index <= moves.Count(); ++index) {
    MoveRec& move = moves[index];
    if (!ShortListed(move) || !passes(move)) continue;
    if (FullScore(move) == best) move.threatScore += TieBreak(random);
    if (FullScore(move) > best) {
      best = FullScore(move);
      bestMove = index;
    }
  }
  return bestMove;
}

AiChoice Opening(const Position& position, AiMoveList& moves, Random& random, int personality) {
  const auto startingPawn = [&](const MoveRec& m) { return StartingPawn(position.board, m); };
  const auto defensivePawn = [&](const MoveRec& m) {
    return StartingPawn(position.board, m) && DefensivePawnSquare(m);
  };
  int move = personality == kDefensive ? BestOfTier(moves, random, defensivePawn)
                                       : BestOfTier(moves, random, startingPawn);
  if (move > 0) return {move, AiTier::StartingPawn};
  if (personality != kAggressive) {
    move = BestOfTier(moves, random, [&](const MoveRec& m) { return StartingKnight(position, m); });
    if (move > 0) return {move, AiTier::StartingKnight};
  }
  return {};
}

}  // namespace

const char* TierName(AiTier tier) {
  switch (tier) {
    case AiTier::TopMove:
      return "top move";
    case AiTier::TopThreat:
      return "top threat";
    case AiTier::BestOfTheWorst:
      return "best of the worst";
    case AiTier::PawnIntoKeep:
      return "pawn into keep";
    case AiTier::StartingPawn:
      return "starting pawn";
    case AiTier::StartingKnight:
      return "starting knight";
    case AiTier::AdvancesPawn:
      return "advances pawn";
    case AiTier::BestOfWhatsLeft:
      return "best of what's left";
    case AiTier::RandomMove:
      return "random move";
  }
  return "";
}

AiChoice ClimbLadder(const Position& position, AiMoveList& moves, Random& random,
                     const ScoreSummary& scores, int personality, const AiLog& log) {
  // Both ends: a gain worth taking, or a position where every move loses.
  if (std::abs(scores.bestImmediate) > kDecisiveScore)
    return {scores.bestImmediateMove, AiTier::TopMove};
  if (scores.bestFull > kDecisiveScore) return {scores.bestFullMove, AiTier::TopThreat};

  const int shortListed = static_cast<int>(
      std::count_if(moves.begin(), moves.end(), [](const MoveRec& m) { return ShortListed(m); }));
  if (log.On()) WriteAiLog(log, "          + Number on Short List: " + std::to_string(shortListed));
  if (shortListed == 0) return {scores.bestImmediateMove, AiTier::BestOfTheWorst};

  // The first such move, not the best: a raid beats any score.
  for (int index = 1; index <= moves.Count(); ++index) {
    const MoveRec& move = moves[index];
    if (ShortListed(move) && position.board.at(move.fromX, move.fromY).piece == kPawn &&
        position.board.at(move.toX, move.toY).terrain == kKeep)
      return {index, AiTier::PawnIntoKeep};
  }

  if (scores.pieceCount > kOpeningAbove) {
    const AiChoice opening = Opening(position, moves, random, personality);
    if (opening.index > 0) return opening;
  } else if (scores.pieceCount < kEndgameBelow) {
    const int move = BestOfTier(moves, random, [&](const MoveRec& m) {
      return AdvancesPawn(position, m.fromX, m.fromY, m.toX, m.toY);
    });
    if (move > 0) return {move, AiTier::AdvancesPawn};
  } else {
    return {BestOfTier(moves, random, [](const MoveRec&) { return true; }),
            AiTier::BestOfWhatsLeft};
  }
  return {NthShortListed(moves, random.Below(shortListed)), AiTier::RandomMove};
}

int ResolvePersonality(const Position& position, const Setup& setup, int requested) {
  const int kind = requested > 0 ? requested : TeamEntry(setup.playerKinds, position.currentTeam);
  return kind <= kHuman ? kHuman : std::min(kind, kPersonalityCount);
}

AiChoice ChooseAImove(const Position& position, const Setup& setup, AiMoveList& moves,
                      Random& random, AiOutside& outside, int personality) {
  AiLog log = OpenAiLog(outside.Engine());
  if (log.On()) WriteAiLog(log, TurnText(position, setup));
  personality = ResolvePersonality(position, setup, personality);
  moves.Clear();
  if (personality == kHuman) {
    CloseAiLog(log);
    return {};
  }

  BuildAiMoveList(position, moves);
  if (log.On()) WriteAiLog(log, "Number of moves to evaluate: " + std::to_string(moves.Count()));
  const ScoreSummary scores = ScoreAiMoves(position, moves, random, outside, personality, log);
  const AiChoice choice = ClimbLadder(position, moves, random, scores, personality, log);
  if (log.On()) WriteAiLog(log, TierLine(choice.tier, personality) + std::to_string(choice.index));
  CloseAiLog(log);
  return choice;
}

Move ChosenMove(const AiMoveList& moves, const AiChoice& choice) {
  if (choice.index < 1 || choice.index > moves.Count()) return {};
  const MoveRec& move = moves[choice.index];
  return Move::Of(move.fromX, move.fromY, move.toX, move.toY, kOptionComputer);
}

}  // namespace varkesh
