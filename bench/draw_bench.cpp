// The cost of drawing the board: a whole frame (board, pieces, prisoners,
// names, strobe, shown) and the strobe's frame alone, which is what a
// pondering player's window draws, at the scales of common screens.
#include <benchmark/benchmark.h>

#include <QGuiApplication>

#include "core/new_game_data.h"
#include "engine/gdi.h"
#include "engine/general_engine.h"
#include "flow/turn.h"
#include "ui/board_art.h"
#include "ui/board_view.h"

namespace varkesh {
namespace {

constexpr const char* kPackDir = VARKESH_PACK_DIR;

struct Scene {
  explicit Scene(double scale) {
    gdi.SetScale(scale);
    const EntryPath packFile = [](const std::string& entry) {
      return std::string(kPackDir) + "/" + entry + ".png";
    };
    art = LoadBoardArt(gdi, engine, NewMainView(gdi), packFile);
    view = std::make_unique<BoardView>(
        gdi, engine, art,
        BoardViewHooks{packFile,
                       [](Menu menu) { return menu == Menu::OptionIndicator; },
                       [this] { return now += 0.1; },
                       {}});
    game.match.position.board = LoadNewGameDataFile(std::string(kPackDir) + "/newgamedata.txt");
    game.match.position.Refresh();
    game.match.position.currentTeam = kWhite;
    game.turn.gameMode = ModeChoosePiece;
    MarkMoveablePieces(game, true);
  }

  GeneralEngine engine;
  Random random;
  double now = 0.0;
  Gdi gdi{engine, [this] { return now; }, random};
  BoardArt art;
  std::unique_ptr<BoardView> view;
  Game game;
};

void WholeFrame(benchmark::State& state) {
  Scene scene(static_cast<double>(state.range(0)) / 2.0);
  for (auto _ : state) {
    scene.game.view.boardChanged = true;
    scene.view->DrawBoardWithPieces(scene.game);
    scene.view->DrawDungeons(scene.game);
    scene.view->AdvanceStrobes();
    scene.view->DrawSquares(scene.game);
    scene.view->ShowViewport();
    benchmark::DoNotOptimize(scene.gdi.ScreenImage(scene.art.view).constBits());
  }
}
// Scales 1, 1.5, 2 and 3, in halves.
BENCHMARK(WholeFrame)->Arg(2)->Arg(3)->Arg(4)->Arg(6)->Unit(benchmark::kMillisecond);

void StrobeFrame(benchmark::State& state) {
  Scene scene(static_cast<double>(state.range(0)) / 2.0);
  scene.view->DrawBoardWithPieces(scene.game);
  for (auto _ : state) {
    scene.view->AdvanceStrobes();
    scene.view->DrawSquares(scene.game);
    scene.view->ShowViewport();
  }
}
BENCHMARK(StrobeFrame)->Arg(2)->Arg(4)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace varkesh

int main(int argc, char** argv) {
  // Fonts need a GUI application; no screen is needed.
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
