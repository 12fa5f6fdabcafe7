// Mathematics set in two dimensions as lines of text, for the terminal: fractions stacked,
// exponents raised, brackets as tall as their content, roots with a radical.
#include "present/text_picture.h"

#include <algorithm>
#include <deque>
#include <map>

#include "core/brackets.h"
#include "core/node_pool.h"
#include "core/node_shape.h"
#include "core/parse.h"
#include "core/pieces.h"
#include "core/temp_tree.h"
#include "present/display_form.h"
#include "present/typesetter.h"

namespace tavimor {

namespace {

const std::map<char32_t, char32_t> kSuperscripts = {
    {U'0', U'⁰'}, {U'1', U'¹'}, {U'2', U'²'}, {U'3', U'³'}, {U'4', U'⁴'}, {U'5', U'⁵'},
    {U'6', U'⁶'}, {U'7', U'⁷'}, {U'8', U'⁸'}, {U'9', U'⁹'}, {U'+', U'⁺'}, {U'-', U'⁻'},
    {U'a', U'ᵃ'}, {U'b', U'ᵇ'}, {U'c', U'ᶜ'}, {U'd', U'ᵈ'}, {U'e', U'ᵉ'}, {U'f', U'ᶠ'},
    {U'g', U'ᵍ'}, {U'h', U'ʰ'}, {U'i', U'ⁱ'}, {U'j', U'ʲ'}, {U'k', U'ᵏ'}, {U'l', U'ˡ'},
    {U'm', U'ᵐ'}, {U'n', U'ⁿ'}, {U'o', U'ᵒ'}, {U'p', U'ᵖ'}, {U'r', U'ʳ'}, {U's', U'ˢ'},
    {U't', U'ᵗ'}, {U'u', U'ᵘ'}, {U'v', U'ᵛ'}, {U'w', U'ʷ'}, {U'x', U'ˣ'}, {U'y', U'ʸ'},
    {U'z', U'ᶻ'}};

const char32_t* kRelationSigns[] = {U" ", U" = ", U" < ", U" > ", U" ≤ ", U" ≥ ", U"  →  "};

TextBlock Centered(const TextBlock& block, int width) {
  TextBlock out;
  const int left = (width - block.Width()) / 2;
  for (const auto& row : block.rows) {
    std::u32string line(static_cast<std::size_t>(left), U' ');
    line += row;
    line.resize(static_cast<std::size_t>(width), U' ');
    out.rows.push_back(line);
  }
  out.baseline = block.baseline;
  return out;
}

// A bracket column as tall as the block.
TextBlock Bracketed(const TextBlock& content, bool shown) {
  if (!shown) return content;
  const int h = content.Height();
  TextBlock open;
  TextBlock close;
  for (int i = 0; i < h; ++i) {
    char32_t o = U'(';
    char32_t c = U')';
    if (h > 1) {
      o = i == 0 ? U'⎛' : (i == h - 1 ? U'⎝' : U'⎜');
      c = i == 0 ? U'⎞' : (i == h - 1 ? U'⎠' : U'⎟');
    }
    open.rows.push_back(std::u32string(1, o));
    close.rows.push_back(std::u32string(1, c));
  }
  open.baseline = close.baseline = content.baseline;
  return TextBlock::Join({open, content, close});
}

class TextLayout {
 public:
  explicit TextLayout(Session& s) : s_(s) {}
  TextBlock Render(NodeIdx n);
  // Appends the tree as Render sets it when that is one row; false (with `row` partly written)
  // when some part of it takes more rows.
  bool Flat(NodeIdx n, std::u32string& row);

 private:
  bool FlatContent(NodeIdx n, std::u32string& row);
  const ExprNode& N(NodeIdx n) const { return s_.Pool[n]; }
  TextBlock Leaf(NodeIdx n);
  TextBlock Content(NodeIdx n);
  TextBlock Sum(NodeIdx n);
  TextBlock Row(const std::vector<NodeIdx>& factors);
  TextBlock Product(NodeIdx n);
  TextBlock Power(NodeIdx n);
  std::u32string Superscript(NodeIdx exponent);

