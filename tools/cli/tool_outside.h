// The outside of varkesh-cli: no window, and nothing waits for the eye: the
// computer's moves are not previewed, and no sound plays.
#pragma once

#include "flow/headless_outside.h"

namespace varkesh::cli {

class ToolOutside : public HeadlessOutside {
 public:
  ToolOutside() : HeadlessOutside({Menu::OptionIndicator, Menu::OptionsHints, Menu::History0}) {}
};

}  // namespace varkesh::cli
