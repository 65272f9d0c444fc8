#include "core/pawn_options.h"

#include "core/dungeon.h"
#include "core/labels.h"
#include "core/rules.h"

namespace varkesh {

namespace {

bool CanBeTakenByOption(int piece) {
  return piece >= kBishop && piece <= kQueen;
}

const Dungeon* DungeonOf(const Game& game, int team) {
  int index = TeamIndex(team);
  return index < 0 ? nullptr : &game.dungeons[static_cast<std::size_t>(index)];
}

void CaptureInKeep(Game& game, Outside& outside, int toX, int toY, int x, int y) {
  if (!Board::InBounds(x, y)) return;
  Square& pawn = game.board.at(toX, toY);
  Square& taken = game.board.at(x, y);
  AddPieceToDungeon(game, pawn.team, taken.team, taken.piece);
  taken.team = kNoTeam;
  taken.piece = kNoPiece;
  pawn.team = kNoTeam;
  pawn.piece = kNoPiece;
  game.pendingMoveMessage = MoveMessage(kMoveCaptureInKeep, x, y);
  PlaySfx(outside, "sfx_capturequeen");
}

void FreePrisoner(Game& game, Outside& outside, int toX, int toY, int index) {
  Square& pawn = game.board.at(toX, toY);
  const Dungeon* dungeon = DungeonOf(game, pawn.realm);
  if (!dungeon || index < 1 || index > dungeon->PrisonerCount()) return;
  DungeonPiece prisoner = dungeon->prisoners[index];
  pawn.team = prisoner.team;
  pawn.piece = prisoner.piece;
  RemovePieceFromDungeon(game, pawn.realm, prisoner.team, prisoner.piece);
  game.pendingMoveMessage = MoveMessage(kMoveFreePrisoner, index, 0);
  PlaySfx(outside, "sfx_newgame");
}

}  // namespace

KeepArea KeepAround(int x, int y) {
  if (x < 3) return {0, 2, 6, 10};
  if (x > 13) return {14, 16, 6, 10};
  if (y < 3) return {6, 10, 0, 2};
  if (y > 13) return {6, 10, 14, 16};
  return {0, -1, 0, -1};
}

std::string MoveMessage(int kind, int argA, int argB) {
  return "GAMV}" + std::to_string(kind) + kFieldSeparator + std::to_string(argA) + kFieldSeparator +
         std::to_string(argB);
}

bool PawnOptionsDue(const Game& game, int x, int y) {
  if (!Board::InBounds(x, y)) return false;
  const Square& square = game.board.at(x, y);
  if (square.terrain != kKeep) return false;
  if (square.piece == kPawn) return true;
  if (square.piece != kCastlePawn) return false;
  // In Anarchy every keep but its own counts; with alliances only a keep of
  // the other side does, so a keep that has just fallen (realm 0) does not.
  if (game.gameType == kAnarchy) return square.realm != square.team;
  return square.realm != kNoTeam && IsHostile(game.gameType, square.team, square.realm);
}

std::vector<PawnOption> ListPawnOptions(const Game& game, int toX, int toY) {
  std::vector<PawnOption> options;
  if (!Board::InBounds(toX, toY)) return options;
  const Square& pawn = game.board.at(toX, toY);

  KeepArea keep = KeepAround(toX, toY);
  for (int x = keep.x0; x <= keep.x1; ++x) {
    for (int y = keep.y0; y <= keep.y1; ++y) {
      const Square& square = game.board.at(x, y);
      if (square.terrain != kKeep || !CanBeTakenByOption(square.piece)) continue;
      if (!IsHostile(game.gameType, pawn.team, square.team)) continue;
      options.push_back(
          {true, x, y,
           "Capture " + TeamPossessive(square.team) + " " + PieceTitle(square.piece, x, y)});
    }
  }

  if (const Dungeon* dungeon = DungeonOf(game, pawn.realm)) {
    for (int i = 1; i <= dungeon->PrisonerCount(); ++i) {
      const DungeonPiece& prisoner = dungeon->prisoners[i];
      if (prisoner.team != pawn.team || prisoner.piece == kKing) continue;
      options.push_back({false, i, 0, std::string("Free your ") + PieceName(prisoner.piece)});
    }
  }
  return options;
}

void ApplyPawnOption(Game& game, Outside& outside, int toX, int toY, const PawnOption& option) {
  if (!Board::InBounds(toX, toY)) return;
  if (option.onBoard)
    CaptureInKeep(game, outside, toX, toY, option.argA, option.argB);
  else
    FreePrisoner(game, outside, toX, toY, option.argA);
  game.boardChanged = true;
}

}  // namespace varkesh
