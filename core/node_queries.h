// Questions asked of nodes in place: family links, fractions, occurrences, imaginary units.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/session.h"

namespace tavimor {

inline constexpr int kImagNodesLimit = 100;

bool IsChildOf(const Session& s, NodeIdx n, NodeIdx parent);
// The ancestor of the node (or the node itself) that is a child of `root`; 0 when the node is
// the root or lies outside it.
NodeIdx TopChildBelow(const Session& s, NodeIdx n, NodeIdx root);
// 0 unless the node holds a denominator; else 1 for Kind " ", 2 "(", 3 "F", 4 "[".
std::int16_t FractionClass(const Session& s, NodeIdx n);
// 1 for a simple fraction, 2 for a sum of two simple fractions, else 0; no function counts.
std::int16_t FractionKind(const Session& s, NodeIdx n);
// Exactly an integer numerator and an integer denominator, each possibly in a hidden bracket.
bool IsSimpleFraction(const Session& s, NodeIdx n);
// Every node of the subtree whose Text equals `name`, in post-order.
std::vector<NodeIdx> FindOccurrences(const Session& s, std::string_view name, NodeIdx n);
// A power with a positive integer exponent and a bracketed sum as base.
bool IsIntegerPowerOfSum(const Session& s, NodeIdx n, std::string& power, int& term_count);
// The base of a square that is a numerator factor of `parent`.
bool IsSquaredFactorOf(const Session& s, NodeIdx n, NodeIdx parent);

// The imaginary unit as the options write it: "i", "j" or "sqrt(-1)".
std::string ImagUnitText(const Session& s);
bool ContainsImagUnit(Session& s, std::string_view text);
std::int16_t CountImagUnits(const Session& s, NodeIdx n);
// As CountImagUnits, keeping the nodes found (at most 100) in ImagNodes.
std::int16_t CollectImagUnits(Session& s, NodeIdx n);

}  // namespace tavimor
