// Where things stand on the 600 by 600 view and on the picture sheets: the
// squares, the sprites, the prisoners in the corners and the cells of a
// move's path. Plain arithmetic, so that it can be checked without drawing.
#pragma once

#include <vector>

namespace varkesh {

inline constexpr int kViewPixels = 600;
inline constexpr int kSquarePixels = 35;
inline constexpr int kPiecePixels = 30;

// Columns of the move sheet "history".
inline constexpr int kMoveStartCell = 0;
inline constexpr int kMoveEndCell = 35;
inline constexpr int kCaptureEndCell = 70;
inline constexpr int kFrostCell = 105;
inline constexpr int kPreviewRow = 5;

struct PixelPoint {
  int x = 0;
  int y = 0;
  bool operator==(const PixelPoint&) const = default;
};

// The top left corner of a square's cell, 35 by 35 pixels.
PixelPoint SquareCorner(int x, int y);
// The top left corner of the piece standing on a square, 30 by 30 pixels.
PixelPoint PieceCorner(int x, int y);
// The cell of a piece in "gamepieces"; a frozen piece by its kind's value.
PixelPoint SpriteCell(int team, int piece);
// Where a team's prisoner with the given index (from 1) is drawn: triangles
// of ten growing from the corners, each further ten 7 pixels further in.
PixelPoint DungeonPlace(int team, int index);
// The row of the move sheet that holds a team's markers; the preview row
// for anything that is not a team.
int MarkerRow(int team);

struct PathCell {
  int cellX = 0;  // column of the move sheet
  PixelPoint at;  // where the cell is drawn, half a square back on the path
  bool operator==(const PathCell&) const = default;
};

// The step markers of a move, from the start square to the target: straight
// while one distance is larger, then diagonally.
std::vector<PathCell> MovePath(int fromX, int fromY, int toX, int toY);

}  // namespace varkesh
