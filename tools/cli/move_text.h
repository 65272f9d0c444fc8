// A move as the search commands write it: "8,13-8,11", with "/K" for pawn
// option line K and "/none" for the options closed without a choice.
#pragma once

#include <string>

#include "core/move.h"

namespace varkesh::cli {

std::string MoveText(const Move& move);

}  // namespace varkesh::cli
