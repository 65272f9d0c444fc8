#include "ui/board_art.h"

#include "engine/general_engine.h"
#include "ui/board_layout.h"

namespace varkesh {
namespace {

constexpr int kHintPixels = 144;
constexpr Rgb kHintGrey{127, 127, 127};

PicNum LoadEntry(Gdi& gdi, GeneralEngine& engine, const EntryPath& entryPath,
                 const std::string& entry) {
  PicNum pic = gdi.NewPicNum();
  LogStartUpStep(engine, "+ Picture to Load: " + entry);
  gdi.LoadPicture(pic, entryPath(entry));
  return pic;
}

// A drawing surface of the same size beside a loaded picture.
PicNum CanvasLike(Gdi& gdi, PicNum model) {
  PicNum pic = gdi.NewPicNum();
  gdi.CreateWorkspace(pic, gdi.PictureWidth(model), gdi.PictureHeight(model));
  return pic;
}

}  // namespace

void LogStartUpStep(GeneralEngine& engine, const std::string& text) {
  if (engine.logLevel > 0) WriteLog(engine, engine.engineLogNumber, text, true);
}

int NewMainView(Gdi& gdi) {
  return gdi.NewViewport("picViewPort", kViewPixels, kViewPixels);
}

BoardArt LoadBoardArt(Gdi& gdi, GeneralEngine& engine, int view, const EntryPath& entryPath) {
  auto load = [&](const std::string& entry) { return LoadEntry(gdi, engine, entryPath, entry); };
  BoardArt art;
  art.view = view;
  art.backBuffer = gdi.BackBuffer(view);
  art.board = load("gameboard");
  art.boardCanvas = CanvasLike(gdi, art.board);
  art.pieces = load("gamepieces");
  art.pieceMask = load("piecemask");
  art.squareBase = load("squarebase");
  art.squareCanvas = CanvasLike(gdi, art.squareBase);
  art.squareMask = load("squaremask");
  art.victory = load("victory");
  art.flags = load("flags");
  art.victoryWords = load("newvicword");
  art.history = load("history");
  art.hintPiece = load("hintpiece");
  art.hintMove = load("hintmove");
  art.hintConfirm = load("hintconfirm");

  LogStartUpStep(engine, "+ Graphic to Create: HintShade");
  art.hintShade = gdi.NewPicNum();
  gdi.CreateWorkspace(art.hintShade, kHintPixels, kHintPixels);
  gdi.FillPicture(art.hintShade, kHintGrey);

  // Dark green to yellow and back, once a second each way.
  LogStartUpStep(engine, "+ Strobe to Load: strobeSquares");
  art.strobeSquares = gdi.NewStrobe();
  gdi.InitStrobe(art.strobeSquares, {{0, 64, 0}, {255, 255, 0}, 2, 1.0, 0.0, 0});

  art.boardFont = {"Italics", 8, true};
  return art;
}

}  // namespace varkesh
