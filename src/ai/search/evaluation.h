// The searching computer's judgement of a quiet position: material by the
// personality's own values, King safety, pawn raids and the hold on moats
// and keeps, and how central the pieces stand. The personality also weighs
// attack against safety.
#pragma once

#include "ai/search/sides.h"
#include "core/position.h"

namespace varkesh::search {

// Far above anything the evaluation gives: a won or lost game.
inline constexpr int kWinScore = 1'000'000;
// Scores above this (or below its negation) are wins (losses) in some plies.
inline constexpr int kWinBound = kWinScore - 1000;
// What a side loses with each of its kingdoms that falls.
inline constexpr int kFallenKingdom = 6000;

struct EvalWeights {
  int personality = kBalanced;
  int raid = 100;    // percent: pawns in hostile moats, pieces in hostile realms
  int safety = 100;  // percent: hostile pieces near one's own King
  int centre = 100;  // percent: pieces towards the middle of the board
};

EvalWeights WeightsOf(int personality);

// The score of side 0 of sides minus that of side 1. Finished games are the
// search's business, not this.
int Evaluate(const Position& position, const Sides& sides, const EvalWeights& weights);

// The value of a live piece kind by the personality, for ordering captures.
int PieceValue(int personality, int piece);

}  // namespace varkesh::search
