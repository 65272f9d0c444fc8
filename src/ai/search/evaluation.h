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
  // percent: the weight of the other side's score against one's own; in
  // Anarchy 100 is the average of the three others.
  int opponents = 100;
  // percent: pieces drawn towards the nearest hostile King, and pawns
  // towards a hostile keep where a raid wins a piece
  int hunt = 0;
};

// The weights of a personality at a round of a game of gameType. The longer
// the game, the keener every side is to trade, to close in on a hostile King
// or a team near its fall, and to win a piece by a raid, so that the game
// comes to an end.
EvalWeights WeightsOf(int personality, int gameType, int round);

// The score of side 0 of sides minus that of side 1. Finished games are the
// search's business, not this.
int Evaluate(const Position& position, const Sides& sides, const EvalWeights& weights);

// The value of a live piece kind by the personality, for ordering captures.
int PieceValue(int personality, int piece);
// The value of all the team's live pieces but its King by the personality.
int PiecesWorth(const Position& position, int team, int personality);

}  // namespace varkesh::search
