// The math typesetter: measures a tree and places it as a drawing of runs, rules, curves, radicals.
#include "present/typesetter.h"

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

#include "core/message_box.h"
#include "core/node_pool.h"
#include "core/node_shape.h"
#include "core/parse.h"
#include "core/pieces.h"
#include "present/display_form.h"
#include "present/text_picture.h"

namespace tavimor {

namespace {

constexpr const char* kMinus = "\xE2\x88\x92";    // −
constexpr const char* kTimes = "\xC2\xB7";        // ·
constexpr const char* kPi = "\xCF\x80";           // π
constexpr const char* kDegree = "\xC2\xB0";       // °
constexpr const char* kAtMost = "\xE2\x89\xA4";   // ≤
constexpr const char* kAtLeast = "\xE2\x89\xA5";  // ≥
constexpr const char* kArrow = "\xE2\x86\x92";    // →

struct Box {
  float width = 0.0f;
  float height = 0.0f;
  float base = 0.0f;
};

// Spacing as good mathematical typesetting has it, in ems of the size in hand: a medium space
// each side of a binary operator (none after a unary sign), none inside an exponent but a hair.
constexpr float kMediumSpace = 4.0f / 18.0f;
constexpr float kScriptSpace = 1.0f / 18.0f;
// An exponent's baseline stands at least this far above its base's baseline; above a tall base,
// its baseline is this far below the base's top (both in ems: of the base, of the exponent).
constexpr float kSuperscriptShift = 0.38f;
constexpr float kSuperscriptDrop = 0.386f;
// Room either side of a relation, besides the blanks of its drawn string.
constexpr float kRelationPad = 1.0f / 18.0f;
// Room after an italic letter, so that its exponent does not touch its slant.
constexpr float kItalicCorrection = 0.05f;

// A fraction set on one line (inside an exponent): the slash, and brackets around a row that
// would otherwise read wrongly, each as the x of its curve or -1.
struct InlineFraction {
  bool active = false;
  float base = 0.0f;
  float height = 0.0f;
  float slash_x = 0.0f;
  float top_open = -1.0f;
  float top_close = -1.0f;
  float bottom_open = -1.0f;
  float bottom_close = -1.0f;
};

// One tree measured and drawn. Per-node extras (offsets of a container's content, the times
// sign before a factor) live beside the pool's own layout fields.
class Layout {
 public:
  Layout(Session& s, const FontMetrics& metrics, float size)
      : s_(s),
        m_(metrics),
        base_size_(size),
        size_(size),
        sp_(metrics.TextWidth(" ", Face::Text, size)) {}

  // Measures the tree of `root` set at the base size.
  void MeasureTree(NodeIdx root) {
    node_size_[static_cast<std::size_t>(root)] = base_size_;
    inline_[static_cast<std::size_t>(root)] = false;
    MeasureAll(root);
  }
  void MeasureAll(NodeIdx n);
  void Draw(NodeIdx n, float x, float y, Drawing& out);
  // Measures at the base size, for what stands between drawings.
  float TextWidth(const std::string& text, Face face) const {
    return m_.TextWidth(text, face, base_size_);
  }
  float Ascent() const { return m_.Ascent(Face::Text, base_size_); }
  float Descent() const { return m_.Descent(Face::Text, base_size_); }
  float Size() const { return base_size_; }
  const FontMetrics& Metrics() const { return m_; }

