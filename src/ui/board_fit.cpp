#include "ui/board_fit.h"

#include <QApplication>
#include <algorithm>

#include "engine/gdi.h"
#include "ui/board_turn.h"
#include "ui/main_window.h"
#include "ui/program.h"
#include "ui/view_widget.h"

namespace varkesh {
namespace {

bool LocalHumanOnTurn(const Game& game) {
  const int team = game.match.position.currentTeam;
  if (game.turn.gameMode != ModeChoosePiece) return false;
  if (TeamEntry(game.match.setup.playerKinds, team, -1) != kHuman) return false;
  return game.net.netRole == kNetNone ||
         TeamEntry(game.net.seatNode, team, -1) == game.net.myNodeId;
}

bool AnyComputer(const Game& game) {
  for (int team = kWhite; team <= kRed; ++team)
    if (TeamEntry(game.match.setup.playerKinds, team, -1) > kHuman) return true;
  return false;
}

}  // namespace

double ScaleForView(int sideDevicePixels) {
  return std::max(sideDevicePixels, 1) / static_cast<double>(kArtBoardUnits);
}

void BoardFit::Update(Program& program) {
  FitScale(program);
  TurnBoard(program);
  CallForAttention(program);
}

void BoardFit::FitScale(Program& program) {
  if (!program.gdi) return;
  const QSize pixels = program.window->view().DevicePixels();
  // A minimized or hidden view keeps the scale it had.
  if (pixels.isEmpty() || !program.window->view().Seen()) return;
  const double scale = ScaleForView(std::min(pixels.width(), pixels.height()));
  if (scale == program.gdi->Scale()) return;
  program.gdi->SetScale(scale);
  program.game.view.boardChanged = true;
}

void BoardFit::TurnBoard(Program& program) {
  Game& game = program.game;
  MainWindow& window = *program.window;
  window.MarkTurnChoice(EffectiveChoice(game, window.ChosenTurn()));
  const int bottom = BottomTeamFor(game, window.ChosenTurn());
  if (bottom == game.view.bottomTeam) return;
  game.view.bottomTeam = bottom;
  game.view.boardChanged = true;
}

void BoardFit::CallForAttention(Program& program) {
  Game& game = program.game;
  const bool humanTurn = LocalHumanOnTurn(game);
  const bool turnCame = humanTurn && !humanTurnSeen_;
  humanTurnSeen_ = humanTurn;
  // Only where others play between the player's turns.
  if (!turnCame || (game.net.netRole == kNetNone && !AnyComputer(game))) return;
  MainWindow& window = *program.window;
  if (window.isActiveWindow()) return;
  QApplication::alert(&window);
  PlaySfx(window.outside(), window.outside(), "sfx_yourturn");
}

}  // namespace varkesh
