// The New Game dialog: alliances, the fate of a captured King's kingdom,
// who plays each team, and the game's name.
#pragma once

#include <QDialog>
#include <array>

#include "flow/outside.h"

class QComboBox;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace varkesh {

class NewGameDialog : public QDialog {
  Q_OBJECT

 public:
  NewGameDialog(const PerTeam<int>& lastPlayers, const QString& proposedName, QWidget* owner);

  // What the players chose; accepted only after Start.
  NewGameChoice Choice() const;

 private:
  void NameEdited(const QString& text);

  QLineEdit* name_ = nullptr;
  std::array<QRadioButton*, 3> gameTypes_{};
  std::array<QRadioButton*, 3> rules_{};
  std::array<QComboBox*, kTeamCount> players_{};
  QPushButton* start_ = nullptr;
};

}  // namespace varkesh
