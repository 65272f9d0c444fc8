#include "flow/thinking_time.h"

#include <algorithm>

#include "ai/search/levels.h"

namespace varkesh {

std::string ThinkingTimeCaption(int ms) {
  const int whole = ms / 1000;
  const int tenths = ms % 1000 / 100;
  std::string text = std::to_string(whole);
  if (tenths != 0) text += "." + std::to_string(tenths);
  return text + (ms == 1000 ? " Second" : " Seconds");
}

int ThinkingTimeChoice(int storedMs) {
  const bool offered = std::find(kThinkingTimeChoicesMs.begin(), kThinkingTimeChoicesMs.end(),
                                 storedMs) != kThinkingTimeChoicesMs.end();
  return offered ? storedMs : kMasterMovetimeMs;
}

}  // namespace varkesh
