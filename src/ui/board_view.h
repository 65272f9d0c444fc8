// The game drawn through the drawing engine onto the main view's back
// buffer: the board with pieces and names, the prisoners, the strobe, the
// moves as paths, the hints, the title and the victory screen.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "engine/gdi.h"
#include "flow/game_view.h"
#include "flow/outside.h"
#include "ui/board_art.h"

namespace varkesh {

struct GeneralEngine;

// What the board view asks of the program around it.
struct BoardViewHooks {
  EntryPath entryPath;
  std::function<bool(Menu)> isMenuChecked;
  std::function<double()> clock;  // seconds
  std::function<void(const std::string&)> showFrameRate;
  // The name beside a human seat's keep in a NetPlay session; empty outside
  // one, where the seat reads "Human".
  std::function<std::string(const Game&, int team)> seatPlayerName{};
  // A line over the title and the empty board, as while a client waits for
  // the host's game; empty for none.
  std::function<std::string()> waitingNote{};
};

class BoardView : public GameView {
 public:
  BoardView(Gdi& gdi, GeneralEngine& engine, const BoardArt& art, BoardViewHooks hooks);

  void DrawBoardWithPieces(Game& game) override;
  void ShowHistory(Game& game) override;
  void DrawDungeons(Game& game) override;
  void DrawSquares(Game& game) override;
  void DrawSelection(Game& game, int x, int y, bool preview) override;
  void DrawMove(Game& game, int fromX, int fromY, int toX, int toY, bool preview) override;
  void DrawHint(Game& game, Hint hint) override;
  void ShowViewport() override;
  void AdvanceStrobes() override;
  void UpdateFrameRate() override;

  void LoadTitle() override;
  void ShowTitle() override;
  void ClearTitle() override;

  void DrawVictory(const Game& game) override;
  void DrawVictoryFlags(const Game& game, int winnerFrame, int coWinnerFrame) override;

  // A past move in the colours of the team that made it.
  void DrawHistoricMove(int fromX, int fromY, int toX, int toY, int team, bool wasCapture);

 private:
  void DrawMoveMarkers(int fromX, int fromY, int toX, int toY, int row, int endCell);
  void DrawMarker(int cellX, int row, int x, int y);
  void DrawPlayerNames(const Game& game);
  void DrawWaitingNote();
  // The program's version in a corner of the title, as About shows it.
  void DrawVersion();
  // The keyboard's cursor as a frame around its square.
  void DrawCursor(const Game& game);
  void DrawFlag(int team, int frame, int y);

  Gdi& gdi_;
  GeneralEngine& engine_;
  BoardArt art_;
  BoardViewHooks hooks_;
  PicNum title_ = -1;
  // The count of draws on the back buffer right after the title or a hint
  // was drawn: while it stands, the picture is still there as drawn.
  std::optional<std::uint64_t> titleDrawn_;
  std::string titleNote_;
  std::optional<std::pair<Hint, std::uint64_t>> hintDrawn_;
  double strobeLastDrawn_ = 0.0;
  // The army at the bottom as the present drawing has it.
  int bottomTeam_ = kWhite;
};

}  // namespace varkesh
