// The computer's near twin of AcceptMove. Every machine of a session runs it
// for the same move, so it draws no random numbers and sends nothing.
#include <string>

#include "ai/computer.h"
#include "core/dungeon.h"
#include "core/fate.h"
#include "core/pawn_options.h"
#include "core/turn.h"

namespace varkesh {
namespace {

void MarkFallen(Game& game, int team) {
  const int t = TeamIndex(team);
  if (t >= 0) game.kingdomFallen[static_cast<std::size_t>(t)] = true;
}

void MovePiece(Square& from, Square& to) {
  to.piece = from.piece;
  to.team = from.team;
  from.piece = kNoPiece;
  from.team = kNoTeam;
}

void RecordMove(Game& game, bool wasCapture) {
  AddToHistory(game, game.moveFromX, game.moveFromY, game.moveToX, game.moveToY,
               game.board.at(game.moveToX, game.moveToY).team, wasCapture);
}

// A team left with too little material loses its King to the mover at once.
void RemoveKingForLackOfMaterial(Game& game, Outside& outside, int victim) {
  if (!LackOfMaterial(game, victim)) return;
  // Only a human needs telling; the seat of a computer victim stays silent.
  if (TeamEntry(game.playerKinds, victim) == kHuman)
    outside.ShowMessage("Lack of Material", std::string(TeamName(victim)) +
                                                " King is removed from the game due to lack of "
                                                "materials.");
  const int captor = game.board.at(game.moveToX, game.moveToY).team;
  Square& king = game.board.at(KingColumn(game, victim), KingRow(game, victim));
  AddPieceToDungeon(game, captor, victim, kKing);
  king.team = kNoTeam;
  king.piece = kNoPiece;
  MarkFallen(game, victim);
  ApplyFate(game, victim, captor);
  PlaySfx(outside, "sfx_captureking");
  VictoryTest(game);
}

void PlayOnBoard(Game& game, Outside& outside) {
  Square& from = game.board.at(game.moveFromX, game.moveFromY);
  Square& to = game.board.at(game.moveToX, game.moveToY);
  if (to.piece == kNoPiece) {
    MovePiece(from, to);
    RecordMove(game, false);
    PlaySfx(outside, "sfx_click");
  } else if (from.piece == kKing && to.piece == kCastlePawn && from.team == to.team) {
    to.piece = kKing;
    from.piece = kCastlePawn;
    RecordMove(game, false);
    PlaySfx(outside, "sfx_click");
  } else if (to.piece == kKing) {
    // The fallen kingdom changes, goes or freezes before the captor lands.
    const int fallen = to.team;
    const int captor = from.team;
    AddPieceToDungeon(game, captor, fallen, kKing);
    MarkFallen(game, fallen);
    ApplyFate(game, fallen, captor);
    MovePiece(from, to);
    RecordMove(game, true);
    PlaySfx(outside, "sfx_captureking");
    VictoryTest(game);
  } else {
    // Pawns and Castle Pawns that are taken leave the game; the rest are prisoners.
    const int victim = to.team;
    const bool pawn = to.piece == kPawn || to.piece == kCastlePawn;
    if (!pawn) AddPieceToDungeon(game, from.team, victim, to.piece);
    MovePiece(from, to);
    RecordMove(game, true);
    PlaySfx(outside, pawn ? "sfx_capture" : "sfx_capturequeen");
    RemoveKingForLackOfMaterial(game, outside, victim);
  }
}

}  // namespace

void CarryOutAImove(Game& game, Outside& outside) {
  if (!Board::InBounds(game.moveFromX, game.moveFromY) ||
      !Board::InBounds(game.moveToX, game.moveToY))
    return;
  game.gameSaved = false;
  game.boardChanged = true;

  // The mover's right ends even when it takes another team's Castle Pawn or King.
  const auto castling = [](int piece) { return piece == kCastlePawn || piece == kKing; };
  const int t = TeamIndex(game.currentTeam);
  if (t >= 0 && (castling(game.board.at(game.moveFromX, game.moveFromY).piece) ||
                 castling(game.board.at(game.moveToX, game.moveToY).piece)))
    game.castleRight[static_cast<std::size_t>(t)] = false;

  PlayOnBoard(game, outside);
  // Even a move that has just ended the game gets its pawn option.
  if (PawnOptionsDue(game, game.moveToX, game.moveToY)) AIpawnOptions(game, outside);
  if (game.gameMode != ModeVictorySetUp) PassTurn(game, outside);
}

}  // namespace varkesh
