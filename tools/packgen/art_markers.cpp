// The markers laid over squares: the move sheet with its path arrows and the
// frost of frozen pieces, and the frame that the strobe colours.
#include <QPainter>
#include <QTransform>
#include <cmath>

#include "art_common.h"

namespace varkesh::art {
namespace {

constexpr int kColumns = 12;
constexpr int kRows = 6;  // the masks, the four teams, the preview
constexpr int kFrostColumn = 3;
constexpr qreal kOutline = 1.0;

QPainterPath CornerBrackets() {
  QPainterPath path;
  constexpr qreal kArm = 11, kThick = 4, kIn = 2;
  constexpr qreal kFar = kCell - kIn;
  for (int corner = 0; corner < 4; ++corner) {
    bool right = corner % 2 == 1;
    bool bottom = corner >= 2;
    qreal x = right ? kFar - kThick : kIn;
    qreal y = bottom ? kFar - kThick : kIn;
    qreal armX = right ? kFar - kArm : kIn;
    qreal armY = bottom ? kFar - kArm : kIn;
    path.addRect(QRectF(armX, y, kArm, kThick));
    path.addRect(QRectF(x, armY, kThick, kArm));
  }
  return path.simplified();
}

QPainterPath Frame(qreal inset, qreal thickness) {
  QPainterPath path;
  path.addRoundedRect(QRectF(inset, inset, kCell - 2 * inset, kCell - 2 * inset), 5, 5);
  QPainterPath hole;
  qreal inner = inset + thickness;
  hole.addRoundedRect(QRectF(inner, inner, kCell - 2 * inner, kCell - 2 * inner), 3, 3);
  return path.subtracted(hole);
}

// A frame with four teeth biting inward from the middles of its sides,
// like the marks of a sight.
QPainterPath CaptureFrame() {
  // The teeth stand in the frame's hole, touching it, so the odd-even fill
  // of the plain sum draws them solid.
  constexpr qreal kInset = 2, kThickness = 3;
  QPainterPath path = Frame(kInset, kThickness);
  constexpr qreal kMiddle = kCell / 2.0, kHalfWidth = 3.5, kDepth = 4.5;
  constexpr qreal kEdge = kInset + kThickness;
  for (int side = 0; side < 4; ++side) {
    QPainterPath tooth;
    tooth.moveTo(kMiddle - kHalfWidth, kEdge);
    tooth.lineTo(kMiddle + kHalfWidth, kEdge);
    tooth.lineTo(kMiddle, kEdge + kDepth);
    tooth.closeSubpath();
    QTransform turn =
        QTransform::fromTranslate(kMiddle, kMiddle).rotate(90 * side).translate(-kMiddle, -kMiddle);
    path.addPath(turn.map(tooth));
  }
  return path;
}

// An arrow through the cell's centre, pointing right before it is turned.
QPainterPath StepArrow(qreal degrees) {
  QPainterPath arrow;
  arrow.moveTo(-8, -2.5);
  arrow.lineTo(1, -2.5);
  arrow.lineTo(1, -7);
  arrow.lineTo(9, 0);
  arrow.lineTo(1, 7);
  arrow.lineTo(1, 2.5);
  arrow.lineTo(-8, 2.5);
  arrow.closeSubpath();
  QTransform turn = QTransform::fromTranslate(kCell / 2.0, kCell / 2.0).rotate(degrees);
  return turn.map(arrow);
}

// Columns 4 to 11: left, right, up, down, up-right, down-left, up-left, down-right.
constexpr qreal kStepDegrees[] = {180, 0, 270, 90, 315, 135, 225, 45};

QPainterPath MarkerShape(int column) {
  switch (column) {
    case 0:
      return CornerBrackets();
    case 1:
      return Frame(2, 4);
    case 2:
      return CaptureFrame();
    default:
      return StepArrow(kStepDegrees[column - 4]);
  }
}

QColor RowColour(int row) {
  return row <= kTeams ? PaletteOf(row).body : QColor(255, 204, 48);
}

QColor RowOutline(int row) {
  if (row == 3) return PaletteOf(3).rim;  // black markers need a light edge
  return QColor(20, 16, 12);
}

// Ice over the piece's disc: a sparse dither lets the piece show through,
// and a rim of rime with a few crystals lies solid on its edge.
void PaintFrost(QImage& sheet, const QRect& cell, const QColor& ice, bool mask) {
  QPainter painter(&sheet);
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setBrushOrigin(cell.topLeft());
  QColor colour = mask ? QColor(Qt::black) : ice;
  QPointF centre = QPointF(cell.topLeft()) + QPointF(17, 17);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QBrush(colour, Qt::Dense5Pattern));
  painter.drawEllipse(centre, 14.5, 14.5);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(colour, 1));
  painter.drawEllipse(centre, 14.5, 14.5);
  for (int crystal = 0; crystal < 4; ++crystal) {
    qreal angle = crystal * M_PI / 2 + M_PI / 4;
    QPointF at = centre + QPointF(std::cos(angle), std::sin(angle)) * 13;
    painter.drawLine(at - QPointF(3, 0), at + QPointF(3, 0));
    painter.drawLine(at - QPointF(0, 3), at + QPointF(0, 3));
    painter.drawLine(at - QPointF(2, 2), at + QPointF(2, 2));
    painter.drawLine(at - QPointF(2, -2), at + QPointF(2, -2));
  }
}

