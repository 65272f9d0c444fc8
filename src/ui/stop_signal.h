// Ends the run cleanly when the system asks the program to stop (SIGTERM at
// logout or shutdown, SIGINT from a terminal): the main loop sees the request
// at its next pass and shuts down as when the window closes.
#pragma once

namespace varkesh {

void CatchStopSignals();
bool StopSignalled();

}  // namespace varkesh
