// A one-line label whose text is drawn smaller rather than cut off when the
// window is too narrow for it.
#pragma once

#include <QLabel>

namespace varkesh {

class FittingLabel : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace varkesh
