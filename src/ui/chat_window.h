// The NetPlay window: who is here, who plays each team, the chat, and on a
// host the seat and boot buttons. It shows what the session logic tells it
// and hands the buttons' clicks to that logic. It is not modal: the game
// goes on in the main window while it is open.
#pragma once

#include <QWidget>
#include <array>
#include <functional>
#include <string>

#include "flow/game.h"
#include "net/net_view.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTextEdit;

namespace varkesh {

class SettingsStore;

namespace net {
struct NetNode;
}

class ChatWindow : public QWidget, public net::NetView {
  Q_OBJECT

 public:
  // settings may be null: the window's place is then neither read nor kept.
  ChatWindow(Game& game, SettingsStore* settings, QWidget* owner);
  ~ChatWindow() override;

  // The session whose procedures the buttons call; set once the node exists.
  void Attach(net::NetNode* node) { node_ = node; }
  // On a client the seat buttons and Boot are hidden.
  void HideHostControls();
  // Closes without asking, as when the program ends.
  void CloseBySystem();

  void AppendChat(const std::vector<net::ChatRun>& runs, int cutChars) override;
  void SetNodeList(const std::vector<net::NodeLine>& lines, int selectNode) override;
  void SetSeatCaptions(const PerTeam<std::string>& captions) override;
  void SetChatEnabled(bool enabled) override;
  void SetHostControlsEnabled(bool enabled) override;

  // The node of the line selected in lstNodes, or -1 with none selected.
  int SelectedNode() const;

 signals:
  // The window has closed; the session is to end.
  void Closed();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void BuildSeatRows();
  void LayOutToSize();
  void RestorePlacement();
  void StorePlacement();
  // Runs a button's work; a fault goes to the NetPlay error block.
  void Guard(const char* sub, const std::function<void()>& body);
  void AssignClicked(int team);
  void ComputerClicked(int team, int personality);
  void LevelChosen(int team, int level);
  // Each seat's level box shows the game's level.
  void ShowLevels();
  void BootClicked();
  void ChatClicked();

  Game& game_;
  SettingsStore* settings_;
  net::NetNode* node_ = nullptr;
  bool closingBySystem_ = false;
  bool closed_ = false;
  // What the history box holds, in the "\r\n" lines the session counts in,
  // to turn a cut of the session's history into one of the box.
  std::string shownHistory_;

  QListWidget* nodes_ = nullptr;
  std::array<QLabel*, kTeamCount> playerNames_{};
  std::array<QPushButton*, kTeamCount> assign_{};
  std::array<std::array<QPushButton*, 3>, kTeamCount> computer_{};  // Agr, Bal, Def
  std::array<QComboBox*, kTeamCount> levels_{};
  QLabel* assignTitle_ = nullptr;
  QLabel* computerTitle_ = nullptr;
  QLabel* levelTitle_ = nullptr;
  bool hostControlsEnabled_ = true;
  QPushButton* boot_ = nullptr;
  QPushButton* exit_ = nullptr;
  QTextEdit* history_ = nullptr;
  QLineEdit* chat_ = nullptr;
  QPushButton* send_ = nullptr;
};

}  // namespace varkesh
