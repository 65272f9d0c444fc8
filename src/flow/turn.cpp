#include "flow/turn.h"

#include "core/labels.h"
#include "core/piece_moves.h"
#include "core/rules.h"

namespace varkesh {

void UpdateCurrentPlayer(const Game& game, Labels& labels) {
  labels.SetTurnLabel(TurnText(game.match.position, game.match.setup));
}

void ShowPiece(const Game& game, Labels& labels, int fromX, int fromY, int toX, int toY) {
  labels.SetPieceLabel(PieceText(game.match.position, fromX, fromY, toX, toY));
}

void ClearMarks(Game& game) {
  game.view.marks.fill(kUnmarked);
  game.view.moveablePieces.Clear();
}

void MarkMoveablePieces(Game& game, bool forStrobe) {
  ClearMarks(game);
  MoveList moves;
  ListMoves(game.match.position, moves);
  for (const Move& move : moves) {
    const std::size_t square = static_cast<std::size_t>(Board::Index(move.fromX, move.fromY));
    if (game.view.marks[square] == kMarkMoveable) continue;
    game.view.marks[square] = kMarkMoveable;
    if (forStrobe) game.view.moveablePieces.Add({move.fromX, move.fromY});
  }
}

void MarkDestinations(Game& game, int x, int y) {
  FindMoves(game.match.position, x, y, [&](int toX, int toY) {
    game.view.marks[static_cast<std::size_t>(Board::Index(toX, toY))] = kMarkDestination;
    game.view.moveablePieces.Add({toX, toY});
  });
}

void StartTurn(Game& game, Clock& clock) {
  const Position& position = game.match.position;
  if (TeamEntry(game.match.setup.playerKinds, position.currentTeam) == kHuman) {
    game.turn.gameMode = ModeChoosePiece;
    MarkMoveablePieces(game, true);
    game.turn.turnClock = clock.Now();
  } else {
    game.turn.gameMode = ModeComputerThinks;
  }
}

void BeginNextTurn(Game& game, Outside& outside) {
  UpdateCurrentPlayer(game, outside);
  ShowPiece(game, outside, 0, 0, 0, 0);
  ClearMarks(game);
  game.view.boardChanged = true;
  StartTurn(game, outside);
}

}  // namespace varkesh
