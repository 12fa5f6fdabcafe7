// The mapping between world coordinates and the pixels of the plotting rectangle.
#pragma once

namespace tavimor {

// Eight 32-bit floats, as SetGraphMapping sets them. The vertical pixel pair is given as the
// pixel of yMin (the bottom) and the pixel of yMax (the top), so y grows upward on the screen.
struct GraphMapping {
  float pixel_left = 0, pixel_right = 1, pixel_bottom = 1, pixel_top = 0;
  float x_min = 0, x_max = 1, y_min = 0, y_max = 1;

  double WorldToPixelX(double x) const {
    return pixel_left + (x - x_min) * (pixel_right - pixel_left) / (x_max - x_min);
  }
  double WorldToPixelY(double y) const {
    return pixel_bottom + (y - y_min) * (pixel_top - pixel_bottom) / (y_max - y_min);
  }
  double PixelToWorldX(double px) const {
    return x_min + (px - pixel_left) * (x_max - x_min) / (pixel_right - pixel_left);
  }
  double PixelToWorldY(double py) const {
    return y_min + (py - pixel_bottom) * (y_max - y_min) / (pixel_top - pixel_bottom);
  }
};

inline GraphMapping SetGraphMapping(float pixel_left, float pixel_right, float pixel_bottom,
                                    float pixel_top, float x_min, float x_max, float y_min,
                                    float y_max) {
  return {pixel_left, pixel_right, pixel_bottom, pixel_top, x_min, x_max, y_min, y_max};
}

}  // namespace tavimor
