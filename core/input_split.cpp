// Cutting a validated input into its items and their two sides, and loading a side as a tree.
#include "core/input_split.h"

#include "core/number_text.h"
#include "core/parse.h"
#include "core/pieces.h"
#include "core/regenerate.h"

namespace tavimor {

std::vector<ItemSides> SplitInput(const std::string& text) {
  std::vector<ItemSides> items;
  const int count = CountPieces(text, ";");
  for (int i = 1; i <= count; ++i) {
    const std::string item = count == 1 ? text : GetPiece(text, i, ";");
    const std::size_t equals = item.find('=');
    if (equals == std::string::npos) {
      items.push_back({item, ""});
    } else {
      items.push_back({item.substr(0, equals), item.substr(equals + 1)});
    }
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
