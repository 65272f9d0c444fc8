#include "ui/connect_dialog.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <limits>

#include "flow/game.h"
#include "net/session.h"
#include "net/wire.h"

namespace varkesh {

namespace {

QLineEdit* NamedEdit(const char* objectName, const QString& text) {
  auto* edit = new QLineEdit(text);
  edit->setObjectName(objectName);
  return edit;
}

QLabel* NamedLabel(const char* objectName, const QString& text, QWidget* buddy) {
  auto* label = new QLabel(text);
  label->setObjectName(objectName);
  label->setBuddy(buddy);
  return label;
}

}  // namespace

int LeadingNumber(const QString& text) {
  long long value = 0;
  for (const QChar c : text) {
    if (!c.isDigit() || c.unicode() > '9') break;
    value = value * 10 + (c.unicode() - '0');
    if (value > std::numeric_limits<int>::max()) return std::numeric_limits<int>::max();
  }
  return static_cast<int>(value);
}

ConnectDialog::ConnectDialog(Game& game, QWidget* owner) : QDialog(owner), game_(game) {
  setObjectName("frmConnect");
  setWindowTitle("Varkesh (NetPlay)");
  setModal(true);

  auto* connectType = new QLabel(Hosting() ? "Hosting ..." : "Connecting ...");
  connectType->setObjectName("lblConnectType");
  name_ = NamedEdit("txtName", "");
  port_ = NamedEdit("txtPort", QString::number(net::kDefaultPort));
  address_ = NamedEdit("txtIP", net::kDefaultHost);

  auto* fields = new QGridLayout;
  fields->addWidget(NamedLabel("lblName", "Name:", name_), 0, 0);
  fields->addWidget(name_, 0, 1);
  fields->addWidget(NamedLabel("lblPort", "Port:", port_), 1, 0);
  fields->addWidget(port_, 1, 1);
  QLabel* addressLabel = NamedLabel("lblIP", "IP/Machine:", address_);
  fields->addWidget(addressLabel, 2, 0);
  fields->addWidget(address_, 2, 1);
  addressLabel->setVisible(!Hosting());
  address_->setVisible(!Hosting());
  name_->setMinimumWidth(180);
  // Longer names are cut where they reach the session anyway.
  name_->setMaxLength(static_cast<int>(net::kMaxNameCharacters));

  connect_ = new QPushButton("&Connect");
  connect_->setObjectName("cmdConnect");
  connect_->setDefault(true);
  connect_->setEnabled(false);
  auto* cancel = new QPushButton("&Cancel");
  cancel->setObjectName("cmdCancel");
  connect(connect_, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(this, &QDialog::rejected, this, [this] { game_.net.netRole = kNetNone; });
  for (QLineEdit* edit : {name_, port_, address_})
    connect(edit, &QLineEdit::textChanged, this, &ConnectDialog::UpdateConnectButton);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(connect_);
  buttons->addWidget(cancel);

  auto* page = new QVBoxLayout(this);
  page->addWidget(connectType);
  page->addLayout(fields);
  page->addLayout(buttons);
  page->setSizeConstraint(QLayout::SetFixedSize);
  name_->setFocus();
}

bool ConnectDialog::Hosting() const {
  return game_.net.netRole == kNetHostDialog;
}

void ConnectDialog::UpdateConnectButton() {
  connect_->setEnabled(!name_->text().trimmed().isEmpty() && !port_->text().trimmed().isEmpty() &&
                       (Hosting() || !address_->text().trimmed().isEmpty()));
}

ConnectChoice ConnectDialog::Choice() const {
  ConnectChoice choice;
  choice.playerName = name_->text().trimmed().toStdString();
  choice.port = LeadingNumber(port_->text().trimmed());
  if (!Hosting()) choice.hostAddress = address_->text().trimmed().toStdString();
  return choice;
}

}  // namespace varkesh