 private:
  ExprNode& N(NodeIdx n) { return s_.Pool[n]; }
  // The size of the node in hand: an exponent is set smaller than its base.
  void UseSize(NodeIdx n) {
    size_ = node_size_[static_cast<std::size_t>(n)];
    sp_ = m_.TextWidth(" ", Face::Text, size_);
    inline_now_ = inline_[static_cast<std::size_t>(n)];
  }
  // The space each side of a binary operator: a medium space, a hair inside an exponent.
  float OperatorSpace() const { return (inline_now_ ? kScriptSpace : kMediumSpace) * size_; }
  // Whether a row of a fraction set on one line needs brackets to be read rightly: a sum, or a
  // denominator of more than one factor.
  bool RowNeedsBrackets(const std::vector<NodeIdx>& row, bool denominator) {
    if (row.size() > 1) return denominator;
    return row.size() == 1 && N(row[0]).Kind == kKindHiddenBracket;
  }
  Box MeasureInlineFraction(NodeIdx n, const std::vector<NodeIdx>& top,
                            const std::vector<NodeIdx>& bottom);
  float Width(const std::string& text, Face face) const { return m_.TextWidth(text, face, size_); }
  float CurrentAscent() const { return m_.Ascent(Face::Text, size_); }
  float CurrentDescent() const { return m_.Descent(Face::Text, size_); }
  void SetBox(NodeIdx n, const Box& b) {
    N(n).Width = b.width;
    N(n).Height = b.height;
    N(n).Base = b.base;
  }
  Box BoxOf(NodeIdx n) { return {N(n).Width, N(n).Height, N(n).Base}; }

  // The leaf's runs: text and face, in order.
  std::vector<std::pair<std::string, Face>> LeafRuns(NodeIdx n);
  float SignWidth(NodeIdx term);
  Box MeasureContent(NodeIdx n);  // the children laid as a sum, a product, or the sole child
  Box MeasureSum(NodeIdx n);
  Box MeasureProduct(NodeIdx n);
  float LayRow(const std::vector<NodeIdx>& row, float& base, float& depth);
  void DrawContent(NodeIdx n, float x, float y, Drawing& out);
  void AddText(Drawing& out, float x, float y, const std::string& text, Face face) {
    DisplayItem item;
    item.kind = ItemKind::Text;
    item.x = x;
    item.y = y;
    item.text = text;
    item.face = face;
    item.size = size_;
    out.items.push_back(item);
  }
  float BracketWidth(float height) const { return 0.25f * size_ + 0.05f * height; }

