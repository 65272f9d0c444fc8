// What bestmove and match share: a level by name or number, and the limits
// of a search from the command line.
#pragma once

#include <string>

#include "ai/search/search.h"
#include "cli.h"

namespace varkesh::cli {

// A level name in lower case or its number 1 to 4, or a usage error.
int ParseLevelOption(const std::string& text, const std::string& usageLine);

// Four levels "a,b,c,d", one a seat, or a usage error.
PerTeam<int> ParseSeatLevels(const std::string& text, const std::string& usageLine);

// --depth D, --nodes N and --movetime MS where given (each at least 1).
search::SearchLimits ParseLimits(const Options& options, const std::string& usageLine);

}  // namespace varkesh::cli
