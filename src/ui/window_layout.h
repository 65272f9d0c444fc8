// Where the labels and the board view go in the main window's inner area.
#pragma once

#include <QRect>
#include <optional>

namespace varkesh {

// The smallest inner area laid out; the window is not let shrink below it.
inline constexpr int kSmallestInnerHeight = 100;
inline constexpr int kSmallestInnerWidth = 20;

struct WindowLayout {
  QRect gameDescription;
  QRect turn;
  QRect piece;
  QRect view;
};

// descriptionTextHeight and labelTextHeight are the heights of "Game" and
// "Turn" in the labels' font. Nothing for an empty or too small area.
std::optional<WindowLayout> LayOutWindow(int innerWidth, int innerHeight, int descriptionTextHeight,
                                         int labelTextHeight);

}  // namespace varkesh
