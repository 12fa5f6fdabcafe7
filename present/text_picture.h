// Mathematics set in two dimensions as lines of text, for the terminal: fractions stacked,
// exponents raised, brackets as tall as their content, roots with a radical.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/node_pool.h"
#include "core/session.h"
#include "present/rich_text.h"

namespace tavimor {

// A block of text lines of one width (in characters), with the row that holds its baseline.
struct TextBlock {
  std::vector<std::u32string> rows;
  int baseline = 0;

  int Width() const { return rows.empty() ? 0 : static_cast<int>(rows[0].size()); }
  int Height() const { return static_cast<int>(rows.size()); }
  static TextBlock Line(std::u32string text);
  // Blocks side by side on one baseline.
  static TextBlock Join(const std::vector<TextBlock>& blocks);
  std::vector<std::string> Utf8Rows() const;
};

std::u32string Utf32(const std::string& utf8);
void AppendUtf32(std::u32string& out, std::string_view utf8);
std::string Utf8(const std::u32string& text);

// One side of a picture set as text when it was drawn, with what setting it did to the pool.
struct TextSide {
  bool set = false;  // false: the side is set when it is shown
  TextBlock block;
  PoolFootprint footprint;
};

// The sides of a picture set as text, and the options they were set under.
struct TextSides {
  TextSide left;
  TextSide right;
  bool special_p = false;
  bool special_d = false;
  char decimal_point = '.';
};

// The sides set as text since the item was loaded, with what setting each did to the pool and the
// options it was set under.
struct SetSides {
  struct Entry {
    TextSide side;
    PoolFootprint setting;  // what setting it did to the pool then (the side keeps what showing
                            // it does)
    bool special_p = false;
    bool special_d = false;
    char decimal_point = '.';
  };
  std::unordered_map<std::string, Entry> by_text;
};

// Sets a side as text on a tree of its own, parsed and prepared exactly as the typesetter lays it
// out, so that it fails (the run-time error) where a drawing fails. A side the setting at the time
// it is shown would treat otherwise (pieces, a tree larger than the footprint follows) is left
// unset.
// A side set before since the item was loaded, under the same options, is not set again: its
// setting's footprint is replayed instead.
TextSide SetSideAsText(Session& s, const std::string& text);

// The picture's mathematics as a text block. Text that cannot be parsed is shown as it is.
TextBlock TextPicture(Session& s, const Picture& picture);

// Rich text as lines for a terminal: each line of text with its pictures set in two dimensions,
// tabs as four blanks.
std::vector<std::string> RenderForTerminal(Session& s, const RichText& text);

}  // namespace tavimor
