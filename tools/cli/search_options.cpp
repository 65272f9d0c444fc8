#include "search_options.h"

#include "ai/search/levels.h"

namespace varkesh::cli {

int ParseLevelOption(const std::string& text, const std::string& usageLine) {
  const int level = ParseLevel(text);
  if (level == 0) Usage(usageLine);
  return level;
}

PerTeam<int> ParseSeatLevels(const std::string& text, const std::string& usageLine) {
  PerTeam<int> levels{};
  std::size_t count = 0, start = 0;
  while (true) {
    const std::size_t comma = text.find(',', start);
    if (count == levels.size()) Usage(usageLine);
    levels[count++] = ParseLevelOption(text.substr(start, comma - start), usageLine);
    if (comma == std::string::npos) break;
    start = comma + 1;
  }
  if (count != levels.size()) Usage(usageLine);
  return levels;
}

search::SearchLimits ParseLimits(const Options& options, const std::string& usageLine) {
  search::SearchLimits limits;
  if (options.Has("depth"))
    limits.depth = ParseBetween(options.Value("depth"), 1, search::kMaxDepth, usageLine);
  if (options.Has("nodes"))
    limits.nodes = static_cast<std::uint64_t>(
        ParseBetween(options.Value("nodes"), 1, 2'000'000'000, usageLine));
  if (options.Has("movetime"))
    limits.movetimeMs = ParseBetween(options.Value("movetime"), 1, 86'400'000, usageLine);
  return limits;
}

}  // namespace varkesh::cli
