// The empty board: the chequered battlefield, the four moats of water and
// the four keeps in their realm's colours, on a calm stone ground that leaves
// the corners to the prisoners and the edges to the players' names.
#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>
#include <cmath>

#include "art_common.h"

namespace varkesh::art {
namespace {

constexpr int kBoardPixels = 600;

QPainterPath DiamondOutline() {
  QPainterPath path;
  for (int y = 0; y < kBoardSide; ++y)
    for (int x = 0; x < kBoardSide; ++x)
      if (TerrainAt(x, y) != Terrain::OffBoard) path.addRect(SquareRect(x, y));
  return path.simplified();
}

void PaintGround(QPainter& painter) {
  QRadialGradient ground(QPointF(300, 300), 430);
  ground.setColorAt(0, QColor(58, 66, 80));
  ground.setColorAt(0.7, QColor(38, 44, 56));
  ground.setColorAt(1, QColor(22, 26, 34));
  painter.fillRect(QRect(0, 0, kBoardPixels, kBoardPixels), ground);
  // Faint courses of stone blocks.
  painter.setPen(QPen(QColor(255, 255, 255, 14), 1));
  constexpr int kCourse = 20, kBlock = 44;
  for (int row = 0; row * kCourse < kBoardPixels; ++row) {
    int y = row * kCourse;
    painter.drawLine(0, y, kBoardPixels, y);
    for (int x = (row % 2) * kBlock / 2; x < kBoardPixels; x += kBlock)
      painter.drawLine(x, y, x, y + kCourse);
  }
}

void PaintRim(QPainter& painter, const QPainterPath& diamond) {
  painter.setRenderHint(QPainter::Antialiasing);
  for (int shade = 6; shade >= 1; --shade) {
    painter.setPen(
        QPen(QColor(0, 0, 0, 34), shade * 2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawPath(diamond.translated(2, 3));
  }
  painter.setPen(QPen(QColor(176, 150, 96), 6, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter.drawPath(diamond);
  painter.setPen(QPen(QColor(92, 74, 44), 1.5, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter.drawPath(diamond);
  painter.setRenderHint(QPainter::Antialiasing, false);
}

void PaintWaves(QPainter& painter, const QRect& cell) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(QColor(140, 196, 236, 170), 1.4, Qt::SolidLine, Qt::RoundCap));
  for (int line = 0; line < 3; ++line) {
    QPainterPath wave;
    qreal y = cell.top() + 8 + line * 10;
    qreal shift = line % 2 == 0 ? 4 : 12;
    wave.moveTo(cell.left() + shift - 2, y);
    wave.cubicTo(cell.left() + shift + 2, y - 3, cell.left() + shift + 6, y - 3,
                 cell.left() + shift + 10, y);
    wave.cubicTo(cell.left() + shift + 14, y + 3, cell.left() + shift + 18, y + 3,
                 cell.left() + shift + 22, y);
    painter.drawPath(wave);
  }
  painter.setRenderHint(QPainter::Antialiasing, false);
}

// Each square a tile: lit along the top and left, shaded along the bottom and right.
void PaintSquare(QPainter& painter, int x, int y) {
  QRect cell = SquareRect(x, y);
  QColor colour = SquareColour(x, y);
  QLinearGradient sheen(cell.topLeft(), cell.bottomRight());
  sheen.setColorAt(0, colour.lighter(106));
  sheen.setColorAt(1, colour.darker(106));
  painter.fillRect(cell, sheen);
  if (TerrainAt(x, y) == Terrain::Moat) PaintWaves(painter, cell);
  painter.setPen(colour.lighter(118));
  painter.drawLine(cell.topLeft(), cell.topRight());
  painter.drawLine(cell.topLeft(), cell.bottomLeft());
  painter.setPen(colour.darker(110));
  painter.drawLine(cell.bottomLeft(), cell.bottomRight());
  painter.drawLine(cell.topRight(), cell.bottomRight());
}

QImage GameBoard() {
  QImage board = NewSheet(kBoardPixels, kBoardPixels, Qt::black);
  QPainter painter(&board);
  PaintGround(painter);
  PaintRim(painter, DiamondOutline());
  for (int y = 0; y < kBoardSide; ++y)
    for (int x = 0; x < kBoardSide; ++x)
      if (TerrainAt(x, y) != Terrain::OffBoard) PaintSquare(painter, x, y);
  return board;
}

}  // namespace
}  // namespace varkesh::art

std::vector<PackEntry> WriteBoardArt(const QDir& out) {
  return {varkesh::art::SavePicture(out, varkesh::art::GameBoard(), "gameboard")};
}
