// The graph settings: the 26 fields of the settings string, the ten boxes of the settings panel
// and their validation, the plot margins.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/session.h"

namespace tavimor {

// The number of fields of the settings string and the number of curve colours in it.
inline constexpr int kGraphParmsFields = 26;
inline constexpr int kGraphColours = 10;

// The settings, field by field (1-based field numbers in the comments).
struct GraphParms {
  int width = 500;            // 1: drawing area, pixels
  int height = 500;           // 2
  float xmin = -10.0f;        // 3
  float xmax = 10.0f;         // 4
  float x_divisions = 10.0f;  // 5: numbered ticks
  float x_grid = 10.0f;       // 6: grid divisions
  float ymin = -10.0f;        // 7
  float ymax = 10.0f;         // 8
  float y_divisions = 10.0f;  // 9
  float y_grid = 10.0f;       // 10
  int axes = 2;               // 11: 1 frame, 2 cross hair; negative: axes off
  int grid = 0;               // 12: 1 on, 0 off
  int thickness = 2;          // 13: line width, pixels
  float t_now = 0.0f;         // 14
  float tmin = 0.0f;          // 15
  float tmax = 1.0f;          // 16
  std::array<std::int32_t, kGraphColours> colours{
      255, 16711680, 65280, 8421504, 8388736, 16711935, 8421376, 8388608, 32768, 0};  // 17-26

  bool AxesOn() const { return axes >= 1; }
  bool FrameStyle() const { return axes == 1 || axes == -1; }
  bool GridOn() const { return grid == 1; }
};

// Reads the settings string; a missing or non-numeric field reads as 0, as GetPiece and
// SafeValue make it.
GraphParms ReadGraphParms(const Session& s, const std::string& text);
// The settings string, numbers in the general number format with the session's separator.
std::string GraphParmsText(const Session& s, const GraphParms& parms);

// The ten number boxes of the settings panel: x min, x max, x divisions, x grid, y min, y max,
// y divisions, y grid, t min, t max.
using GraphBoxes = std::array<std::string, 10>;
GraphBoxes GraphBoxesOf(const Session& s, const GraphParms& parms);

// The outcome of validating the boxes: the 1-based box at fault (0: all is well) and its message.
struct GraphValidation {
  int culprit = 0;
  std::string message;
  bool Failed() const { return culprit != 0; }
};
GraphValidation ValidateGraphSettings(const Session& s, const GraphBoxes& boxes);
// Writes valid boxes into the settings (fields 3 to 10, 15 and 16).
void ApplyGraphBoxes(const Session& s, const GraphBoxes& boxes, GraphParms& parms);

// The plotting rectangle inside the drawing area: fixed margins left 33, right 38, top 27,
// bottom 40.
struct PlotMargins {
  int left = 33;
  int right = 462;
  int top = 27;
  int bottom = 460;
};
PlotMargins ComputePlotMargins(int width, int height);

}  // namespace tavimor
