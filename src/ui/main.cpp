#include <QApplication>

#include "persist/command_line.h"
#include "ui/program_loop.h"
#include "ui/startup.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  // The run ends through the main loop, which stores the settings first.
  QApplication::setQuitOnLastWindowClosed(false);
  const varkesh::CommandLine commandLine = varkesh::ParseCommandLine(argc, argv);

  varkesh::Program program;
  const std::string appPath = QCoreApplication::applicationDirPath().toStdString() + "/";
  if (!varkesh::StartUp(program, commandLine, appPath)) return 1;
  varkesh::BeginRun(program, commandLine);

  varkesh::ProgramLoop loop(program);
  QObject::connect(&loop, &varkesh::ProgramLoop::Ended, &app, &QCoreApplication::quit);
  loop.Start();
  return app.exec();
}
