// Text from trees: the canonical Text of every node, rebuilt from its children.
#pragma once

#include "core/session.h"

namespace tavimor {

// Recomputes Text of every node with children in the subtree, children first, the node last,
// without recursion. On a leaf it does nothing.
void RegenerateAll(Session& s, NodeIdx n);
// Recomputes Text of a node with at least one child from the Text of its children.
void RegenerateOne(Session& s, NodeIdx n);

}  // namespace tavimor
