#include <optional>

#include "ai/choice_ladder.h"
#include "ai/search/levels.h"
#include "core/apply_move.h"
#include "core/resign.h"
#include "flow/accept_move.h"
#include "flow/error_handler.h"
#include "flow/mode_steps.h"
#include "flow/resign.h"
#include "flow/search_turn.h"
#include "flow/thinking_outside.h"
#include "flow/turn.h"

namespace varkesh {

namespace {

constexpr double kPreviewWait = 0.4;
constexpr Menu kMenusLockedWhileThinking[] = {Menu::Game, Menu::Options, Menu::Resign, Menu::Help};

bool ChoosesComputerMoves(const Game& game) {
  return game.net.netRole == kNetNone || game.net.myNodeId == 0;
}

void WaitFor(Outside& outside, double seconds) {
  double start = outside.Now();
  while (outside.Now() - start <= seconds) outside.Yield();
}

void UnlockMenus(const Game& game, Outside& outside) {
  for (Menu menu : kMenusLockedWhileThinking) {
    bool enabled = menu != Menu::Resign || game.turn.gameMode != ModeVictorySetUp;
    outside.SetMenuEnabled(menu, enabled);
  }
}

// A computer seat without a legal move gives up by the rule in force, so the
// game always goes on. A host tells its clients as a player's machine would.
void ResignForComputer(Game& game, Outside& outside) {
  const Position& position = game.match.position;
  const std::vector<int> offers = ConcedeOffers(position);
  const int concedeTeam =
      position.kingCaptureRule == kKingdomGained && !offers.empty() ? offers.front() : kNoTeam;
  Guarded(outside, "frmMain", "DoResign", [&] { DoResign(game, outside, concedeTeam); });
  if (NetLink* link = outside.Link()) link->TellResignation(game, concedeTeam);
  UnlockMenus(game, outside);
}

void PreviewMove(Game& game, Outside& outside, GameView& view) {
  for (int round = 0; round < 2; ++round) {
    game.view.boardChanged = true;
    DrawBlock(game, view);
    view.DrawMove(game, game.turn.moveFromX, game.turn.moveFromY, game.turn.moveToX,
                  game.turn.moveToY, true);
    ShowBlock(game, view);
    WaitFor(outside, kPreviewWait);
    game.view.boardChanged = true;
    DrawBlock(game, view);
    ShowBlock(game, view);
    WaitFor(outside, kPreviewWait);
    game.view.boardChanged = true;
  }
}

// The piece and the destination chosen as a player chooses them; the move
// message with its option follows when the move is played.
void TellChoiceAsPlayers(Game& game, NetLink& link) {
  TurnState& turn = game.turn;
  const int toX = turn.moveToX, toY = turn.moveToY, mode = turn.gameMode;
  turn.moveToX = turn.moveToY = 0;
  turn.gameMode = ModeChooseDestination;
  link.TellSelection(game);
  turn.moveToX = toX;
  turn.moveToY = toY;
  turn.gameMode = ModeConfirmMove;
  link.TellSelection(game);
  turn.gameMode = mode;
}

}  // namespace

void StepComputerThinks(Game& game, Outside& outside, GameView& view) {
  game.view.clickPending = false;
  DrawBlock(game, view);
  ShowBlock(game, view);
  if (!ChoosesComputerMoves(game)) return;

  Move move;
  const int level = SeatLevel(TeamEntry(game.match.setup.levels, game.match.position.currentTeam));
  if (level > kLevelClassic) {
    // The window goes on while the worker searches: only resigning waits,
    // and the commands that change the game stop the search (the window
    // holds them until it has).
    outside.SetMenuEnabled(Menu::Resign, false);
    const int personality = ResolvePersonality(game.match.position, game.match.setup, 0);
    SearchedMove searched;
    game.turn.searching = true;
    Guarded(outside, "modVarkesh", "GetAImove",
            [&] { searched = SearchComputerMove(game, outside, level, personality); });
    game.turn.searching = false;
    if (searched.stopped) {
      // Thought over again on the next pass, unless the waiting command
      // gives the game another course first.
      game.turn.searchAbandoned = false;
      return UnlockMenus(game, outside);
    }
    if (!searched.found) return ResignForComputer(game, outside);
    move = searched.move;
  } else {
    for (Menu menu : kMenusLockedWhileThinking) outside.SetMenuEnabled(menu, false);
    AiMoveList moves;
    AiChoice choice;
    ThinkingOutside thinking(outside);
    Guarded(outside, "modVarkesh", "GetAImove", [&] {
      choice = ChooseAImove(game.match.position, game.match.setup, moves, game.random, thinking);
    });
    if (choice.index < 1 || choice.index > moves.Count()) return ResignForComputer(game, outside);
    move = ChosenMove(moves, choice);
  }
  TurnState& turn = game.turn;
  turn.computerOption = move.option == kOptionNone ? kOptionComputer : move.option;
  turn.moveFromX = move.fromX;
  turn.moveFromY = move.fromY;
  turn.moveToX = move.toX;
  turn.moveToY = move.toY;
  ShowPiece(game, outside, turn.moveFromX, turn.moveFromY, turn.moveToX, turn.moveToY);
  game.turn.gameMode = ModeComputerMoves;
  NetLink* link = outside.Link();
  if (link != nullptr && game.turn.ComputerMoveToldAsPlayers())
    TellChoiceAsPlayers(game, *link);
  else
    Mirror(game, outside);
}

void StepComputerMoves(Game& game, Outside& outside, GameView& view) {
  if (outside.IsMenuChecked(Menu::OptionsShowComp)) PreviewMove(game, outside, view);
  // What the move message tells is read before the move changes the board.
  NetLink* link = ChoosesComputerMoves(game) ? outside.Link() : nullptr;
  std::optional<MoveEffects> toTell;
  if (link != nullptr && game.turn.ComputerMoveToldAsPlayers()) {
    const TurnState& turn = game.turn;
    Position after = game.match.position;
    toTell = ApplyMove(after, Move::Of(turn.moveFromX, turn.moveFromY, turn.moveToX, turn.moveToY,
                                       turn.computerOption));
  }
  Guarded(outside, "modVarkesh", "CarryOutAImove", [&] { CarryOutAImove(game, outside); });
  if (toTell) link->TellMove(game, *toTell);
  // A move that failed half-way must not be tried again on every pass.
  if (game.turn.gameMode == ModeComputerMoves) {
    PassTurn(game.match.position);
    BeginNextTurn(game, outside);
  }
  if (ChoosesComputerMoves(game)) UnlockMenus(game, outside);
  game.view.clickPending = false;
  game.view.boardChanged = true;
  if (NetLink* link = outside.Link()) link->OnGameEvent(game);
}

}  // namespace varkesh
