// The game logic's window on the desktop: message boxes, the dialogs, the
// labels and menus of the main window, sound, and the clock.
#pragma once

#include "flow/outside.h"

namespace varkesh {

class Documents;
class MainWindow;
class PackReader;
class SettingsStore;
class SoundPlayer;

// What the window and the logic use of the world beyond the window.
struct DesktopServices {
  GeneralEngine& engine;
  PackReader& pack;
  SoundPlayer& sound;
  Documents& documents;
  // Where the NetPlay window keeps its place; none in some tests.
  SettingsStore* settings = nullptr;
};

class QtOutside : public Outside {
 public:
  QtOutside(MainWindow& window, const DesktopServices& services)
      : window_(window), services_(services) {}

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
  int ThinkingTimeMs() const override;
  void PlaySound(const std::string& entry) override;
  std::string ExtractEntry(const std::string& entry) override;
  void Yield() override;
  double Now() override;
  GeneralEngine& Engine() override { return services_.engine; }

  // A file or web page, opened in the system's default application.
  void OpenDocument(const std::string& pathOrAddress);

 private:
  MainWindow& window_;
  DesktopServices services_;
};

}  // namespace varkesh
