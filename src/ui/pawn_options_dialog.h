// The choice of a pawn that has reached an enemy keep: a capture there or a
// freed prisoner. The lines come from the rules; the dialog only shows them.
#pragma once

#include <QDialog>
#include <QStringList>

class QListWidget;
class QTimer;

namespace varkesh {

class PawnOptionsDialog : public QDialog {
  Q_OBJECT

 public:
  PawnOptionsDialog(const QStringList& lines, QWidget* owner);

  // The line chosen with Select, or -1 when the dialog closed otherwise.
  int ChosenLine() const { return chosen_; }

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void FillList();
  void Select();

  QStringList lines_;
  QListWidget* list_ = nullptr;
  QTimer* fillTimer_ = nullptr;
  bool opened_ = false;
  int chosen_ = -1;
};

}  // namespace varkesh
