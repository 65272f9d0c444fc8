#include "ai/ai_log.h"

#include "engine/general_engine.h"

namespace varkesh {

AiLog OpenAiLog(GeneralEngine& engine) {
  if (engine.logLevel <= 2) return {};
  return {&engine, OpenLog(engine, LogFile(engine, "ai.log"), true)};
}

void WriteAiLog(const AiLog& log, const std::string& line) {
  if (log.On()) WriteLog(*log.engine, log.number, line, true);
}

void CloseAiLog(AiLog& log) {
  if (log.On()) CloseLog(*log.engine, log.number);
  log = {};
}

std::string TwoDigits(int number) {
  std::string text = std::to_string(number);
  return number >= 0 && number < 10 ? "0" + text : text;
}

}  // namespace varkesh
