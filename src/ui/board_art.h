// The pictures, the strobe and the font that the board is drawn with,
// loaded from the pack at start-up.
#pragma once

#include <functional>
#include <string>

#include "engine/gdi.h"

namespace varkesh {

struct GeneralEngine;

// The path of a file that holds a pack entry.
using EntryPath = std::function<std::string(const std::string&)>;

struct BoardArt {
  int view = 0;
  PicNum backBuffer = -1;
  PicNum board = -1;
  PicNum boardCanvas = -1;  // the board with its pieces, built anew on each change
  PicNum pieces = -1;
  PicNum pieceMask = -1;
  PicNum squareBase = -1;
  PicNum squareCanvas = -1;  // the strobe's square in its present colour
  PicNum squareMask = -1;
  PicNum victory = -1;
  PicNum flags = -1;
  PicNum victoryWords = -1;
  PicNum history = -1;
  PicNum hintPiece = -1;
  PicNum hintMove = -1;
  PicNum hintConfirm = -1;
  PicNum hintShade = -1;
  StrobeNum strobeSquares = -1;
  FontDescription boardFont;
};

// The main view, "picViewPort", of 600 by 600 pixels.
int NewMainView(Gdi& gdi);

// Loads the board's twelve pictures in their fixed order, each announced in
// the engine log, creates the two canvases and the hint shade, and starts
// the strobe of the moveable squares.
BoardArt LoadBoardArt(Gdi& gdi, GeneralEngine& engine, int view, const EntryPath& entryPath);

// Writes a step of start-up to the engine log from level 1.
void LogStartUpStep(GeneralEngine& engine, const std::string& text);

}  // namespace varkesh
