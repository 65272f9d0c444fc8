// The victory screen: a castle at dusk with a flagpole, the winners' waving
// flags in four frames, and their banners.
#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>
#include <QRandomGenerator>
#include <cmath>

#include "art_common.h"

namespace varkesh::art {
namespace {

constexpr int kScreen = 600;
constexpr int kFlagWidth = 150, kFlagHeight = 57, kFrames = 4;
constexpr int kBannerWidth = 270, kBannerHeight = 95;
// The game redraws the flags' corner from the background shifted five
// pixels up, so nothing there may change from one row to the next.
const QRect kFlagArea(190, 12, 165, 150);
constexpr int kPoleX = 195, kPoleWidth = 4, kPoleTop = 12;
constexpr qreal kSkyBottom = 440;

void PaintSky(QPainter& painter) {
  painter.fillRect(QRect(0, 0, kScreen, kScreen), QColor(16, 22, 54));
  QLinearGradient dusk(0, kFlagArea.bottom(), 0, kSkyBottom);
  dusk.setColorAt(0, QColor(16, 22, 54));
  dusk.setColorAt(0.55, QColor(92, 54, 96));
  dusk.setColorAt(1, QColor(232, 130, 70));
  painter.fillRect(QRectF(0, kFlagArea.bottom(), kScreen, kSkyBottom - kFlagArea.bottom()), dusk);

  QRandomGenerator stars(20030205);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  for (int star = 0; star < 90; ++star) {
    QPointF at(stars.bounded(kScreen), stars.bounded(260));
    if (kFlagArea.adjusted(-4, -4, 4, 4).contains(at.toPoint())) continue;
    painter.setBrush(QColor(255, 250, 230, 90 + stars.bounded(160)));
    painter.drawEllipse(at, 0.8 + stars.bounded(1.0), 0.8 + stars.bounded(1.0));
  }
}

void PaintFirework(QPainter& painter, const QPointF& centre, qreal radius, const QColor& colour) {
  painter.setRenderHint(QPainter::Antialiasing);
  constexpr int kSparks = 18;
  for (int spark = 0; spark < kSparks; ++spark) {
    qreal angle = 2 * M_PI * spark / kSparks;
    QPointF direction(std::cos(angle), std::sin(angle));
    QLinearGradient trail(centre + direction * radius * 0.3, centre + direction * radius);
    trail.setColorAt(0, QColor(colour.red(), colour.green(), colour.blue(), 0));
    trail.setColorAt(1, colour);
    painter.setPen(QPen(QBrush(trail), 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(centre + direction * radius * 0.3, centre + direction * radius);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour.lighter(130));
    painter.drawEllipse(centre + direction * radius, 1.8, 1.8);
  }
}

QPainterPath Castle() {
  QPainterPath castle;
  castle.addRect(QRectF(120, 330, 350, 170));
  castle.addRect(QRectF(176, 232, 44, 270));  // the flag's tower
  castle.addRect(QRectF(300, 270, 60, 230));
  castle.addRect(QRectF(420, 300, 50, 200));
  for (qreal x = 120; x < 460; x += 24) castle.addRect(QRectF(x, 318, 14, 14));
  for (qreal x = 172; x < 224; x += 16) castle.addRect(QRectF(x, 220, 10, 14));
  for (qreal x = 296; x < 364; x += 17) castle.addRect(QRectF(x, 258, 10, 14));
  for (qreal x = 416; x < 474; x += 15) castle.addRect(QRectF(x, 288, 9, 14));
  return castle.simplified();
}

void PaintLand(QPainter& painter) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(30, 22, 40));
  painter.drawPath(Castle());
  painter.setBrush(QColor(255, 208, 120));
  for (QPointF window : {QPointF(196, 280), QPointF(328, 320), QPointF(444, 350), QPointF(250, 400),
                         QPointF(390, 410)})
    painter.drawRoundedRect(QRectF(window, QSizeF(7, 12)), 3, 3);
  QPainterPath hills;
  hills.moveTo(0, 470);
  hills.cubicTo(140, 430, 240, 500, 330, 470);
  hills.cubicTo(430, 440, 520, 470, 600, 450);
  hills.lineTo(600, 600);
  hills.lineTo(0, 600);
  hills.closeSubpath();
  QLinearGradient grass(0, 440, 0, 600);
  grass.setColorAt(0, QColor(34, 60, 40));
  grass.setColorAt(1, QColor(10, 20, 14));
  painter.setBrush(grass);
  painter.drawPath(hills);
}

void PaintPole(QPainter& painter) {
  painter.setRenderHint(QPainter::Antialiasing, false);
  QLinearGradient metal(kPoleX, 0, kPoleX + kPoleWidth, 0);
  metal.setColorAt(0, QColor(230, 220, 190));
  metal.setColorAt(1, QColor(120, 104, 70));
  painter.fillRect(QRect(kPoleX, kPoleTop, kPoleWidth, 232 - kPoleTop), metal);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(QColor(120, 90, 30), 1));
  painter.setBrush(QColor(238, 196, 92));
  painter.drawEllipse(QPointF(kPoleX + kPoleWidth / 2.0, kPoleTop - 3), 4.5, 4.5);
}

