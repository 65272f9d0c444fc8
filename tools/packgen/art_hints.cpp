// The three hints. Each is light on black: the game darkens the middle of
// the board with a grey AND and then ORs the hint over it.
#include <QPainter>

#include "art_common.h"

namespace varkesh::art {
namespace {

constexpr int kHintSize = 144;
const QColor kText(255, 244, 214);
const QColor kTitle(255, 204, 88);
const QColor kLine(200, 200, 200);

enum class Button { Left, Right };

void PaintMouse(QPainter& painter, const QPointF& top, Button pressed) {
  QRectF body(top.x() - 11, top.y(), 22, 32);
  painter.setPen(QPen(kLine, 1.5));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(body, 10, 10);
  QPainterPath half;
  bool left = pressed == Button::Left;
  half.moveTo(top.x(), top.y() + 1.5);
  half.lineTo(top.x(), top.y() + 13);
  half.lineTo(left ? body.left() + 1 : body.right() - 1, top.y() + 13);
  half.cubicTo(left ? body.left() + 1 : body.right() - 1, top.y() + 4,
               left ? body.left() + 6 : body.right() - 6, top.y() + 1.5, top.x(), top.y() + 1.5);
  painter.setPen(Qt::NoPen);
  painter.setBrush(kTitle);
  painter.drawPath(half);
  painter.setPen(QPen(kLine, 1.5));
  painter.drawLine(QPointF(top.x(), top.y()), QPointF(top.x(), top.y() + 13));
  painter.drawLine(QPointF(body.left(), top.y() + 13), QPointF(body.right(), top.y() + 13));
}

QImage Hint(const QString& title, const QString& text, Button pressed) {
  QImage hint = NewSheet(kHintSize, kHintSize, Qt::black);
  QPainter painter(&hint);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(kLine, 1));
  painter.drawRoundedRect(QRectF(3.5, 3.5, kHintSize - 7, kHintSize - 7), 8, 8);
  painter.setPen(kTitle);
  painter.setFont(ArtFont("DejaVu Sans", 13, true));
  painter.drawText(QRect(0, 10, kHintSize, 18), Qt::AlignHCenter, title);
  PaintMouse(painter, QPointF(kHintSize / 2.0, 34), pressed);
  painter.setPen(kText);
  painter.setFont(ArtFont("DejaVu Sans", 12, true));
  painter.drawText(QRect(10, 72, kHintSize - 20, 66), Qt::AlignHCenter | Qt::TextWordWrap, text);
  return hint;
}

}  // namespace
}  // namespace varkesh::art

std::vector<PackEntry> WriteHintArt(const QDir& out) {
  using namespace varkesh::art;
  return {
      SavePicture(out, Hint("Your turn", "Left-click a flashing piece to choose it", Button::Left),
                  "hintpiece"),
      SavePicture(out, Hint("Where to?", "Left-click a flashing square to aim there", Button::Left),
                  "hintmove"),
      SavePicture(out, Hint("Sure?", "Right-click the target to confirm the move", Button::Right),
                  "hintconfirm"),
  };
}
