#include "flow/accept_move.h"

#include <string>
#include <vector>

#include "core/pawn_options.h"
#include "flow/error_handler.h"
#include "flow/turn.h"

namespace varkesh {

namespace {

// Who sees the box when lack of material takes a team's King.
enum class MaterialNotice {
  HumanOrNetwork,  // a human victim, or any victim in a network game
  HumanOnly,       // a human victim only
};

Move SelectedMove(const Game& game, int option) {
  const TurnState& turn = game.turn;
  return Move::Of(turn.moveFromX, turn.moveFromY, turn.moveToX, turn.moveToY, option);
}

const char* OutcomeSound(MoveOutcome outcome) {
  switch (outcome) {
    case MoveOutcome::KingTaken:
      return "sfx_captureking";
    case MoveOutcome::PawnTaken:
      return "sfx_capture";
    case MoveOutcome::PieceTaken:
      return "sfx_capturequeen";
    default:
      return "sfx_click";
  }
}

// The box of a King removed for lack of material comes between the sound of
// the capture and the sound of the fall.
void TellMaterialLoss(const Game& game, Outside& outside, const MoveEffects& effects,
                      MaterialNotice notice) {
  const int loser = effects.materialLoser;
  if (loser == kNoTeam) return;
  const bool human = TeamEntry(game.match.setup.playerKinds, loser) == kHuman;
  if (human || (notice == MaterialNotice::HumanOrNetwork && game.net.netRole != kNetNone))
    outside.ShowMessage("Lack of Material", std::string(TeamName(loser)) +
                                                " King is removed from the game due to lack of "
                                                "materials.");
  PlaySfx(outside, "sfx_captureking");
}

// The game is won, or the turn goes on. After a player's move the resign
// menu locks at the end and a click made meanwhile is dropped; after the
// computer's the main loop sees to both.
void FinishMove(Game& game, Outside& outside, const MoveEffects& effects, bool playersMove) {
  game.view.boardChanged = true;
  if (effects.gameOver) {
    game.turn.gameMode = ModeVictorySetUp;
    if (playersMove) outside.SetMenuEnabled(Menu::Resign, false);
    return;
  }
  if (playersMove) game.view.clickPending = false;
  BeginNextTurn(game, outside);
}

void EventDone(const Game& game, Outside& outside) {
  if (NetLink* link = outside.Link()) link->OnGameEvent(game);
}

// The options dialog, when the move opens it with lines to choose from: the
// sounds of the move come first, as the player sees it land.
int AskPawnOption(const Game& game, Outside& outside, MoveEffects& heard) {
  const TurnState& turn = game.turn;
  const Position& position = game.match.position;
  const MoveOptions options =
      PawnOptionsOfMove(position, turn.moveFromX, turn.moveFromY, turn.moveToX, turn.moveToY);
  if (options.options.empty()) return kOptionNone;
  heard = options.effects;
  PlayMoveSounds(outside, heard);
  TellMaterialLoss(game, outside, heard, MaterialNotice::HumanOrNetwork);
  std::vector<std::string> lines;
  for (const PawnOption& option : options.options)
    lines.push_back(PawnOptionText(options.after, turn.moveToX, turn.moveToY, option));
  const int pick = outside.RunPawnOptionsDialog(lines);
  return pick >= 0 && pick < static_cast<int>(lines.size()) ? pick : kOptionClosed;
}

}  // namespace

void PlayMoveSounds(Outside& outside, const MoveEffects& effects) {
  PlaySfx(outside, OutcomeSound(effects.outcome));
}

void PlayPawnOptionSound(Outside& outside, const MoveEffects& effects) {
  if (effects.pawn == PawnOutcome::CapturedInKeep) PlaySfx(outside, "sfx_capturequeen");
  if (effects.pawn == PawnOutcome::Freed) PlaySfx(outside, "sfx_newgame");
}

void AcceptMove(Game& game, Outside& outside) {
  Guarded(outside, "frmMain", "AcceptMove", [&] {
    game.turn.gameSaved = false;
    game.view.boardChanged = true;
    MoveEffects heard;
    const int option = AskPawnOption(game, outside, heard);
    const MoveEffects effects = PlayMove(game.match, SelectedMove(game, option));
    if (!heard.played) {
      PlayMoveSounds(outside, effects);
      TellMaterialLoss(game, outside, effects, MaterialNotice::HumanOrNetwork);
    }
    PlayPawnOptionSound(outside, effects);
    if (NetLink* link = outside.Link()) link->TellMove(game, effects);
    FinishMove(game, outside, effects, true);
  });
  EventDone(game, outside);
}

void NetAcceptMove(Game& game, Outside& outside, int option) {
  // A computer seat's move comes this way when the host's search chose a
  // pawn option the computer's own rule would not: it stays the computer's.
  const bool playersMove =
      TeamEntry(game.match.setup.playerKinds, game.match.position.currentTeam) == kHuman;
  Guarded(outside, "frmMain", "NetAcceptMove", [&] {
    game.view.boardChanged = true;
    const MoveEffects effects = PlayMove(game.match, SelectedMove(game, option));
    PlayMoveSounds(outside, effects);
    TellMaterialLoss(game, outside, effects,
                     playersMove ? MaterialNotice::HumanOrNetwork : MaterialNotice::HumanOnly);
    PlayPawnOptionSound(outside, effects);
    FinishMove(game, outside, effects, playersMove);
  });
  EventDone(game, outside);
}

void CarryOutAImove(Game& game, Outside& outside) {
  game.turn.gameSaved = false;
  game.view.boardChanged = true;
  const int option = game.turn.computerOption;
  game.turn.computerOption = kOptionComputer;
  const MoveEffects effects = PlayMove(game.match, SelectedMove(game, option));
  PlayMoveSounds(outside, effects);
  TellMaterialLoss(game, outside, effects, MaterialNotice::HumanOnly);
  PlayPawnOptionSound(outside, effects);
  FinishMove(game, outside, effects, false);
}

}  // namespace varkesh
