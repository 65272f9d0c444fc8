#include "engine/gdi.h"

#include <QFont>
#include <QFontMetrics>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <sstream>
#include <utility>

#include "engine/general_engine.h"

namespace varkesh {
namespace {

// The platform may refuse a surface now and then; it is asked again at once.
constexpr int kSurfaceTries = 11;
// Font sizes are points of a 96 dots-per-inch screen.
constexpr double kPixelsPerPoint = 96.0 / 72.0;

template <class Make>
QImage TrySurface(Make make) {
  QImage image;
  for (int attempt = 0; attempt < kSurfaceTries && image.isNull(); ++attempt) image = make();
  return image;
}

QPainter::CompositionMode ModeOf(RasterOp op) {
  switch (op) {
    case RasterOp::And:
      return QPainter::RasterOp_SourceAndDestination;
    case RasterOp::Or:
      return QPainter::RasterOp_SourceOrDestination;
    case RasterOp::Copy:
      break;
  }
  return QPainter::CompositionMode_Source;
}

QFont FontOf(const FontDescription& description, double scale) {
  QFont font(QString::fromStdString(description.name));
  // A family that is not installed falls back to a plain sans serif.
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(
      std::max(1, static_cast<int>(description.size * kPixelsPerPoint * scale + 0.5)));
  font.setBold(description.bold);
  font.setItalic(description.italic);
  font.setUnderline(description.underline);
  font.setStrikeOut(description.strikethrough);
  return font;
}

std::string SurfaceLine(const QImage& image) {
  std::ostringstream line;
  line << "     DC=" << image.cacheKey() << ", hBITMAP=0x" << std::hex
       << reinterpret_cast<std::uintptr_t>(image.constBits());
  return line.str();
}

}  // namespace

Gdi::Gdi(GeneralEngine& engine, std::function<double()> clock, Random& random)
    : engine_(engine), clock_(std::move(clock)), random_(random) {}

void Gdi::Log(int minLevel, const std::string& text) {
  if (engine_.logLevel >= minLevel) WriteLog(engine_, engine_.engineLogNumber, text, true);
}

Gdi::PicRec* Gdi::Pic(PicNum pic) {
  return pic >= 0 && pic < static_cast<int>(pictures_.size()) ? &pictures_[pic] : nullptr;
}

const Gdi::PicRec* Gdi::Pic(PicNum pic) const {
  return pic >= 0 && pic < static_cast<int>(pictures_.size()) ? &pictures_[pic] : nullptr;
}

Gdi::ViewRec* Gdi::View(int view) {
  return view >= 1 && view <= static_cast<int>(views_.size()) ? &views_[view - 1] : nullptr;
}

const Gdi::ViewRec* Gdi::View(int view) const {
  return view >= 1 && view <= static_cast<int>(views_.size()) ? &views_[view - 1] : nullptr;
}

PicNum Gdi::NewPicNum() {
  pictures_.emplace_back();
  PicNum pic = static_cast<int>(pictures_.size()) - 1;
  Log(2, "Handed out new PicNum: " + std::to_string(pic));
  return pic;
}

QRect Gdi::Device(int x, int y, int width, int height) const {
  auto at = [this](int units) { return static_cast<int>(std::lround(units * scale_)); };
  const int left = at(x);
  const int top = at(y);
  return QRect(left, top, at(x + width) - left, at(y + height) - top);
}

QImage Gdi::Rescaled(const PicRec& rec) const {
  const QSize size = Device(0, 0, rec.units.width(), rec.units.height()).size();
  const QImage& from = rec.loaded.isNull() ? rec.image : rec.loaded;
  if (from.size() == size) return from;
  return from.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
      .convertToFormat(QImage::Format_RGB32);
}

void Gdi::SetScale(double scale) {
  if (scale <= 0.0 || scale == scale_) return;
  scale_ = scale;
  for (PicRec& rec : pictures_)
    if (rec.valid) rec.image = Rescaled(rec);
  for (ViewRec& view : views_) {
    const int back = view.backBuffer;
    if (!IsValid(back)) continue;
    view.dirty = {0, 0, pictures_[back].image.width(), pictures_[back].image.height()};
    view.drawn = pictures_[back].image.rect();
    ++view.draws;
  }
}

void Gdi::StoreImage(PicNum pic, QImage image) {
  PicRec& rec = pictures_[pic];
  rec.image = std::move(image);
  rec.valid = true;
  rec.cleared = false;
  Log(2, SurfaceLine(rec.image));
}

void Gdi::CreateWorkspace(PicNum pic, int width, int height) {
  Log(2, "Creating Workspace for Pic #" + std::to_string(pic) + ": " + std::to_string(width) + "x" +
             std::to_string(height));
  PicRec* rec = Pic(pic);
  if (!rec) return;
  if (rec->valid) ClearPicture(pic);
  const QSize size = Device(0, 0, std::max(width, 0), std::max(height, 0)).size();
  QImage image = TrySurface([&] { return QImage(size, QImage::Format_RGB32); });
  if (image.isNull()) {
    Log(1, "ERROR: Failure to get hBITMAP for workspace");
    return;
  }
  image.fill(Qt::black);
  rec->loaded = QImage();
  rec->units = QSize(std::max(width, 0), std::max(height, 0));
  StoreImage(pic, std::move(image));
}

void Gdi::LoadPicture(PicNum pic, const std::string& path) {
  Log(2, "Loading Pic #" + std::to_string(pic) + " from file: " + path);
  PicRec* rec = Pic(pic);
  if (!rec) return;
  if (rec->valid) ClearPicture(pic);
  // The reader tells the format by the content: the pack's files carry no
  // picture extension.
  QImage image = TrySurface([&] { return QImage(QString::fromStdString(path)); });
  if (image.isNull()) {
    Log(1, "ERROR: Failure to get hBITMAP for file: " + path);
    return;
  }
  rec->loaded = image.convertToFormat(QImage::Format_RGB32);
  rec->units = rec->loaded.size();
  StoreImage(pic, Rescaled(*rec));
}

void Gdi::ClearPicture(PicNum pic) {
  PicRec* rec = Pic(pic);
  if (!rec) return;
  rec->image = QImage();
  rec->loaded = QImage();
  rec->units = QSize();
  rec->valid = false;
  rec->cleared = true;
  Log(2, "Cleared PicNum: " + std::to_string(pic));
}

int Gdi::PictureWidth(PicNum pic) const {
  const PicRec* rec = Pic(pic);
  return rec ? rec->units.width() : -1;
}

int Gdi::PictureHeight(PicNum pic) const {
  const PicRec* rec = Pic(pic);
  return rec ? rec->units.height() : -1;
}

bool Gdi::IsValid(PicNum pic) const {
  const PicRec* rec = Pic(pic);
  return rec && rec->valid;
}

bool Gdi::IsCleared(PicNum pic) const {
  const PicRec* rec = Pic(pic);
  return rec && rec->cleared;
}

const QImage& Gdi::Picture(PicNum pic) const {
  const PicRec* rec = Pic(pic);
  return rec ? rec->image : none_;
}

void Gdi::GrowDirty(PicNum target, const QRect& area) {
  ViewRec* view = View(pictures_[target].viewNum);
  if (!view) return;
  ++view->draws;
  view->drawn += area;
  DirtyEdges& dirty = view->dirty;
  dirty.left = std::min(dirty.left, area.left());
  dirty.top = std::min(dirty.top, area.top());
  dirty.right = std::max(dirty.right, area.left() + area.width());
  dirty.bottom = std::max(dirty.bottom, area.top() + area.height());
}

void Gdi::Blit(PicNum source, int srcX, int srcY, int width, int height, PicNum target, int dstX,
               int dstY, RasterOp op) {
  PicRec* from = Pic(source);
  PicRec* to = Pic(target);
  if (!from || !to || !from->valid || !to->valid) return;
  // A shared copy: painting detaches the target from it, so a blit within
  // one picture reads the pixels as they were before it.
  const QImage sourceImage = from->image;
  const QRect sourceArea = Device(srcX, srcY, width, height);
  const QRect targetArea = Device(dstX, dstY, width, height);
  {
    QPainter painter(&to->image);
    painter.setCompositionMode(ModeOf(op));
    // Rounding may leave the two a pixel apart at a fractional scale.
    if (sourceArea.size() == targetArea.size())
      painter.drawImage(targetArea.topLeft(), sourceImage, sourceArea);
    else
      painter.drawImage(targetArea, sourceImage, sourceArea);
  }
  GrowDirty(target, targetArea);
}

void Gdi::TurnedBlit(PicNum source, int srcX, int srcY, int side, PicNum target, int dstX, int dstY,
                     int quarterTurns) {
  PicRec* from = Pic(source);
  PicRec* to = Pic(target);
  if (!from || !to || !from->valid || !to->valid) return;
  const QImage sourceImage = from->image;
  const QRect sourceArea = Device(srcX, srcY, side, side);
  const QRect targetArea = Device(dstX, dstY, side, side);
  {
    QPainter painter(&to->image);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.translate(QRectF(targetArea).center());
    painter.rotate(90.0 * (((quarterTurns % 4) + 4) % 4));
    const QRectF centred(-targetArea.width() / 2.0, -targetArea.height() / 2.0, targetArea.width(),
                         targetArea.height());
    painter.drawImage(centred, sourceImage, sourceArea);
  }
  GrowDirty(target, targetArea);
}

void Gdi::DrawFrame(PicNum pic, Rgb colour, int x, int y, int width, int height, int lineWidth) {
  PicRec* rec = Pic(pic);
  if (!rec || !rec->valid) return;
  const QRect outer = Device(x, y, width, height);
  const int line = std::max(1, static_cast<int>(std::lround(lineWidth * scale_)));
  const QColor ink(colour.red, colour.green, colour.blue);
  {
    QPainter painter(&rec->image);
    painter.fillRect(QRect(outer.left(), outer.top(), outer.width(), line), ink);
    painter.fillRect(QRect(outer.left(), outer.bottom() + 1 - line, outer.width(), line), ink);
    painter.fillRect(QRect(outer.left(), outer.top(), line, outer.height()), ink);
    painter.fillRect(QRect(outer.right() + 1 - line, outer.top(), line, outer.height()), ink);
  }
  GrowDirty(pic, outer);
}

void Gdi::MaskedBlit(PicNum source, int srcX, int srcY, int width, int height, PicNum mask,
                     int maskX, int maskY, PicNum target, int dstX, int dstY) {
  Blit(mask, maskX, maskY, width, height, target, dstX, dstY, RasterOp::And);
  Blit(source, srcX, srcY, width, height, target, dstX, dstY, RasterOp::Or);
}

void Gdi::FillPicture(PicNum pic, Rgb colour) {
  PicRec* rec = Pic(pic);
  if (!rec || !rec->valid) return;
  rec->image.fill(QColor(colour.red, colour.green, colour.blue));
  if (ViewRec* view = View(rec->viewNum)) {
    view->dirty = {0, 0, rec->image.width(), rec->image.height()};
    view->drawn = rec->image.rect();
    ++view->draws;
  }
}

void Gdi::DrawText(PicNum pic, const FontDescription& font, Rgb colour, int x, int y,
                   const std::string& text) {
  PicRec* rec = Pic(pic);
  if (!rec || !rec->valid) return;
  QFont qfont = FontOf(font, scale_);
  QFontMetrics metrics(qfont);
  QString qtext = QString::fromStdString(text);
  const QPoint at = Device(x, y, 0, 0).topLeft();
  {
    QPainter painter(&rec->image);
    painter.setFont(qfont);
    painter.setPen(QColor(colour.red, colour.green, colour.blue));
    painter.drawText(QPoint(at.x(), at.y() + metrics.ascent()), qtext);
  }
  GrowDirty(pic, QRect(at.x(), at.y(), metrics.horizontalAdvance(qtext), metrics.height()));
}

double Gdi::FrameRate(int milliseconds) {
  double now = clock_();
  ++framesCounted_;
  if (!frameRateStarted_) {
    frameRateStarted_ = true;
    frameSpanStart_ = now;
    frameRate_ = -1.0;
  } else if (now - frameSpanStart_ > milliseconds / 1000.0) {
    frameRate_ = framesCounted_ / (now - frameSpanStart_);
    framesCounted_ = 0;
    frameSpanStart_ = now;
  }
  return frameRate_;
}

StrobeNum Gdi::NewStrobe() {
  strobes_.emplace_back();
  StrobeNum strobe = static_cast<int>(strobes_.size()) - 1;
  Log(2, "Handed out new StrobeNum: " + std::to_string(strobe));
  return strobe;
}

void Gdi::InitStrobe(StrobeNum strobe, const StrobeSettings& settings) {
  if (strobe < 0 || strobe >= static_cast<int>(strobes_.size())) return;
  StartStrobe(strobes_[strobe], settings, clock_(), random_);
}

void Gdi::AdvanceStrobes() {
  double now = clock_();
  for (StrobeRec& strobe : strobes_) AdvanceStrobe(strobe, now, random_);
}

Rgb Gdi::StrobeColour(StrobeNum strobe) const {
  if (strobe < 0 || strobe >= static_cast<int>(strobes_.size())) return {};
  return strobes_[strobe].current;
}

void Gdi::ShutdownGraphics() {
  for (PicNum pic = static_cast<int>(pictures_.size()) - 1; pic >= 0; --pic) ClearPicture(pic);
  pictures_.clear();
  views_.clear();
  strobes_.clear();
  Log(1, ">> OstrelGDI Graphics Engine Shutdown <<");
}

}  // namespace varkesh
