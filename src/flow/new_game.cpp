#include "flow/new_game.h"

#include "core/labels.h"
#include "core/new_game.h"
#include "core/new_game_data.h"
#include "flow/error_handler.h"
#include "flow/turn.h"

namespace varkesh {

namespace {

constexpr const char* kUnsavedTitle = "Start New Game?";
constexpr const char* kUnsavedText =
    "The current game is not saved ... are you sure you wish to start a new game without saving "
    "the current one?\n\n"
    "          \u00bb Click 'Yes' to create a new game.\n"
    "          \u00bb Click 'No' to continue with the current game.";

// The start of a game: the pieces of the pack's start position under the
// chosen rules, every team standing with its castle right. The history is
// emptied as the game has always emptied it, by its start squares alone.
Position StartPosition(const NewGameChoice& choice, const Board& board, const Position& last) {
  Position start;
  start.board = board;
  start.gameType = choice.gameType;
  start.kingCaptureRule = choice.kingCaptureRule;
  start.history = last.history;
  for (HistoryMove& entry : start.history) entry.fromX = entry.fromY = 0;
  start.Refresh();
  return start;
}

void StartGame(Game& game, Outside& outside, const NewGameChoice& choice, const Board& board) {
  game.turn.saveFilePath.clear();
  game.turn.gameSaved = true;
  outside.SetMenuEnabled(Menu::Resign, true);
  Match& match = game.match;
  match.setup.gameName = choice.name;
  match.setup.playerKinds = choice.players;
  match.setup.levels = choice.levels;
  match.position = StartPosition(choice, board, match.position);
  match.BeginRecord();
  outside.SetGameDescription(GameDescription(match.position, match.setup));
  // In a session a human seat keeps its node; a computer seat is the host's.
  for (std::size_t i = 0; i < game.net.seatNode.size(); ++i)
    if (match.setup.playerKinds[i] != kHuman || game.net.netRole == kNetNone)
      game.net.seatNode[i] = 0;
  UpdateCurrentPlayer(game, outside);

  ClearMarks(game);
  StartTurn(game, outside);
  game.view.boardChanged = true;

  outside.ShowPauseButton(!match.setup.AllHuman() && game.net.netRole != kNetClient);
  game.turn.paused = false;
  PlaySfx(outside, "sfx_newgame");
}

}  // namespace

void NewGameCommand(Game& game, Outside& outside) {
  Guarded(outside, "frmMain", "mnuGameNew.Click", [&] {
    if (!game.turn.gameSaved && !outside.AskYesNo(kUnsavedTitle, kUnsavedText)) return;
    NewGameChoice choice =
        outside.RunNewGameDialog(game.match.setup.playerKinds, RandomGameName(game.random));
    if (!choice.accepted) return;
    // Laid out aside first, so that a broken pack leaves the old game whole.
    const Board board = LoadNewGameDataFile(outside.ExtractEntry("newgamedata"));
    StartGame(game, outside, choice, board);
    if (NetLink* link = outside.Link()) link->TellGameStarted(game, false);
  });
}

}  // namespace varkesh
