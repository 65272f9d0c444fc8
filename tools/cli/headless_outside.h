// The Outside of varkesh-cli: no window. Dialogs take the answers that the
// command put in their queues (when a queue is empty, the default beside it);
// a program with events to serve (the NetPlay node) hooks in its printer and
// its event loop.
#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/outside.h"
#include "engine/general_engine.h"
#include "persist/private_pack.h"

namespace varkesh {}

namespace varkesh::cli {

class HeadlessOutside : public Outside {
 public:
  HeadlessOutside();
  ~HeadlessOutside() override;
  HeadlessOutside(const HeadlessOutside&) = delete;
  HeadlessOutside& operator=(const HeadlessOutside&) = delete;

  std::deque<bool> yesNoAnswers;             // empty: Yes
  std::deque<NewGameChoice> newGameChoices;  // empty: not accepted
  std::deque<int> pawnOptionPicks;           // empty: closed without a choice
  std::deque<int> concedePicks;              // empty: the first team offered
  std::deque<std::string> loadPaths;         // empty: cancelled
  std::deque<std::string> savePaths;         // empty: cancelled

  // What the commands check afterwards.
  bool faultReported = false;  // the error handler showed its box
  std::vector<std::string> lastPawnOptions;
  std::string turnLabel;
  std::string gameDescription;

  // Each box and each change of the turn label or the game description, as
  // one line of text; unset, nothing is printed.
  std::function<void(const std::string&)> printEvent;
  // Serves pending events; unset, yielding does nothing.
  std::function<void()> serveEvents;

  GeneralEngine engine;

  bool IsMenuEnabled(Menu menu) const;
  void SetMenuChecked(Menu menu, bool checked);

  void ShowMessage(const std::string& title, const std::string& text) override;
  bool AskYesNo(const std::string& title, const std::string& text) override;
  NewGameChoice RunNewGameDialog(const PerTeam<int>& lastPlayers,
                                 const std::string& proposedName) override;
  // A pick beyond the lines offered closes the dialog without a choice.
  int RunPawnOptionsDialog(const std::vector<std::string>& lines) override;
  int RunConcedeDialog(const std::vector<int>& teams) override;
  std::string LoadFileDialog(const std::string& title, const std::string& filter,
                             const std::string& initialName) override;
  std::string SaveFileDialog(const std::string& title, const std::string& filter,
                             const std::string& initialName,
                             const std::string& defaultExtension) override;
  void SetTurnLabel(const std::string& text) override;
  void SetPieceLabel(const std::string& text) override;
  void SetGameDescription(const std::string& text) override;
  void SetMenuEnabled(Menu menu, bool enabled) override;
  bool IsMenuChecked(Menu menu) const override;
  void ShowPauseButton(bool visible) override;
  void PlaySound(const std::string& entry) override;
  // From <appPath>r.opk, opened on first use and extracted into a temporary
  // folder that goes with this object.
  std::string ExtractEntry(const std::string& entry) override;
  void Yield() override;
  double Now() override;
  GeneralEngine& Engine() override;

 private:
  void Print(const std::string& line) const;

  std::map<Menu, bool> enabled_;
  std::map<Menu, bool> checked_;
  PrivatePack pack_{"varkesh-cli-"};
};

}  // namespace varkesh::cli
