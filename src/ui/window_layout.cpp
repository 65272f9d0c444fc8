#include "ui/window_layout.h"

#include <algorithm>

namespace varkesh {

std::optional<WindowLayout> LayOutWindow(int innerWidth, int innerHeight, int descriptionTextHeight,
                                         int labelTextHeight) {
  if (innerWidth < kSmallestInnerWidth || innerHeight < kSmallestInnerHeight) return {};

  WindowLayout layout;
  const int gap = 2;
  const int descriptionHeight = descriptionTextHeight + 4;
  const int labelHeight = labelTextHeight + 4;
  const int labelTop = gap + descriptionHeight + gap;
  const int viewTop = labelTop + labelHeight + gap;

  int side = innerWidth - 4;
  side = std::min(side, innerHeight - viewTop);
  side = std::max(side, 0);

  const int labelWidth = side / 2 - 1;
  layout.gameDescription = QRect(gap, gap, side, descriptionHeight);
  layout.turn = QRect(gap, labelTop, labelWidth, labelHeight);
  layout.piece = QRect(side - labelWidth + gap, labelTop, labelWidth, labelHeight);
  layout.view = QRect(gap, viewTop, side, side);
  return layout;
}

}  // namespace varkesh
