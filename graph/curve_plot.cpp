// The curves of explicit, explicit polar and parametric equations: 300 segments each, an
// undefined point breaks the curve, and a step across the whole window is taken for a pole.
#include "graph/curve_plot.h"

#include <cmath>

#include "graph/curve_tree.h"

namespace tavimor {

namespace {

constexpr double kPi = 3.14159265358979;

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

double ParameterAt(double tmin, double tmax, int k) {
  if (k >= kCurveSegments) return tmax;
  return tmin + (tmax - tmin) * k / 300.0;
}

CurveSamples SampleExplicit(Session& s, const std::string& expression, float xmin, float xmax) {
  CurveSamples out;
  CurveTree tree(s, expression);
  for (int i = 0; i <= kCurveSegments; ++i) {
    // Each x from its index, never by accumulation.
    const auto x = static_cast<float>(xmin + (static_cast<double>(xmax) - xmin) * i / 300.0);
    out.x[static_cast<std::size_t>(i)] = x;
    out.y[static_cast<std::size_t>(i)] = tree.At('x', x);
  }
  return out;
}

CurveSamples SamplePolarRadius(Session& s, const std::string& expression) {
  CurveSamples out;
  CurveTree tree(s, expression);
  for (int i = 0; i <= kCurveSegments; ++i) {
    const auto t = static_cast<float>(2 * kPi * i / 300.0);
    const float r = tree.At('t', t);
    const auto k = static_cast<std::size_t>(i);
    out.x[k] = t;
    out.y[k] = IsUndefined(r) ? kUndefinedValue : r;
  }
  return out;
}

CurveSamples SampleExplicitPolar(Session& s, const std::string& expression) {
  CurveSamples out = SamplePolarRadius(s, expression);
  for (std::size_t k = 0; k < out.x.size(); ++k) {
    if (out.y[k] == kUndefinedValue) {
      out.x[k] = kUndefinedValue;
      continue;
    }
    // Always radians, whatever the option of degrees says.
    const double t = static_cast<double>(out.x[k]);
    const double r = static_cast<double>(out.y[k]);
    out.x[k] = static_cast<float>(r * std::cos(t));
    out.y[k] = static_cast<float>(r * std::sin(t));
  }
  return out;
}

CurveSamples SampleParametric(Session& s, const std::string& x_expression,
                              const std::string& y_expression, float tmin, float tmax) {
  CurveSamples out;
  CurveTree x_tree(s, x_expression);
  CurveTree y_tree(s, y_expression);
  for (int i = 0; i <= kCurveSegments; ++i) {
    const double t = ParameterAt(tmin, tmax, i);
    out.x[static_cast<std::size_t>(i)] = x_tree.At('t', t);
    out.y[static_cast<std::size_t>(i)] = y_tree.At('t', t);
  }
  return out;
}

int DrawCurve(DisplayList& out, const GraphMapping& map, const CurveSamples& samples, bool clip_x,
              GraphColour colour, int width) {
  return DrawWorldPoints(out, map, samples.x.data(), samples.y.data(), kCurveSegments + 1,
                         clip_x ? ClipTo::YThenX : ClipTo::Y, colour, width);
}

int DrawWorldPoints(DisplayList& out, const GraphMapping& map, const float* xs, const float* ys,
                    int count, ClipTo clip, GraphColour colour, int width) {
  int drawn = 0;
  bool open = false;  // the last item is a polyline that this segment may continue
  for (int i = 1; i < count; ++i) {
    const auto k = static_cast<std::size_t>(i);
    if (IsUndefined(xs[k - 1]) || IsUndefined(ys[k - 1]) || IsUndefined(xs[k]) ||
        IsUndefined(ys[k])) {
      open = false;
      continue;
    }
    // On copies: a moved end never becomes the next segment's start.
    float x1 = xs[k - 1];
    float y1 = ys[k - 1];
    float x2 = xs[k];
    float y2 = ys[k];
    ClipCode code = ClipCode::Inside;
    if (clip != ClipTo::Nothing) code = ClipSegment(x1, y1, x2, y2, map.y_min, map.y_max);
    bool first_moved = code == ClipCode::FirstMoved;
    bool second_moved = code == ClipCode::SecondMoved;
    if (clip == ClipTo::YThenX && code < ClipCode::BothMoved) {
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
