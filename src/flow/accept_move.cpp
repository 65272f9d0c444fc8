#include "flow/accept_move.h"

#include <stdexcept>

#include "core/dungeon.h"
#include "core/fate.h"
#include "core/pawn_options.h"
#include "core/turn.h"
#include "flow/error_handler.h"

namespace varkesh {

namespace {

void LoseCastleRight(Game& game, int team) {
  int index = TeamIndex(team);
  if (index >= 0) game.castleRight[static_cast<std::size_t>(index)] = false;
}

void SetFallen(Game& game, int team) {
  int index = TeamIndex(team);
  if (index >= 0) game.kingdomFallen[static_cast<std::size_t>(index)] = true;
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
void KingRemoval(Game& game, Outside& outside, int capturedTeam) {
  if (TeamIndex(capturedTeam) < 0 || !LackOfMaterial(game, capturedTeam)) return;
  if (TeamEntry(game.playerKinds, capturedTeam) == kHuman || game.netRole != kNetNone) {
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
  SetFallen(game, capturedTeam);
  ApplyFate(game, capturedTeam, captor);
  PlaySfx(outside, "sfx_captureking");
  VictoryTest(game);
}

// The part of a move that every machine plays alike: the castle right, the
// board, the dungeons, the history, the sound and a fallen kingdom.
void PlayMove(Game& game, Outside& outside) {
  if (!Board::InBounds(game.moveFromX, game.moveFromY) ||
      !Board::InBounds(game.moveToX, game.moveToY))
    throw std::out_of_range("The move leaves the board");
  Square& from = game.board.at(game.moveFromX, game.moveFromY);
  Square& to = game.board.at(game.moveToX, game.moveToY);

  // Taking an enemy Castle Pawn or King costs the taker its right too.
  if (from.piece == kCastlePawn || from.piece == kKing || to.piece == kCastlePawn ||
      to.piece == kKing)
    LoseCastleRight(game, game.currentTeam);

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
    int fallen = to.team;
    int captor = from.team;
    AddPieceToDungeon(game, captor, fallen, kKing);
    SetFallen(game, fallen);
    ApplyFate(game, fallen, captor);
    MovePiece(from, to);
    AddMoveToHistory(game, true);
    PlaySfx(outside, "sfx_captureking");
    VictoryTest(game);
  } else if (to.piece == kPawn || to.piece == kCastlePawn) {
    int captured = to.team;
    MovePiece(from, to);
    AddMoveToHistory(game, true);
    PlaySfx(outside, "sfx_capture");
    KingRemoval(game, outside, captured);
  } else {
    int captured = to.team;
    AddPieceToDungeon(game, from.team, to.team, to.piece);
    MovePiece(from, to);
    AddMoveToHistory(game, true);
    PlaySfx(outside, "sfx_capturequeen");
    KingRemoval(game, outside, captured);
  }
}

void LosePawn(Game& game) {
  Square& pawn = game.board.at(game.moveToX, game.moveToY);
  pawn.team = kNoTeam;
  pawn.piece = kNoPiece;
}

void OfferPawnOptions(Game& game, Outside& outside) {
  if (!PawnOptionsDue(game, game.moveToX, game.moveToY)) return;
  std::vector<PawnOption> options = ListPawnOptions(game, game.moveToX, game.moveToY);
  if (options.empty()) {
    LosePawn(game);
    game.pendingMoveMessage = MoveMessage(kMovePawnLost, 0, 0);
    return;
  }
  std::vector<std::string> lines;
  for (const PawnOption& option : options) lines.push_back(option.text);
  int pick = outside.RunPawnOptionsDialog(lines);
  if (pick >= 0 && pick < static_cast<int>(options.size()))
    ApplyPawnOption(game, outside, game.moveToX, game.moveToY,
                    options[static_cast<std::size_t>(pick)]);
}

void RepeatPawnOption(Game& game, Outside& outside) {
  if (game.netMoveKind == kMovePawnLost) {
    LosePawn(game);
  } else if (game.netMoveKind == kMoveCaptureInKeep || game.netMoveKind == kMoveFreePrisoner) {
    PawnOption option{game.netMoveKind == kMoveCaptureInKeep, game.netMoveArg1, game.netMoveArg2,
                      ""};
    ApplyPawnOption(game, outside, game.moveToX, game.moveToY, option);
  }
}

void SendMove(const Game& game, Outside& outside) {
  if (game.netRole == kNetHosting) outside.SendToAll(game.pendingMoveMessage, 0);
  if (game.netRole == kNetClient) outside.SendToClient(0, game.pendingMoveMessage);
}

// Ends the game or hands the turn on; a click made meanwhile is dropped.
void FinishMove(Game& game, Outside& outside) {
  if (game.gameMode == ModeVictorySetUp) {
    outside.SetMenuEnabled(Menu::Resign, false);
    return;
  }
  game.clickPending = false;
  PassTurn(game, outside);
}

}  // namespace

void AcceptMove(Game& game, Outside& outside) {
  Guarded(outside, "frmMain", "AcceptMove", [&] {
    game.pendingMoveMessage = MoveMessage(kMovePlain, 0, 0);
    game.gameSaved = false;
    game.boardChanged = true;
    PlayMove(game, outside);
    OfferPawnOptions(game, outside);
    SendMove(game, outside);
    FinishMove(game, outside);
  });
}

void NetAcceptMove(Game& game, Outside& outside) {
  Guarded(outside, "frmMain", "NetAcceptMove", [&] {
    game.boardChanged = true;
    PlayMove(game, outside);
    RepeatPawnOption(game, outside);
    FinishMove(game, outside);
  });
}

}  // namespace varkesh
