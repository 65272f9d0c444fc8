// Views: a back buffer each, shown in a window through its dirty rectangle.
#include <QPainter>
#include <utility>

#include "engine/gdi.h"
#include "engine/general_engine.h"

namespace varkesh {

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
  return view;
}

void Gdi::AttachWindow(int view, ViewWindow window) {
  if (ViewRec* rec = View(view)) {
    rec->window = std::move(window);
    rec->screen = QImage();  // the next show fills the window whole
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

const QImage& Gdi::ScreenImage(int view) const {
  const ViewRec* rec = View(view);
  return rec ? rec->screen : none_;
}

void Gdi::ShowViewport(int view) {
  ViewRec* rec = View(view);
  if (!rec || !IsValid(rec->backBuffer)) return;
  const QImage& back = pictures_[rec->backBuffer].image;
  QSize windowSize = rec->window.innerSize ? rec->window.innerSize() : back.size();
  if (windowSize.isEmpty()) return;  // a minimized window shows nothing

  bool freshScreen = rec->screen.size() != windowSize;
  if (freshScreen) rec->screen = QImage(windowSize, QImage::Format_RGB32);
  QRect shown = rec->screen.rect();
  {
    QPainter painter(&rec->screen);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    if (windowSize == back.size()) {
      // The edges themselves are inside, hence one pixel more than their difference.
      if (!freshScreen) {
        const DirtyEdges& d = rec->dirty;
        shown = QRect(QPoint(d.left, d.top), QPoint(d.right, d.bottom)) & back.rect();
      }
      painter.drawImage(shown.topLeft(), back, shown);
      rec->dirty = {};
    } else {
      painter.setRenderHint(QPainter::SmoothPixmapTransform);
      painter.drawImage(rec->screen.rect(), back);
    }
  }
  if (rec->window.repaint) rec->window.repaint(shown);
}

}  // namespace varkesh
