// Taking and giving back nodes, and walking the links of a family.
#include "core/node_pool.h"

#include <algorithm>

namespace tavimor {

void NodePool::Init() {
  const int last = std::max<int>(touched_, kRightRoot);
  for (int i = 1; i <= last; ++i) {
    // Every field as in a fresh node, reset in place so the texts keep their storage.
    ExprNode& r = (*records_)[static_cast<std::size_t>(i)];
    r.Parent = r.FirstChild = kNoNode;
    r.Kind = r.Role = ' ';
    r.Text.clear();
    r.Value = std::int32_t{0};
    r.X = r.Y = r.Width = r.Height = r.Base = r.Scratch1 = r.Scratch2 = 0.0f;
    r.Prev = static_cast<NodeIdx>(i - 1);
    r.Next = static_cast<NodeIdx>(i == kPoolSize ? 0 : i + 1);
  }
  NodesInUse = 0;
  touched_ = kNoNode;
}

void InitNodePool(Session& s) { s.Pool.Init(); }

NodeIdx NewNode(Session& s) {
  NodePool& pool = s.Pool;
  const NodeIdx result = pool[kFreeListHead].Next;
  ExprNode& node = pool[result];  // 0 when the list is empty: the run-time error
  pool[kFreeListHead].Next = node.Next;
  pool.Touch(result);
  pool.Touch(node.Next);
  if (node.Next != kNoNode) pool[node.Next].Prev = kFreeListHead;
  node.Prev = kNoNode;
  node.Next = kNoNode;
  ++pool.NodesInUse;
  if (pool.NodesInUse > pool.MaxNodesInUse) pool.MaxNodesInUse = pool.NodesInUse;
  return result;
}

void FreeNode(Session& s, NodeIdx n) {
  NodePool& pool = s.Pool;
  ExprNode& node = pool[n];
  const NodeIdx old_next = pool[kFreeListHead].Next;
  pool.Touch(n);
  pool.Touch(old_next);
  pool[kFreeListHead].Next = n;
  node.Prev = kFreeListHead;
  node.Next = old_next;
  if (old_next != kNoNode) pool[old_next].Prev = n;
  node.Parent = kNoNode;
  node.FirstChild = kNoNode;
  node.Kind = ' ';
  node.Role = ' ';
  node.Text.clear();
  node.X = node.Y = node.Width = node.Height = node.Base = node.Scratch1 = node.Scratch2 = 0.0f;
  --pool.NodesInUse;
}

void FreeChildren(Session& s, NodeIdx n) {
  NodePool& pool = s.Pool;
  WalkGuard guard;
  NodeIdx cur = pool[n].FirstChild;
  while (cur != kNoNode) {
    guard.Step();
    // Down to a leaf, then along to the last sibling, descending wherever a sibling has children.
    if (pool[cur].FirstChild != kNoNode) {
      cur = pool[cur].FirstChild;
      continue;
    }
    if (pool[cur].Next != kNoNode) {
      cur = pool[cur].Next;
      continue;
    }
    // Every sibling is childless now: free them back to the first, then the family is gone.
    while (pool[cur].Prev != kNoNode) {
      guard.Step();
      const NodeIdx prev = pool[cur].Prev;
      FreeNode(s, cur);
      cur = prev;
    }
    const NodeIdx parent = pool[cur].Parent;
    FreeNode(s, cur);
    pool[parent].FirstChild = kNoNode;
    if (parent == n) break;
    cur = parent;
  }
  pool[n].FirstChild = kNoNode;
  pool[n].Kind = ' ';
}

NodeIdx ParentOf(const Session& s, NodeIdx n) {
  WalkGuard guard;
  while (s.Pool[n].Prev != kNoNode) {
    guard.Step();
    n = s.Pool[n].Prev;
  }
  return s.Pool[n].Parent;
}

NodeIdx& SlotOf(Session& s, NodeIdx n) {
  const NodeIdx prev = s.Pool[n].Prev;
  if (prev != kNoNode) return s.Pool[prev].Next;
  return s.Pool[s.Pool[n].Parent].FirstChild;
}

namespace {

int CountBelow(const Session& s, NodeIdx n, bool recursive, int depth) {
  if (depth > kPoolSize) {
    throw RunTimeError(RunTimeErrorNumber::BrokenTree, "The links of a tree form a loop");
  }
  int count = 0;
  for (NodeIdx c = s.Pool[n].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    ++count;
    if (recursive) count += CountBelow(s, c, true, depth + 1);
    if (count > kPoolSize) {
      throw RunTimeError(RunTimeErrorNumber::BrokenTree, "The links of a tree form a loop");
    }
  }
  return count;
}

}  // namespace

std::int16_t CountChildren(const Session& s, NodeIdx n, bool recursive) {
  return static_cast<std::int16_t>(CountBelow(s, n, recursive, 0));
}

void AppendChild(Session& s, NodeIdx parent, NodeIdx child) {
  NodePool& pool = s.Pool;
  NodeIdx last = pool[parent].FirstChild;
  if (last == kNoNode) {
    pool[parent].FirstChild = child;
    pool[child].Parent = parent;
    pool[child].Prev = kNoNode;
  } else {
    WalkGuard guard;
    while (pool[last].Next != kNoNode) {
      guard.Step();
      last = pool[last].Next;
    }
    pool[last].Next = child;
    pool[child].Prev = last;
    pool[child].Parent = kNoNode;
  }
  pool[child].Next = kNoNode;
}

std::vector<NodeIdx> FreeListFront(const Session& s, int count) {
  std::vector<NodeIdx> front(static_cast<std::size_t>(std::max(count, 0)));
  std::size_t size = 0;
  for (NodeIdx n = s.Pool[kFreeListHead].Next; n != kNoNode && size < front.size();
       n = s.Pool[n].Next) {
    front[size++] = n;
  }
  front.resize(size);
  return front;
}

bool RecordFootprint(const Session& s, const std::vector<NodeIdx>& before, std::int16_t taken,
                     PoolFootprint& footprint) {
  if (taken < 0 || static_cast<std::size_t>(taken) > before.size()) return false;
  footprint.taken = taken;
  footprint.order.resize(static_cast<std::size_t>(taken));
  const NodeIdx* const first = before.data();
  const NodeIdx* const last = first + taken;
  NodeIdx n = s.Pool[kFreeListHead].Next;
  for (std::size_t i = 0; i < footprint.order.size(); ++i, n = s.Pool[n].Next) {
    if (n == kNoNode) return false;
    const NodeIdx* const place = std::find(first, last, n);
    if (place == last) return false;
    footprint.order[i] = static_cast<std::int16_t>(place - first);
  }
  return true;
}

bool ReplayFootprint(Session& s, const PoolFootprint& footprint) {
  NodePool& pool = s.Pool;
  const std::vector<NodeIdx> front = FreeListFront(s, footprint.taken);
  if (static_cast<int>(front.size()) < footprint.taken) return false;
  const auto count = static_cast<std::int16_t>(pool.NodesInUse + footprint.taken);
  if (count > pool.MaxNodesInUse) pool.MaxNodesInUse = count;
  if (footprint.taken == 0) return true;
  const NodeIdx rest = pool[front.back()].Next;
  pool.Touch(rest);
  NodeIdx previous = kFreeListHead;
  for (const std::int16_t place : footprint.order) {
    const NodeIdx n = front[static_cast<std::size_t>(place)];
    pool.Touch(n);
    pool[previous].Next = n;
    pool[n].Prev = previous;
    previous = n;
  }
  pool[previous].Next = rest;
  if (rest != kNoNode) pool[rest].Prev = previous;
  return true;
}

}  // namespace tavimor
