// The second phase of the computer's turn: a fixed ladder of tiers picks one
// move of the scored list. Clear gains and dangers come first; otherwise a
// short list of safe enough moves is narrowed by the stage of the game and
// the personality.
#pragma once

#include "ai/ai_log.h"
#include "ai/move_scoring.h"
#include "core/move.h"
#include "core/setup.h"

namespace varkesh {

enum class AiTier {
  TopMove,
  TopThreat,
  BestOfTheWorst,
  PawnIntoKeep,
  StartingPawn,
  StartingKnight,
  AdvancesPawn,
  BestOfWhatsLeft,
  RandomMove,
};

// "top move", "best of what's left", ...
const char* TierName(AiTier tier);

struct AiChoice {
  int index = 0;  // into the move list; 0 when there is no move
  AiTier tier = AiTier::TopMove;
};

// The personality that plays: requested when above 0, else the seat's own;
// a seat value beyond the table plays as the last personality. 0 for a human.
int ResolvePersonality(const Position& position, const Setup& setup, int requested);

// The ladder over a scored move list, for personality 1 to 3.
AiChoice ClimbLadder(const Position& position, AiMoveList& moves, Random& random,
                     const ScoreSummary& scores, int personality, const AiLog& log);

// The whole turn: list, scores, ladder and "ai.log", leaving the scored list
// in moves. A personality above 0 stands in for the seat's own; a human seat
// without one has no move.
AiChoice ChooseAImove(const Position& position, const Setup& setup, AiMoveList& moves,
                      Random& random, AiOutside& outside, int personality = 0);

// The chosen move as the rules take it: the computer's own rule picks its
// pawn option. None when there is no move.
Move ChosenMove(const AiMoveList& moves, const AiChoice& choice);

}  // namespace varkesh
