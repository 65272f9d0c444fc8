// The one way every procedure of substance reports an unexpected fault:
// a block in "error_main.log", the "Varkesh Error" box, and the program goes on.
#pragma once

#include <exception>
#include <string>

#include "engine/general_engine.h"
#include "flow/outside.h"

namespace varkesh {

// Appends the framed block of a fault to the log file fileName of the
// program's log folder; an empty module leaves out the "Module = " line.
void AppendErrorBlock(GeneralEngine& engine, const std::string& fileName, const std::string& module,
                      const std::string& sub, int errNum, const std::string& description);

void ReportError(Outside& outside, const std::string& module, const std::string& sub, int errNum,
                 const std::string& description);

// Runs body; a fault escaping it is reported under module and sub.
template <class Body>
void Guarded(Outside& outside, const char* module, const char* sub, Body&& body) {
  try {
    body();
  } catch (const std::exception& error) {
    ReportError(outside, module, sub, 1, error.what());
  } catch (...) {
    ReportError(outside, module, sub, 1, "Unknown fault");
  }
}

}  // namespace varkesh
