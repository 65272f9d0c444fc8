#include "ui/board_layout.h"

#include <array>
#include <cstdlib>

namespace varkesh {
namespace {

constexpr int kBoardOffset = 3;
constexpr int kPieceInset = 2;
constexpr int kKinds = 7;
constexpr int kOtherKindX = 195;
constexpr int kOtherTeamY = 105;
constexpr int kFurtherTenShift = 7;

struct DungeonCorner {
  int baseX, baseY, stepX, stepY;
};

// White, Blue, Black, Red: bottom right, bottom left, top left, top right.
constexpr std::array<DungeonCorner, 4> kDungeonCorners{{
    {497, 548, -35, -35},
    {23, 497, 35, -35},
    {73, 22, 35, 35},
    {548, 73, -35, 35},
}};

// By the prisoner's index modulo 10: four in the first row, three, two, one.
constexpr std::array<int, 10> kDungeonColumn{0, 0, 1, 2, 3, 0, 1, 2, 0, 1};
constexpr std::array<int, 10> kDungeonRow{3, 0, 0, 0, 0, 1, 1, 1, 2, 2};

int Sign(int value) {
  return (value > 0) - (value < 0);
}

}  // namespace

PixelPoint SquareCorner(int x, int y) {
  return {kSquarePixels * x + kBoardOffset, kSquarePixels * y + kBoardOffset};
}

PixelPoint PieceCorner(int x, int y) {
  PixelPoint corner = SquareCorner(x, y);
  return {corner.x + kPieceInset, corner.y + kPieceInset};
}

PixelPoint SpriteCell(int team, int piece) {
  int kind = std::abs(piece);
  return {kind >= 1 && kind <= kKinds ? (kind - 1) * kPiecePixels : kOtherKindX,
          team >= 1 && team <= 4 ? (team - 1) * kPiecePixels : kOtherTeamY};
}

PixelPoint DungeonPlace(int team, int index) {
  const DungeonCorner& corner = kDungeonCorners[static_cast<std::size_t>(team - 1)];
  int position = index % 10;
  int ten = (index - 1) / 10;
  return {corner.baseX + corner.stepX * kDungeonColumn[position] +
              ten * kFurtherTenShift * Sign(corner.stepX),
          corner.baseY + corner.stepY * kDungeonRow[position] +
              ten * kFurtherTenShift * Sign(corner.stepY)};
}

int MarkerRow(int team) {
  return team >= 1 && team <= 4 ? team : kPreviewRow;
}

std::vector<PathCell> MovePath(int fromX, int fromY, int toX, int toY) {
  constexpr int kHalf = 17;
  std::vector<PathCell> path;
  int x = fromX;
  int y = fromY;
  while (x != toX || y != toY) {
    int dx = std::abs(toX - x);
    int dy = std::abs(toY - y);
    int sx = Sign(toX - x);
    int sy = Sign(toY - y);
    if (dx == dy) {
      x += sx;
      y += sy;
      int cell = sx > 0 ? (sy > 0 ? 385 : 280) : (sy > 0 ? 315 : 350);
      PixelPoint corner = SquareCorner(x, y);
      path.push_back({cell, {corner.x - kHalf * sx, corner.y - kHalf * sy}});
    } else if (dx > dy) {
      x += sx;
      PixelPoint corner = SquareCorner(x, y);
      path.push_back({sx > 0 ? 175 : 140, {corner.x - kHalf * sx, corner.y}});
    } else {
      y += sy;
      PixelPoint corner = SquareCorner(x, y);
      path.push_back({sy > 0 ? 245 : 210, {corner.x, corner.y - kHalf * sy}});
    }
  }
  return path;
}

}  // namespace varkesh
