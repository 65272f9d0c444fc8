// What the computer asks of its surroundings while it thinks: a label to
// show its progress, the events to serve meanwhile, and the logs.
#pragma once

#include <string>

namespace varkesh {

struct GeneralEngine;

class AiOutside {
 public:
  virtual ~AiOutside() = default;
  // The label that names the piece: the move weighed, or the progress.
  virtual void SetPieceLabel(const std::string& text) = 0;
  // Lets pending events run.
  virtual void Yield() = 0;
  // Program folder, log level and logs.
  virtual GeneralEngine& Engine() = 0;
};

}  // namespace varkesh
