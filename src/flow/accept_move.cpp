#include "flow/accept_move.h"

#include "core/pawn_options.h"
#include "core/play_move.h"
#include "core/turn.h"
#include "flow/error_handler.h"

namespace varkesh {

namespace {

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
    PlayMoveOnBoard(game, outside, MaterialNotice::HumanOrNetwork);
    OfferPawnOptions(game, outside);
    SendMove(game, outside);
    FinishMove(game, outside);
  });
  outside.GameEventDone();
}

void NetAcceptMove(Game& game, Outside& outside) {
  Guarded(outside, "frmMain", "NetAcceptMove", [&] {
    game.boardChanged = true;
    PlayMoveOnBoard(game, outside, MaterialNotice::HumanOrNetwork);
    RepeatPawnOption(game, outside);
    FinishMove(game, outside);
  });
  outside.GameEventDone();
}

}  // namespace varkesh