QImage VictoryBackground() {
  QImage screen = NewSheet(kScreen, kScreen, Qt::black);
  QPainter painter(&screen);
  PaintSky(painter);
  PaintFirework(painter, QPointF(90, 110), 55, QColor(255, 214, 96));
  PaintFirework(painter, QPointF(480, 90), 62, QColor(140, 200, 255));
  PaintFirework(painter, QPointF(520, 230), 40, QColor(255, 120, 150));
  PaintLand(painter);
  PaintPole(painter);
  painter.setPen(QColor(238, 220, 170));
  painter.setFont(ArtFont("DejaVu Sans", 15, true));
  painter.drawText(QRect(0, 566, kScreen, 24), Qt::AlignHCenter, "Click to continue");
  return screen;
}

// The cloth's wave: still at the pole, swinging more towards the fly.
qreal Wave(qreal x, int frame) {
  qreal reach = (x - kPoleWidth) / (kFlagWidth - kPoleWidth);
  return 6 * reach * std::sin(2 * M_PI * x / 72 - frame * M_PI / 2);
}

QPainterPath Cloth(int frame) {
  constexpr qreal kLeft = kPoleWidth, kRight = kFlagWidth - 4, kTop = 6, kBottom = 48;
  QPainterPath cloth;
  cloth.moveTo(kLeft, kTop);
  for (qreal x = kLeft; x <= kRight; x += 2) cloth.lineTo(x, kTop + Wave(x, frame));
  qreal middle = (kTop + kBottom) / 2 + Wave(kRight - 18, frame);
  cloth.lineTo(kRight - 18, middle);
  for (qreal x = kRight; x >= kLeft; x -= 2) cloth.lineTo(x, kBottom + Wave(x, frame));
  cloth.closeSubpath();
  return cloth;
}

QPainterPath Crown(const QPointF& centre) {
  QPainterPath crown;
  crown.moveTo(centre + QPointF(-11, 8));
  crown.lineTo(centre + QPointF(-12, -7));
  crown.lineTo(centre + QPointF(-5, 0));
  crown.lineTo(centre + QPointF(0, -10));
  crown.lineTo(centre + QPointF(5, 0));
  crown.lineTo(centre + QPointF(12, -7));
  crown.lineTo(centre + QPointF(11, 8));
  crown.closeSubpath();
  return crown;
}

void PaintFlag(QImage& sheet, const QPoint& corner, int frame, const TeamPalette& palette) {
  QPainter painter(&sheet);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(corner);
  // Folds facing the light are brighter: the shade follows the wave's slope.
  QLinearGradient folds(kPoleWidth, 0, kFlagWidth, 0);
  for (int step = 0; step <= 10; ++step) {
    qreal x = kPoleWidth + step * (kFlagWidth - kPoleWidth) / 10.0;
    qreal slope = Wave(x + 1, frame) - Wave(x - 1, frame);
    folds.setColorAt(step / 10.0, slope > 0
                                      ? palette.body.darker(100 + static_cast<int>(slope * 18))
                                      : palette.body.lighter(100 - static_cast<int>(slope * 14)));
  }
  painter.setPen(QPen(palette.rim, 1.5));
  painter.setBrush(folds);
  painter.drawPath(Cloth(frame));
  qreal crownX = 62;
  painter.setPen(QPen(palette.inkEdge, 1.5));
  painter.setBrush(palette.ink);
  painter.drawPath(Crown(QPointF(crownX, 27 + Wave(crownX, frame))));
}

