#include "ui/pawn_options_dialog.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace varkesh {

namespace {

constexpr int kFillDelayMs = 50;

QLabel* NamedLabel(const char* objectName, const char* text) {
  auto* label = new QLabel(text);
  label->setObjectName(objectName);
  return label;
}

}  // namespace

PawnOptionsDialog::PawnOptionsDialog(const QStringList& lines, QWidget* owner)
    : QDialog(owner), lines_(lines) {
  setWindowTitle("Pawn's Options");
  setModal(true);

  list_ = new QListWidget;
  list_->setObjectName("lstPawnOptions");
  list_->setSelectionMode(QAbstractItemView::SingleSelection);
  auto* select = new QPushButton("&Select");
  select->setObjectName("cmdSelect");
  select->setDefault(true);
  connect(select, &QPushButton::clicked, this, &PawnOptionsDialog::Select);

  auto* page = new QVBoxLayout(this);
  page->addWidget(NamedLabel("Label1", "A Pawn has made it into an enemy's Keep ..."));
  page->addWidget(NamedLabel("Label2", "Select one of the following options:"));
  page->addWidget(list_);
  page->addWidget(NamedLabel("Label3", "(Pieces to capture are listed from upper-left"));
  page->addWidget(NamedLabel("Label4", "to lower-right as they sit on the board.)"));
  page->addWidget(select, 0, Qt::AlignHCenter);

  fillTimer_ = new QTimer(this);
  fillTimer_->setObjectName("Timer1");
  fillTimer_->setSingleShot(true);
  fillTimer_->setInterval(kFillDelayMs);
  connect(fillTimer_, &QTimer::timeout, this, &PawnOptionsDialog::FillList);
}

void PawnOptionsDialog::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  // The list is filled once the dialog stands on the screen.
  if (!opened_) {
    opened_ = true;
    fillTimer_->start();
  }
}

void PawnOptionsDialog::FillList() {
  list_->clear();
  list_->addItems(lines_);
  if (list_->count() < 1) {
    reject();
    return;
  }
  list_->setCurrentRow(0);
  list_->setFocus();
}

void PawnOptionsDialog::Select() {
  const int row = list_->currentRow();
  if (row < 0) return;
  chosen_ = row;
  accept();
}

}  // namespace varkesh
