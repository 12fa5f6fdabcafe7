// Trees parsed whole from a text, kept for the item and copied into place when the text comes
// again.
#pragma once

#include "core/session.h"

namespace tavimor {

// Texts kept at most; then the list starts afresh.
inline constexpr std::size_t kKeptParsedTexts = 4096;

// ParseTree on a node that stands alone (no parent, no siblings, not parsed yet): a text parsed
// before in this item, under the same decimal point, is copied into place node by node instead
// (the same kinds, roles and texts, the nodes taken from the pool in the order the parser takes
// them, so the very same nodes); any other text is parsed, and kept if it has more than one node.
void ParseTreeKept(Session& s, NodeIdx root);

}  // namespace tavimor
