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
  TellFallenKingdoms(program);
}

void BoardFit::TellFallenKingdoms(Program& program) {
  Game& game = program.game;
  MainWindow& window = *program.window;
  const int mode = game.turn.gameMode;
  const bool playing = mode != ModeNoGame && mode != ModeTitle && mode != ModeVictorySetUp &&
                       mode != ModeVictory && mode != ModeGameOver;
  static constexpr const char* kTeamNames[] = {"White", "Blue", "Black", "Red"};
  bool localHumanLeft = false;
  bool anyLocalHuman = false;
  for (int team = kWhite; team <= kRed; ++team) {
    const auto index = static_cast<std::size_t>(team - 1);
    const bool fallen = TeamEntry(game.match.position.kingdomFallen, team, false);
    const bool localHuman = TeamEntry(game.match.setup.playerKinds, team, -1) == kHuman &&
                            (game.net.netRole == kNetNone ||
                             TeamEntry(game.net.seatNode, team, -1) == game.net.myNodeId);
    anyLocalHuman = anyLocalHuman || localHuman;
    if (localHuman && !fallen) localHumanLeft = true;
    if (fallen && !fallenSeen_[index] && localHuman && playing)
      window.view().ShowNotice(QString("The kingdom of %1 has fallen.").arg(kTeamNames[index]));
    fallenSeen_[index] = fallen;
  }
  const bool watching = playing && anyLocalHuman && !localHumanLeft;
  if (watching && !previewTurnedOn_ && !window.IsMenuChecked(Menu::OptionsShowComp)) {
    window.SetMenuChecked(Menu::OptionsShowComp, true);
    previewTurnedOn_ = true;
  } else if (!playing && previewTurnedOn_) {
    window.SetMenuChecked(Menu::OptionsShowComp, false);
    previewTurnedOn_ = false;
  }
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
