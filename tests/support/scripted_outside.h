// An Outside with scripted answers and a record of everything shown, for the
// tests. Every queue is used front first; when a queue is empty the answer is
// the default named beside it.
#pragma once

#include <deque>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/outside.h"
#include "engine/general_engine.h"
#include "persist/private_pack.h"

namespace varkesh {

class ScriptedOutside : public Outside, public NetLink {
 public:
  struct Message {
    std::string title;
    std::string text;
    bool question = false;  // a Yes/No box rather than an OK box
  };
  struct Sent {
    bool toAll = false;  // SendToAll: node is the skipped node; else the client
    int node = 0;
    std::string message;
  };
  struct NewGameRequest {
    PerTeam<int> lastPlayers{};
    std::string proposedName;
  };

  ScriptedOutside();
  ~ScriptedOutside() override;

  // Scripted answers.
  std::deque<bool> yesNoAnswers;                  // empty: Yes
  std::deque<NewGameChoice> newGameChoices;       // empty: not accepted
  std::deque<int> pawnOptionPicks;                // empty: -1, closed without a choice
  std::deque<int> concedePicks;                   // empty: the first offered team
  std::deque<std::string> loadPaths;              // empty: "" (cancelled)
  std::deque<std::string> savePaths;              // empty: "" (cancelled)
  std::map<std::string, std::string> entryPaths;  // pack entries served without the pack

  // What the logic showed, in order.
  std::vector<Message> messages;
  std::vector<NewGameRequest> newGameDialogs;
  std::vector<std::vector<std::string>> pawnOptionDialogs;
  std::vector<std::vector<int>> concedeDialogs;
  std::string turnLabel;
  std::string pieceLabel;
  std::string gameDescription;
  bool pauseButtonVisible = false;
  std::vector<std::string> sounds;
  std::vector<Sent> sent;

  // The clock: Now() reads it, every Yield() moves it on by yieldStep.
  double clock = 0.0;
  double yieldStep = 0.05;
  int yieldCount = 0;

  GeneralEngine engine;  // appPath "" and log level 0 unless set

  // Menus as the window starts: everything enabled but the Resign menu; the
  // four options and History0 checked.
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
  void PlaySound(const std::string& entry) override;
  // From entryPaths, else from <appPath>r.opk, opened on first use and
  // extracted into a temporary folder that goes with this object.
  std::string ExtractEntry(const std::string& entry) override;
  // Records what is sent while no session has attached a link of its own.
  void SendToAll(const std::string& message, int skipNode) override;
  void SendToClient(int node, const std::string& message) override;
  void Yield() override;
  double Now() override;
  GeneralEngine& Engine() override;

 private:
  std::map<Menu, bool> enabled_;
  std::map<Menu, bool> checked_;
  PrivatePack pack_{"varkesh-scripted-"};
};

}  // namespace varkesh
