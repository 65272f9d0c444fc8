// "ai.log": one framed block of the computer's reasoning a turn, written
// only from log level 3. When the level is lower nothing is opened and
// no line text is ever built.
#pragma once

#include <string>

namespace varkesh {

struct GeneralEngine;

struct AiLog {
  GeneralEngine* engine = nullptr;  // null while the log is off
  int number = 0;
  bool On() const { return engine != nullptr; }
};

// Opens the log for one turn, appending, when the log level is above 2.
AiLog OpenAiLog(GeneralEngine& engine);
void WriteAiLog(const AiLog& log, const std::string& line);
void CloseAiLog(AiLog& log);

// A move number as the log writes it: at least two digits.
std::string TwoDigits(int number);

}  // namespace varkesh
