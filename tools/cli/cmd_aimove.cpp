#include <cstdio>

#include "ai/choice_ladder.h"
#include "ai_position.h"
#include "headless_outside.h"

namespace varkesh::cli {

int CmdAimove(const Args& args) {
  AiPosition position = ReadAiPosition(args, "aimove FILE [--personality P]");
  HeadlessOutside outside;
  const AiChoice choice = ChooseAImove(position.game, outside, position.personality);
  if (choice.index == 0)
    std::printf("0 none\n");
  else
    std::printf("%d %s\n", choice.index, TierName(choice.tier));
  return 0;
}

}  // namespace varkesh::cli
