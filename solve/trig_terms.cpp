// The trigonometric terms of a side read by their angle: sines and cosines of an angle with a
// shift, the coefficients of sin, cos and their double angles, and the sum-of-angles identity.
#include "solve/trig_terms.h"

#include <array>

#include "core/node_queries.h"
#include "core/temp_tree.h"
#include "core/text_predicates.h"
#include "manipulate/factor.h"
#include "simplify/inverse_functions.h"
#include "simplify/simplify_driver.h"
#include "solve/alias_solve.h"
#include "solve/polynomial_view.h"

namespace tavimor {

std::string ReplaceAll(const std::string& text, const std::string& old,
                       const std::string& replacement) {
  if (old.empty()) return text;
  std::string result;
  std::size_t from = 0;
  for (;;) {
    std::size_t at = text.find(old, from);
    // A match that continues a name (the sin of arcsin) is no match.
    while (at != std::string::npos && at > 0 && IsAsciiLetter(old.front()) &&
           IsAsciiLetter(text[at - 1])) {
      at = text.find(old, at + 1);
    }
    if (at == std::string::npos) break;
    result += text.substr(from, at - from) + replacement;
    from = at + old.size();
  }
  return result + text.substr(from);
}

bool NegatedIfNegative(std::string& text) {
  if (text.empty() || text.front() != '-') return false;
  text.erase(0, 1);
  return true;
}

std::string TimesText(Session& s, const std::string& coefficient, const std::string& factor) {
  if (coefficient == "1") return factor;
  if (coefficient == "-1") return "-" + factor;
  if (IsSumText(s, coefficient)) return "(" + coefficient + ")*" + factor;
  return coefficient + "*" + factor;
}

namespace {

// The terms of a side with their signs; a side that is not a sum is one term.
std::vector<SignedTerm> SideTerms(Session& s, const std::string& side) {
  std::vector<SignedTerm> terms;
  for (const SignedTerm& term : SignedTerms(s, IsSumText(s, side) ? side : side + "+0")) {
    if (term.text != "0") terms.push_back(term);
  }
  return terms;
}

// A term read as coefficient*factor, where the factor is the one function call or numerator
// factor that holds X, and X occurs once. False for any other term.
struct FactorOfX {
  std::string factor;
  std::string coefficient = "1";
};
bool ReadFactorOfX(Session& s, const std::string& term, const std::string& x, FactorOfX& out) {
  TempTree tree(s, term, TempTree::Depth::Whole);
  const NodeIdx root = tree.Root();
  if (tree[root].Kind == kKindFunction) {
    out.factor = tree[root].Text;
    out.coefficient = "1";
    return true;
  }
  if (tree[root].Kind != kKindSumOrProduct || tree[root].FirstChild == kNoNode ||
      !IsProductRole(tree[tree[root].FirstChild].Role)) {
    return false;
  }
  const std::vector<NodeIdx> found = FindOccurrences(s, x, root);
  if (found.size() != 1) return false;
  const NodeIdx top = TopChildBelow(s, found.front(), root);
  if (top == kNoNode || tree[top].Role != kRoleNumerator) return false;
  std::string rest;
  for (NodeIdx c = tree[root].FirstChild; c != kNoNode; c = tree[c].Next) {
    if (c == top) continue;
    rest += (tree[c].Role == kRoleDenominator ? "/" : "*") + tree[c].Text;
  }
  if (rest.empty()) {
    rest = "1";
  } else if (rest.front() == '*') {
    rest.erase(0, 1);
  } else {
    rest = "1" + rest;
  }
  out.factor = tree[top].Text;
  out.coefficient = rest;
  return true;
}

std::string WithSign(bool minus, const std::string& text) {
  return minus ? "-(" + text + ")" : text;
}

// Adds a signed coefficient to a field's sum.
void AddTo(std::string& field, bool minus, const std::string& coefficient) {
  const std::string term = (minus ? "-(" : "+(") + coefficient + ")";
  field = field == "0" ? term : field + term;
}

std::string Finished(Session& s, const std::string& field) {
  if (field == "0") return "0";
  return ExpandedText(s, field.front() == '+' ? field.substr(1) : field);
}

}  // namespace

AngleSum SplitAngleSum(Session& s, const std::string& side, const std::string& x) {
  AngleSum sum;
  std::vector<std::string> rest;
  for (const SignedTerm& term : SideTerms(s, side)) {
    const std::string signed_text = SignedText(term);
    sum.terms.push_back(signed_text);
    FactorOfX read;
    bool is_row = false;
    TrigRow row;
    if (sum.rows.size() < kTrigRowLimit && ReadFactorOfX(s, term.text, x, read) &&
        CountOccurrences(s, read.factor, x) == 1) {
      const std::string name = FunctionNameOf(read.factor);
      const std::string argument = FunctionArgument(read.factor);
      if ((name == "sin" || name == "cos") && !argument.empty()) {
        const std::string shift = ConstantPart(s, argument, x);
        const std::string slope = shift == "0"
                                      ? SimplifyText(s, argument)
                                      : SimplifyText(s, "(" + argument + ")-(" + shift + ")");
        if (slope == x || slope == "-" + x) {
          is_row = true;
          row.function = name + (slope == x ? "(" : "(-");
          row.shift = shift;
          row.coefficient = SimplifyText(s, WithSign(term.minus, read.coefficient));
          row.term = signed_text;
        }
      }
    }
    if (is_row) {
      sum.row_of_term.push_back(static_cast<int>(sum.rows.size()));
      sum.rows.push_back(row);
    } else {
      sum.row_of_term.push_back(-1);
      rest.push_back(signed_text);
    }
  }
  sum.rest = rest.empty() ? "0" : SimplifyText(s, JoinTerms(rest));
  return sum;
}

AngleCoefficients SplitByAngle(Session& s, const std::string& side, const std::string& x) {
  AngleCoefficients c;
  // The eight factors, and the field each adds to (with sin of a negative angle subtracted).
  struct Kind {
    std::string factor;
    std::string* field;
    bool negated;
    int* count;
  };
  int no_count = 0;
  const std::array<Kind, 8> kinds = {{
      {"cos(" + x + ")", &c.CosCoef, false, &c.cos_terms},
      {"cos(-" + x + ")", &c.CosCoef, false, &c.cos_terms},
      {"cos(2*" + x + ")", &c.Cos2Coef, false, &no_count},
      {"cos(-2*" + x + ")", &c.Cos2Coef, false, &no_count},
      {"sin(" + x + ")", &c.SinCoef, false, &c.sin_terms},
      {"sin(-" + x + ")", &c.SinCoef, true, &c.sin_terms},
      {"sin(2*" + x + ")", &c.Sin2Coef, false, &no_count},
      {"sin(-2*" + x + ")", &c.Sin2Coef, true, &no_count},
  }};
  for (const SignedTerm& term : SideTerms(s, side)) {
    if (CountOccurrences(s, term.text, x) == 0) {
      AddTo(c.TrigConst, term.minus, term.text);
      continue;
    }
    FactorOfX read;
    bool placed = false;
    if (ReadFactorOfX(s, term.text, x, read)) {
      for (const Kind& kind : kinds) {
        if (read.factor != kind.factor) continue;
        AddTo(*kind.field, term.minus != kind.negated, read.coefficient);
        ++*kind.count;
        placed = true;
        break;
      }
    }
    if (!placed) AddTo(c.TrigOther, term.minus, term.text);
  }
  for (std::string* field :
       {&c.CosCoef, &c.Cos2Coef, &c.SinCoef, &c.Sin2Coef, &c.TrigConst, &c.TrigOther}) {
    *field = Finished(s, *field);
  }
  return c;
}

std::string ExpandAngleSum(Session& s, const std::string& x, const std::string& coefficient,
                           const std::string& function, const std::string& shift) {
  std::string b = shift;
  // A sum as the shift keeps its own signs; a single negative term turns the middle sign.
  const bool negative_shift = !IsSumText(s, b) && NegatedIfNegative(b);
  std::string c = coefficient;
  const bool negative_coefficient = !IsSumText(s, c) && NegatedIfNegative(c);
  const bool sine = function.rfind("sin", 0) == 0;
  const bool minus_x = function.find("(-") != std::string::npos;
  // The signs of the two terms before the coefficient's own.
  bool first_minus = false;
  bool second_minus = false;
  std::string first;
  std::string second;
  if (sine) {
    // sin(X+B) = sin(X)*cos(B)+cos(X)*sin(B); sin(-X+B) = -sin(X)*cos(B)+cos(X)*sin(B)
    first = "sin(" + x + ")*cos(" + b + ")";
    second = "cos(" + x + ")*sin(" + b + ")";
    first_minus = minus_x;
    second_minus = negative_shift;
  } else {
    // cos(X+B) = cos(X)*cos(B)-sin(X)*sin(B); cos(-X+B) = cos(X)*cos(B)+sin(X)*sin(B)
    first = "cos(" + x + ")*cos(" + b + ")";
    second = "sin(" + x + ")*sin(" + b + ")";
    second_minus = minus_x == negative_shift;
  }
  if (negative_coefficient) {
    first_minus = !first_minus;
    second_minus = !second_minus;
  }
  return (first_minus ? "-" : "") + TimesText(s, c, first) + (second_minus ? "-" : "+") +
         TimesText(s, c, second);
}

std::string RowText(Session& s, const std::string& x, const TrigRow& row) {
  std::string angle = row.function + x;
  if (row.shift != "0") {
    angle += (row.shift.front() == '-' ? "" : "+") + row.shift;
  }
  return TimesText(s, row.coefficient, angle + ")");
}

}  // namespace tavimor
