// Cutting a validated input into its items and their two sides, and loading a side as a tree.
#pragma once

#include <string>
#include <vector>

#include "core/session.h"

namespace tavimor {

struct ItemSides {
  std::string left;
  std::string right;  // empty when the item has no "="
};

// The items of the input, each split at its first "=".
std::vector<ItemSides> SplitInput(const std::string& text);

// The text becomes the tree of the node: parsed, its numbers in normal form, its text regenerated.
void LoadSide(Session& s, NodeIdx n, const std::string& text);

}  // namespace tavimor
