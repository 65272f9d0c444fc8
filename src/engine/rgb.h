// A colour of the drawing engine: red, green and blue from 0 to 255.
#pragma once

namespace varkesh {

struct Rgb {
  int red = 0;
  int green = 0;
  int blue = 0;
  bool operator==(const Rgb&) const = default;
};

}  // namespace varkesh
