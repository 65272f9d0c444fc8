#include "ui/new_game_dialog.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/setup.h"

namespace varkesh {

namespace {

QGroupBox* OptionGroup(const QString& objectName, const QString& title,
                       const std::array<const char*, 3>& texts,
                       std::array<QRadioButton*, 3>& buttons, const QString& buttonName) {
  auto* group = new QGroupBox(title);
  group->setObjectName(objectName);
  auto* column = new QVBoxLayout(group);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    buttons[i] = new QRadioButton(QString::fromUtf8(texts[i]));
    buttons[i]->setObjectName(buttonName + QString::number(i));
    column->addWidget(buttons[i]);
  }
  buttons[0]->setChecked(true);
  return group;
}

int CheckedIndex(const std::array<QRadioButton*, 3>& buttons) {
  for (std::size_t i = 0; i < buttons.size(); ++i)
    if (buttons[i]->isChecked()) return static_cast<int>(i);
  return 0;
}

}  // namespace

NewGameDialog::NewGameDialog(const PerTeam<int>& lastPlayers, const QString& proposedName,
                             QWidget* owner, const PerTeam<int>& lastLevels)
    : QDialog(owner) {
  setWindowTitle("Varkesh: New Game");
  setModal(true);

  auto* nameLabel = new QLabel("Na&me:");
  nameLabel->setObjectName("lblGameName");
  name_ = new QLineEdit(proposedName);
  name_->setObjectName("txtGameName");
  nameLabel->setBuddy(name_);
  name_->selectAll();
  connect(name_, &QLineEdit::textEdited, this, &NewGameDialog::NameEdited);
  connect(name_, &QLineEdit::textChanged, this,
          [this](const QString& text) { start_->setEnabled(!text.trimmed().isEmpty()); });

  auto* nameRow = new QHBoxLayout;
  nameRow->addWidget(nameLabel);
  nameRow->addWidget(name_, 1);

  QGroupBox* alliance = OptionGroup("fraAlliance", "Type of Game",
                                    {"Allied &Neighbors", "C&rossroad Allies", "&Anarchy"},
                                    gameTypes_, "optGameType");
  QGroupBox* kingCapture = OptionGroup("fraKingCapture", "Captured King Results",
                                       {"Kingdom &Gained", "Kingdom L&ost", "Kingdom Fro&zen"},
                                       rules_, "optKingCapture");
  auto* options = new QHBoxLayout;
  options->addWidget(alliance);
  options->addWidget(kingCapture);

  auto* playersBox = new QGroupBox("Player Setup");
  playersBox->setObjectName("fraPlayers");
  auto* playerGrid = new QGridLayout(playersBox);
  const std::array<const char*, kTeamCount> playerLabels = {
      "&White Player:", "&Blue Player:", "Blac&k Player:", "Re&d Player:"};
  for (int i = 0; i < kTeamCount; ++i) {
    const auto at = static_cast<std::size_t>(i);
    auto* label = new QLabel(playerLabels[at]);
    label->setObjectName("lblPlayer" + QString::number(i));
    players_[at] = new QComboBox;
    players_[at]->setObjectName("cmbPlayer" + QString::number(i));
    players_[at]->addItems(
        {"Human", "Computer - Aggressive", "Computer - Balanced", "Computer - Defensive"});
    const int last = lastPlayers[at];
    players_[at]->setCurrentIndex(last >= kHuman && last <= kDefensive ? last : kHuman);
    label->setBuddy(players_[at]);
    playerGrid->addWidget(label, i, 0);
    playerGrid->addWidget(players_[at], i, 1);
    // How strongly a computer seat plays; a human seat has no level.
    levels_[at] = new QComboBox;
    levels_[at]->setObjectName("cmbLevel" + QString::number(i));
    for (int level = kLevelClassic; level <= kLevelMaster; ++level)
      levels_[at]->addItem(LevelName(level));
    const int lastLevel = lastLevels[at];
    levels_[at]->setCurrentIndex(
        (lastLevel >= kLevelClassic && lastLevel <= kLevelMaster ? lastLevel : kLevelClassic) -
        kLevelClassic);
    levels_[at]->setEnabled(players_[at]->currentIndex() != kHuman);
    QComboBox* level = levels_[at];
    connect(players_[at], &QComboBox::currentIndexChanged, level,
            [level](int kind) { level->setEnabled(kind != kHuman); });
    playerGrid->addWidget(levels_[at], i, 2);
  }

  start_ = new QPushButton("&Start New Game");
  start_->setEnabled(!proposedName.trimmed().isEmpty());
  start_->setObjectName("cmdStart");
  start_->setDefault(true);
  auto* cancel = new QPushButton("&Cancel");
  cancel->setObjectName("cmdCancel");
  connect(start_, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(start_);
  buttons->addWidget(cancel);

  auto* page = new QVBoxLayout(this);
  page->addLayout(nameRow);
  page->addLayout(options);
  page->addWidget(playersBox);
  page->addLayout(buttons);
  page->setSizeConstraint(QLayout::SetFixedSize);
}

void NewGameDialog::NameEdited(const QString& text) {
  // A saved game keeps the name between double quotes with no escape, so a
  // quote typed or pasted into the name is dropped where it lands.
  if (text.contains('"')) {
    const int cursor = name_->cursorPosition();
    const int before = static_cast<int>(text.left(cursor).count('"'));
    QString cleaned = text;
    cleaned.remove('"');
    name_->setText(cleaned);
    name_->setCursorPosition(cursor - before);
  }
}

NewGameChoice NewGameDialog::Choice() const {
  NewGameChoice choice;
  choice.accepted = result() == QDialog::Accepted;
  choice.name = name_->text().trimmed().toStdString();
  choice.gameType = CheckedIndex(gameTypes_) + 1;
  choice.kingCaptureRule = CheckedIndex(rules_) + 1;
  for (std::size_t i = 0; i < players_.size(); ++i) {
    choice.players[i] = players_[i]->currentIndex();
    choice.levels[i] = levels_[i]->currentIndex() + kLevelClassic;
  }
  return choice;
}

}  // namespace varkesh
