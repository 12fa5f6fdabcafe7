// The typesetter's output: positioned text runs, rules, bracket curves and radicals, in points.
#pragma once

#include <string>
#include <vector>

namespace tavimor {

// The faces the typesetter asks for: the text face ("Times New Roman") for numbers and names of
// functions, its italic for letters, and the face of signs ("Symbol", whose signs are written
// here as Unicode characters: − ≤ ≥ → π °).
enum class Face { Text, Sign, Italic };

// How a front end measures text. Widths and heights are in points at the given size.
class FontMetrics {
 public:
  virtual ~FontMetrics() = default;
  virtual float TextWidth(const std::string& text, Face face, float size) const = 0;
  virtual float Ascent(Face face, float size) const = 0;
  virtual float Descent(Face face, float size) const = 0;
};

// Metrics for tests and the terminal: every character (UTF-8 code point) is half the size wide,
// ascent 0.8 and descent 0.2 of the size.
class FixedMetrics : public FontMetrics {
 public:
  float TextWidth(const std::string& text, Face face, float size) const override;
  float Ascent(Face, float size) const override { return 0.8f * size; }
  float Descent(Face, float size) const override { return 0.2f * size; }
};

enum class ItemKind {
  Text,      // `text` with its baseline at (x, y)
  Rule,      // a line from (x, y) to (x2, y2)
  Bracket,   // a curve from (x, y) down to (x, y2), `width` wide, opening to the right if `left`
  Radical,   // a root sign from (x, y2) up to (x + width, y), its bar running on to x2
  Polyline,  // a line through `points` (x, y pairs), `width` thick
  Dot,       // a filled disc at (x, y), `width` across
};

struct DisplayItem {
  ItemKind kind = ItemKind::Text;
  float x = 0.0f;
  float y = 0.0f;
  float x2 = 0.0f;
  float y2 = 0.0f;
  float width = 0.0f;
  bool left = true;
  std::string text;
  Face face = Face::Text;
  float size = 12.0f;
  std::vector<float> points;  // a Polyline's corners: x0, y0, x1, y1, ...
  int colour = -1;            // a colour number of the platform's 16; -1 the drawing's own
};

// A whole drawing: its box, the baseline from its top, and the items in its coordinates.
struct Drawing {
  float width = 0.0f;
  float height = 0.0f;
  float baseline = 0.0f;
  std::vector<DisplayItem> items;
};

}  // namespace tavimor
