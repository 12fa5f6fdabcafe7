// Trees parsed whole from a text, kept for the item and copied into place when the text comes
// again.
#include "core/parse_cache.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "core/node_pool.h"
#include "core/parse.h"

namespace tavimor {

namespace {

// Whether a kept tree was read under what reading the text now would depend on besides the
// text: the decimal point, and whether the function names are known yet.
bool ReadAlike(const Session& s, const ParsedText& kept) {
  return kept.decimal_point == s.Dp() && kept.functions_known == !s.FunctionNames[1].empty();
}

// The tree below `root` (the root included) in pre-order.
std::vector<ParsedNode> Flatten(const Session& s, NodeIdx root) {
  std::vector<ParsedNode> nodes;
  nodes.reserve(static_cast<std::size_t>(CountChildren(s, root, true)) + 1);
  std::vector<NodeIdx> stack{root};
  WalkGuard guard;
  while (!stack.empty()) {
    guard.Step();
    const NodeIdx n = stack.back();
    stack.pop_back();
    const ExprNode& node = s.Pool[n];
    ParsedNode kept;
    kept.kind = node.Kind;
    kept.role = node.Role;
    kept.text = node.Text;
    const std::size_t first_child = stack.size();
    for (NodeIdx c = node.FirstChild; c != kNoNode; c = s.Pool[c].Next) {
      stack.push_back(c);
      ++kept.children;
    }
    // The first child is visited first.
    std::reverse(stack.begin() + static_cast<std::ptrdiff_t>(first_child), stack.end());
    nodes.push_back(std::move(kept));
  }
  return nodes;
}

// The kept tree built below `root`, whose own kind and text it takes.
void CopyInto(Session& s, NodeIdx root, const std::vector<ParsedNode>& nodes) {
  s.Pool[root].Kind = nodes.front().kind;
  s.Pool[root].Text = nodes.front().text;
  // The nodes still waiting for children, each with how many it waits for.
  std::vector<std::pair<NodeIdx, std::int16_t>> open{{root, nodes.front().children}};
  for (std::size_t i = 1; i < nodes.size(); ++i) {
    while (open.back().second == 0) open.pop_back();
    const NodeIdx child = NewNode(s);
    AppendChild(s, open.back().first, child);
    --open.back().second;
    ExprNode& node = s.Pool[child];
    node.Kind = nodes[i].kind;
    node.Role = nodes[i].role;
    node.Text = nodes[i].text;
    open.emplace_back(child, nodes[i].children);
  }
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
