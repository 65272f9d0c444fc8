// The window as the computer sees it while it weighs its moves.
#pragma once

#include "ai/ai_outside.h"
#include "flow/outside.h"

namespace varkesh {

class ThinkingOutside : public AiOutside {
 public:
  explicit ThinkingOutside(Outside& outside) : outside_(outside) {}
  void SetPieceLabel(const std::string& text) override { outside_.SetPieceLabel(text); }
  void Yield() override { outside_.Yield(); }
  GeneralEngine& Engine() override { return outside_.Engine(); }

 private:
  Outside& outside_;
};

}  // namespace varkesh
