// The shape of a node, named once: what its Kind and its first child's Role make it.
#pragma once

#include <cstdint>

#include "core/node_pool.h"

namespace tavimor {

// Every switch over a shape lists all of them (the build warns of a missing one with
// -Wswitch-enum), so a shape added here is met everywhere a tree is walked.
enum class Shape : std::uint8_t {
  Number,         // Kind "N"
  Letter,         // Kind "V"
  Sum,            // children with the roles "+", "-" or "1"
  Product,        // children with the roles "N" and "D"
  Power,          // Kind "P": exponent (role "E") first, then the base
  Function,       // Kind "F" other than sqrt: the name, then its argument's children
  SquareRoot,     // Kind "F" named sqrt
  Bracket,        // Kind "(": brackets the student sees
  HiddenBracket,  // Kind "[": brackets that hold a group without being drawn
  OneChild,       // the content of one child (role " ") under a bracket or a function
  Broken,         // no child where one is needed, or a role that makes no content
};

// The shape of the content that a node's children make: Sum, Product, Power, OneChild, or
// Broken for a node without children or with a first child of an unknown role.
inline Shape ContentShapeOf(const NodePool& pool, NodeIdx n) {
  const NodeIdx first = pool[n].FirstChild;
  if (first == kNoNode) return Shape::Broken;
  switch (pool[first].Role) {
    case kRolePlus:
    case kRoleMinus:
    case kRoleLeadingPlus: return Shape::Sum;
    case kRoleNumerator:
    case kRoleDenominator: return Shape::Product;
    case kRoleExponent: return Shape::Power;
    case kRoleNone: return Shape::OneChild;
    default: return Shape::Broken;
  }
}

// The shape of the node itself: by its Kind, and for a plain inner node by its content.
inline Shape ShapeOf(const NodePool& pool, NodeIdx n) {
  const ExprNode& node = pool[n];
  switch (node.Kind) {
    case kKindNumber: return Shape::Number;
    case kKindVariable: return Shape::Letter;
    case kKindPower: return Shape::Power;
    case kKindFunction:
      return node.Text.compare(0, 5, "sqrt(") == 0 ? Shape::SquareRoot : Shape::Function;
    case kKindBracket: return Shape::Bracket;
    case kKindHiddenBracket: return Shape::HiddenBracket;
    default: return ContentShapeOf(pool, n);
  }
}

}  // namespace tavimor
