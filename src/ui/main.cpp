#include <QApplication>
#include <cstdio>

#include "persist/command_line.h"
#include "persist/user_folders.h"
#include "ui/program_loop.h"
#include "ui/startup.h"
#include "ui/stop_signal.h"

int main(int argc, char** argv) {
  // Answered before any window system is asked for, so they work anywhere.
  const varkesh::CommandLine commandLine = varkesh::ParseCommandLine(argc, argv);
  if (!commandLine.error.empty()) {
    std::fprintf(stderr, "varkesh: %s\n%s", commandLine.error.c_str(),
                 varkesh::CommandLineUsage("varkesh").c_str());
    return 2;
  }
  if (commandLine.showHelp) {
    std::fputs(varkesh::CommandLineUsage("varkesh").c_str(), stdout);
    return 0;
  }
  if (commandLine.showVersion) {
    std::puts("varkesh " VARKESH_VERSION);
    return 0;
  }

  QApplication app(argc, argv);
  QApplication::setApplicationName("varkesh");
  QApplication::setApplicationVersion(VARKESH_VERSION);
  QGuiApplication::setDesktopFileName("varkesh");
  // The run ends through the main loop, which stores the settings first.
  QApplication::setQuitOnLastWindowClosed(false);
  varkesh::CatchStopSignals();

  varkesh::Program program;
  const std::string appPath = varkesh::ProgramDataFolder(varkesh::ExecutableFolder());
  if (!varkesh::StartUp(program, commandLine, appPath)) return 1;
  varkesh::BeginRun(program, commandLine);

  varkesh::ProgramLoop loop(program);
  // exit, not quit: quit would ask the window to close once more, and a stop
  // by signal comes while the window still stands.
  QObject::connect(&loop, &varkesh::ProgramLoop::Ended, &app, [] { QCoreApplication::exit(0); });
  loop.Start();
  return app.exec();
}
