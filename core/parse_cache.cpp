// Trees parsed whole from a text, kept for the item and copied into place when the text comes
// again.
#include "core/parse_cache.h"

#include <array>
#include <utility>
#include <vector>

#include "core/node_pool.h"
#include "core/parse.h"
#include "core/tree_walk.h"

namespace tavimor {

namespace {

// Whether a kept tree was read under what reading the text now would depend on besides the
// text: the decimal point, and whether the function names are known yet.
bool ReadAlike(const Session& s, const ParsedText& kept) {
  return kept.decimal_point == s.Dp() && kept.functions_known == !s.FunctionNames[1].empty();
}

// The tree below `root` (the root included) in pre-order.
std::vector<ParsedNode> Flatten(Session& s, NodeIdx root) {
  std::vector<ParsedNode> nodes;
  nodes.reserve(static_cast<std::size_t>(CountChildren(s, root, true)) + 1);
  ForEachNodeParentFirst(s, root, [&s, &nodes](NodeIdx n) {
    const ExprNode& node = s.Pool[n];
    ParsedNode& kept = nodes.emplace_back();
    kept.kind = node.Kind;
    kept.role = node.Role;
    kept.text = node.Text;
    for (NodeIdx c = node.FirstChild; c != kNoNode; c = s.Pool[c].Next) ++kept.children;
  });
  return nodes;
}

// The children of the node kept at `at`, made below `node`, then each child's own: the order in
// which the parser takes nodes from the pool (a node's children together, then the first child's
// subtree, and so on), so that a copied tree holds the very nodes a parsed one would. `size`
// holds each kept node's subtree size, itself included.
void CopyChildren(Session& s, NodeIdx node, const std::vector<ParsedNode>& nodes,
                  const std::int16_t* size, std::size_t at) {
  const int count = nodes[at].children;
  if (count == 0) return;
  std::size_t kept = at + 1;
  for (int i = 0; i < count; ++i) {
    const NodeIdx child = NewNode(s);
    AppendChild(s, node, child);
    ExprNode& made = s.Pool[child];
    made.Kind = nodes[kept].kind;
    made.Role = nodes[kept].role;
    made.Text = nodes[kept].text;
    kept += static_cast<std::size_t>(size[kept]);
  }
  kept = at + 1;
  for (NodeIdx c = s.Pool[node].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    CopyChildren(s, c, nodes, size, kept);
    kept += static_cast<std::size_t>(size[kept]);
  }
}

// The kept tree built below `root`, whose own kind and text it takes.
void CopyInto(Session& s, NodeIdx root, const std::vector<ParsedNode>& nodes) {
  s.Pool[root].Kind = nodes.front().kind;
  s.Pool[root].Text = nodes.front().text;
  // The size of each kept node's subtree, from the last to the first (on the stack for the usual
  // trees of a few dozen nodes).
  constexpr std::size_t kOnStack = 128;
  std::array<std::int16_t, kOnStack> small;  // each size is written before it is read
  std::vector<std::int16_t> large;
  std::int16_t* size = small.data();
  if (nodes.size() > kOnStack) {
    large.resize(nodes.size());
    size = large.data();
  }
  for (std::size_t i = nodes.size(); i-- > 0;) {
    size[i] = 1;
    std::size_t next = i + 1;
    for (int c = 0; c < nodes[i].children; ++c) {
      size[i] = static_cast<std::int16_t>(size[i] + size[next]);
      next += static_cast<std::size_t>(size[next]);
    }
  }
  CopyChildren(s, root, nodes, size, 0);
}

}  // namespace

void ParseTreeKept(Session& s, NodeIdx root) {
  const auto kept = s.ParsedTexts.find(s.Pool[root].Text);
  if (kept != s.ParsedTexts.end() && ReadAlike(s, kept->second)) {
    CopyInto(s, root, kept->second.nodes);
    return;
  }
  std::string text = s.Pool[root].Text;
  ParseTree(s, root);
  if (s.Pool[root].FirstChild == kNoNode) return;  // a leaf is read as quickly as copied
  if (s.ParsedTexts.size() >= kKeptParsedTexts) s.ParsedTexts.clear();
  ParsedText& entry = s.ParsedTexts[std::move(text)];
  entry.decimal_point = s.Dp();
  entry.functions_known = !s.FunctionNames[1].empty();
  entry.nodes = Flatten(s, root);
}

}  // namespace tavimor
