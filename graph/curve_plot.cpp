// The curves of explicit, explicit polar and parametric equations: 300 segments each, an
// undefined point breaks the curve, and a step across the whole window is taken for a pole.
#include "graph/curve_plot.h"

#include <cmath>
#include <exception>

#include "core/evaluate.h"
#include "core/scoped_override.h"
#include "core/temp_tree.h"

namespace tavimor {

namespace {

constexpr double kPi = 3.14159265358979;

// A parsed curve whose letter is bound afresh for each point. The variable table of the
// evaluator is kept and put back, so the student's values are not disturbed.
class CurveTree {
 public:
  CurveTree(Session& s, const std::string& expression, char letter)
      : s_(s),
        keep_names_(s.VarNames),
        keep_values_(s.VarValues),
        keep_count_(s.VarCount),
        tree_(s, expression, TempTree::Depth::Whole),
        letter_(letter) {}

  // The value at a point, or kUndefinedValue where there is none (a pole, a root of a negative
  // number, a logarithm of zero or less, a value beyond a 32-bit float).
  float At(double value) {
    try {
      SetVarValue(s_, letter_, NodeValue{value});
      EvaluateAll(s_, tree_.Root());
      const double result = ValueAsNumber(s_, s_.Pool[tree_.Root()].Value);
      const auto single = static_cast<float>(result);
      if (!std::isfinite(single)) return kUndefinedValue;
      return single;
    } catch (const std::exception&) {
      return kUndefinedValue;
    }
  }

 private:
  Session& s_;
  ScopedOverride<std::vector<char>> keep_names_;
  ScopedOverride<std::vector<NodeValue>> keep_values_;
  ScopedOverride<std::int16_t> keep_count_;
  TempTree tree_;
  char letter_;
};

bool IsUndefined(float v) { return v == kUndefinedValue; }

}  // namespace

ClipCode ClipSegment(float& x1, float& y1, float& x2, float& y2, float low, float high) {
  const auto outside = [&](float y) { return y > high ? 1 : (y < low ? -1 : 0); };
  const int o1 = outside(y1);
  const int o2 = outside(y2);
  if (o1 == 0 && o2 == 0) return ClipCode::Inside;
  // Both beyond the same edge, or one on that edge and the other beyond it.
  if (o1 == o2) return ClipCode::Outside;
  const auto on_bound = [&](float y) { return y == high || y == low; };
  if ((o1 == 0 && on_bound(y1)) || (o2 == 0 && on_bound(y2))) return ClipCode::Outside;
  const auto cross = [&](float level) {
    return static_cast<float>(x1 + (level - y1) / (y2 - y1) * (x2 - x1));
  };
  if (o1 != 0 && o2 != 0) {
    const float level1 = o1 == 1 ? high : low;
    const float level2 = o2 == 1 ? high : low;
    const float nx1 = cross(level1);
    const float nx2 = cross(level2);
    x1 = nx1;
    y1 = level1;
    x2 = nx2;
    y2 = level2;
    return ClipCode::BothMoved;
  }
  if (o2 != 0) {
    const float level = o2 == 1 ? high : low;
    x2 = cross(level);
    y2 = level;
    return ClipCode::SecondMoved;
  }
  const float level = o1 == 1 ? high : low;
  x1 = cross(level);
  y1 = level;
  return ClipCode::FirstMoved;
}

CurveSamples SampleExplicit(Session& s, const std::string& expression, float xmin, float xmax) {
  CurveSamples out;
  CurveTree tree(s, expression, 'x');
  for (int i = 0; i <= kCurveSegments; ++i) {
    // Each x from its index, never by accumulation.
    const auto x = static_cast<float>(xmin + (static_cast<double>(xmax) - xmin) * i / 300.0);
    out.x[static_cast<std::size_t>(i)] = x;
    out.y[static_cast<std::size_t>(i)] = tree.At(x);
  }
  return out;
}

CurveSamples SampleExplicitPolar(Session& s, const std::string& expression) {
  CurveSamples out;
  CurveTree tree(s, expression, 't');
  for (int i = 0; i <= kCurveSegments; ++i) {
    const auto t = static_cast<float>(2 * kPi * i / 300.0);
    const float r = tree.At(t);
    const auto k = static_cast<std::size_t>(i);
    if (IsUndefined(r)) {
      out.x[k] = out.y[k] = kUndefinedValue;
    } else {
      // Always radians, whatever the option of degrees says.
      out.x[k] = static_cast<float>(r * std::cos(static_cast<double>(t)));
      out.y[k] = static_cast<float>(r * std::sin(static_cast<double>(t)));
    }
  }
  return out;
}

CurveSamples SampleParametric(Session& s, const std::string& x_expression,
                              const std::string& y_expression, float tmin, float tmax) {
  CurveSamples out;
  CurveTree x_tree(s, x_expression, 't');
  CurveTree y_tree(s, y_expression, 't');
  for (int i = 0; i <= kCurveSegments; ++i) {
    const double t = tmin + (static_cast<double>(tmax) - tmin) * i / 300.0;
    out.x[static_cast<std::size_t>(i)] = x_tree.At(t);
    out.y[static_cast<std::size_t>(i)] = y_tree.At(t);
  }
  return out;
}

int DrawCurve(DisplayList& out, const GraphMapping& map, const CurveSamples& samples, bool clip_x,
              GraphColour colour, int width) {
  int drawn = 0;
  bool open = false;  // the last item is a polyline that this segment may continue
  for (int i = 1; i <= kCurveSegments; ++i) {
    if (samples.Undefined(i - 1) || samples.Undefined(i)) {
      open = false;
      continue;
    }
    // On copies: a moved end never becomes the next segment's start.
    float x1 = samples.x[static_cast<std::size_t>(i - 1)];
    float y1 = samples.y[static_cast<std::size_t>(i - 1)];
    float x2 = samples.x[static_cast<std::size_t>(i)];
    float y2 = samples.y[static_cast<std::size_t>(i)];
    ClipCode code = ClipSegment(x1, y1, x2, y2, map.y_min, map.y_max);
    bool first_moved = code == ClipCode::FirstMoved;
    bool second_moved = code == ClipCode::SecondMoved;
    if (clip_x && code < ClipCode::BothMoved) {
      // The same clip with the coordinates swapped, against the x range.
      const ClipCode across = ClipSegment(y1, x1, y2, x2, map.x_min, map.x_max);
      first_moved = first_moved || across == ClipCode::FirstMoved;
      second_moved = second_moved || across == ClipCode::SecondMoved;
      if (across >= ClipCode::BothMoved) code = across;
    }
    if (code >= ClipCode::BothMoved) {
      open = false;
      continue;
    }
    const PixelPoint a{map.WorldToPixelX(x1), map.WorldToPixelY(y1)};
    const PixelPoint b{map.WorldToPixelX(x2), map.WorldToPixelY(y2)};
    if (open && !first_moved) {
      out.items.back().points.push_back(b);
    } else {
      out.items.push_back({GraphItem::Type::Polyline, colour, width, {a, b}, {}});
    }
    open = !second_moved;
    ++drawn;
  }
  return drawn;
}

}  // namespace tavimor
