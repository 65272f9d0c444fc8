// The pieces: a disc of the team's colour with the figure of the kind on it.
// One round mask serves every piece, so every sprite keeps to the same disc.
#include <QPainter>
#include <QRadialGradient>
#include <QTransform>

#include "art_common.h"

namespace varkesh::art {
namespace {

constexpr int kPieceSize = 30;
constexpr int kKinds = 7;
// A kind or team outside the tables is read half a cell past the last
// column and row, so the sheet reaches that far and stays black there.
constexpr int kOtherKindX = 195;
constexpr int kOtherTeamY = 105;
constexpr QPointF kDiscCentre(15.0, 15.0);
constexpr qreal kDiscRadius = 14.2;

// Figures are drawn in a box of 100 units with their foot at the bottom.
QPainterPath Foot() {
  QPainterPath path;
  path.addRoundedRect(QRectF(25, 79, 50, 12), 4, 4);
  return path;
}

QPainterPath PawnBody() {
  QPainterPath path;
  path.moveTo(41, 46);
  path.lineTo(59, 46);
  path.cubicTo(60, 62, 66, 72, 70, 82);
  path.lineTo(30, 82);
  path.cubicTo(34, 72, 40, 62, 41, 46);
  path.closeSubpath();
  path.addRoundedRect(QRectF(34, 42, 32, 7), 3, 3);
  return path.united(Foot());
}

QPainterPath Pawn() {
  QPainterPath head;
  head.addEllipse(QPointF(50, 30), 14, 14);
  return PawnBody().united(head);
}

QPainterPath Battlements(qreal left, qreal right, qreal top, qreal toothHeight, qreal bodyTop) {
  QPainterPath path;
  qreal tooth = (right - left) / 5;
  path.moveTo(left, bodyTop);
  path.lineTo(left, top);
  for (int i = 0; i < 5; ++i) {
    qreal x = left + tooth * (i + 1);
    qreal y = i % 2 == 0 ? top : top + toothHeight;
    path.lineTo(x - tooth, y);
    path.lineTo(x, y);
  }
  path.lineTo(right, bodyTop);
  path.closeSubpath();
  return path;
}

// A pawn whose round head wears a crown of three merlons: a pawn at first
// sight, which the Rook's square tower never is.
QPainterPath CastlePawn() {
  QPainterPath head;
  head.addEllipse(QPointF(50, 32), 13, 13);
  QPainterPath merlons;
  for (qreal left : {35.0, 45.5, 56.0}) merlons.addRect(QRectF(left, 8, 9, 14));
  merlons.addRect(QRectF(35, 16, 30, 8));
  return PawnBody().united(head).united(merlons.simplified());
}

QPainterPath Rook() {
  QPainterPath body;
  body.moveTo(32, 38);
  body.lineTo(68, 38);
  body.lineTo(70, 82);
  body.lineTo(30, 82);
  body.closeSubpath();
  return body.united(Battlements(25, 75, 10, 10, 40)).united(Foot());
}

QPainterPath Bishop() {
  QPainterPath mitre;
  mitre.moveTo(50, 14);
  mitre.cubicTo(66, 26, 72, 44, 64, 58);
  mitre.lineTo(36, 58);
  mitre.cubicTo(28, 44, 34, 26, 50, 14);
  mitre.closeSubpath();
  QPainterPath knob;
  knob.addEllipse(QPointF(50, 11), 6, 6);
  QPainterPath stem;
  stem.moveTo(40, 56);
  stem.lineTo(60, 56);
  stem.cubicTo(62, 66, 66, 74, 70, 82);
  stem.lineTo(30, 82);
  stem.cubicTo(34, 74, 38, 66, 40, 56);
  stem.closeSubpath();
  return mitre.united(knob).united(stem).united(Foot());
}

QPainterPath Knight() {
  QPainterPath head;
  head.moveTo(30, 82);
  head.lineTo(72, 82);
  head.cubicTo(76, 60, 72, 32, 58, 20);
  head.lineTo(57, 8);
  head.lineTo(48, 17);
  head.cubicTo(36, 18, 26, 30, 18, 46);
  head.lineTo(14, 56);
  head.cubicTo(14, 64, 22, 66, 28, 62);
  head.lineTo(42, 54);
  head.cubicTo(42, 64, 34, 72, 30, 82);
  head.closeSubpath();
  return head.united(Foot());
}

QPainterPath Queen() {
  QPainterPath crown;
  crown.moveTo(31, 82);
  crown.lineTo(19, 30);
  crown.lineTo(36, 50);
  crown.lineTo(38, 20);
  crown.lineTo(50, 46);
  crown.lineTo(62, 20);
  crown.lineTo(64, 50);
  crown.lineTo(81, 30);
  crown.lineTo(69, 82);
  crown.closeSubpath();
  for (QPointF tip : {QPointF(19, 27), QPointF(38, 17), QPointF(62, 17), QPointF(81, 27)}) {
    QPainterPath ball;
    ball.addEllipse(tip, 6, 6);
    crown = crown.united(ball);
  }
  return crown.united(Foot());
}

QPainterPath King() {
  QPainterPath crown;
  crown.moveTo(31, 82);
  crown.lineTo(24, 48);
  crown.cubicTo(22, 34, 40, 30, 50, 42);
  crown.cubicTo(60, 30, 78, 34, 76, 48);
  crown.lineTo(69, 82);
  crown.closeSubpath();
  QPainterPath cross;
  cross.addRect(QRectF(44, 5, 12, 34));
  cross.addRect(QRectF(34, 12, 32, 11));
  return crown.united(cross.simplified()).united(Foot());
}

QPainterPath FigureOf(int kind) {
  switch (kind) {
    case 1:
      return Pawn();
    case 2:
      return CastlePawn();
    case 3:
      return Bishop();
    case 4:
      return Rook();
    case 5:
      return Knight();
    case 6:
      return Queen();
    default:
      return King();
  }
}

// The figure's box of 100 units placed on a disc at (left, top).
QTransform FigurePlacement(int left, int top) {
  constexpr qreal kScale = 0.26;
  constexpr qreal kInset = (kPieceSize - 100 * kScale) / 2;
  return QTransform::fromTranslate(left + kInset, top + kInset - 0.6).scale(kScale, kScale);
}

void PaintDetails(QPainter& painter, int kind, const TeamPalette& palette) {
  painter.setPen(QPen(palette.body, 6, Qt::SolidLine, Qt::RoundCap));
  if (kind == 3) painter.drawLine(QPointF(44, 30), QPointF(56, 44));  // the mitre's slit
  if (kind == 4) {                                                    // the tower's gate
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette.body);
    QPainterPath gate;
    gate.moveTo(42, 80);
    gate.lineTo(42, 62);
    gate.arcTo(QRectF(42, 54, 16, 16), 180, -180);
    gate.lineTo(58, 80);
    gate.closeSubpath();
    painter.drawPath(gate);
  }
  if (kind == 5) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette.body);
    painter.drawEllipse(QPointF(38, 34), 4.5, 4.5);  // the horse's eye
  }
}

