// The title screen: the game's name over its diamond board in miniature.
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include "art_common.h"

namespace varkesh::art {
namespace {

constexpr int kScreen = 600;
constexpr int kMiniCell = 13;
const QColor kGold(238, 196, 92);

void PaintSky(QPainter& painter) {
  QRadialGradient glow(QPointF(300, 330), 420);
  glow.setColorAt(0, QColor(40, 52, 84));
  glow.setColorAt(0.6, QColor(18, 24, 44));
  glow.setColorAt(1, QColor(6, 8, 16));
  painter.fillRect(QRect(0, 0, kScreen, kScreen), glow);
}

void PaintMiniBoard(QPainter& painter, const QPoint& centre) {
  QPoint origin = centre - QPoint(kBoardSide * kMiniCell / 2, kBoardSide * kMiniCell / 2);
  QPainterPath diamond;
  for (int y = 0; y < kBoardSide; ++y)
    for (int x = 0; x < kBoardSide; ++x)
      if (TerrainAt(x, y) != Terrain::OffBoard)
        diamond.addRect(
            QRect(origin + QPoint(x * kMiniCell, y * kMiniCell), QSize(kMiniCell, kMiniCell)));
  diamond = diamond.simplified();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(QColor(0, 0, 0, 90), 14, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter.drawPath(diamond.translated(4, 6));
  painter.setPen(QPen(kGold, 5, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter.drawPath(diamond);
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(Qt::NoPen);
  for (int y = 0; y < kBoardSide; ++y)
    for (int x = 0; x < kBoardSide; ++x)
      if (TerrainAt(x, y) != Terrain::OffBoard)
        painter.fillRect(
            QRect(origin + QPoint(x * kMiniCell, y * kMiniCell), QSize(kMiniCell, kMiniCell)),
            SquareColour(x, y));
  // A token of each kingdom on the tip of its keep.
  painter.setRenderHint(QPainter::Antialiasing);
  const QPoint tips[] = {{8, 15}, {1, 8}, {8, 1}, {15, 8}};
  for (int team = 1; team <= kTeams; ++team) {
    TeamPalette palette = PaletteOf(team);
    QPointF at = QPointF(origin) + QPointF((tips[team - 1].x() + 0.5) * kMiniCell,
                                           (tips[team - 1].y() + 0.5) * kMiniCell);
    painter.setPen(QPen(palette.rim, 2));
    painter.setBrush(palette.body);
    painter.drawEllipse(at, kMiniCell * 0.95, kMiniCell * 0.95);
  }
}

void PaintCentredText(QPainter& painter, const QString& text, const QFont& font, int baseline,
                      const QBrush& fill, const QColor& edge, qreal edgeWidth) {
  QPainterPath path;
  path.addText(QPointF(0, 0), font, text);
  QRectF bounds = path.boundingRect();
  path.translate((kScreen - bounds.width()) / 2 - bounds.left(), baseline);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(
      QPen(QColor(0, 0, 0, 120), edgeWidth + 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(path.translated(2, 3));
  painter.setPen(QPen(edge, edgeWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(fill);
  painter.drawPath(path);
}

QImage TitleScreen() {
  QImage screen = NewSheet(kScreen, kScreen, Qt::black);
  QPainter painter(&screen);
  PaintSky(painter);
  PaintMiniBoard(painter, QPoint(300, 345));

  QLinearGradient goldText(0, 40, 0, 120);
  goldText.setColorAt(0, QColor(255, 236, 160));
  goldText.setColorAt(1, QColor(206, 150, 52));
  PaintCentredText(painter, "Varkesh", ArtFont("DejaVu Serif", 84, true), 112, goldText,
                   QColor(70, 44, 12), 3);

  PaintCentredText(painter, "A Chess Variant for up to 4 Players",
                   ArtFont("DejaVu Serif", 22, false), 160, QColor(226, 232, 246),
                   QColor(20, 24, 40), 1);
  PaintCentredText(painter, "Click to begin", ArtFont("DejaVu Sans", 20, true), 570, kGold,
                   QColor(40, 28, 8), 1.5);
  return screen;
}

}  // namespace
}  // namespace varkesh::art

std::vector<PackEntry> WriteTitleArt(const QDir& out) {
  return {varkesh::art::SavePicture(out, varkesh::art::TitleScreen(), "titlescreen")};
}