  Session& s_;
};

TextBlock TextLayout::Leaf(NodeIdx n) {
  const ExprNode& node = N(n);
  const std::string& text = node.Text;
  if (node.Kind == kKindNumber && !text.empty() && text[0] == '-') {
    return TextBlock::Line(U"\u2212" + Utf32(text.substr(1)));
  }
  if (node.Kind == kKindVariable && text == "p" && s_.SpecialP) return TextBlock::Line(U"\u03C0");
  if (node.Kind == kKindVariable && text == "d" && s_.SpecialD) return TextBlock::Line(U"\u00B0");
  return TextBlock::Line(Utf32(text));
}

TextBlock TextLayout::Render(NodeIdx n) {
  const ExprNode& node = N(n);
  if (node.FirstChild == kNoNode) return Leaf(n);
  switch (ShapeOf(s_.Pool, n)) {
    case Shape::Power: return Power(n);
    case Shape::Bracket: return Bracketed(Content(n), true);
    case Shape::SquareRoot: {
      // A bar over the content, the root sign on its last row.
      TextBlock content = Content(n);
      TextBlock root;
      root.rows.push_back(U" " + std::u32string(static_cast<std::size_t>(content.Width()), U'_'));
      for (int i = 0; i < content.Height(); ++i) {
        const char32_t sign = i == content.Height() - 1 ? U'√' : U'│';
        root.rows.push_back(std::u32string(1, sign) + content.rows[static_cast<std::size_t>(i)]);
      }
      root.baseline = content.baseline + 1;
      return root;
    }
    case Shape::Function: {
      const std::string name = node.Text.substr(0, node.Text.find('('));
      return TextBlock::Join({TextBlock::Line(Utf32(name)), Bracketed(Content(n), true)});
    }
    case Shape::HiddenBracket:  // drawn as its content
    case Shape::Sum:
    case Shape::Product:
    case Shape::OneChild:
    case Shape::Number:
    case Shape::Letter:
    case Shape::Broken: break;
  }
  return Content(n);  // a sum or product of its own, or a hidden bracket
}

TextBlock TextLayout::Content(NodeIdx n) {
  const NodeIdx first = N(n).FirstChild;
  switch (ContentShapeOf(s_.Pool, n)) {
    case Shape::Sum: return Sum(n);
    case Shape::Product: return Product(n);
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
  return Render(first);
}

TextBlock TextLayout::Sum(NodeIdx n) {
  std::vector<TextBlock> parts;
  parts.reserve(8);
  for (NodeIdx c = N(n).FirstChild; c != kNoNode; c = N(c).Next) {
    const ExprNode& term = N(c);
    if (term.Role == kRoleMinus) {
      parts.push_back(TextBlock::Line(term.Prev == kNoNode ? U"−" : U" − "));
    } else if (term.Role == kRoleLeadingPlus) {
      parts.push_back(TextBlock::Line(U"+"));
    } else if (term.Prev != kNoNode) {
      parts.push_back(TextBlock::Line(U" + "));
    }
    parts.push_back(Render(c));
  }
  return TextBlock::Join(parts);
}

TextBlock TextLayout::Row(const std::vector<NodeIdx>& factors) {
  std::vector<TextBlock> parts;
  parts.reserve(2 * factors.size());
  NodeIdx previous = kNoNode;
  for (const NodeIdx c : factors) {
    if (previous != kNoNode && NeedsTimesSign(s_, previous, c))
      parts.push_back(TextBlock::Line(U"·"));
    parts.push_back(Render(c));
    previous = c;
  }
  if (parts.empty()) parts.push_back(TextBlock::Line(U"1"));
  return TextBlock::Join(parts);
}

TextBlock TextLayout::Product(NodeIdx n) {
  std::vector<NodeIdx> top;
  std::vector<NodeIdx> bottom;
  for (NodeIdx c = N(n).FirstChild; c != kNoNode; c = N(c).Next) {
    (N(c).Role == kRoleDenominator ? bottom : top).push_back(c);
  }
  TextBlock numerator = Row(top);
  if (bottom.empty()) return numerator;
  // A pseudo sign before a fraction stays in front of the rule.
  std::u32string sign;
  if (top.size() > 1 && N(top[0]).Kind == kKindNumber &&
      (N(top[0]).Text == "-" || N(top[0]).Text == "+")) {
    sign = N(top[0]).Text == "-" ? U"−" : U"+";
    numerator = Row(std::vector<NodeIdx>(top.begin() + 1, top.end()));
  }
  const TextBlock denominator = Row(bottom);
  const int width = std::max(numerator.Width(), denominator.Width()) + 2;
  TextBlock fraction;
  for (const auto& row : Centered(numerator, width).rows) fraction.rows.push_back(row);
  fraction.baseline = fraction.Height();
  fraction.rows.push_back(std::u32string(static_cast<std::size_t>(width), U'─'));
  for (const auto& row : Centered(denominator, width).rows) fraction.rows.push_back(row);
  if (sign.empty()) return fraction;
  return TextBlock::Join({TextBlock::Line(sign), fraction});
}

std::u32string TextLayout::Superscript(NodeIdx exponent) {
  std::string text = N(exponent).Text;
  if (N(exponent).Kind == kKindHiddenBracket) text = StripBrackets(text);
  std::u32string out;
  for (const char32_t c : Utf32(text)) {
    const auto it = kSuperscripts.find(c);
    if (it == kSuperscripts.end()) return U"";
    out += it->second;
  }
  return out;
}

TextBlock TextLayout::Power(NodeIdx n) {
  const NodeIdx e = N(n).FirstChild;
  const NodeIdx b = N(e).Next;
  TextBlock base = Render(b);
  const std::u32string small = (s_.SpecialP || s_.SpecialD) ? U"" : Superscript(e);
  if (!small.empty()) {
    // Superscript characters on the top row of the base.
    for (std::size_t i = 0; i < base.rows.size(); ++i) {
      base.rows[i] += i == 0 ? small : std::u32string(small.size(), U' ');
    }
    return base;
  }
  const TextBlock exponent = Render(e);
  TextBlock out;
  const int width = base.Width() + exponent.Width();
  for (const auto& row : exponent.rows) {
    out.rows.push_back(std::u32string(static_cast<std::size_t>(base.Width()), U' ') + row);
  }
  for (auto row : base.rows) {
    row.resize(static_cast<std::size_t>(width), U' ');
    out.rows.push_back(row);
  }
  out.baseline = exponent.Height() + base.baseline;
  return out;
}

bool TextLayout::Flat(NodeIdx n, std::u32string& row) {
  const ExprNode& node = N(n);
  if (node.FirstChild == kNoNode) {
    // As Leaf sets it.
    const std::string& text = node.Text;
    if (node.Kind == kKindNumber && !text.empty() && text[0] == '-') {
      row += U'\u2212';
      AppendUtf32(row, std::string_view(text).substr(1));
    } else if (node.Kind == kKindVariable && text == "p" && s_.SpecialP) {
      row += U'\u03C0';
    } else if (node.Kind == kKindVariable && text == "d" && s_.SpecialD) {
      row += U'\u00B0';
    } else {
      AppendUtf32(row, text);
    }
    return true;
  }
  switch (ShapeOf(s_.Pool, n)) {
    case Shape::Power: {
      const NodeIdx e = node.FirstChild;
      const std::u32string small = (s_.SpecialP || s_.SpecialD) ? U"" : Superscript(e);
      if (small.empty()) return false;  // the exponent is raised on a row of its own
      if (!Flat(N(e).Next, row)) return false;
      row += small;
      return true;
    }
    case Shape::Bracket:
      row += U'(';
      if (!FlatContent(n, row)) return false;
      row += U')';
      return true;
    case Shape::SquareRoot: return false;
    case Shape::Function:
      row += Utf32(node.Text.substr(0, node.Text.find('(')));
      row += U'(';
      if (!FlatContent(n, row)) return false;
      row += U')';
      return true;
    case Shape::HiddenBracket:
    case Shape::Sum:
    case Shape::Product:
    case Shape::OneChild:
    case Shape::Number:
    case Shape::Letter:
    case Shape::Broken: break;
  }
  return FlatContent(n, row);
}

bool TextLayout::FlatContent(NodeIdx n, std::u32string& row) {
  const NodeIdx first = N(n).FirstChild;
  switch (ContentShapeOf(s_.Pool, n)) {
    case Shape::Sum:
      for (NodeIdx c = first; c != kNoNode; c = N(c).Next) {
        const ExprNode& term = N(c);
        if (term.Role == kRoleMinus) {
          row += term.Prev == kNoNode ? U"−" : U" − ";
        } else if (term.Role == kRoleLeadingPlus) {
          row += U"+";
        } else if (term.Prev != kNoNode) {
          row += U" + ";
        }
        if (!Flat(c, row)) return false;
      }
      return true;
    case Shape::Product: {
      NodeIdx previous = kNoNode;
      for (NodeIdx c = first; c != kNoNode; c = N(c).Next) {
        if (N(c).Role == kRoleDenominator) return false;  // a fraction is stacked
      }
      for (NodeIdx c = first; c != kNoNode; c = N(c).Next) {
        if (previous != kNoNode && NeedsTimesSign(s_, previous, c)) row += U"·";
        if (!Flat(c, row)) return false;
        previous = c;
      }
      if (previous == kNoNode) row += U"1";
      return true;
    }
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
  return Flat(first, row);
}

// Mathematics nested deeper than this, or drawn taller than this many rows, is shown on one line
// as its text: set in two dimensions it would grow with the square of its depth (a root of a root
// ... 990 deep is 990 rows of 990 columns), and a few hundred steps of it would flood the
// terminal.
constexpr int kMostNesting = 24;
constexpr int kMostRows = 40;

namespace {

// The text parsed, prepared for display and set (straight on one row when it fits there), its
// tree given back to the pool however that ends.
TextBlock SetMathematics(Session& s, const std::string& text) {
  const TempTree tree(s, text, TempTree::Depth::Whole);
  PrepareForDisplay(s, tree.Root());
  TextLayout layout(s);
  std::u32string row;
  return layout.Flat(tree.Root(), row) ? TextBlock::Line(std::move(row))
                                       : layout.Render(tree.Root());
}

}  // namespace

TextBlock RenderText(Session& s, const std::string& text) {
  if (BracketNesting(text) > kMostNesting) return TextBlock::Line(Utf32(text));
  const int pieces = CountPieces(text, ";");
  if (pieces > 1) {
    std::vector<TextBlock> parts;
    for (int i = 1; i <= pieces; ++i) {
      if (i > 1) parts.push_back(TextBlock::Line(U";  "));
      parts.push_back(RenderText(s, GetPiece(text, i, ";")));
    }
    return TextBlock::Join(parts);
  }
  try {
    TextBlock block = SetMathematics(s, text);
    if (block.Height() > kMostRows) return TextBlock::Line(Utf32(text));
    return block;
  } catch (const RunTimeError&) {
    return TextBlock::Line(Utf32(text));
  }
}

// The most nodes a side set ahead may take: a larger one is set when it is shown.
constexpr int kMostNodesSetAhead = 48;

// A side set ahead, or set now: setting it now would leave the pool as the footprint does.
// The block is the side's own, or one set now into `storage`.
const TextBlock& SideBlock(Session& s, const std::string& text, const TextSides* sides,
                           const TextSide* side, TextBlock& storage) {
  if (side != nullptr && side->set && sides->special_p == s.SpecialP &&
      sides->special_d == s.SpecialD && sides->decimal_point == s.Dp() &&
      ReplayFootprint(s, side->footprint)) {
    return side->block;
  }
  storage = RenderText(s, text);
  return storage;
}

// A picture of mathematics as its parts before they are joined: the left side, and for a
// relation its sign and the right side. A sketch is set whole as the left side.
struct PictureParts {
  const TextBlock* left = nullptr;
  const TextBlock* right = nullptr;  // null without a relation
  int relation = kRelationNone;
};

bool IsOneRow(const TextBlock& block) { return block.Height() <= 1 && block.baseline == 0; }

// The parts of a picture, set as TextPicture sets them; blocks set now are kept in `storage`.
PictureParts PartsOf(Session& s, const Picture& picture, std::deque<TextBlock>& storage) {
  PictureParts parts;
  if (!picture.sketch.empty()) {
    storage.push_back(TextPicture(s, picture));
    parts.left = &storage.back();
    return parts;
  }
  const TextSides* sides = picture.text.get();
  const TextSide* left = sides != nullptr ? &sides->left : nullptr;
  storage.emplace_back();
  parts.left = &SideBlock(s, picture.left, sides, left, storage.back());
  if (!IsRelationCode(picture.relation)) return parts;
  const TextSide* right = sides != nullptr ? &sides->right : nullptr;
  storage.emplace_back();
  parts.right = &SideBlock(s, picture.right, sides, right, storage.back());
  parts.relation = picture.relation;
  return parts;
}

TextBlock Joined(const PictureParts& parts) {
  if (parts.right == nullptr) return *parts.left;
  return TextBlock::Join(
      {*parts.left, TextBlock::Line(kRelationSigns[parts.relation]), *parts.right});
}

}  // namespace

TextSide SetSideAsText(Session& s, const std::string& text) {
  TextSide side;
  if (CountPieces(text, ";") > 1) {
    // Each piece as the typesetter takes it; the whole is set when it is shown.
    for (int i = 1; i <= CountPieces(text, ";"); ++i) SetSideAsText(s, GetPiece(text, i, ";"));
    return side;
  }
  // The most sides kept for one item; a command that shows more starts the list anew.
  constexpr std::size_t kMostSetSides = 256;
  if (s.SetSidesOfItem == nullptr) s.SetSidesOfItem = std::make_shared<SetSides>();
  auto& kept = s.SetSidesOfItem->by_text;
  if (const auto at = kept.find(text); at != kept.end()) {
    const SetSides::Entry& entry = at->second;
    // Replayed only where setting it again would go the same way; a pool too short for it (where
    // setting it fails) sets it again.
    if (entry.special_p == s.SpecialP && entry.special_d == s.SpecialD &&
        entry.decimal_point == s.Dp() && ReplayFootprint(s, entry.setting)) {
      return entry.side;
    }
  }
  // A tree has at most about two nodes a character (a product or a sign makes one more); a text
  // whose tree needs more than this look-ahead is simply set again when it is shown.
  const int look_ahead = std::min(kMostNodesSetAhead,
                                  2 * static_cast<int>(std::min<std::size_t>(text.size(), 64)) + 8);
  const std::vector<NodeIdx> before = FreeListFront(s, look_ahead);
  TextBlock block;
  const bool followed =
      RunWithFootprint(s, before, side.footprint, [&] { block = SetMathematics(s, text); });
  if (!followed) return side;
  const PoolFootprint setting = side.footprint;
  // As RenderText sets it: too deep is shown as its text without a tree, too tall after one.
  if (BracketNesting(text) > kMostNesting) {
    side.footprint = PoolFootprint{};
    block = TextBlock::Line(Utf32(text));
  } else if (block.Height() > kMostRows) {
    block = TextBlock::Line(Utf32(text));
  }
  side.block = std::move(block);
  side.set = true;
  if (kept.size() >= kMostSetSides) kept.clear();
  kept.insert_or_assign(text, SetSides::Entry{side, setting, s.SpecialP, s.SpecialD, s.Dp()});
  return side;
}

TextBlock TextBlock::Line(std::u32string text) {
  TextBlock block;
  block.rows.push_back(std::move(text));
  return block;
}

TextBlock TextBlock::Join(const std::vector<TextBlock>& blocks) {
  int above = 0;
  int below = 0;
  for (const TextBlock& b : blocks) {
    above = std::max(above, b.baseline);
    below = std::max(below, b.Height() - 1 - b.baseline);
  }
  TextBlock out;
  const int height = above + below + 1;
  out.rows.assign(static_cast<std::size_t>(height), U"");
  out.baseline = above;
  int total = 0;
  for (const TextBlock& b : blocks) total += b.Width();
  for (auto& row : out.rows) row.reserve(static_cast<std::size_t>(total));
  // Each block in place: its rows cut or padded to its width, blank rows above and below it.
  for (const TextBlock& b : blocks) {
    const auto width = static_cast<std::size_t>(b.Width());
    const int top = above - b.baseline;
    for (int i = 0; i < height; ++i) {
      std::u32string& row = out.rows[static_cast<std::size_t>(i)];
      const int r = i - top;
      if (r >= 0 && r < b.Height()) {
        const std::u32string& piece = b.rows[static_cast<std::size_t>(r)];
        const std::size_t kept = std::min(width, piece.size());
        row.append(piece, 0, kept);
        row.append(width - kept, U' ');
      } else {
        row.append(width, U' ');
      }
    }
  }
  return out;
}

std::vector<std::string> TextBlock::Utf8Rows() const {
  std::vector<std::string> out;
  for (const auto& row : rows) out.push_back(Utf8(row));
  return out;
}

std::u32string Utf32(const std::string& utf8) {
  std::u32string out;
  out.reserve(utf8.size());
  AppendUtf32(out, utf8);
  return out;
}

void AppendUtf32(std::u32string& out, std::string_view utf8) {
  for (std::size_t i = 0; i < utf8.size();) {
    const auto c = static_cast<unsigned char>(utf8[i]);
    int extra = 0;
    char32_t code = c;
    if (c >= 0xF0) {
      extra = 3;
      code = c & 0x07;
    } else if (c >= 0xE0) {
      extra = 2;
      code = c & 0x0F;
    } else if (c >= 0xC0) {
      extra = 1;
      code = c & 0x1F;
    }
    ++i;
    for (int k = 0; k < extra && i < utf8.size(); ++k, ++i) {
      code = (code << 6) | (static_cast<unsigned char>(utf8[i]) & 0x3F);
    }
    out += code;
  }
}

std::string Utf8(const std::u32string& text) {
  std::string out;
  std::size_t bytes = 0;
  for (const char32_t c : text) bytes += c < 0x80 ? 1 : (c < 0x800 ? 2 : (c < 0x10000 ? 3 : 4));
  out.reserve(bytes);
  for (const char32_t c : text) {
    if (c < 0x80) {
      out += static_cast<char>(c);
    } else if (c < 0x800) {
      out += static_cast<char>(0xC0 | (c >> 6));
      out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
      out += static_cast<char>(0xE0 | (c >> 12));
      out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
      out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
      out += static_cast<char>(0xF0 | (c >> 18));
      out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
      out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
      out += static_cast<char>(0x80 | (c & 0x3F));
    }
  }
  return out;
}

TextBlock TextPicture(Session& s, const Picture& picture) {
  if (!picture.sketch.empty()) {
    TextBlock block;
    std::size_t width = 0;
    for (const std::string& row : picture.sketch) {
      block.rows.push_back(Utf32(row));
      width = std::max(width, block.rows.back().size());
    }
    for (std::u32string& row : block.rows) row.resize(width, U' ');
    block.baseline = static_cast<int>(block.rows.size()) / 2;
    return block;
  }
  // Left before right, as they would be set now.
  std::deque<TextBlock> storage;
  return Joined(PartsOf(s, picture, storage));
}

namespace {

bool IsAscii(const std::string& text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// A text run as the row of a one-line block writes it: as it stands when it is ASCII, else
// through its code points (which mends what is not UTF-8 as every row does).
void AppendRunText(std::string& row, const std::string& text) {
  if (IsAscii(text)) {
    row += text;
  } else {
    row += Utf8(Utf32(text));
  }
}

}  // namespace

std::vector<std::string> RenderForTerminal(Session& s, const RichText& text) {
  std::vector<std::string> lines;
  // The runs of the line so far, and the pictures among them set as blocks.
  std::vector<const RichRun*> runs;
  std::vector<PictureParts> pictures;
  std::deque<TextBlock> storage;  // the blocks of the line set now, not kept by a picture
  bool one_row = true;
  auto flush = [&]() {
    if (runs.empty()) {
      lines.emplace_back();
      return;
    }
    if (one_row) {
      // Every block of the line is one row (or none): joined, they are that row after row.
      std::string row;
      std::size_t picture = 0;
      for (const RichRun* run : runs) {
        switch (run->kind) {
          case RunKind::Text: AppendRunText(row, run->text); break;
          case RunKind::Tab: row += "    "; break;
          case RunKind::Picture: {
            const PictureParts& parts = pictures[picture++];
            if (parts.left->Height() == 1) row += Utf8(parts.left->rows[0]);
            if (parts.right != nullptr) {
              row += Utf8(kRelationSigns[parts.relation]);
              if (parts.right->Height() == 1) row += Utf8(parts.right->rows[0]);
            }
            break;
          }
          case RunKind::LineEnd: break;
        }
      }
      while (!row.empty() && row.back() == ' ') row.pop_back();
      lines.push_back(std::move(row));
    } else {
      std::vector<TextBlock> line;
      line.reserve(runs.size());
      std::size_t picture = 0;
      for (const RichRun* run : runs) {
        switch (run->kind) {
          case RunKind::Text: line.push_back(TextBlock::Line(Utf32(run->text))); break;
          case RunKind::Tab: line.push_back(TextBlock::Line(U"    ")); break;
          case RunKind::Picture: line.push_back(Joined(pictures[picture++])); break;
          case RunKind::LineEnd: break;
        }
      }
      for (std::string row : TextBlock::Join(line).Utf8Rows()) {
        while (!row.empty() && row.back() == ' ') row.pop_back();
        lines.push_back(std::move(row));
      }
    }
    runs.clear();
    pictures.clear();
    storage.clear();
    one_row = true;
  };
  for (const RichRun& run : text) {
    switch (run.kind) {
      case RunKind::Text:
      case RunKind::Tab: runs.push_back(&run); break;
      case RunKind::Picture:
        runs.push_back(&run);
        pictures.push_back(PartsOf(s, run.picture, storage));
        if (!IsOneRow(*pictures.back().left) ||
            (pictures.back().right != nullptr && !IsOneRow(*pictures.back().right))) {
          one_row = false;
        }
        break;
      case RunKind::LineEnd: flush(); break;
    }
  }
  if (!runs.empty()) flush();
  return lines;
}

}  // namespace tavimor