  Session& s_;
  const FontMetrics& m_;
  float base_size_;
  float size_;
  float sp_;
  bool inline_now_ = false;
  std::array<float, kPoolSize + 1> node_size_{};
  std::array<bool, kPoolSize + 1> inline_{};  // set on one line: inside an exponent
  std::array<InlineFraction, kPoolSize + 1> inline_fraction_{};
  std::array<float, kPoolSize + 1> content_x_{};
  std::array<float, kPoolSize + 1> content_y_{};
  std::array<bool, kPoolSize + 1> times_before_{};
  std::array<float, kPoolSize + 1> rule_y_{};         // a product's rule, or -1 with no denominator
  std::array<float, kPoolSize + 1> content_width_{};  // the width the rule spans
};

std::vector<std::pair<std::string, Face>> Layout::LeafRuns(NodeIdx n) {
  const ExprNode& node = N(n);
  const std::string& t = node.Text;
  if (node.Kind == kKindNumber) {
    if (t == "-") return {{kMinus, Face::Sign}};
    if (t == "+") return {{"+", Face::Sign}};
    if (!t.empty() && t[0] == '-') return {{kMinus, Face::Sign}, {t.substr(1), Face::Text}};
    return {{t, Face::Text}};
  }
  if (node.Kind == kKindVariable) {
    if (t == "p" && s_.SpecialP) return {{kPi, Face::Sign}};
    if (t == "d" && s_.SpecialD) return {{kDegree, Face::Sign}};
    return {{t, Face::Italic}};
  }
  return {{t, Face::Text}};
}

float Layout::SignWidth(NodeIdx term) {
  const ExprNode& node = N(term);
  if (node.Role == kRoleMinus) return Width(kMinus, Face::Sign);
  if (node.Role == kRoleLeadingPlus || (node.Role == kRolePlus && node.Prev != kNoNode)) {
    return Width("+", Face::Sign);
  }
  return 0.0f;
}

void Layout::MeasureAll(NodeIdx n) {
  const float size = node_size_[static_cast<std::size_t>(n)];
  for (NodeIdx c = N(n).FirstChild; c != kNoNode; c = N(c).Next) {
    // An exponent at seven tenths of its base, but not below half the size of the work space.
    const bool exponent = N(n).Kind == kKindPower && c == N(n).FirstChild;
    node_size_[static_cast<std::size_t>(c)] =
        exponent ? std::max(0.7f * size, 0.5f * base_size_) : size;
    inline_[static_cast<std::size_t>(c)] = exponent || inline_[static_cast<std::size_t>(n)];
    MeasureAll(c);
  }
  UseSize(n);
  ExprNode& node = N(n);
  content_x_[static_cast<std::size_t>(n)] = 0.0f;
  content_y_[static_cast<std::size_t>(n)] = 0.0f;
  if (node.FirstChild == kNoNode) {
    float width = 0.0f;
    for (const auto& [text, face] : LeafRuns(n)) width += Width(text, face);
    if (node.Kind == kKindVariable && node.Text == "d" && s_.SpecialD) width = sp_;
    SetBox(n, {width, CurrentAscent() + CurrentDescent(), CurrentAscent()});
    return;
  }
  if (node.Kind == kKindPower) {
    const NodeIdx e = node.FirstChild;
    const NodeIdx b = N(e).Next;
    const Box be = BoxOf(e);
    const Box bb = BoxOf(b);
    // The exponent right after its base, raised by the superscript shift; above a tall base
    // (a bracket, a fraction, a function) it hangs a little below the base's top.
    const bool letter = N(b).FirstChild == kNoNode && N(b).Kind == kKindVariable;
    const float kern = letter ? kItalicCorrection * size_ : 0.0f;
    const float exponent_size = node_size_[static_cast<std::size_t>(e)];
    const float over_tall_base =
        N(b).FirstChild == kNoNode ? 0.0f : bb.base - kSuperscriptDrop * exponent_size;
    const float shift =
        std::max({kSuperscriptShift * size_, over_tall_base, be.height - be.base + 0.1f * size_});
    const float ascent = std::max(bb.base, shift + be.base);
    const float depth = std::max(bb.height - bb.base, be.height - be.base - shift);
    SetBox(n, {bb.width + kern + be.width, ascent + depth, ascent});
    N(b).X = 0.0f;
    N(b).Y = ascent - bb.base;
    N(e).X = bb.width + kern;
    N(e).Y = ascent - shift - be.base;
    return;
  }
  const Box content = MeasureContent(n);
  if (node.Kind == kKindBracket) {
    const float pad = 0.05f * size_;
    const float curve = BracketWidth(content.height);
    content_x_[static_cast<std::size_t>(n)] = curve + pad;
    content_y_[static_cast<std::size_t>(n)] = pad;
    SetBox(n, {content.width + 2 * (curve + pad), content.height + 2 * pad, content.base + pad});
  } else if (node.Kind == kKindFunction) {
    const std::size_t open = node.Text.find('(');
    const std::string name = node.Text.substr(0, open);
    if (name == "sqrt") {
      const float check = 0.6f * size_;
      const float gap = 0.15f * size_;
      content_x_[static_cast<std::size_t>(n)] = check + 0.1f * size_;
      content_y_[static_cast<std::size_t>(n)] = gap;
      SetBox(n, {check + 0.2f * size_ + content.width, content.height + gap, content.base + gap});
    } else {
      const float pad = 0.05f * size_;
      const float curve = BracketWidth(content.height);
      const float name_width = Width(name, Face::Text);
      content_x_[static_cast<std::size_t>(n)] = name_width + curve + pad;
      content_y_[static_cast<std::size_t>(n)] = pad;
      SetBox(n, {name_width + content.width + 2 * (curve + pad), content.height + 2 * pad,
                 content.base + pad});
    }
  } else {
    SetBox(n, content);  // a sum or product of its own, or a hidden bracket
  }
}

Box Layout::MeasureContent(NodeIdx n) {
  const NodeIdx first = N(n).FirstChild;
  rule_y_[static_cast<std::size_t>(n)] = -1.0f;
  switch (ContentShapeOf(s_.Pool, n)) {
    case Shape::Sum: return MeasureSum(n);
    case Shape::Product: return MeasureProduct(n);
    case Shape::Power:
    case Shape::OneChild:
    case Shape::Number:
    case Shape::Letter:
    case Shape::Function:
    case Shape::SquareRoot:
    case Shape::Bracket:
    case Shape::HiddenBracket:
    case Shape::Broken: break;
  }
  N(first).X = 0.0f;
  N(first).Y = 0.0f;
  return BoxOf(first);
}

Box Layout::MeasureSum(NodeIdx n) {
  float x = 0.0f;
  float base = 0.0f;
  float depth = 0.0f;
  for (NodeIdx c = N(n).FirstChild; c != kNoNode; c = N(c).Next) {
    // A binary sign has a space each side; a unary sign at the front stands close to its term.
    const float sign = SignWidth(c);
    if (sign > 0.0f) x += (c == N(n).FirstChild ? 0.0f : 2 * OperatorSpace()) + sign;
    N(c).X = x;
    x += N(c).Width;
    base = std::max(base, N(c).Base);
    depth = std::max(depth, N(c).Height - N(c).Base);
  }
  for (NodeIdx c = N(n).FirstChild; c != kNoNode; c = N(c).Next) N(c).Y = base - N(c).Base;
  return {x, base + depth, base};
}

float Layout::LayRow(const std::vector<NodeIdx>& row, float& base, float& depth) {
  float x = 0.0f;
  base = 0.0f;
  depth = 0.0f;
  NodeIdx previous = kNoNode;
  for (const NodeIdx c : row) {
    const bool sign = previous != kNoNode && NeedsTimesSign(s_, previous, c);
    times_before_[static_cast<std::size_t>(c)] = sign;
    if (sign) x += 2 * OperatorSpace() + Width(kTimes, Face::Sign);
    N(c).X = x;
    x += N(c).Width;
    base = std::max(base, N(c).Base);
    depth = std::max(depth, N(c).Height - N(c).Base);
    previous = c;
  }
  for (const NodeIdx c : row) N(c).Y = base - N(c).Base;
  return x;
}

Box Layout::MeasureProduct(NodeIdx n) {
  std::vector<NodeIdx> top;
  std::vector<NodeIdx> bottom;
  for (NodeIdx c = N(n).FirstChild; c != kNoNode; c = N(c).Next) {
    (N(c).Role == kRoleDenominator ? bottom : top).push_back(c);
  }
  inline_fraction_[static_cast<std::size_t>(n)] = InlineFraction{};
  if (inline_now_ && !bottom.empty()) return MeasureInlineFraction(n, top, bottom);
  float top_base = 0.0f;
  float top_depth = 0.0f;
  const float top_width = LayRow(top, top_base, top_depth);
  if (bottom.empty()) return {top_width, top_base + top_depth, top_base};
  float bottom_base = 0.0f;
  float bottom_depth = 0.0f;
  const float bottom_width = LayRow(bottom, bottom_base, bottom_depth);
  // The rule a little wider than the wider row; the baseline of the whole at the rule.
  const float width = std::max(top_width, bottom_width) + sp_;
  const float gap = 0.15f * size_;
  const float rule = top_base + top_depth + gap;
  rule_y_[static_cast<std::size_t>(n)] = rule;
  content_width_[static_cast<std::size_t>(n)] = width;
  for (const NodeIdx c : top) N(c).X += (width - top_width) / 2;
  for (const NodeIdx c : bottom) {
    N(c).X += (width - bottom_width) / 2;
    N(c).Y += rule + gap;
  }
  return {width, rule + gap + bottom_base + bottom_depth, rule};
}

Box Layout::MeasureInlineFraction(NodeIdx n, const std::vector<NodeIdx>& top,
                                  const std::vector<NodeIdx>& bottom) {
  float top_base = 0.0f;
  float top_depth = 0.0f;
  const float top_width = LayRow(top, top_base, top_depth);
  float bottom_base = 0.0f;
  float bottom_depth = 0.0f;
  const float bottom_width = LayRow(bottom, bottom_base, bottom_depth);
  const float base = std::max(top_base, bottom_base);
  const float depth = std::max(top_depth, bottom_depth);
  const float curve = BracketWidth(base + depth);
  const float pad = 0.05f * size_;
  InlineFraction& f = inline_fraction_[static_cast<std::size_t>(n)];
  f.active = true;
  f.base = base;
  f.height = base + depth;
  float x = 0.0f;
  // One row in place at the pen, in brackets where it needs them.
  const auto place = [&](const std::vector<NodeIdx>& row, float row_width, float row_base,
                         bool bracketed, float& open, float& close) {
    if (bracketed) {
      x += pad;  // the curve bows out: room so that it does not touch the slash
      open = x;
      x += curve + pad;
    }
    for (const NodeIdx c : row) {
      N(c).X += x;
      N(c).Y += base - row_base;
    }
    x += row_width;
    if (bracketed) {
      x += pad;
      close = x;
      x += curve + pad;
    }
  };
  place(top, top_width, top_base, RowNeedsBrackets(top, false), f.top_open, f.top_close);
  x += OperatorSpace();
  f.slash_x = x;
  x += Width("/", Face::Text) + OperatorSpace();
  place(bottom, bottom_width, bottom_base, RowNeedsBrackets(bottom, true), f.bottom_open,
        f.bottom_close);
  return {x, base + depth, base};
}

void Layout::Draw(NodeIdx n, float x, float y, Drawing& out) {
  UseSize(n);
  const ExprNode& node = N(n);
  if (node.FirstChild == kNoNode) {
    float pen = x;
    for (const auto& [text, face] : LeafRuns(n)) {
      AddText(out, pen, y + node.Base, text, face);
      pen += Width(text, face);
    }
    return;
  }
  if (node.Kind == kKindPower) {
    for (NodeIdx c = node.FirstChild; c != kNoNode; c = N(c).Next) {
      Draw(c, x + N(c).X, y + N(c).Y, out);
    }
    return;
  }
  const float cx = x + content_x_[static_cast<std::size_t>(n)];
  const float cy = y + content_y_[static_cast<std::size_t>(n)];
  if (node.Kind == kKindBracket ||
      (node.Kind == kKindFunction && node.Text.rfind("sqrt(", 0) != 0)) {
    float left = x;
    if (node.Kind == kKindFunction) {
      const std::string name = node.Text.substr(0, node.Text.find('('));
      AddText(out, x, y + node.Base, name, Face::Text);
      left += Width(name, Face::Text);
    }
    const float curve = BracketWidth(node.Height - 0.1f * size_);
    DisplayItem open;
    open.kind = ItemKind::Bracket;
    open.x = left;
    open.y = y;
    open.y2 = y + node.Height;
    open.width = curve;
    open.size = size_;  // the stroke follows the size
    open.left = true;
    out.items.push_back(open);
    DisplayItem close = open;
    close.x = x + node.Width - curve;
    close.left = false;
    out.items.push_back(close);
  } else if (node.Kind == kKindFunction) {  // sqrt: a radical over the argument
    DisplayItem radical;
    radical.kind = ItemKind::Radical;
    radical.x = x;
    radical.y = y;
    radical.y2 = y + node.Height;
    radical.width = 0.6f * size_;
    radical.size = size_;
    radical.x2 = x + node.Width;
    out.items.push_back(radical);
  }
  DrawContent(n, cx, cy, out);
}

void Layout::DrawContent(NodeIdx n, float x, float y, Drawing& out) {
  const float rule = rule_y_[static_cast<std::size_t>(n)];
  for (NodeIdx c = N(n).FirstChild; c != kNoNode; c = N(c).Next) {
    UseSize(n);
    const ExprNode& child = N(c);
    if (IsSumRole(child.Role)) {
      const float sign = SignWidth(c);
      if (sign > 0.0f) {
        const char* text = child.Role == kRoleMinus ? kMinus : "+";
        const float space = c == N(n).FirstChild ? 0.0f : OperatorSpace();
        AddText(out, x + child.X - space - sign, y + child.Y + child.Base, text, Face::Sign);
      }
    } else if (times_before_[static_cast<std::size_t>(c)]) {
      const float dot = Width(kTimes, Face::Sign);
      AddText(out, x + child.X - OperatorSpace() - dot, y + child.Y + child.Base, kTimes,
              Face::Sign);
    }
    Draw(c, x + child.X, y + child.Y, out);
  }
  UseSize(n);
  if (const InlineFraction& f = inline_fraction_[static_cast<std::size_t>(n)]; f.active) {
    AddText(out, x + f.slash_x, y + f.base, "/", Face::Text);
    const float curve = BracketWidth(f.height);
    const auto bracket = [&](float at, bool left) {
      if (at < 0.0f) return;
      DisplayItem item;
      item.kind = ItemKind::Bracket;
      item.x = x + at;
      item.y = y;
      item.y2 = y + f.height;
      item.width = curve;
      item.left = left;
      item.size = size_;
      out.items.push_back(item);
    };
    bracket(f.top_open, true);
    bracket(f.top_close, false);
    bracket(f.bottom_open, true);
    bracket(f.bottom_close, false);
  }
  if (rule >= 0.0f) {
    DisplayItem line;
    line.kind = ItemKind::Rule;
    line.x = x;
    line.y = y + rule;
    line.x2 = x + content_width_[static_cast<std::size_t>(n)];
    line.y2 = y + rule;
    line.width = 0.05f * size_;
    out.items.push_back(line);
  }
}

// Lays out one text on its own temporary tree.
Drawing LayOutText(Session& s, Layout& layout, const std::string& text) {
  const NodeIdx root = NewNode(s);
  Drawing d;
  try {
    s.Pool[root].Text = text;
    ParseTree(s, root);
    PrepareForDisplay(s, root);
    layout.MeasureTree(root);
    d.width = s.Pool[root].Width;
    d.height = s.Pool[root].Height;
    d.baseline = s.Pool[root].Base;
    layout.Draw(root, 0.0f, 0.0f, d);
  } catch (...) {
    FreeChildren(s, root);
    FreeNode(s, root);
    throw;
  }
  FreeChildren(s, root);
  FreeNode(s, root);
  return d;
}

// Joins drawings in a row on one baseline, with texts between them, each with `pad` more room
// either side (a relation stands a thick space from its sides).
Drawing JoinInRow(const std::vector<Drawing>& parts, const std::vector<std::string>& between,
                  const std::vector<Face>& between_faces, Layout& layout, float pad = 0.0f) {
  Drawing out;
  float base = 0.0f;
  float depth = 0.0f;
  for (const Drawing& d : parts) {
    base = std::max(base, d.baseline);
    depth = std::max(depth, d.height - d.baseline);
  }
  base = std::max(base, layout.Ascent());
  depth = std::max(depth, layout.Descent());
  float x = 0.0f;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (i > 0) {
      x += pad;
      DisplayItem sep;
      sep.kind = ItemKind::Text;
      sep.x = x;
      sep.y = base;
      sep.text = between[i - 1];
      sep.face = between_faces[i - 1];
      sep.size = layout.Size();
      out.items.push_back(sep);
      x += layout.TextWidth(sep.text, sep.face) + pad;
    }
    const float dy = base - parts[i].baseline;
    for (DisplayItem item : parts[i].items) {
      item.x += x;
      item.x2 += x;
      item.y += dy;
      item.y2 += dy;
      out.items.push_back(item);
    }
    x += parts[i].width;
  }
  out.width = x;
  out.height = base + depth;
  out.baseline = base;
  return out;
}

// A side of a relation: its ";" pieces in a row.
Drawing LayOutSide(Session& s, Layout& layout, const std::string& text) {
  const int pieces = CountPieces(text, ";");
  if (pieces == 1) return LayOutText(s, layout, text);
  std::vector<Drawing> parts;
  for (int i = 1; i <= pieces; ++i) parts.push_back(LayOutText(s, layout, GetPiece(text, i, ";")));
  const std::vector<std::string> between(parts.size() - 1, ";  ");
  const std::vector<Face> faces(parts.size() - 1, Face::Text);
  return JoinInRow(parts, between, faces, layout);
}

// A drawing fails when its tree needs more nodes than the pool has left: the mathematics is too
// deep or too large. The command goes on without the drawing; its first failure is told, in
// words a student can read, and the command's later drawings are left out, so that a few hundred
// steps neither raise a few hundred boxes nor each parse a tree too deep for the pool again.
void ShowDrawFailure(Session& s, const std::string& name) {
  if (s.DrawFailureShown) return;
  s.DrawFailureShown = true;
  ShowCriticalMessage(s, name + ".  The expression is too deep or too large to draw; " +
                             "its drawings are left out until this command ends.");
}

// The sides of a picture set as text under the options of the moment.
std::shared_ptr<TextSides> NewTextSides(const Session& s) {
  auto sides = std::make_shared<TextSides>();
  sides->special_p = s.SpecialP;
  sides->special_d = s.SpecialD;
  sides->decimal_point = s.Dp();
  return sides;
}

}  // namespace

