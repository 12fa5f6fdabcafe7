// Trees parsed whole from a text, kept for the item and copied into place when the text comes
// again.
#pragma once

#include "core/session.h"

namespace tavimor {

// Texts kept at most; then the list starts afresh.
inline constexpr std::size_t kKeptParsedTexts = 4096;

// ParseTree on a node that stands alone (no parent, no siblings, not parsed yet): a text parsed
// before in this item, under the same decimal point, is copied into place node by node instead
// (the same nodes, kinds, roles and texts, as many nodes taken from the pool); any other text is
// parsed, and kept if it has more than one node.
void ParseTreeKept(Session& s, NodeIdx root);

}  // namespace tavimor
