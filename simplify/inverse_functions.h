// Inverse functions that cancel and functions of functions: sqrt(x)^2, log(10^x), e^ln(x),
// sin(arcsin(x)), cos(arctan(x)) and their kin.
#pragma once

#include <optional>
#include <string>

#include "core/session.h"

namespace tavimor {

// The name of a function node's text: everything before the first "(".
std::string FunctionNameOf(const std::string& text);

// The text is one operand as the parser sees it: a number, a letter, a function or a bracket.
bool IsOneOperand(Session& s, const std::string& text);

// The value of a text of numbers and the constants e, p and d, computed on its tree without the
// simplify loop (so a rule may ask it at every walk); nothing for a text with another letter or
// without a real value.
std::optional<double> ConstantValue(Session& s, const std::string& text);

// A function node rewritten as the plain quantity its rule wrote. A negative result in place of
// a term of a sum takes its sign into the term's role, so that no bracket shows: 1+sin(-30)
// becomes 1-1/2, not 1+(-1/2).
void RewriteFunctionAs(Session& s, NodeIdx& slot, const std::string& text,
                       const std::string& message);

// sqrt(x)^2 = x, log(10^x) = x, e^ln(x) = x on the node's text (help 8 to 12).
bool CancelInverseText(Session& s, NodeIdx& slot);
// f(g(x)) by the table of pairs (help 29 to 42, 246, 247), then sqrt(b^t) = b^(t/2) (43, 44),
// ln(e^x) = x (45), log(10^x) = x (46), arctan(1/tan(x)) = 90-x (37).
bool FunctionOfFunction(Session& s, NodeIdx& slot);

}  // namespace tavimor