QImage Flags() {
  QImage sheet = NewSheet(kFlagWidth * kFrames, kFlagHeight * (kTeams + 1), Qt::black);
  {
    QPainter clear(&sheet);
    clear.fillRect(QRect(0, 0, sheet.width(), kFlagHeight), Qt::white);
  }
  for (int frame = 0; frame < kFrames; ++frame)
    PaintMaskShape(sheet, Cloth(frame).translated(frame * kFlagWidth, 0), 1);
  const QImage masks = sheet.copy(0, 0, sheet.width(), kFlagHeight);
  for (int team = 1; team <= kTeams; ++team) {
    for (int frame = 0; frame < kFrames; ++frame) {
      QRect cell(frame * kFlagWidth, team * kFlagHeight, kFlagWidth, kFlagHeight);
      PaintFlag(sheet, cell.topLeft(), frame, PaletteOf(team));
      CutToMask(sheet, cell, masks, QPoint(frame * kFlagWidth, 0));
    }
  }
  return sheet;
}

QPainterPath BannerBand() {
  QPainterPath band;
  band.addRoundedRect(QRectF(26, 14, kBannerWidth - 52, 58), 8, 8);
  return band;
}

QPainterPath BannerTails() {
  QPainterPath tails;
  for (int side = 0; side < 2; ++side) {
    auto x = [side](qreal fromLeft) { return side == 0 ? fromLeft : kBannerWidth - fromLeft; };
    tails.moveTo(x(4), 34);
    tails.lineTo(x(40), 34);
    tails.lineTo(x(40), 84);
    tails.lineTo(x(4), 84);
    tails.lineTo(x(18), 59);
    tails.closeSubpath();
  }
  return tails;
}

QFont BannerFont(const QString& words) {
  for (int size = 34;; size -= 2) {
    QFont font = ArtFont("DejaVu Serif", size, true);
    QPainterPath probe;
    probe.addText(QPointF(0, 0), font, words);
    if (probe.boundingRect().width() <= kBannerWidth - 76 || size <= 12) return font;
  }
}

void PaintBanner(QImage& sheet, int top, int team) {
  TeamPalette palette = PaletteOf(team);
  QPainter painter(&sheet);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(0, top);
  painter.setPen(QPen(palette.rim, 1.5));
  painter.setBrush(palette.body.darker(135));
  painter.drawPath(BannerTails());
  QLinearGradient sheen(0, 14, 0, 72);
  sheen.setColorAt(0, palette.light);
  sheen.setColorAt(0.5, palette.body);
  sheen.setColorAt(1, palette.body.darker(130));
  painter.setBrush(sheen);
  painter.drawPath(BannerBand());
  painter.setPen(QPen(QColor(214, 174, 70), 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(31, 19, kBannerWidth - 62, 48), 5, 5);

  QString words = QString(TeamWord(team)) + " Wins!";
  QFont font = BannerFont(words);
  QPainterPath text;
  text.addText(QPointF(0, 0), font, words);
  QRectF bounds = text.boundingRect();
  text.translate((kBannerWidth - bounds.width()) / 2 - bounds.left(),
                 43 - bounds.top() - bounds.height() / 2);
  painter.setPen(QPen(palette.inkEdge, 2.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(palette.ink);
  painter.drawPath(text);
}

QImage Banners() {
  QImage sheet = NewSheet(kBannerWidth, kBannerHeight * (kTeams + 1), Qt::black);
  {
    QPainter clear(&sheet);
    clear.fillRect(QRect(0, 0, kBannerWidth, kBannerHeight), Qt::white);
  }
  PaintMaskShape(sheet, BannerBand().united(BannerTails()), 1);
  const QImage mask = sheet.copy(0, 0, kBannerWidth, kBannerHeight);
  for (int team = 1; team <= kTeams; ++team) {
    QRect cell(0, team * kBannerHeight, kBannerWidth, kBannerHeight);
    PaintBanner(sheet, cell.top(), team);
    CutToMask(sheet, cell, mask, QPoint(0, 0));
  }
  return sheet;
}

}  // namespace
}  // namespace varkesh::art

std::vector<PackEntry> WriteVictoryArt(const QDir& out) {
  using namespace varkesh::art;
  return {SavePicture(out, VictoryBackground(), "victory"), SavePicture(out, Flags(), "flags"),
          SavePicture(out, Banners(), "newvicword")};
}
