// The form a tree is drawn in: what the written text needs and a reader does not.
#include "present/display_form.h"

#include "core/node_pool.h"
#include "core/tree_walk.h"

namespace tavimor {

namespace {

bool IsNumberOne(const ExprNode& node) {
  return node.Kind == kKindNumber && node.FirstChild == kNoNode &&
         (node.Text == "1" || node.Text == "-1");
}

// A product whose first factor is 1 or -1, with another numerator factor and a denominator.
bool HasSilentOne(const Session& s, NodeIdx n) {
  const NodeIdx first = s.Pool[n].FirstChild;
  if (first == kNoNode || s.Pool[first].Role != kRoleNumerator || !IsNumberOne(s.Pool[first])) {
    return false;
  }
  bool other = false;
  bool below = false;
  for (NodeIdx c = s.Pool[first].Next; c != kNoNode; c = s.Pool[c].Next) {
    other = other || s.Pool[c].Role == kRoleNumerator;
    below = below || s.Pool[c].Role == kRoleDenominator;
  }
  return other && below;
}

void DropSilentOne(Session& s, NodeIdx n) {
  const NodeIdx first = s.Pool[n].FirstChild;
  if (s.Pool[first].Text == "-1") {
    s.Pool[first].Text = "-";  // the sign stays, as the pseudo factor of a unary minus
    return;
  }
  const NodeIdx next = s.Pool[first].Next;
  s.Pool[n].FirstChild = next;
  s.Pool[next].Prev = kNoNode;
  s.Pool[next].Parent = n;
  s.Pool[first].Next = kNoNode;
  s.Pool[first].Parent = kNoNode;
  FreeNode(s, first);
}

// The base of a power that is itself a power goes into a bracket of its own.
void BracketPowerBase(Session& s, NodeIdx n) {
  if (s.Pool[n].Kind != kKindPower) return;
  const NodeIdx exponent = s.Pool[n].FirstChild;
  const NodeIdx base = s.Pool[exponent].Next;
  if (base == kNoNode || s.Pool[base].Kind != kKindPower) return;
  const NodeIdx bracket = NewNode(s);
  ExprNode& b = s.Pool[bracket];
  b.Kind = kKindBracket;
  b.Role = kRoleBase;
  b.Text = "(" + s.Pool[base].Text + ")";
  b.FirstChild = base;
  b.Prev = exponent;
  s.Pool[exponent].Next = bracket;
  s.Pool[base].Role = kRoleNone;
  s.Pool[base].Prev = kNoNode;
  s.Pool[base].Parent = bracket;
}

}  // namespace

void PrepareForDisplay(Session& s, NodeIdx root) {
  // A node is prepared before the walk goes down to its children.
  ForEachNodeParentFirst(s, root, [&s](NodeIdx n) {
    if (HasSilentOne(s, n)) DropSilentOne(s, n);
    BracketPowerBase(s, n);
  });
}

}  // namespace tavimor
