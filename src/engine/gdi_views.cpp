// Views: a back buffer each, shown in a window through its dirty rectangle.
#include <QPainter>
#include <QRegion>
#include <algorithm>
#include <utility>

#include "engine/gdi.h"
#include "engine/general_engine.h"

namespace varkesh {

namespace {

// Beyond this many separate areas drawn, they are compared as one.
constexpr int kMostAreas = 64;

// The smallest rectangle of area that holds every pixel where now and before
// differ; empty when they agree. Pictures that cannot be compared count as
// all changed.
QRect ChangedArea(const QImage& now, const QImage& before, const QRect& area) {
  if (before.size() != now.size() || before.format() != now.format() || now.depth() != 32)
    return area;
  int top = -1, bottom = -1, left = area.right() + 1, right = area.left() - 1;
  for (int y = area.top(); y <= area.bottom(); ++y) {
    const auto* a = reinterpret_cast<const quint32*>(now.constScanLine(y));
    const auto* b = reinterpret_cast<const quint32*>(before.constScanLine(y));
    int first = area.left();
    while (first <= area.right() && a[first] == b[first]) ++first;
    if (first > area.right()) continue;
    int last = area.right();
    while (a[last] == b[last]) --last;
    if (top < 0) top = y;
    bottom = y;
    left = std::min(left, first);
    right = std::max(right, last);
  }
  return top < 0 ? QRect() : QRect(QPoint(left, top), QPoint(right, bottom));
}

}  // namespace

int Gdi::NewViewport(const std::string& windowName, int width, int height) {
  Log(1, ">> New Viewport Initialized: " + windowName + " <<");
  Log(1, "     Backbuffer set to " + std::to_string(width) + "x" + std::to_string(height));
  views_.emplace_back();
  int view = static_cast<int>(views_.size());
  PicNum backBuffer = NewPicNum();
  CreateWorkspace(backBuffer, width, height);
  pictures_[backBuffer].viewNum = view;
  views_.back().backBuffer = backBuffer;
  views_.back().dirty = {0, 0, width, height};
  views_.back().drawn = pictures_[backBuffer].image.rect();
  return view;
}

void Gdi::AttachWindow(int view, ViewWindow window) {
  if (ViewRec* rec = View(view)) {
    rec->window = std::move(window);
    rec->screen = QImage();  // the next show fills the window whole
    if (IsValid(rec->backBuffer)) rec->drawn = pictures_[rec->backBuffer].image.rect();
  }
}

PicNum Gdi::BackBuffer(int view) const {
  const ViewRec* rec = View(view);
  return rec ? rec->backBuffer : -1;
}

DirtyEdges Gdi::Dirty(int view) const {
  const ViewRec* rec = View(view);
  return rec ? rec->dirty : DirtyEdges{};
}

std::uint64_t Gdi::DrawsOn(int view) const {
  const ViewRec* rec = View(view);
  return rec ? rec->draws : 0;
}

bool Gdi::ViewSeen(int view) const {
  const ViewRec* rec = View(view);
  return rec && (!rec->window.innerSize || !rec->window.innerSize().isEmpty());
}

const QImage& Gdi::ScreenImage(int view) const {
  const ViewRec* rec = View(view);
  return rec ? rec->screen : none_;
}

void Gdi::ShowViewport(int view) {
  ViewRec* rec = View(view);
  if (!rec || !IsValid(rec->backBuffer)) return;
  const QImage& back = pictures_[rec->backBuffer].image;
  QSize windowSize = rec->window.innerSize ? rec->window.innerSize() : back.size();
  // A minimized window shows nothing; what changes meanwhile stays dirty.
  if (windowSize.isEmpty()) return;

  // Only the areas drawn on since the last show are compared, each on its
  // own: a strobe over scattered squares costs those squares, not the board.
  QRegion drawn = rec->drawn & back.rect();
  rec->drawn = QRegion();
  rec->dirty = {};
  if (drawn.rectCount() > kMostAreas) drawn = drawn.boundingRect();
  const bool comparable =
      rec->lastShown.size() == back.size() && rec->lastShown.format() == back.format();
  QRegion changed;
  for (const QRect& area : drawn) {
    const QRect differs = comparable ? ChangedArea(back, rec->lastShown, area) : area;
    if (!differs.isEmpty()) changed += differs;
  }
  const bool freshScreen = rec->screen.size() != windowSize;
  if (!freshScreen && changed.isEmpty()) return;
  if (!comparable) {
    rec->lastShown = back.copy();
  } else {
    QPainter painter(&rec->lastShown);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (const QRect& area : changed) painter.drawImage(area.topLeft(), back, area);
  }

  if (freshScreen) rec->screen = QImage(windowSize, QImage::Format_RGB32);
  const bool oneToOne = windowSize == back.size();
  {
    QPainter painter(&rec->screen);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    if (oneToOne && !freshScreen) {
      for (const QRect& area : changed) painter.drawImage(area.topLeft(), back, area);
    } else if (oneToOne) {
      painter.drawImage(0, 0, back);
    } else {
      painter.setRenderHint(QPainter::SmoothPixmapTransform);
      painter.drawImage(rec->screen.rect(), back);
    }
  }
  if (!rec->window.repaint) return;
  if (oneToOne && !freshScreen) {
    for (const QRect& area : changed) rec->window.repaint(area);
  } else {
    rec->window.repaint(rec->screen.rect());
  }
}

}  // namespace varkesh
