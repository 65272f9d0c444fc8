// Under Kingdom Gained a resigning team names who gains its pieces, or
// withdraws the resignation. There is no other way out of this dialog.
#pragma once

#include <QDialog>
#include <vector>

namespace varkesh {

class ConcedeDialog : public QDialog {
  Q_OBJECT

 public:
  // teams: those that may receive the pieces, in the order of their numbers.
  ConcedeDialog(const std::vector<int>& teams, QWidget* owner);

  // The team conceded to, or 0 when the resignation was withdrawn.
  int ConcedeTeam() const { return concedeTeam_; }

  // Escape and the window's close button do nothing here.
  void reject() override {}

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  int concedeTeam_ = 0;
};

}  // namespace varkesh
