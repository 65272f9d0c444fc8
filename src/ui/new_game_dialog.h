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
  // lastLevels: the level each seat had, Classic when none is given.
  NewGameDialog(const PerTeam<int>& lastPlayers, const QString& proposedName, QWidget* owner,
                const PerTeam<int>& lastLevels = {});

  // What the players chose; accepted only after Start.
  NewGameChoice Choice() const;

 private:
  void NameEdited(const QString& text);

  QLineEdit* name_ = nullptr;
  std::array<QRadioButton*, 3> gameTypes_{};
  std::array<QRadioButton*, 3> rules_{};
  std::array<QComboBox*, kTeamCount> players_{};
  std::array<QComboBox*, kTeamCount> levels_{};
  QPushButton* start_ = nullptr;
};

}  // namespace varkesh
