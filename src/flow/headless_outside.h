// An Outside without a window. Dialogs take their answers from queues, used
// front first (an empty queue gives the default named beside it); boxes,
// dialogs, labels and sounds are noted, and with a printer hooked in each box
// and each new label is printed as a line. The command-line tool plays
// through it; the tests script it and look at what it noted.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "engine/general_engine.h"
#include "flow/outside.h"
#include "persist/private_pack.h"

namespace varkesh {

class HeadlessOutside : public Outside {
 public:
  struct Box {
    std::string title;
    std::string text;
    bool question = false;  // a Yes/No box rather than an OK box
  };
  struct NewGameRequest {
    PerTeam<int> lastPlayers{};
    std::string proposedName;
  };

  // The menus as the window starts them: everything enabled but Resign,
  // and the given entries checked.
  explicit HeadlessOutside(std::vector<Menu> checked);
  ~HeadlessOutside() override;
  HeadlessOutside(const HeadlessOutside&) = delete;
  HeadlessOutside& operator=(const HeadlessOutside&) = delete;

  // Answers.
  std::deque<bool> yesNoAnswers;                  // empty: Yes
  std::deque<NewGameChoice> newGameChoices;       // empty: not accepted
  std::deque<int> pawnOptionPicks;                // empty, or beyond the lines: closed
  std::deque<int> concedePicks;                   // empty: the first team offered
  std::deque<std::string> loadPaths;              // empty: cancelled
  std::deque<std::string> savePaths;              // empty: cancelled
  std::map<std::string, std::string> entryPaths;  // pack entries served without the pack

  // What the logic showed, in order.
  std::vector<Box> boxes;
  std::vector<NewGameRequest> newGameDialogs;
  std::vector<std::vector<std::string>> pawnOptionDialogs;
  std::vector<std::vector<int>> concedeDialogs;
  std::vector<std::string> sounds;
  std::string turnLabel;
  std::string pieceLabel;
  std::string gameDescription;
  bool pauseButtonVisible = false;
  bool faultReported = false;  // the error handler showed its box
  // The Master's time a move; 0 for the level's default.
  int thinkingTimeMs = 0;

  // Each box and each change of the turn label or the game description, as
  // one line of text; unset, nothing is printed.
  std::function<void(const std::string&)> printEvent;
  // Serves pending events on each Yield; unset, nothing runs.
  std::function<void()> serveEvents;

  // The clock: the engine's own, or, with a manual clock, a number that
  // each Yield moves on by yieldStep.
  bool manualClock = false;
  double clock = 0.0;
  double yieldStep = 0.05;
  int yieldCount = 0;

  GeneralEngine engine;

  bool IsMenuEnabled(Menu menu) const;
  void SetMenuChecked(Menu menu, bool checked);

  void ShowMessage(const std::string& title, const std::string& text) override;
  bool AskYesNo(const std::string& title, const std::string& text) override;
  NewGameChoice RunNewGameDialog(const PerTeam<int>& lastPlayers,
                                 const std::string& proposedName) override;
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
  int ThinkingTimeMs() const override { return thinkingTimeMs; }
  void PlaySound(const std::string& entry) override;
  // From entryPaths, else from <appPath>r.opk, opened on first use and
  // extracted into a temporary folder that goes with this object.
  std::string ExtractEntry(const std::string& entry) override;
  void Yield() override;
  double Now() override;
  GeneralEngine& Engine() override;

 private:
  void Print(const std::string& line) const;

  std::map<Menu, bool> enabled_;
  std::map<Menu, bool> checked_;
  PrivatePack pack_{"varkesh-headless-"};
};

}  // namespace varkesh
