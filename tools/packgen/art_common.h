// What the generated artwork shares: the team colours, the board's terrain,
// and the making of sprites that a mask cuts out.
#pragma once

#include <QColor>
#include <QDir>
#include <QFont>
#include <QImage>
#include <QPainterPath>
#include <QRect>
#include <QString>

#include "pack_entries.h"

namespace varkesh::art {

inline constexpr int kTeams = 4;
inline constexpr int kBoardSide = 17;
inline constexpr int kCell = 35;        // a square of the board, in pixels
inline constexpr int kBoardOrigin = 3;  // pixel of square (0, 0)

struct TeamPalette {
  QColor body;     // the team's colour
  QColor light;    // its highlight
  QColor rim;      // the outline around a body of the team's colour
  QColor ink;      // figures and letters drawn on the body
  QColor inkEdge;  // the outline of the ink
};

// Teams 1 to 4: White, Blue, Black, Red.
TeamPalette PaletteOf(int team);
const char* TeamWord(int team);

enum class Terrain { OffBoard, Battlefield, Moat, Keep };
Terrain TerrainAt(int x, int y);
// The team a moat or keep square belongs to; 0 elsewhere.
int RealmAt(int x, int y);
QRect SquareRect(int x, int y);
// The ground colour of a square on the board.
QColor SquareColour(int x, int y);

QImage NewSheet(int width, int height, const QColor& fill);
QFont ArtFont(const QString& family, int pixelSize, bool bold);

// A mask is white where the target shows through and black where the sprite
// goes, with nothing in between; it is painted without smoothing.
void PaintMaskShape(QImage& mask, const QPainterPath& shape, qreal outlineWidth);
// Blackens the sprite cell wherever its mask is white, so that no smoothed
// edge of the sprite lands outside the mask.
void CutToMask(QImage& sheet, const QRect& spriteCell, const QImage& maskSheet,
               const QPoint& maskCorner);
// The shape in its colour within an outline of the given width.
void PaintOutlinedShape(QImage& sheet, const QPainterPath& shape, const QColor& fill,
                        const QColor& outline, qreal outlineWidth);

PackEntry SavePicture(const QDir& out, const QImage& image, const QString& entry);

}  // namespace varkesh::art
