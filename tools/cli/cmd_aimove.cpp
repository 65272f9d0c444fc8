#include <cstdio>

#include "ai/choice_ladder.h"
#include "ai_position.h"
#include "flow/thinking_outside.h"
#include "tool_outside.h"

namespace varkesh::cli {

int CmdAimove(const Args& args) {
  AiPosition position = ReadAiPosition(args, "aimove FILE [--personality P]");
  ToolOutside outside;
  ThinkingOutside thinking(outside);
  const AiChoice choice =
      ChooseAImove(position.game.match.position, position.game.match.setup, position.moves,
                   position.game.random, thinking, position.personality);
  if (choice.index == 0)
    std::printf("0 none\n");
  else
    std::printf("%d %s\n", choice.index, TierName(choice.tier));
  return 0;
}

}  // namespace varkesh::cli
