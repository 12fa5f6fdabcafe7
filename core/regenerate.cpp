// Text from trees: the canonical Text of every node, rebuilt from its children.
#include "core/regenerate.h"

#include "core/message_box.h"
#include "core/node_pool.h"
#include "core/node_shape.h"
#include "core/tree_walk.h"

namespace tavimor {

void RegenerateAll(Session& s, NodeIdx n) {
  ForEachInnerNodeChildrenFirst(s, n, [&s](NodeIdx inner) { RegenerateOne(s, inner); });
}

void RegenerateOne(Session& s, NodeIdx n) {
  const NodePool& pool = s.Pool;
  const NodeIdx first = pool[n].FirstChild;
  std::string text;
  switch (ContentShapeOf(pool, n)) {
    case Shape::Sum:
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
    case Shape::Product:  // a pseudo sign sits straight before the next factor
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
    case Shape::OneChild: text = pool[first].Text; break;
    case Shape::Power:  // base ^ exponent
      text = pool[pool[first].Next].Text + "^" + pool[first].Text;
      break;
    case Shape::Number:
    case Shape::Letter:
    case Shape::Function:
    case Shape::SquareRoot:
    case Shape::Bracket:
    case Shape::HiddenBracket:
    case Shape::Broken:
      ShowCriticalMessage(s, "Error in RegenerateOne");
      text = "Error";
      break;
  }
  const ExprNode& node = pool[n];
  switch (ShapeOf(pool, n)) {
    case Shape::Bracket:
    case Shape::HiddenBracket: text = "(" + text + ")"; break;
    case Shape::Function:
    case Shape::SquareRoot: {
      const std::size_t open = node.Text.find('(');
      text =
          node.Text.substr(0, open == std::string::npos ? node.Text.size() : open + 1) + text + ")";
      break;
    }
    case Shape::Number:
    case Shape::Letter:
    case Shape::Sum:
    case Shape::Product:
    case Shape::Power:
    case Shape::OneChild:
    case Shape::Broken: break;
  }
  s.Pool[n].Text = std::move(text);
}

}  // namespace tavimor
