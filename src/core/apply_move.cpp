#include "core/apply_move.h"

#include <cstring>

#include "core/computer_pawn_option.h"
#include "core/dungeon.h"
#include "core/fate.h"
#include "core/pawn_options.h"

namespace varkesh {

namespace {

void SetTeamFlag(PerTeam<bool>& flags, int team, bool value) {
  int index = TeamIndex(team);
  if (index >= 0) flags[static_cast<std::size_t>(index)] = value;
}

void MovePiece(Square& from, Square& to) {
  to.piece = from.piece;
  to.team = from.team;
  from.piece = kNoPiece;
  from.team = kNoTeam;
}

void Empty(Square& square) {
  square.team = kNoTeam;
  square.piece = kNoPiece;
}

bool IsPawnKind(int piece) {
  return piece == kPawn || piece == kCastlePawn;
}

bool IsCastleMove(const Square& from, const Square& to) {
  return from.piece == kKing && to.piece == kCastlePawn && from.team == to.team;
}

void RecordLightUndo(const Position& position, const Move& move, Undo& undo) {
  undo.whole = false;
  undo.optionSquare = -1;
  undo.from = position.board.at(move.fromX, move.fromY);
  undo.to = position.board.at(move.toX, move.toY);
  undo.dropped = position.history[2];
  undo.castleRight = position.castleRight;
  undo.currentTeam = position.currentTeam;
  undo.roundNumber = position.roundNumber;
  for (std::size_t t = 0; t < position.dungeons.size(); ++t)
    undo.prisonerCounts[t] = position.dungeons[t].PrisonerCount();
  undo.freedHolder = kNoTeam;
}

// A team left with too little material loses its King to the team that has
// just taken from it.
void KingRemoval(Position& position, int capturedTeam, const Square& to, MoveEffects& effects) {
  if (TeamIndex(capturedTeam) < 0 || !LackOfMaterial(position, capturedTeam)) return;
  effects.materialLoser = capturedTeam;
  const int captor = to.team;
  const int kingSquare =
      Board::Index(KingColumn(position, capturedTeam), KingRow(position, capturedTeam));
  Square& king = position.board.squares[static_cast<std::size_t>(kingSquare)];
  AddPieceToDungeon(position, captor, capturedTeam, kKing);
  if (king.team == capturedTeam && king.piece == kKing) {
    Empty(king);
    position.Resync(kingSquare);
  }
  SetTeamFlag(position.kingdomFallen, capturedTeam, true);
  ApplyFate(position, capturedTeam, captor);
  VictoryTest(position);
}

// The board, the dungeons, the history and the castle right; a fallen
// kingdom meets its fate.
void PlayOnBoard(Position& position, const Move& move, MoveEffects& effects) {
  Square& from = position.board.at(move.fromX, move.fromY);
  Square& to = position.board.at(move.toX, move.toY);
  effects.takenTeam = to.team;
  effects.takenPiece = to.piece;

  // Taking an enemy Castle Pawn or King costs the taker its right too.
  if (from.piece == kCastlePawn || from.piece == kKing || to.piece == kCastlePawn ||
      to.piece == kKing)
    SetTeamFlag(position.castleRight, position.currentTeam, false);

  const auto addToHistory = [&](bool wasCapture) {
    AddToHistory(position, move.fromX, move.fromY, move.toX, move.toY, to.team, wasCapture);
  };
  if (to.piece == kNoPiece) {
    effects.outcome = MoveOutcome::Plain;
    effects.takenTeam = kNoTeam;
    MovePiece(from, to);
    addToHistory(false);
  } else if (IsCastleMove(from, to)) {
    effects.outcome = MoveOutcome::Castle;
    effects.takenTeam = kNoTeam;
    effects.takenPiece = kNoPiece;
    to.piece = kKing;
    from.piece = kCastlePawn;
    addToHistory(false);
  } else if (to.piece == kKing) {
    // The fallen kingdom changes, goes or freezes before the captor lands.
    effects.outcome = MoveOutcome::KingTaken;
    const int fallen = to.team;
    const int captor = from.team;
    AddPieceToDungeon(position, captor, fallen, kKing);
    SetTeamFlag(position.kingdomFallen, fallen, true);
    ApplyFate(position, fallen, captor);
    MovePiece(from, to);
    addToHistory(true);
    VictoryTest(position);
  } else {
    // Pawns and Castle Pawns that are taken leave the game; the rest are prisoners.
    const int captured = to.team;
    const bool pawn = IsPawnKind(to.piece);
    effects.outcome = pawn ? MoveOutcome::PawnTaken : MoveOutcome::PieceTaken;
    if (!pawn) AddPieceToDungeon(position, from.team, to.team, to.piece);
    MovePiece(from, to);
    addToHistory(true);
    KingRemoval(position, captured, to, effects);
  }
}

void TakeInKeep(Position& position, Square& pawn, int x, int y, MoveEffects& effects, Undo* undo) {
  Square& taken = position.board.at(x, y);
  if (undo && !undo->whole) {
    undo->optionSquare = Board::Index(x, y);
    undo->optionTaken = taken;
  }
  effects.pawn = PawnOutcome::CapturedInKeep;
  effects.optionX = x;
  effects.optionY = y;
  effects.optionTeam = taken.team;
  effects.optionPiece = taken.piece;
  AddPieceToDungeon(position, pawn.team, taken.team, taken.piece);
  Empty(taken);
  Empty(pawn);
}

void FreeFromDungeon(Position& position, Square& pawn, int index, MoveEffects& effects,
                     Undo* undo) {
  const int holder = pawn.realm;
  if (TeamIndex(holder) < 0) return;
  const auto& prisoners = position.dungeons[static_cast<std::size_t>(holder - 1)].prisoners;
  if (index < 1 || index > prisoners.Count()) return;
  const DungeonPiece prisoner = prisoners[index];
  effects.pawn = PawnOutcome::Freed;
  effects.optionIndex = index;
  effects.optionTeam = prisoner.team;
  effects.optionPiece = prisoner.piece;
  pawn.team = prisoner.team;
  pawn.piece = prisoner.piece;
  // The earliest equal prisoner goes, which may stand before the one chosen.
  const int removed = RemovePieceFromDungeon(position, holder, prisoner.team, prisoner.piece);
  if (undo && !undo->whole) {
    undo->freedHolder = holder;
    undo->freedIndex = removed;
    undo->freed = prisoner;
  }
}

// The option the dialog would carry out for line option of the options.
void ResolveByDialog(Position& position, const Move& move, MoveEffects& effects, Undo* undo) {
  Square& pawn = position.board.at(move.toX, move.toY);
  const std::vector<PawnOption> options = ListPawnOptions(position, move.toX, move.toY);
  effects.optionCount = static_cast<int>(options.size());
  if (options.empty()) {
    // The dialog closes by itself: the pawn is lost without a word.
    effects.pawn = PawnOutcome::Lost;
    Empty(pawn);
    return;
  }
  effects.pawn = PawnOutcome::Stayed;
  if (move.option < 0 || move.option >= effects.optionCount) return;
  const PawnOption& option = options[static_cast<std::size_t>(move.option)];
  if (option.onBoard)
    TakeInKeep(position, pawn, option.argA, option.argB, effects, undo);
  else
    FreeFromDungeon(position, pawn, option.argA, effects, undo);
}

void ResolveByComputer(Position& position, const Move& move, MoveEffects& effects, Undo* undo) {
  Square& pawn = position.board.at(move.toX, move.toY);
  effects.optionCount = CountPawnOptions(position, move.toX, move.toY);
  effects.pawn = PawnOutcome::Stayed;
  const ComputerPawnChoice choice = ChooseComputerPawnOption(position, move.toX, move.toY);
  if (choice.onBoard)
    TakeInKeep(position, pawn, choice.x, choice.y, effects, undo);
  else if (choice.prisonerIndex > 0)
    FreeFromDungeon(position, pawn, choice.prisonerIndex, effects, undo);
}

}  // namespace

bool TopplesAKingdom(const Position& position, const Square& from, const Square& to) {
  if (to.piece == kNoPiece || IsCastleMove(from, to)) return false;
  if (to.piece == kKing) return true;
  if (TeamIndex(to.team) < 0) return false;
  return Material(position, to.team) - MaterialWorth(to.piece) < 5;
}

void PassTurn(Position& position) {
  // Bounded: a damaged game with every kingdom fallen must not loop for ever.
  for (int step = 0; step < kTeamCount; ++step) {
    ++position.currentTeam;
    if (TeamIndex(position.currentTeam) < 0) {
      position.currentTeam = kWhite;
      if (position.roundNumber < kHighestRound) ++position.roundNumber;
    }
    if (!TeamEntry(position.kingdomFallen, position.currentTeam)) break;
  }
}

MoveEffects ApplyMove(Position& position, const Move& move, Undo* undo) {
  MoveEffects effects;
  if (!Board::InBounds(move.fromX, move.fromY) || !Board::InBounds(move.toX, move.toY))
    return effects;
  effects.played = true;
  effects.mover = position.currentTeam;
  if (undo) {
    const Square& from = position.board.at(move.fromX, move.fromY);
    const Square& to = position.board.at(move.toX, move.toY);
    undo->whole = TopplesAKingdom(position, from, to);
    if (undo->whole)
      std::memcpy(undo->saved, &position, sizeof(Position));
    else
      RecordLightUndo(position, move, *undo);
  }

  PlayOnBoard(position, move, effects);
  // Even a move that has just ended the game gets its pawn option.
  if (PawnOptionsDue(position, move.toX, move.toY)) {
    if (move.option == kOptionComputer)
      ResolveByComputer(position, move, effects, undo);
    else
      ResolveByDialog(position, move, effects, undo);
  }
  position.Resync(Board::Index(move.fromX, move.fromY));
  position.Resync(Board::Index(move.toX, move.toY));
  if (effects.pawn == PawnOutcome::CapturedInKeep)
    position.Resync(Board::Index(effects.optionX, effects.optionY));
  effects.gameOver = position.Finished();
  if (!effects.gameOver) PassTurn(position);
  return effects;
}

void UndoMove(Position& position, const Move& move, const Undo& undo) {
  if (!Board::InBounds(move.fromX, move.fromY) || !Board::InBounds(move.toX, move.toY)) return;
  if (undo.whole) {
    std::memcpy(&position, undo.saved, sizeof(Position));
    return;
  }
  const int from = Board::Index(move.fromX, move.fromY);
  const int to = Board::Index(move.toX, move.toY);
  position.board.squares[static_cast<std::size_t>(from)] = undo.from;
  position.board.squares[static_cast<std::size_t>(to)] = undo.to;
  position.Resync(from);
  position.Resync(to);
  if (undo.optionSquare >= 0) {
    position.board.squares[static_cast<std::size_t>(undo.optionSquare)] = undo.optionTaken;
    position.Resync(undo.optionSquare);
  }
  auto& history = position.history;
  history[0] = history[1];
  history[1] = history[2];
  history[2] = undo.dropped;
  position.castleRight = undo.castleRight;
  position.currentTeam = undo.currentTeam;
  position.roundNumber = undo.roundNumber;
  if (undo.freedHolder != kNoTeam) {
    auto& prisoners = position.dungeons[static_cast<std::size_t>(undo.freedHolder - 1)].prisoners;
    prisoners.InsertAt(undo.freedIndex, undo.freed);
  }
  for (std::size_t t = 0; t < position.dungeons.size(); ++t)
    position.dungeons[t].prisoners.Truncate(undo.prisonerCounts[t]);
}

}  // namespace varkesh
