#include "flow/new_game.h"

#include "core/labels.h"
#include "core/new_game.h"
#include "core/new_game_data.h"
#include "core/rules.h"
#include "core/turn.h"
#include "flow/error_handler.h"
#include "flow/save_load.h"

namespace varkesh {

namespace {

constexpr const char* kUnsavedTitle = "Start New Game?";
constexpr const char* kUnsavedText =
    "The current game is not saved ... are you sure you wish to start a new game without saving "
    "the current one?\n\n"
    "          \u00bb Click 'Yes' to create a new game.\n"
    "          \u00bb Click 'No' to continue with the current game.";

void ResetTeams(Game& game, const PerTeam<int>& players) {
  for (std::size_t i = 0; i < game.playerKinds.size(); ++i) {
    game.playerKinds[i] = players[i];
    // In a session a human seat keeps its node; a computer seat is the host's.
    if (game.playerKinds[i] != kHuman || game.netRole == kNetNone) game.seatNode[i] = 0;
    game.castleRight[i] = true;
    game.kingdomFallen[i] = false;
    game.dungeons[i].prisoners.Clear();
  }
  for (HistoryMove& entry : game.history) {
    entry.fromX = 0;
    entry.fromY = 0;
  }
}

bool AllHuman(const Game& game) {
  for (int kind : game.playerKinds)
    if (kind != kHuman) return false;
  return true;
}

void StartGame(Game& game, Outside& outside, const NewGameChoice& choice, const Board& start) {
  game.saveFilePath.clear();
  game.gameSaved = true;
  outside.SetMenuEnabled(Menu::Resign, true);
  game.gameName = choice.name;
  game.gameType = choice.gameType;
  game.kingCaptureRule = choice.kingCaptureRule;
  outside.SetGameDescription(GameDescription(game));
  game.roundNumber = 1;
  game.currentTeam = kWhite;
  ResetTeams(game, choice.players);
  UpdateCurrentPlayer(game, outside);

  game.board = start;
  ClearMarks(game);
  ClearMoveablePieces(game);
  StartTurn(game, outside);
  game.boardChanged = true;

  outside.ShowPauseButton(!AllHuman(game) && game.netRole != kNetClient);
  game.paused = false;
  PlaySfx(outside, "sfx_newgame");
}

void TellClients(Game& game, Outside& outside) {
  if (game.netRole != kNetHosting) return;
  outside.SendToAll("GMSG}*** " + game.localPlayerName + " (host) has started a new game: '" +
                        GameDescription(game),
                    0);
  outside.SendToAll("GLGF}" + GameImage(game, outside), 0);
}

}  // namespace

void NewGameCommand(Game& game, Outside& outside) {
  Guarded(outside, "frmMain", "mnuGameNew.Click", [&] {
    if (!game.gameSaved && !outside.AskYesNo(kUnsavedTitle, kUnsavedText)) return;
    NewGameChoice choice = outside.RunNewGameDialog(game.playerKinds, RandomGameName(game.random));
    if (!choice.accepted) return;
    // Laid out aside first, so that a broken pack leaves the old game whole.
    Game laidOut;
    LoadNewGameDataFile(laidOut, outside.ExtractEntry("newgamedata"));
    StartGame(game, outside, choice, laidOut.board);
    TellClients(game, outside);
  });
}

}  // namespace varkesh
