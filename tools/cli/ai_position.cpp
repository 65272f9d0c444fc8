#include "ai_position.h"

#include "ai/choice_ladder.h"

namespace varkesh::cli {

AiPosition ReadAiPosition(const Args& args, const std::string& usageLine) {
  const Options options = ParseOptions(args, {"personality"}, {}, usageLine);
  if (options.positional.size() != 1) Usage(usageLine);
  int requested = 0;
  if (options.Has("personality")) {
    requested = ParseInt(options.Value("personality"), usageLine);
    if (requested < kAggressive || requested > kDefensive) Usage(usageLine);
  }
  AiPosition position{ReadGameFile(options.positional[0]), 0, {}};
  position.personality =
      ResolvePersonality(position.game.match.position, position.game.match.setup, requested);
  if (position.personality == kHuman) Usage(usageLine);
  position.game.random = Random::Zero();
  return position;
}

}  // namespace varkesh::cli