QImage HistorySheet() {
  QImage sheet = NewSheet(kColumns * kCell, kRows * kCell, Qt::black);
  {
    QPainter clear(&sheet);
    clear.fillRect(QRect(0, 0, kColumns * kCell, kCell), Qt::white);
  }
  for (int column = 0; column < kColumns; ++column) {
    QRect maskCell(column * kCell, 0, kCell, kCell);
    if (column == kFrostColumn) {
      PaintFrost(sheet, maskCell, Qt::black, true);
      continue;
    }
    QPainterPath shape = MarkerShape(column).translated(maskCell.topLeft());
    PaintMaskShape(sheet, shape, kOutline);
  }
  const QImage masks = sheet.copy(0, 0, kColumns * kCell, kCell);
  for (int row = 1; row < kRows; ++row) {
    for (int column = 0; column < kColumns; ++column) {
      QRect cell(column * kCell, row * kCell, kCell, kCell);
      if (column == kFrostColumn) {
        PaintFrost(sheet, cell, QColor(200, 232, 255), false);
      } else {
        QPainterPath shape = MarkerShape(column).translated(cell.topLeft());
        PaintOutlinedShape(sheet, shape, RowColour(row), RowOutline(row), kOutline);
      }
      CutToMask(sheet, cell, masks, QPoint(column * kCell, 0));
    }
  }
  return sheet;
}

// The strobe's frame: the base is ANDed with the strobe's colour, so its
// shades are high-bit masks (255, 224, 192) that darken it evenly.
QImage SquareBase() {
  QImage base = NewSheet(kCell, kCell, Qt::black);
  QPainter painter(&base);
  painter.setRenderHint(QPainter::Antialiasing, false);
  const int shades[] = {255, 255, 224, 192};
  for (int ring = 0; ring < 4; ++ring) {
    painter.setPen(QColor(shades[ring], shades[ring], shades[ring]));
    painter.drawRect(ring, ring, kCell - 1 - 2 * ring, kCell - 1 - 2 * ring);
  }
  return base;
}

QImage SquareMask() {
  QImage mask = NewSheet(kCell, kCell, Qt::white);
  QPainter painter(&mask);
  painter.fillRect(QRect(0, 0, kCell, kCell), Qt::black);
  painter.fillRect(QRect(4, 4, kCell - 8, kCell - 8), Qt::white);
  return mask;
}

}  // namespace
}  // namespace varkesh::art

std::vector<PackEntry> WriteMarkerArt(const QDir& out) {
  using namespace varkesh::art;
  return {SavePicture(out, HistorySheet(), "history"), SavePicture(out, SquareBase(), "squarebase"),
          SavePicture(out, SquareMask(), "squaremask")};
}
