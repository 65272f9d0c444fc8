#include "core/play_move.h"

#include <stdexcept>
#include <string>

#include "core/dungeon.h"
#include "core/fate.h"

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

void AddMoveToHistory(Game& game, bool wasCapture) {
  AddToHistory(game, game.moveFromX, game.moveFromY, game.moveToX, game.moveToY,
               game.board.at(game.moveToX, game.moveToY).team, wasCapture);
}

// A team left with too little material loses its King to the team that has
// just taken from it.
void KingRemoval(Game& game, Outside& outside, int capturedTeam, MaterialNotice notice) {
  if (TeamIndex(capturedTeam) < 0 || !LackOfMaterial(game, capturedTeam)) return;
  bool human = TeamEntry(game.playerKinds, capturedTeam) == kHuman;
  if (human || (notice == MaterialNotice::HumanOrNetwork && game.netRole != kNetNone)) {
    outside.ShowMessage("Lack of Material",
                        std::string(TeamName(capturedTeam)) +
                            " King is removed from the game due to lack of materials.");
  }
  int captor = game.board.at(game.moveToX, game.moveToY).team;
  Square& king = game.board.at(KingColumn(game, capturedTeam), KingRow(game, capturedTeam));
  AddPieceToDungeon(game, captor, capturedTeam, kKing);
  if (king.team == capturedTeam && king.piece == kKing) {
    king.team = kNoTeam;
    king.piece = kNoPiece;
  }
  SetTeamFlag(game.kingdomFallen, capturedTeam, true);
  ApplyFate(game, capturedTeam, captor);
  PlaySfx(outside, "sfx_captureking");
  VictoryTest(game);
}

}  // namespace

void PlayMoveOnBoard(Game& game, Outside& outside, MaterialNotice notice) {
  if (!Board::InBounds(game.moveFromX, game.moveFromY) ||
      !Board::InBounds(game.moveToX, game.moveToY))
    throw std::out_of_range("The move leaves the board");
  Square& from = game.board.at(game.moveFromX, game.moveFromY);
  Square& to = game.board.at(game.moveToX, game.moveToY);

  // Taking an enemy Castle Pawn or King costs the taker its right too.
  if (from.piece == kCastlePawn || from.piece == kKing || to.piece == kCastlePawn ||
      to.piece == kKing)
    SetTeamFlag(game.castleRight, game.currentTeam, false);

  if (to.piece == kNoPiece) {
    MovePiece(from, to);
    AddMoveToHistory(game, false);
    PlaySfx(outside, "sfx_click");
  } else if (from.piece == kKing && to.piece == kCastlePawn && from.team == to.team) {
    to.piece = kKing;
    from.piece = kCastlePawn;
    AddMoveToHistory(game, false);
    PlaySfx(outside, "sfx_click");
  } else if (to.piece == kKing) {
    // The fallen kingdom changes, goes or freezes before the captor lands.
    int fallen = to.team;
    int captor = from.team;
    AddPieceToDungeon(game, captor, fallen, kKing);
    SetTeamFlag(game.kingdomFallen, fallen, true);
    ApplyFate(game, fallen, captor);
    MovePiece(from, to);
    AddMoveToHistory(game, true);
    PlaySfx(outside, "sfx_captureking");
    VictoryTest(game);
  } else {
    // Pawns and Castle Pawns that are taken leave the game; the rest are prisoners.
    int captured = to.team;
    bool pawn = to.piece == kPawn || to.piece == kCastlePawn;
    if (!pawn) AddPieceToDungeon(game, from.team, to.team, to.piece);
    MovePiece(from, to);
    AddMoveToHistory(game, true);
    PlaySfx(outside, pawn ? "sfx_capture" : "sfx_capturequeen");
    KingRemoval(game, outside, captured, notice);
  }
}

}  // namespace varkesh
