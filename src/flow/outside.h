// What the game logic asks of the world around it, one interface a concern:
// boxes, dialogs, labels, menus, sound, the clock, the logs and the network.
#pragma once

#include <string>
#include <vector>

#include "core/setup.h"
#include "core/types.h"
#include "flow/net_link.h"

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
  // The level of each computer seat.
  PerTeam<int> levels = Setup{}.levels;
};

// Message boxes: an OK box, and a Yes/No question (true for Yes).
class Boxes {
 public:
  virtual ~Boxes() = default;
  virtual void ShowMessage(const std::string& title, const std::string& text) = 0;
  virtual bool AskYesNo(const std::string& title, const std::string& text) = 0;
};

// The dialogs show only what the logic computed and return the pick.
class Dialogs {
 public:
  virtual ~Dialogs() = default;
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
};

// Labels of the main window; each is repainted at once.
class Labels {
 public:
  virtual ~Labels() = default;
  virtual void SetTurnLabel(const std::string& text) = 0;
  virtual void SetPieceLabel(const std::string& text) = 0;
  virtual void SetGameDescription(const std::string& text) = 0;
};

// Menus and the pause button.
class Menus {
 public:
  virtual ~Menus() = default;
  virtual void SetMenuEnabled(Menu menu, bool enabled) = 0;
  virtual bool IsMenuChecked(Menu menu) const = 0;
  virtual void ShowPauseButton(bool visible) = 0;
  // The Master's time a move in milliseconds, as the player set it; 0 for
  // the level's own default.
  virtual int ThinkingTimeMs() const { return 0; }
};

// The pack's sounds and entries.
class Sounds {
 public:
  virtual ~Sounds() = default;
  // Plays a sound of the pack by its entry name, without waiting.
  virtual void PlaySound(const std::string& entry) = 0;
  // Path of a file that holds the pack entry.
  virtual std::string ExtractEntry(const std::string& entry) = 0;
};

// Time, and the events that run while the logic waits.
class Clock {
 public:
  virtual ~Clock() = default;
  // Lets pending events run.
  virtual void Yield() = 0;
  // Seconds since the program started.
  virtual double Now() = 0;
};

// All of the above, as the main loop needs them; each procedure asks only
// for the part it uses. The desktop program implements it with Qt, the
// command-line tool with answers from its commands, the tests with a fake.
class Outside : public Boxes,
                public Dialogs,
                public Labels,
                public Menus,
                public Sounds,
                public Clock {
 public:
  // Program folder, log level and logs.
  virtual GeneralEngine& Engine() = 0;

  // NetPlay: the link of the open session, or none.
  void AttachNetLink(NetLink* link) { netLink_ = link; }
  NetLink* Link() const { return netLink_; }

 private:
  NetLink* netLink_ = nullptr;
};

// Plays a pack sound if the player wants sound effects.
inline void PlaySfx(Menus& menus, Sounds& sounds, const std::string& entry) {
  if (menus.IsMenuChecked(Menu::OptionsSfx)) sounds.PlaySound(entry);
}
inline void PlaySfx(Outside& outside, const std::string& entry) {
  PlaySfx(outside, outside, entry);
}

}  // namespace varkesh
