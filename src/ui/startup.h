// Bringing the program from nothing to a shown main window, and back.
#pragma once

#include <string>

#include "persist/command_line.h"
#include "ui/program.h"

namespace varkesh {

// The window, the engines, the pack, the pictures and the stored settings,
// then the window is shown. appPath is the program's folder, ending in '/'.
// False, after telling the player, when the game's pack cannot be opened.
bool StartUp(Program& program, const CommandLine& commandLine, const std::string& appPath);

// Frees the pack and the pictures, stops the engine, and stores the window's
// place and the menu options for the next run.
void ShutDown(Program& program);

}  // namespace varkesh
