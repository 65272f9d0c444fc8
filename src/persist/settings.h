// The user's display choices and window places, kept in the per-user store
// under the section "Settings". Nothing about a game is kept here.
#pragma once

#include <QSettings>
#include <memory>
#include <optional>
#include <string>

namespace varkesh {

// Keys compare without regard to case: "Mainleft" reads what "MainLeft" wrote.
class SettingsStore {
 public:
  // The store of this user for the program.
  SettingsStore();
  // A store in an INI file of its own, as tests use.
  explicit SettingsStore(const std::string& filePath);

  // "" when the key is missing.
  std::string Read(const std::string& key) const;
  void Write(const std::string& key, const std::string& value);

 private:
  std::optional<QString> StoredKey(const std::string& key) const;

  std::unique_ptr<QSettings> settings_;
};

// Place and state of a window; each part is present only if it was stored.
struct WindowPlacement {
  std::optional<int> top, left, height, width;
  std::optional<int> state;  // 0 normal, 2 maximized
};

// The check marks of the Options and History menus. The defaults are those
// the main window starts with.
struct OptionMarks {
  bool sfx = true;
  bool indicator = true;
  bool showComp = true;
  bool hints = true;
  int history = 0;  // 0, 1 or 3: which of the History entries is checked
  // The army turned to the bottom: "White" ... "Red", "Mine", or "" unchosen.
  std::string turnBoard;
  // The Master's time a move in milliseconds; 0 when never chosen.
  int thinkingTimeMs = 0;
};

// prefix "Main" or "Chat": keys prefix + "Top", "Left", "Height", "Width", "Window".
WindowPlacement ReadWindowPlacement(const SettingsStore& store, const std::string& prefix);
// Writes the state first, then the place of the normal window.
void WriteWindowPlacement(SettingsStore& store, const std::string& prefix, int top, int left,
                          int height, int width, int state);

// A missing value keeps the default of marks.
OptionMarks ReadOptionMarks(const SettingsStore& store, OptionMarks marks = {});
void WriteOptionMarks(SettingsStore& store, const OptionMarks& marks);

// True on the first run of this user; marks the run as done.
bool TakeFirstRun(SettingsStore& store);

// The numeric value of a stored text: its leading number, 0 when there is none.
double NumericValue(const std::string& text);

}  // namespace varkesh
