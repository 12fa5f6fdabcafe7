// The labels of a node in the expression tree view: full codes, or the operator it stands for.
#include "present/tree_labels.h"

namespace tavimor {

namespace {

std::string Code(char c) { return c == ' ' ? std::string(kPilcrow) : std::string(1, c); }

std::string OperatorLabel(const Session& s, NodeIdx n, bool on_first_child) {
  const ExprNode& node = s.Pool[n];
  const bool shown = on_first_child || node.Prev != kNoNode;
  std::string op;
  switch (node.Role) {
    case kRoleNumerator: op = shown ? "*" : ""; break;
    case kRoleDenominator: op = "/"; break;
    case kRoleLeadingPlus: op = "+"; break;
    case kRolePlus: op = shown ? "+" : ""; break;
    case kRoleMinus: op = "-"; break;
    case kRoleExponent: op = "^"; break;
    default: break;
  }
  return op + " " + node.Text;
}

}  // namespace

std::string NodeText1(const Session& s, NodeIdx n) {
  const ExprNode& node = s.Pool[n];
  return Code(node.Role) + Code(node.Kind) + "     " + node.Text;
}

std::string NodeText2(const Session& s, NodeIdx n) { return OperatorLabel(s, n, false); }

std::string NodeText3(const Session& s, NodeIdx n) { return OperatorLabel(s, n, true); }

std::vector<TreeViewEntry> TreeViewEntries(const Session& s, NodeIdx root) {
  std::vector<TreeViewEntry> entries;
  std::vector<std::pair<NodeIdx, int>> pending{{root, 0}};
  while (!pending.empty()) {
    const auto [n, depth] = pending.back();
    pending.pop_back();
    entries.push_back({depth, NodeText1(s, n)});
    // A broken tree that loops is cut off at the size of the pool.
    if (entries.size() > static_cast<std::size_t>(kPoolSize)) break;
    std::vector<NodeIdx> children;
    for (NodeIdx c = s.Pool[n].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
      children.push_back(c);
      if (children.size() > static_cast<std::size_t>(kPoolSize)) return entries;
    }
    for (auto it = children.rbegin(); it != children.rend(); ++it) {
      pending.emplace_back(*it, depth + 1);
    }
  }
  return entries;
}

}  // namespace tavimor
