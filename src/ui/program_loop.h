// The program's main loop: one pass of the game after another, with the
// window's events handled in between, until the player quits.
#pragma once

#include <QObject>
#include <QTimer>

#include "persist/command_line.h"
#include "ui/board_fit.h"
#include "ui/program.h"

namespace varkesh {

// What comes between StartUp and the first pass: the frame rate label, a
// saved game named on the command line, and the ReadMe on the first run.
void BeginRun(Program& program, const CommandLine& commandLine);

class ProgramLoop : public QObject {
  Q_OBJECT

 public:
  explicit ProgramLoop(Program& program);

  // The first pass comes once the event loop runs.
  void Start();

 signals:
  // ShutDown is done; the program may end.
  void Ended();

 private:
  void Tick();
  void End();

  Program& program_;
  // Restarted after each pass: events are handled in between, and the
  // pause before the next pass is the loop's sleep. A pass never runs inside
  // another, even when it waits in a dialog or lets events run.
  QTimer pace_;
  BoardFit fit_;
};

}  // namespace varkesh
