#include "ai/choice_ladder.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "ai/ai_values.h"
#include "ai/computer.h"
#include "ai/threats.h"
#include "core/labels.h"

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

bool StartingPawn(const Game& game, const MoveRec& move) {
  return game.board.at(move.fromX, move.fromY).piece == kPawn &&
         game.board.at(move.fromX, move.fromY).terrain == kMoat &&
         game.board.at(move.toX, move.toY).terrain == kBattlefield;
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

bool StartingKnight(const Game& game, const MoveRec& move) {
  const Square& from = game.board.at(move.fromX, move.fromY);
  return from.piece == kKnight && from.terrain == kKeep &&
         KnightHome(game.currentTeam, move.fromX, move.fromY);
}

// The best full score among the short-listed moves that pass the test; a tie
// draws a 0 or 1 into the later move's threat score. 0 when none passes.
template <class Test>
int BestOfTier(Game& game, const std::vector<int>& shortList, Test passes) {
  int best = kNoScore;
  int bestMove = 0;
  for (int index : shortList) {
    MoveRec& move = game.moveList[index];
    if (!passes(move)) continue;
    if (FullScore(move) == best) move.threatScore += TieBreak(game.random);
    if (FullScore(move) > best) {
      best = FullScore(move);
      bestMove = index;
    }
  }
  return bestMove;
}

AiChoice Opening(Game& game, const std::vector<int>& shortList, int personality) {
  const auto startingPawn = [&](const MoveRec& m) { return StartingPawn(game, m); };
  const auto defensivePawn = [&](const MoveRec& m) {
    return StartingPawn(game, m) && DefensivePawnSquare(m);
  };
  int move = personality == kDefensive ? BestOfTier(game, shortList, defensivePawn)
                                       : BestOfTier(game, shortList, startingPawn);
  if (move > 0) return {move, AiTier::StartingPawn};
  if (personality != kAggressive) {
    move = BestOfTier(game, shortList, [&](const MoveRec& m) { return StartingKnight(game, m); });
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

AiChoice ClimbLadder(Game& game, const ScoreSummary& scores, int personality, const AiLog& log) {
  // Both ends: a gain worth taking, or a position where every move loses.
  if (std::abs(scores.bestImmediate) > kDecisiveScore)
    return {scores.bestImmediateMove, AiTier::TopMove};
  if (scores.bestFull > kDecisiveScore) return {scores.bestFullMove, AiTier::TopThreat};

  std::vector<int> shortList;
  shortList.reserve(static_cast<std::size_t>(game.moveList.Count()));
  for (int i = 1; i <= game.moveList.Count(); ++i)
    if (FullScore(game.moveList[i]) > kShortListFloor) shortList.push_back(i);
  if (log.On())
    WriteAiLog(log, "          + Number on Short List: " + std::to_string(shortList.size()));
  if (shortList.empty()) return {scores.bestImmediateMove, AiTier::BestOfTheWorst};

  // The first such move, not the best: a raid beats any score.
  for (int index : shortList) {
    const MoveRec& move = game.moveList[index];
    if (game.board.at(move.fromX, move.fromY).piece == kPawn &&
        game.board.at(move.toX, move.toY).terrain == kKeep)
      return {index, AiTier::PawnIntoKeep};
  }

  if (scores.pieceCount > kOpeningAbove) {
    const AiChoice opening = Opening(game, shortList, personality);
    if (opening.index > 0) return opening;
  } else if (scores.pieceCount < kEndgameBelow) {
    const int move = BestOfTier(game, shortList, [&](const MoveRec& m) {
      return AdvancesPawn(game, m.fromX, m.fromY, m.toX, m.toY);
    });
    if (move > 0) return {move, AiTier::AdvancesPawn};
  } else {
    return {BestOfTier(game, shortList, [](const MoveRec&) { return true; }),
            AiTier::BestOfWhatsLeft};
  }
  const int draw = game.random.Below(static_cast<int>(shortList.size()));
  return {shortList[static_cast<std::size_t>(draw)], AiTier::RandomMove};
}

int ResolvePersonality(const Game& game, int requested) {
  const int kind = requested > 0 ? requested : TeamEntry(game.playerKinds, game.currentTeam);
  return kind <= kHuman ? kHuman : std::min(kind, kPersonalityCount);
}

AiChoice ChooseAImove(Game& game, Outside& outside, int personality) {
  AiLog log = OpenAiLog(outside);
  if (log.On()) WriteAiLog(log, TurnText(game));
  personality = ResolvePersonality(game, personality);
  if (personality == kHuman) {
    CloseAiLog(log);
    return {};
  }

  BuildAiMoveList(game);
  if (log.On())
    WriteAiLog(log, "Number of moves to evaluate: " + std::to_string(game.moveList.Count()));
  const ScoreSummary scores = ScoreAiMoves(game, outside, personality, log);
  const AiChoice choice = ClimbLadder(game, scores, personality, log);
  if (log.On()) WriteAiLog(log, TierLine(choice.tier, personality) + std::to_string(choice.index));
  CloseAiLog(log);
  return choice;
}

int GetAImove(Game& game, Outside& outside) {
  return ChooseAImove(game, outside).index;
}

}  // namespace varkesh
