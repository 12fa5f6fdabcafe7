// Text from trees: the canonical Text of every node, rebuilt from its children.
#include "core/regenerate.h"

#include "core/node_pool.h"
#include "core/tree_walk.h"
#include "present/message_box.h"

namespace tavimor {

void RegenerateAll(Session& s, NodeIdx n) {
  ForEachInnerNodeChildrenFirst(s, n, [&s](NodeIdx inner) { RegenerateOne(s, inner); });
}

void RegenerateOne(Session& s, NodeIdx n) {
  const NodePool& pool = s.Pool;
  const NodeIdx first = pool[n].FirstChild;
  const char r = pool[first].Role;
  std::string text;
  switch (r) {
    case kRolePlus:
    case kRoleMinus:
    case kRoleLeadingPlus:  // a sum
      for (NodeIdx c = first; c != kNoNode; c = pool[c].Next) {
        const ExprNode& child = pool[c];
        if ((child.Role == kRolePlus && child.Prev != kNoNode) || child.Role == kRoleLeadingPlus) {
          text += "+";
        } else if (child.Role == kRoleMinus) {
          text += "-";
        }
        text += child.Text;
      }
      break;
    case kRoleNumerator:
    case kRoleDenominator:  // a product; a pseudo sign sits straight before the next factor
      for (NodeIdx c = first; c != kNoNode; c = pool[c].Next) {
        const ExprNode& child = pool[c];
        if (child.Role == kRoleNumerator && child.Prev != kNoNode && text != "-" && text != "+") {
          text += "*";
        } else if (child.Role == kRoleDenominator) {
          text += "/";
        }
        text += child.Text;
      }
      break;
    case kRoleNone: text = pool[first].Text; break;
    case kRoleExponent:  // base ^ exponent
      text = pool[pool[first].Next].Text + "^" + pool[first].Text;
      break;
    default:
      ShowCriticalMessage(s, "Error in RegenerateOne");
      text = "Error";
      break;
  }
  const ExprNode& node = pool[n];
  if (node.Kind == kKindBracket || node.Kind == kKindHiddenBracket) {
    text = "(" + text + ")";
  } else if (node.Kind == kKindFunction) {
    const std::size_t open = node.Text.find('(');
    text =
        node.Text.substr(0, open == std::string::npos ? node.Text.size() : open + 1) + text + ")";
  }
  s.Pool[n].Text = std::move(text);
}

}  // namespace tavimor
