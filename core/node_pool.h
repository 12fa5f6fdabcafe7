// Taking and giving back nodes, and walking the links of a family.
#pragma once

#include <cstdint>
#include <string>

#include "core/session.h"

namespace tavimor {

// Chains the 1000 records anew and sets NodesInUse to 0; every earlier tree is gone.
void InitNodePool(Session& s);
// Takes the node behind the head of the free list; a full pool raises the run-time error.
NodeIdx NewNode(Session& s);
// Puts the node straight behind the head of the free list: a freed node is used again first.
void FreeNode(Session& s, NodeIdx n);
// Frees every descendant, deepest first, without recursion; the node keeps Text and Role and
// gets Kind " ".
void FreeChildren(Session& s, NodeIdx n);
// Walks Prev to the first sibling and reads its Parent; 0 for a root.
NodeIdx ParentOf(const Session& s, NodeIdx n);
// The link that holds a node that is not a root: its previous sibling's Next, or its parent's
// FirstChild. Rules take a node by this slot, since they may put another node there.
NodeIdx& SlotOf(Session& s, NodeIdx n);
// The number of children, or with `recursive` of all descendants.
std::int16_t CountChildren(const Session& s, NodeIdx n, bool recursive);
// Appends `child` as the last child of `parent`, keeping Parent on the first child only.
void AppendChild(Session& s, NodeIdx parent, NodeIdx child);

}  // namespace tavimor
