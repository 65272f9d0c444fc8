#include "ui/startup.h"

#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <chrono>
#include <filesystem>
#include <stdexcept>

#include "engine/gdi.h"
#include "ui/board_view.h"
#include "ui/main_window.h"
#include "ui/netplay_session.h"
#include "ui/qt_outside.h"
#include "ui/view_widget.h"

namespace varkesh {

namespace {

constexpr int kMaximized = 2;

std::uint64_t ClockSeed() {
  return static_cast<std::uint64_t>(
      std::chrono::high_resolution_clock::now().time_since_epoch().count());
}

// A stored place that lies on no screen any more (a monitor was removed, or
// the store was edited) would hide the window, so it is not used.
bool OnSomeScreen(const QRect& place) {
  for (const QScreen* screen : QGuiApplication::screens())
    if (screen->availableGeometry().intersects(place)) return true;
  return false;
}

void ApplyStoredPlacement(MainWindow& window, const SettingsStore& store) {
  const WindowPlacement stored = ReadWindowPlacement(store, "Main");
  QRect place = window.geometry();
  if (stored.top) place.moveTop(*stored.top);
  if (stored.left) place.moveLeft(*stored.left);
  if (stored.height && *stored.height > 0) place.setHeight(*stored.height);
  if (stored.width && *stored.width > 0) place.setWidth(*stored.width);
  if (OnSomeScreen(place)) window.setGeometry(place);
  if (stored.state == kMaximized) window.setWindowState(Qt::WindowMaximized);
}

void ApplyStoredOptions(MainWindow& window, const SettingsStore& store) {
  OptionMarks defaults;
  defaults.sfx = window.IsMenuChecked(Menu::OptionsSfx);
  defaults.indicator = window.IsMenuChecked(Menu::OptionIndicator);
  defaults.showComp = window.IsMenuChecked(Menu::OptionsShowComp);
  defaults.hints = window.IsMenuChecked(Menu::OptionsHints);
  const OptionMarks marks = ReadOptionMarks(store, defaults);
  window.SetMenuChecked(Menu::OptionsSfx, marks.sfx);
  window.SetMenuChecked(Menu::OptionIndicator, marks.indicator);
  window.SetMenuChecked(Menu::OptionsShowComp, marks.showComp);
  window.SetMenuChecked(Menu::OptionsHints, marks.hints);
  window.SetMenuChecked(marks.history == 0   ? Menu::History0
                        : marks.history == 1 ? Menu::History1
                                             : Menu::History3,
                        true);
  window.SetChosenTurn(TurnChoiceNamed(marks.turnBoard));
  window.SetThinkingTime(marks.thinkingTimeMs);
}

OptionMarks MarksOf(const MainWindow& window) {
  OptionMarks marks;
  marks.sfx = window.IsMenuChecked(Menu::OptionsSfx);
  marks.indicator = window.IsMenuChecked(Menu::OptionIndicator);
  marks.showComp = window.IsMenuChecked(Menu::OptionsShowComp);
  marks.hints = window.IsMenuChecked(Menu::OptionsHints);
  marks.history = window.IsMenuChecked(Menu::History0)   ? 0
                  : window.IsMenuChecked(Menu::History1) ? 1
                                                         : 3;
  marks.turnBoard = TurnChoiceName(window.ChosenTurn());
  marks.thinkingTimeMs = window.ThinkingTimeMs();
  return marks;
}

// The drawing engine with the main view, shown in the window's board view.
void StartDrawing(Program& program) {
  GeneralEngine& engine = program.engine;
  program.gdi = std::make_unique<Gdi>(
      engine, [&engine] { return EngineClock(engine); }, program.game.random);
  Gdi& gdi = *program.gdi;
  const int mainView = NewMainView(gdi);
  program.mainView = mainView;
  ViewWidget& view = program.window->view();
  gdi.AttachWindow(mainView, view.AsViewWindow());
  view.SetScreenImage([&gdi, mainView]() -> const QImage& { return gdi.ScreenImage(mainView); });
}

std::string SeatName(MainWindow& window, const Game& game, int team) {
  NetPlaySession* netPlay = window.netPlay();
  if (netPlay == nullptr || game.net.netRole == kNetNone) return "";
  return net::SeatPlayerName(game, netPlay->session(), team);
}

// A client that has joined sees no game until the host starts or loads one.
std::string WaitingNote(const Game& game) {
  const bool client = game.net.netRole == kNetConnectDialog || game.net.netRole == kNetClient;
  if (!client || (game.turn.gameMode != ModeTitle && game.turn.gameMode != ModeNoGame)) return "";
  return "Waiting for the host to start or load a game ...";
}

// Opens the pack and loads the board's pictures from it. Throws when the pack
// is missing or damaged.
std::unique_ptr<BoardView> LoadBoard(Program& program) {
  GeneralEngine& engine = program.engine;
  if (program.folders->temp.empty())
    throw std::runtime_error("No folder can be written for the game's temporary files.");
  const std::string tempFolder = TempFile(engine, "temp");
  PrepareTempFolder(tempFolder);
  PackReader& pack = program.pack;
  pack.OpenPack(engine.appPath + "r.opk", tempFolder);

  MainWindow& window = *program.window;
  QLabel& frameRate = window.view().FrameRateLabel();
  const EntryPath entryPath = [&pack](const std::string& entry) {
    return pack.ExtractEntry(entry);
  };
  return std::make_unique<BoardView>(
      *program.gdi, engine, LoadBoardArt(*program.gdi, engine, program.mainView, entryPath),
      BoardViewHooks{entryPath, [&window](Menu menu) { return window.IsMenuChecked(menu); },
                     [&engine] { return EngineClock(engine); },
                     [&frameRate](const std::string& text) {
                       // Asked on each pass; a hidden or unchanged label costs nothing.
                       const QString shown = QString::fromStdString(text);
                       if (!frameRate.isHidden() && frameRate.text() != shown)
                         frameRate.setText(shown);
                     },
                     [&window](const Game& game, int team) { return SeatName(window, game, team); },
                     [&program] { return WaitingNote(program.game); }});
}

}  // namespace

Program::Program() = default;
Program::~Program() = default;

bool StartUp(Program& program, const CommandLine& commandLine, const std::string& appPath) {
  if (!program.settings) program.settings = std::make_unique<SettingsStore>();
  if (!program.documents) program.documents = std::make_unique<DesktopDocuments>(program.engine);
  program.window = std::make_unique<MainWindow>(
      program.game, DesktopServices{program.engine, program.pack, program.sound, *program.documents,
                                    program.settings.get()});
  MainWindow& window = *program.window;

  if (!program.folders) program.folders = FindUserFolders();
  const UserFolders& folders = *program.folders;
  StartGeneralEngine(program.engine, commandLine.logLevel, appPath, folders.logs, folders.temp);
  program.engine.documentsPath = folders.documents;
  program.game.random.Seed(ClockSeed());
  if (commandLine.logLevel > 2 && !folders.logs.empty()) {
    std::error_code ignored;
    std::filesystem::remove(LogFile(program.engine, "ai.log"), ignored);
  }

  StartDrawing(program);
  try {
    program.view = LoadBoard(program);
  } catch (const std::exception& error) {
    window.outside().ShowMessage(
        "Varkesh", std::string("The game's resource file 'r.opk' could not be read, so Varkesh "
                               "cannot start.\n\n") +
                       error.what() + "\n\nPlease install the game again.");
    ShutdownGeneralEngine(program.engine);
    return false;
  }

  ApplyStoredPlacement(window, *program.settings);
  ApplyStoredOptions(window, *program.settings);
  window.show();
  if (folders.logs.empty()) {
    window.outside().ShowMessage(
        "Varkesh",
        "Varkesh found no folder it may write its log files in, so this run keeps "
        "no logs.\n\nThe game plays as usual.");
  }
  return true;
}

void ShutDown(Program& program) {
  program.window->EndNetPlay();
  program.pack.ClosePack();
  program.gdi->ShutdownGraphics();
  ShutdownGeneralEngine(program.engine);

  MainWindow& window = *program.window;
  // The place of the normal window is kept, even when it was maximized.
  const QRect normal =
      window.normalGeometry().isValid() ? window.normalGeometry() : window.geometry();
  WriteWindowPlacement(*program.settings, "Main", normal.top(), normal.left(), normal.height(),
                       normal.width(), window.isMaximized() ? kMaximized : 0);
  WriteOptionMarks(*program.settings, MarksOf(window));
}

}  // namespace varkesh
