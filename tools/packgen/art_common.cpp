#include "art_common.h"

#include <QPainter>
#include <QtGlobal>
#include <cstdlib>

namespace varkesh::art {

TeamPalette PaletteOf(int team) {
  switch (team) {
    case 1:
      return {QColor(238, 228, 200), QColor(255, 252, 238), QColor(96, 76, 52), QColor(64, 46, 32),
              QColor(64, 46, 32)};
    case 2:
      return {QColor(38, 78, 200), QColor(110, 150, 245), QColor(12, 26, 92), QColor(248, 248, 255),
              QColor(12, 26, 92)};
    case 3:
      return {QColor(34, 34, 40), QColor(92, 92, 104), QColor(206, 206, 216), QColor(214, 214, 222),
              QColor(20, 20, 24)};
    default:
      return {QColor(192, 24, 48), QColor(240, 96, 104), QColor(84, 8, 20), QColor(255, 244, 236),
              QColor(84, 8, 20)};
  }
}

const char* TeamWord(int team) {
  static const char* const kWords[] = {"White", "Blue", "Black", "Red"};
  return kWords[(team - 1) % kTeams];
}

Terrain TerrainAt(int x, int y) {
  if (std::abs(8 - x) + std::abs(8 - y) >= 9) return Terrain::OffBoard;
  if (x >= 4 && x <= 12 && y >= 4 && y <= 12) return Terrain::Battlefield;
  if (x == 3 || x == 13 || y == 3 || y == 13) return Terrain::Moat;
  return Terrain::Keep;
}

int RealmAt(int x, int y) {
  Terrain terrain = TerrainAt(x, y);
  if (terrain == Terrain::OffBoard || terrain == Terrain::Battlefield) return 0;
  if (y >= 13) return 1;
  if (x <= 3) return 2;
  if (y <= 3) return 3;
  return 4;
}

namespace {

struct Checker {
  QColor light, dark;
};

Checker KeepColours(int realm) {
  switch (realm) {
    case 1:
      return {QColor(246, 238, 216), QColor(218, 205, 176)};
    case 2:
      return {QColor(134, 162, 224), QColor(96, 126, 198)};
    case 3:
      return {QColor(124, 124, 132), QColor(90, 90, 98)};
    default:
      return {QColor(228, 136, 132), QColor(192, 96, 100)};
  }
}

// Bishops are named by their square: X + Y even is a dark square.
bool DarkSquare(int x, int y) {
  return (x + y) % 2 == 0;
}

}  // namespace

QColor SquareColour(int x, int y) {
  switch (TerrainAt(x, y)) {
    // Every channel of the battlefield stays above 128, shading included, so
    // that the hint's grey AND darkens it evenly instead of changing its hue.
    case Terrain::Battlefield:
      return DarkSquare(x, y) ? QColor(210, 176, 144) : QColor(240, 222, 184);
    case Terrain::Moat:
      return DarkSquare(x, y) ? QColor(40, 96, 156) : QColor(50, 110, 170);
    default: {
      Checker checker = KeepColours(RealmAt(x, y));
      return DarkSquare(x, y) ? checker.dark : checker.light;
    }
  }
}

QRect SquareRect(int x, int y) {
  return QRect(kCell * x + kBoardOrigin, kCell * y + kBoardOrigin, kCell, kCell);
}

QImage NewSheet(int width, int height, const QColor& fill) {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(fill);
  return image;
}

QFont ArtFont(const QString& family, int pixelSize, bool bold) {
  QFont font(family);
  font.setPixelSize(pixelSize);
  font.setBold(bold);
  return font;
}

void PaintMaskShape(QImage& mask, const QPainterPath& shape, qreal outlineWidth) {
  QPainter painter(&mask);
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setBrush(Qt::black);
  painter.setPen(outlineWidth > 0
                     ? QPen(Qt::black, outlineWidth * 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin)
                     : QPen(Qt::NoPen));
  painter.drawPath(shape);
}

void CutToMask(QImage& sheet, const QRect& spriteCell, const QImage& maskSheet,
               const QPoint& maskCorner) {
  QPainter painter(&sheet);
  painter.setCompositionMode(QPainter::RasterOp_NotSourceAndDestination);
  painter.drawImage(spriteCell.topLeft(), maskSheet, QRect(maskCorner, spriteCell.size()));
}

void PaintOutlinedShape(QImage& sheet, const QPainterPath& shape, const QColor& fill,
                        const QColor& outline, qreal outlineWidth) {
  QPainter painter(&sheet);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(outline, outlineWidth * 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(shape);
  painter.setPen(Qt::NoPen);
  painter.setBrush(fill);
  painter.drawPath(shape);
}

PackEntry SavePicture(const QDir& out, const QImage& image, const QString& entry) {
  QString file = entry + ".png";
  if (!image.save(out.filePath(file), "PNG"))
    qFatal("varkesh-packgen: cannot write %s", qPrintable(out.filePath(file)));
  return {entry, file};
}

}  // namespace varkesh::art
