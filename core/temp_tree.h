// A short-lived tree for asking a question of a text: made from the pool, given back on leaving.
#pragma once

#include <string>

#include "core/node_pool.h"
#include "core/parse.h"
#include "core/parse_cache.h"

namespace tavimor {

class TempTree {
 public:
  enum class Depth { OneLevel, Whole };

  // Takes a node, gives it the text, and parses one level or the whole tree.
  TempTree(Session& s, std::string text, Depth depth) : s_(s), root_(NewNode(s)) {
    s_.Pool[root_].Text = std::move(text);
    try {
      if (depth == Depth::OneLevel) {
        ParseOne(s_, root_);
      } else {
        ParseTreeKept(s_, root_);
      }
    } catch (...) {
      Release();  // the destructor does not run for a tree that was never made
      throw;
    }
  }
  TempTree(const TempTree&) = delete;
  TempTree& operator=(const TempTree&) = delete;
  ~TempTree() { Release(); }

  NodeIdx Root() const { return root_; }
  // The root's slot, for rules that may replace the root node itself.
  NodeIdx& RootSlot() { return root_; }
  const ExprNode& operator[](NodeIdx n) const { return s_.Pool[n]; }

 private:
  void Release() noexcept {
    try {
      FreeChildren(s_, root_);
      FreeNode(s_, root_);
    } catch (...) {  // a broken tree: the next load reinitialises the pool
    }
  }

  Session& s_;
  NodeIdx root_;
};

}  // namespace tavimor
