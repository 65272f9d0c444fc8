// The drawing engine. The game draws by number on off-screen pictures and
// shows a view's back buffer with one call; the engine knows nothing of the
// game. Pictures and strobes are numbered from 0, views from 1.
#pragma once

#include <QImage>
#include <QRect>
#include <QRegion>
#include <QSize>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "engine/rgb.h"
#include "engine/strobe.h"

namespace varkesh {

struct GeneralEngine;
class Random;

using PicNum = int;
using StrobeNum = int;

enum class RasterOp { Copy, And, Or };

struct FontDescription {
  std::string name;
  int size = 8;  // points
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strikethrough = false;
};

// The window that shows a view: its inner size in device pixels, and a
// request to repaint a region of it (in device pixels) from Gdi::ScreenImage.
struct ViewWindow {
  std::function<QSize()> innerSize;
  std::function<void(const QRect&)> repaint;
};

// What changed in a back buffer since it was last shown, in pixels.
struct DirtyEdges {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  bool operator==(const DirtyEdges&) const = default;
};

class Gdi {
 public:
  // The clock gives seconds and never goes back; the random numbers feed the
  // strobes of types 3 to 5.
  Gdi(GeneralEngine& engine, std::function<double()> clock, Random& random);

  // Pictures are drawn on in units of the art (a board of 600); each is
  // held at this many device pixels per unit. A new scale scales every
  // picture once, from the loaded file where there is one.
  void SetScale(double scale);
  double Scale() const { return scale_; }

  PicNum NewPicNum();
  void CreateWorkspace(PicNum pic, int width, int height);
  void LoadPicture(PicNum pic, const std::string& path);
  void ClearPicture(PicNum pic);
  // In units of the art; -1 for a number not handed out.
  int PictureWidth(PicNum pic) const;
  int PictureHeight(PicNum pic) const;
  bool IsValid(PicNum pic) const;
  bool IsCleared(PicNum pic) const;
  // The pixels at the present scale; a null image for a picture without any. The reference stays
  // good until ShutdownGraphics.
  const QImage& Picture(PicNum pic) const;

  int NewViewport(const std::string& windowName, int width, int height);
  void AttachWindow(int view, ViewWindow window);
  PicNum BackBuffer(int view) const;
  DirtyEdges Dirty(int view) const;
  // How many times anything was drawn on the view's back buffer: the same
  // count twice means it holds the same picture.
  std::uint64_t DrawsOn(int view) const;
  // False while the view's window cannot be seen (minimized).
  bool ViewSeen(int view) const;
  // What the view's window shows, at the window's size: its paint event
  // draws from here. The reference stays good until ShutdownGraphics.
  const QImage& ScreenImage(int view) const;
  // Brings the window up to date with the back buffer. Only pixels that
  // differ from the last show are copied and repainted, so an unchanged
  // frame costs no drawing at all; a minimized window is not drawn.
  void ShowViewport(int view);

  void Blit(PicNum source, int srcX, int srcY, int width, int height, PicNum target, int dstX,
            int dstY, RasterOp op);
  // The mask ANDed, then the source ORed: a mask is white where the target
  // shows through, a source black outside its shape.
  void MaskedBlit(PicNum source, int srcX, int srcY, int width, int height, PicNum mask, int maskX,
                  int maskY, PicNum target, int dstX, int dstY);
  // A square area of the source drawn turned by quarter turns clockwise.
  void TurnedBlit(PicNum source, int srcX, int srcY, int side, PicNum target, int dstX, int dstY,
                  int quarterTurns);
  // The outline of a rectangle, lineWidth units wide, inside it.
  void DrawFrame(PicNum pic, Rgb colour, int x, int y, int width, int height, int lineWidth);
  void FillPicture(PicNum pic, Rgb colour);
  // The text's top left corner at (x, y), on a transparent background.
  void DrawText(PicNum pic, const FontDescription& font, Rgb colour, int x, int y,
                const std::string& text);

  // Frames per second over spans of the given length; -1 until the first span ends.
  double FrameRate(int milliseconds);

  StrobeNum NewStrobe();
  void InitStrobe(StrobeNum strobe, const StrobeSettings& settings);
  void AdvanceStrobes();
  // Black for a number out of range.
  Rgb StrobeColour(StrobeNum strobe) const;

  void ShutdownGraphics();

 private:
  struct PicRec {
    QImage image;
    QImage loaded;  // the file's pixels at one pixel per unit
    QSize units;
    bool valid = false;
    bool cleared = false;
    int viewNum = -1;  // the view whose back buffer this is
  };
  struct ViewRec {
    ViewWindow window;
    PicNum backBuffer = -1;
    DirtyEdges dirty;
    QRegion drawn;  // the areas drawn on since the last show, in device pixels
    QImage screen;
    QImage lastShown;  // the back buffer as it was last shown
    std::uint64_t draws = 0;
  };

  void Log(int minLevel, const std::string& text);
  PicRec* Pic(PicNum pic);
  const PicRec* Pic(PicNum pic) const;
  ViewRec* View(int view);
  const ViewRec* View(int view) const;
  void StoreImage(PicNum pic, QImage image);
  void GrowDirty(PicNum target, const QRect& area);
  // An area in units as device pixels of the present scale.
  QRect Device(int x, int y, int width, int height) const;
  QImage Rescaled(const PicRec& rec) const;

  GeneralEngine& engine_;
  std::function<double()> clock_;
  Random& random_;
  // Deques keep the images where they are, so a window may hold on to one.
  std::deque<PicRec> pictures_;
  std::deque<ViewRec> views_;
  std::vector<StrobeRec> strobes_;
  QImage none_;
  double scale_ = 1.0;

  bool frameRateStarted_ = false;
  int framesCounted_ = 0;
  double frameSpanStart_ = 0.0;
  double frameRate_ = -1.0;
};

}  // namespace varkesh
