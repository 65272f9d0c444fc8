// The drawing calls that the main loop makes on the board view. The desktop
// program draws through the graphics engine; headless runs draw nothing.
#pragma once

#include "flow/game.h"

namespace varkesh {

enum class Hint { ChoosePiece, ChooseMove, Confirm };

class GameView {
 public:
  virtual ~GameView() = default;

  // The board with its pieces and names; only when game.view.boardChanged.
  virtual void DrawBoardWithPieces(Game&) {}
  virtual void ShowHistory(Game&) {}
  // The prisoners in the corners; only when game.view.boardChanged.
  virtual void DrawDungeons(Game&) {}
  // The strobe over game.view.moveablePieces.
  virtual void DrawSquares(Game&) {}
  virtual void DrawSelection(Game&, int /*x*/, int /*y*/, bool /*preview*/) {}
  virtual void DrawMove(Game&, int /*fromX*/, int /*fromY*/, int /*toX*/, int /*toY*/,
                        bool /*preview*/) {}
  // The shaded hint picture in the middle of the view.
  virtual void DrawHint(Game&, Hint) {}
  // Copies the back buffer to the screen.
  virtual void ShowViewport() {}
  virtual void AdvanceStrobes() {}
  virtual void UpdateFrameRate() {}

  // The title screen: loaded once, shown each pass, cleared on the click.
  virtual void LoadTitle() {}
  virtual void ShowTitle() {}
  virtual void ClearTitle() {}

  // The victory screen: the background with the winners' banners, then a
  // frame of the waving flags (frames 0 to 3; coWinnerFrame < 0 shows none).
  virtual void DrawVictory(const Game&) {}
  virtual void DrawVictoryFlags(const Game&, int /*winnerFrame*/, int /*coWinnerFrame*/) {}
};

}  // namespace varkesh
