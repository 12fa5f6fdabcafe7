// The walks of a tree that engines share, without recursion: every node before its children,
// every inner node after its children, and the slots in the order of the simplify loop.
#pragma once

#include "core/node_pool.h"

namespace tavimor {

// Calls `visit(n)` on the node and every descendant, each node before its children, left to
// right.
template <typename Visit>
void ForEachNodeParentFirst(Session& s, NodeIdx root, Visit visit) {
  WalkGuard guard;
  NodeIdx cur = root;
  for (;;) {
    guard.Step();
    visit(cur);
    if (s.Pool[cur].FirstChild != kNoNode) {
      cur = s.Pool[cur].FirstChild;
      continue;
    }
    while (cur != root && s.Pool[cur].Next == kNoNode) {
      cur = ParentOf(s, cur);
      guard.Step();
    }
    if (cur == root) return;
    cur = s.Pool[cur].Next;
  }
}

// Calls `visit(n)` on every node with children in the subtree, children first, the root last.
// On a leaf it does nothing.
template <typename Visit>
void ForEachInnerNodeChildrenFirst(Session& s, NodeIdx root, Visit visit) {
  NodeIdx cur = s.Pool[root].FirstChild;
  WalkGuard guard;
  while (cur != kNoNode) {
    guard.Step();
    if (s.Pool[cur].FirstChild != kNoNode) {
      cur = s.Pool[cur].FirstChild;
      continue;
    }
    // At the last sibling of a family: its parent is complete.
    while (s.Pool[cur].Next == kNoNode) {
      const NodeIdx parent = ParentOf(s, cur);
      visit(parent);
      if (parent == root) return;
      cur = parent;
      guard.Step();
    }
    cur = s.Pool[cur].Next;
  }
}

// Offers the slots of the tree (a parent's FirstChild or a sibling's Next, so that `test` may
// replace the node there) to `test(slot)` until it returns true, in the order of the simplify
// loop: with `every_slot` every node, leaves included, each family from its last child to its
// first; otherwise every node with children, children first. The root comes last.
template <typename Test>
bool ForEachSlotUntil(Session& s, NodeIdx& root, bool every_slot, Test test) {
  NodePool& pool = s.Pool;
  if (pool[root].FirstChild == kNoNode) return every_slot && test(root);
  WalkGuard guard;
  NodeIdx cur = pool[root].FirstChild;
  for (;;) {
    guard.Step();
    while (pool[cur].FirstChild != kNoNode) cur = pool[cur].FirstChild;
    if (pool[cur].Next != kNoNode) {
      cur = pool[cur].Next;
      continue;
    }
    // The end of a chain: back to its first node, every slot on the way.
    for (;;) {
      guard.Step();
      while (pool[cur].Prev != kNoNode) {
        guard.Step();
        const NodeIdx prev = pool[cur].Prev;
        if (every_slot && test(pool[prev].Next)) return true;
        cur = prev;
      }
      const NodeIdx parent = pool[cur].Parent;
      if (every_slot && test(pool[parent].FirstChild)) return true;
      if (parent == root) return test(root);
      if (!every_slot && test(SlotOf(s, parent))) return true;
      cur = parent;
      if (pool[cur].Next != kNoNode) {
        cur = pool[cur].Next;
        break;
      }
    }
  }
}

}  // namespace tavimor
