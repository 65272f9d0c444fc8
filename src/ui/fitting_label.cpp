#include "ui/fitting_label.h"

#include <QPainter>
#include <QStyle>
#include <algorithm>

namespace varkesh {
namespace {

constexpr int kMargin = 3;
constexpr qreal kSmallestPoints = 5.0;

}  // namespace

void FittingLabel::paintEvent(QPaintEvent* event) {
  const QRect room = contentsRect().adjusted(kMargin, 0, -kMargin, 0);
  const int needed = fontMetrics().horizontalAdvance(text());
  if (needed <= room.width() || room.width() <= 0) return QLabel::paintEvent(event);
  QFrame::paintEvent(event);  // the sunken frame
  QPainter painter(this);
  QFont smaller = font();
  const qreal points = smaller.pointSizeF() > 0 ? smaller.pointSizeF() : 9.0;
  smaller.setPointSizeF(std::max(kSmallestPoints, points * room.width() / needed));
  painter.setFont(smaller);
  painter.setPen(palette().color(foregroundRole()));
  painter.drawText(room, static_cast<int>(alignment()), text());
}

}  // namespace varkesh
