// Playing a move on a position, and taking it back. The rules say what
// happened; the caller turns that into sounds, boxes and messages.
#pragma once

#include <cstddef>
#include <type_traits>

#include "core/move.h"
#include "core/position.h"

namespace varkesh {

// What stood on the destination, the first of these that fits.
enum class MoveOutcome : std::int8_t {
  Plain,       // an empty square
  Castle,      // the King changed places with its Castle Pawn
  KingTaken,   // its kingdom fell before the captor landed
  PawnTaken,   // a Pawn or Castle Pawn, gone from the game
  PieceTaken,  // any other piece, now the mover's prisoner
};

// What became of a pawn that entered a keep.
enum class PawnOutcome : std::int8_t {
  NotDue,          // no options: not a pawn in a hostile keep
  CapturedInKeep,  // spent to take the piece on (optionX, optionY)
  Freed,           // turned into prisoner optionIndex of the keep's owner
  Lost,            // no option to offer: gone from the board
  Stayed,          // an option was offered and none taken
};

struct MoveEffects {
  bool played = false;  // false: a square off the array, nothing changed
  int mover = kNoTeam;
  MoveOutcome outcome = MoveOutcome::Plain;
  int takenTeam = kNoTeam;  // what stood on the destination, for any capture
  int takenPiece = kNoPiece;
  // A team whose King the move removed for lack of material, after the capture.
  int materialLoser = kNoTeam;
  PawnOutcome pawn = PawnOutcome::NotDue;
  int optionCount = 0;                               // lines offered, when the options were due
  int optionX = 0, optionY = 0;                      // CapturedInKeep
  int optionIndex = 0;                               // Freed
  int optionTeam = kNoTeam, optionPiece = kNoPiece;  // the piece taken or freed
  bool gameOver = false;                             // a side has won: the turn did not pass
};

// Enough to take a move back. A move that topples a kingdom changes the
// whole board, so it keeps the whole position; any other move keeps the
// few squares and counts it touched. Fill it by ApplyMove, use it once.
struct Undo {
  bool whole;
  // Light moves: the squares as they were, the third one a pawn option took.
  int optionSquare;  // index of that square, -1 for none
  Square from, to, optionTaken;
  HistoryMove dropped;
  PerTeam<bool> castleRight;
  int currentTeam, roundNumber;
  PerTeam<int> prisonerCounts;
  int freedHolder;  // team whose prisoner was freed, 0 for none
  int freedIndex;
  DungeonPiece freed;
  // Whole moves: the position before, as raw bytes, so that an Undo costs
  // nothing to declare.
  alignas(Position) std::byte saved[sizeof(Position)];
};
static_assert(std::is_trivially_copyable_v<Position>);

// Plays the move for the team on turn and passes the turn unless a side has
// won. The move is trusted to be legal (IsLegal); squares off the array
// change nothing. With undo, records what UndoMove needs.
// Whether moving the piece on from onto to takes a King or leaves the taken
// team with too little material: a move that rewrites the board and dungeons.
bool TopplesAKingdom(const Position& position, const Square& from, const Square& to);

MoveEffects ApplyMove(Position& position, const Move& move, Undo* undo = nullptr);
void UndoMove(Position& position, const Move& move, const Undo& undo);

// The next standing team takes the turn; the round grows at the wrap.
void PassTurn(Position& position);

}  // namespace varkesh