void PaintPiece(QImage& sheet, int left, int top, int kind, const TeamPalette& palette) {
  QPainter painter(&sheet);
  painter.setRenderHint(QPainter::Antialiasing);
  QPointF centre = kDiscCentre + QPointF(left, top);
  QRadialGradient shine(centre - QPointF(4, 5), kDiscRadius * 1.4);
  shine.setColorAt(0, palette.light);
  shine.setColorAt(0.6, palette.body);
  shine.setColorAt(1, palette.body.darker(125));
  painter.setPen(QPen(palette.rim, 1.6));
  painter.setBrush(shine);
  painter.drawEllipse(centre, kDiscRadius - 0.8, kDiscRadius - 0.8);

  painter.setTransform(FigurePlacement(left, top));
  QPainterPath figure = FigureOf(kind);
  painter.setPen(QPen(palette.inkEdge, 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(palette.ink);
  painter.drawPath(figure);
  PaintDetails(painter, kind, palette);
}

}  // namespace

}  // namespace varkesh::art

std::vector<PackEntry> WritePieceArt(const QDir& out) {
  using namespace varkesh::art;
  QImage mask = NewSheet(kPieceSize, kPieceSize, Qt::white);
  QPainterPath disc;
  disc.addEllipse(kDiscCentre, kDiscRadius, kDiscRadius);
  PaintMaskShape(mask, disc, 0);

  QImage sheet = NewSheet(kOtherKindX + kPieceSize, kOtherTeamY + kPieceSize, Qt::black);
  for (int team = 1; team <= kTeams; ++team) {
    for (int kind = 1; kind <= kKinds; ++kind) {
      QRect cell((kind - 1) * kPieceSize, (team - 1) * kPieceSize, kPieceSize, kPieceSize);
      PaintPiece(sheet, cell.left(), cell.top(), kind, PaletteOf(team));
      CutToMask(sheet, cell, mask, QPoint(0, 0));
    }
  }

  return {SavePicture(out, sheet, "gamepieces"), SavePicture(out, mask, "piecemask")};
}
