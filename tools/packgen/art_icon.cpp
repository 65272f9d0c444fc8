// The program's icon for the desktop: the diamond board with the four keeps in
// their teams' colours. Written as PNG files of each size the icon themes use
// and as SVG, all from the same shapes, into OUTDIR/icons (not part of r.opk).
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPolygonF>
#include <QTextStream>
#include <array>
#include <cstdio>

#include "art_common.h"
#include "pack_entries.h"

namespace {

using varkesh::art::kTeams;
using varkesh::art::PaletteOf;

constexpr qreal kUnits = 256.0;  // the shapes are drawn on a square of this side
constexpr std::array kSizes = {16, 22, 24, 32, 48, 64, 128, 256};

struct Shape {
  QPolygonF outline;
  QColor fill;
};

const QColor kBackground(43, 47, 58);
const QColor kEdge(20, 20, 24);

std::vector<Shape> IconShapes() {
  std::vector<Shape> shapes;
  shapes.push_back(
      {QPolygonF({{128, 14}, {242, 128}, {128, 242}, {14, 128}}), QColor(201, 168, 106)});
  // White at the bottom, Blue left, Black on top, Red right, as on the board.
  const std::array<QPolygonF, kTeams> keeps = {
      QPolygonF({{128, 242}, {86, 200}, {170, 200}}), QPolygonF({{14, 128}, {56, 86}, {56, 170}}),
      QPolygonF({{128, 14}, {86, 56}, {170, 56}}), QPolygonF({{242, 128}, {200, 86}, {200, 170}})};
  for (int team = 1; team <= kTeams; ++team)
    shapes.push_back({keeps[static_cast<std::size_t>(team - 1)], PaletteOf(team).body});
  shapes.push_back(
      {QPolygonF({{128, 92}, {164, 128}, {128, 164}, {92, 128}}), QColor(232, 190, 60)});
  return shapes;
}

QImage DrawIcon(int size) {
  QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(size / kUnits, size / kUnits);
  painter.setPen(Qt::NoPen);
  painter.setBrush(kBackground);
  painter.drawRoundedRect(QRectF(0, 0, kUnits, kUnits), 36, 36);
  // Below 32 pixels an outline would swallow the keeps.
  painter.setPen(size >= 32 ? QPen(kEdge, 4) : QPen(Qt::NoPen));
  for (const Shape& shape : IconShapes()) {
    painter.setBrush(shape.fill);
    painter.drawPolygon(shape.outline);
  }
  return image;
}

QString SvgPoints(const QPolygonF& polygon) {
  QStringList points;
  for (const QPointF& point : polygon) points << QString("%1,%2").arg(point.x()).arg(point.y());
  return points.join(' ');
}

bool WriteSvg(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) return false;
  QTextStream svg(&file);
  svg << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"256\" height=\"256\" "
         "viewBox=\"0 0 256 256\">\n"
      << "  <rect width=\"256\" height=\"256\" rx=\"36\" fill=\"" << kBackground.name() << "\"/>\n";
  for (const Shape& shape : IconShapes())
    svg << "  <polygon points=\"" << SvgPoints(shape.outline) << "\" fill=\"" << shape.fill.name()
        << "\" stroke=\"" << kEdge.name() << "\" stroke-width=\"4\"/>\n";
  svg << "</svg>\n";
  return svg.status() == QTextStream::Ok;
}

}  // namespace

bool WriteIcons(const QDir& out) {
  if (!out.mkpath("icons")) return false;
  for (int size : kSizes) {
    const QString path = out.filePath(QString("icons/varkesh-%1.png").arg(size));
    if (!DrawIcon(size).save(path)) return false;
  }
  return WriteSvg(out.filePath("icons/varkesh.svg"));
}
