#include "ui/dialog_placement.h"

#include <QWidget>

namespace varkesh {

void CentreOnOwner(QWidget& dialog, const QWidget* owner) {
  if (owner == nullptr) return;
  dialog.adjustSize();
  const QRect frame = owner->window()->frameGeometry();
  dialog.move(frame.left() + frame.width() / 2 - dialog.width() / 2,
              frame.top() + frame.height() / 2 - dialog.height() / 2);
}

}  // namespace varkesh
