// The name the new game dialog proposes.
#pragma once

#include <string>

#include "engine/random.h"

namespace varkesh {

// Two words such as "Moat Keep"; never two that begin with the same four
// letters ("King's King").
std::string RandomGameName(Random& random);

}  // namespace varkesh
