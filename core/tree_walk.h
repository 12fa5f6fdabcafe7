// The two walks of a tree that engines share, without recursion: every node before its
// children, and every inner node after its children.
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

}  // namespace tavimor
