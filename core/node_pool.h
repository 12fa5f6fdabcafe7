// Taking and giving back nodes, and walking the links of a family.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

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

// What a short-lived tree (made, used, freed whole) leaves behind in the pool: the free list is a
// stack, so such a tree touches only the first `taken` free nodes, the most it held at once, and
// leaves them in another order. A tree known from an earlier run is then not needed again: its
// footprint puts the pool in the state the tree would have left.
struct PoolFootprint {
  std::int16_t taken = 0;
  std::vector<std::int16_t> order;  // order[i]: the former place of the free node now at place i
};

// Up to `count` nodes from the head of the free list.
std::vector<NodeIdx> FreeListFront(const Session& s, int count);

// Runs `make` (which must give back every node it takes) and records its footprint; false when
// it took more nodes than `before` (the free list's front beforehand) shows.
template <typename Make>
bool RunWithFootprint(Session& s, const std::vector<NodeIdx>& before, PoolFootprint& footprint,
                      Make&& make);

// The footprint after the run, from the free list's front before it.
bool RecordFootprint(const Session& s, const std::vector<NodeIdx>& before, std::int16_t taken,
                     PoolFootprint& footprint);

// Leaves the pool as the tree would have, and raises MaxNodesInUse as it would; false (and
// nothing changed) when the free list is too short, so the tree would have failed.
bool ReplayFootprint(Session& s, const PoolFootprint& footprint);

template <typename Make>
bool RunWithFootprint(Session& s, const std::vector<NodeIdx>& before, PoolFootprint& footprint,
                      Make&& make) {
  NodePool& pool = s.Pool;
  const std::int16_t start = pool.NodesInUse;
  const std::int16_t most = pool.MaxNodesInUse;
  pool.MaxNodesInUse = start;
  try {
    make();
  } catch (...) {
    pool.MaxNodesInUse = std::max(most, pool.MaxNodesInUse);
    throw;
  }
  const auto taken = static_cast<std::int16_t>(pool.MaxNodesInUse - start);
  pool.MaxNodesInUse = std::max(most, pool.MaxNodesInUse);
  return pool.NodesInUse == start && RecordFootprint(s, before, taken, footprint);
}

}  // namespace tavimor
