// Everything the game logic asks of the world around it: boxes, dialogs,
// labels, menus, sound, the network, yielding, the clock and the logs.
// The desktop program implements it with Qt, the command-line tool with
// answers from its commands, and the tests with a scripted fake.
#pragma once

#include <string>
#include <vector>

#include "core/net_link.h"
#include "core/types.h"

namespace varkesh {

struct GeneralEngine;

// Menu entries and menus whose state the logic reads or sets.
enum class Menu {
  Game,
  GameNew,
  GameLoad,
  GameSave,
  NetPlay,
  Options,
  OptionsSfx,
  OptionIndicator,
  OptionsShowComp,
  OptionsHints,
  History0,
  History1,
  History3,
  Resign,
  Help,
};

// What the new game dialog hands back.
struct NewGameChoice {
  bool accepted = false;
  int gameType = kAlliedNeighbors;
  int kingCaptureRule = kKingdomGained;
  PerTeam<int> players{};
  std::string name;
};

class Outside {
 public:
  virtual ~Outside() = default;

  // Message boxes: an OK box, and a Yes/No question (true for Yes).
  virtual void ShowMessage(const std::string& title, const std::string& text) = 0;
  virtual bool AskYesNo(const std::string& title, const std::string& text) = 0;

  // The three dialogs show only what the logic computed and return the pick.
  virtual NewGameChoice RunNewGameDialog(const PerTeam<int>& lastPlayers,
                                         const std::string& proposedName) = 0;
  // Index of the chosen line, or -1 when the dialog was closed without a choice.
  virtual int RunPawnOptionsDialog(const std::vector<std::string>& lines) = 0;
  // The team conceded to, or 0 when the resignation was withdrawn.
  virtual int RunConcedeDialog(const std::vector<int>& teams) = 0;

  // File dialogs; an empty result means cancelled.
  virtual std::string LoadFileDialog(const std::string& title, const std::string& filter,
                                     const std::string& initialName) = 0;
  virtual std::string SaveFileDialog(const std::string& title, const std::string& filter,
                                     const std::string& initialName,
                                     const std::string& defaultExtension) = 0;

  // Labels of the main window; each is repainted at once.
  virtual void SetTurnLabel(const std::string& text) = 0;
  virtual void SetPieceLabel(const std::string& text) = 0;
  virtual void SetGameDescription(const std::string& text) = 0;

  // Menus and the pause button.
  virtual void SetMenuEnabled(Menu menu, bool enabled) = 0;
  virtual bool IsMenuChecked(Menu menu) const = 0;
  virtual void ShowPauseButton(bool visible) = 0;

  // Plays a sound of the pack by its entry name, without waiting.
  virtual void PlaySound(const std::string& entry) = 0;
  // Path of a file that holds the pack entry.
  virtual std::string ExtractEntry(const std::string& entry) = 0;

  // NetPlay: through the link of the open session; nothing without one.
  void AttachNetLink(NetLink* link) { netLink_ = link; }
  NetLink* AttachedNetLink() const { return netLink_; }
  void SendToAll(const std::string& message, int skipNode) {
    if (netLink_) netLink_->SendToAll(message, skipNode);
  }
  void SendToClient(int node, const std::string& message) {
    if (netLink_) netLink_->SendToClient(node, message);
  }
  void GameEventDone() {
    if (netLink_) netLink_->OnGameEvent();
  }

  // Lets pending events run.
  virtual void Yield() = 0;
  // Seconds since the program started.
  virtual double Now() = 0;
  // Program folder, log level and logs.
  virtual GeneralEngine& Engine() = 0;

 private:
  NetLink* netLink_ = nullptr;
};

// Plays a pack sound if the player wants sound effects.
inline void PlaySfx(Outside& outside, const std::string& entry) {
  if (outside.IsMenuChecked(Menu::OptionsSfx)) outside.PlaySound(entry);
}

}  // namespace varkesh