std::string RelationString(int code) {
  switch (code) {
    case kRelationEquals: return " = ";
    case kRelationLess: return " < ";
    case kRelationGreater: return " > ";
    case kRelationLessOrEqual: return std::string(" ") + kAtMost + " ";
    case kRelationGreaterOrEqual: return std::string(" ") + kAtLeast + " ";
    case kRelationArrow: return std::string("  ") + kArrow + "  ";
    default: return " ";
  }
}

bool NeedsTimesSign(const Session& s, NodeIdx previous, NodeIdx factor) {
  const ExprNode& node = s.Pool[factor];
  if (node.Text.empty()) return false;
  if (node.Kind == kKindNumber && (node.Text == "-" || node.Text == "+")) return false;
  const ExprNode& before = s.Pool[previous];
  if (before.Kind == kKindNumber && (before.Text == "-" || before.Text == "+")) return false;
  const char first = node.Text[0];
  return (first >= '0' && first <= '9') || first == '.' || first == ',' || first == '-';
}

Picture DrawAnyExpression(Session& s, const FontMetrics& metrics, const std::string& text) {
  Picture picture;
  picture.left = text;
  if (s.DrawFailureShown) return picture;  // drawings are left out for the rest of the command
  try {
    if (!s.Screen().PaintsDrawings()) {
      std::shared_ptr<TextSides> sides = NewTextSides(s);
      sides->left = SetSideAsText(s, text);
      picture.text = std::move(sides);
      return picture;
    }
    Layout layout(s, metrics, s.FontSize);
    picture.drawing = LayOutSide(s, layout, text);
  } catch (const RunTimeError&) {
    ShowDrawFailure(s, "Error in DrawAnyExpression");
    picture.drawing = Drawing{};
  }
  return picture;
}

