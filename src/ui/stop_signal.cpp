#include "ui/stop_signal.h"

#include <csignal>

namespace varkesh {

namespace {

volatile std::sig_atomic_t stopSignalled = 0;

extern "C" void NoteStopSignal(int) {
  stopSignalled = 1;
}

}  // namespace

void CatchStopSignals() {
  std::signal(SIGTERM, NoteStopSignal);
  std::signal(SIGINT, NoteStopSignal);
}

bool StopSignalled() {
  return stopSignalled != 0;
}

}  // namespace varkesh
