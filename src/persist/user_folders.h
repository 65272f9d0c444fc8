// The per-user folders where the program writes: its logs, its temporary
// files, and the player's saved games. What ships with the program stays in
// its own folder and is only read.
#pragma once

#include <string>

namespace varkesh {

struct UserFolders {
  std::string logs;       // ending in '/'; empty when no folder could be written
  std::string temp;       // ending in '/'; empty when no folder could be written
  std::string documents;  // ending in '/'; made when a dialog first needs it
};

// Finds the folders and creates the log and temporary ones. A folder that
// cannot be made or written is left empty, never a reason to stop.
UserFolders FindUserFolders();

// True when a file can be created in folder (which is made if missing).
bool CanWriteIn(const std::string& folder);

// Where the program's data lies, given the folder of its executable: beside
// it in a build, or in the shared data folder of an installed copy.
std::string ProgramDataFolder(const std::string& executableFolder);

// The folder of the running executable, ending in '/'.
std::string ExecutableFolder();

}  // namespace varkesh