Picture DrawAnyEquation(Session& s, const FontMetrics& metrics, int code, const std::string& left,
                        const std::string& right) {
  Picture picture;
  picture.relation = code;
  picture.left = left;
  picture.right = right;
  if (s.DrawFailureShown) return picture;
  try {
    if (!s.Screen().PaintsDrawings()) {
      std::shared_ptr<TextSides> text = NewTextSides(s);
      text->left = SetSideAsText(s, left);
      text->right = SetSideAsText(s, right);
      picture.text = std::move(text);
      return picture;
    }
    Layout layout(s, metrics, s.FontSize);
    std::vector<Drawing> sides{LayOutSide(s, layout, left), LayOutSide(s, layout, right)};
    picture.drawing = JoinInRow(sides, {RelationString(code)}, {Face::Sign}, layout,
                                kRelationPad * layout.Size());
  } catch (const RunTimeError&) {
    ShowDrawFailure(s, "Error in DrawAnyEquation");
    picture.drawing = Drawing{};
  }
  return picture;
}

float FixedMetrics::TextWidth(const std::string& text, Face, float size) const {
  int code_points = 0;
  for (const char c : text) {
    if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) ++code_points;
  }
  return 0.5f * size * static_cast<float>(code_points);
}

}  // namespace tavimor
