#include "ui/concede_dialog.h"

#include <QCloseEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>

#include "flow/game.h"

namespace varkesh {

namespace {

constexpr int kTeamButtons = 3;

}  // namespace

ConcedeDialog::ConcedeDialog(const std::vector<int>& teams, QWidget* owner)
    : QDialog(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
  setWindowTitle("Team to Concede To");
  setModal(true);

  auto* page = new QVBoxLayout(this);
  const std::array<const char*, 4> lines = {
      "In a \"Kingdom Gained\" game, you must", "pick the team you wish to concede to when",
      "when resigning ... they will gain control", "over your remaining pieces ..."};
  for (std::size_t i = 0; i < lines.size(); ++i) {
    auto* label = new QLabel(lines[i]);
    label->setObjectName("Label" + QString::number(i + 1));
    page->addWidget(label);
  }

  for (int i = 0; i < kTeamButtons; ++i) {
    auto* button = new QPushButton;
    button->setObjectName("cmdConcedeTeam" + QString::number(i));
    page->addWidget(button);
    if (i >= static_cast<int>(teams.size())) {
      button->hide();
      continue;
    }
    const int team = teams[static_cast<std::size_t>(i)];
    button->setText(QString("&%1 - Concede to %2").arg(i + 1).arg(TeamName(team)));
    button->setProperty("team", team);
    connect(button, &QPushButton::clicked, this, [this, team] {
      concedeTeam_ = team;
      accept();
    });
  }

  auto* withdraw = new QPushButton("&Withdraw Resignation");
  withdraw->setObjectName("cmdWithdraw");
  connect(withdraw, &QPushButton::clicked, this, [this] {
    concedeTeam_ = 0;
    accept();
  });
  page->addWidget(withdraw);
  page->setSizeConstraint(QLayout::SetFixedSize);
}

void ConcedeDialog::closeEvent(QCloseEvent* event) {
  event->ignore();
}

}  // namespace varkesh
