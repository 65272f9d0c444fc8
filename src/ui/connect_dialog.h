// The small dialog before a NetPlay session: the player's name, the port and,
// when joining, the host's address.
#pragma once

#include <QDialog>
#include <string>

class QLabel;
class QLineEdit;
class QPushButton;

namespace varkesh {

struct Game;

// What the player typed, trimmed.
struct ConnectChoice {
  std::string playerName;
  int port = 0;             // a port that is no number is 0
  std::string hostAddress;  // empty when hosting
};

class ConnectDialog : public QDialog {
  Q_OBJECT

 public:
  // game.net.netRole tells hosting (1) from joining (3); cancel sets it back to 0.
  ConnectDialog(Game& game, QWidget* owner);

  ConnectChoice Choice() const;

 private:
  void UpdateConnectButton();
  bool Hosting() const;

  Game& game_;
  QLineEdit* name_ = nullptr;
  QLineEdit* port_ = nullptr;
  QLineEdit* address_ = nullptr;
  QPushButton* connect_ = nullptr;
};

// The number at the start of a typed text, 0 when it begins with none;
// too large a number saturates, as no port reaches that far anyway.
int LeadingNumber(const QString& text);

}  // namespace varkesh
