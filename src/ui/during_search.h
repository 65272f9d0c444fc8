// What a menu command does while a searching level thinks on its worker.
#pragma once

namespace varkesh {

enum class DuringSearch {
  Run,      // at once: it leaves the game as it is
  AfterIt,  // once the computer has moved
  StopIt,   // the search stops, and the command runs as soon as it has
};

}  // namespace varkesh
