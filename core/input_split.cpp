// Cutting a validated input into its items and their two sides, and loading a side as a tree.
#include "core/input_split.h"

#include "core/number_text.h"
#include "core/parse.h"
#include "core/regenerate.h"

namespace tavimor {

std::vector<ItemSides> SplitInput(const std::string& text) {
  // One pass over the text, so that a set of many items is cut in linear time.
  std::vector<ItemSides> items;
  for (std::size_t from = 0;;) {
    const std::size_t at = text.find(';', from);
    const std::string item =
        text.substr(from, at == std::string::npos ? std::string::npos : at - from);
    const std::size_t equals = item.find('=');
    if (equals == std::string::npos) {
      items.push_back({item, ""});
    } else {
      items.push_back({item.substr(0, equals), item.substr(equals + 1)});
    }
    if (at == std::string::npos) break;
    from = at + 1;
  }
  return items;
}

void LoadSide(Session& s, NodeIdx n, const std::string& text) {
  s.Pool[n].Text = text;
  ParseTree(s, n);
  NormaliseNumbers(s, n);
  RegenerateAll(s, n);
}

}  // namespace tavimor
