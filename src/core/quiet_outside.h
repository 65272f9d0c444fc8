// An Outside that shows, plays and asks nothing: for playing a move on a
// copy of a game to see what it leads to, and for timing the logic alone.
#pragma once

#include "core/outside.h"
#include "engine/general_engine.h"

namespace varkesh {

class QuietOutside : public Outside {
 public:
  QuietOutside() { engine_.logsOff = true; }

  void ShowMessage(const std::string&, const std::string&) override {}
  bool AskYesNo(const std::string&, const std::string&) override { return false; }
  NewGameChoice RunNewGameDialog(const PerTeam<int>&, const std::string&) override { return {}; }
  int RunPawnOptionsDialog(const std::vector<std::string>&) override { return -1; }
  int RunConcedeDialog(const std::vector<int>&) override { return kNoTeam; }
  std::string LoadFileDialog(const std::string&, const std::string&, const std::string&) override {
    return {};
  }
  std::string SaveFileDialog(const std::string&, const std::string&, const std::string&,
                             const std::string&) override {
    return {};
  }
  void SetTurnLabel(const std::string&) override {}
  void SetPieceLabel(const std::string&) override {}
  void SetGameDescription(const std::string&) override {}
  void SetMenuEnabled(Menu, bool) override {}
  bool IsMenuChecked(Menu) const override { return false; }
  void ShowPauseButton(bool) override {}
  void PlaySound(const std::string&) override {}
  std::string ExtractEntry(const std::string&) override { return {}; }
  void Yield() override {}
  double Now() override { return 0.0; }
  GeneralEngine& Engine() override { return engine_; }

 private:
  GeneralEngine engine_;
};

}  // namespace varkesh
