// The polynomial view of an expression in the unknown: each term sorted by how the unknown
// stands in it.
#include "solve/polynomial_view.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>

#include "core/brackets.h"
#include "core/evaluate.h"
#include "core/node_pool.h"
#include "core/node_queries.h"
#include "core/temp_tree.h"
#include "manipulate/factor.h"
#include "simplify/plain_arithmetic.h"

namespace tavimor {

namespace {

// The sums as they are built: each starts as "0", and each term is appended with its sign.
struct TermSums {
  std::string quad = "0";
  std::string lin = "0";
  std::string constant = "0";
  std::string negated = "0";
  std::string other = "0";
  // The squared and linear terms each divided by the unknown's power, read off their factors:
  // set while every such term is a product of factors with that power as one of them.
  std::string quad_quotient = "0";
  std::string lin_quotient = "0";
  bool quad_read = true;
  bool lin_read = true;
};

// "0+x-2" -> "x-2": the leading "0", then a leading "+", cut from a sum that got terms.
std::string Tidy(const std::string& sum) {
  if (sum == "0") return sum;
  std::string text = sum.substr(1);
  if (!text.empty() && text[0] == '+') text.erase(0, 1);
  return text;
}

bool IsDirectNumerator(const Session& s, NodeIdx n, NodeIdx term) {
  return ParentOf(s, n) == term && s.Pool[n].Role == kRoleNumerator;
}

// The product `term` without its factor `factor` (a numerator), appended to `sum` with the
// term's sign: "x*log(3)" over x is "log(3)", "3*x/2" is "3/2", "x/2" is "1/2", and a factor
// that is only a minus sign turns the sign over. False, with nothing appended, for a factor
// without text or a number other than a whole one from 1 to 999999999 in its normal form.
bool AppendQuotient(const Session& s, NodeIdx term, NodeIdx factor, char sign, std::string& sum) {
  std::string quotient;
  bool minus = sign == '-';
  for (NodeIdx c = s.Pool[term].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    if (c == factor) continue;
    const ExprNode& f = s.Pool[c];
    if (f.Text.empty()) return false;
    // A number is read only in its normal form: "05", "-0" or "1000000000" alone would stay as
    // written, where the fraction's arithmetic writes it anew.
    if (f.Kind == kKindNumber && f.Text != "-" && f.Text != "+") {
      const std::optional<std::int64_t> whole = PlainWholeNumber(f.Text);
      if (!whole || *whole == 0) return false;
    }
    if (f.Text == "-" || f.Text == "+") {
      if (f.Role != kRoleNumerator) return false;
      minus = minus != (f.Text == "-");
      continue;
    }
    if (f.Role == kRoleDenominator) {
      if (quotient.empty()) quotient += '1';
      quotient += '/';
    } else if (!quotient.empty()) {
      quotient += '*';
    }
    quotient += f.Text;
  }
  sum += minus ? '-' : '+';
  sum += quotient.empty() ? "1" : quotient;
  return true;
}

// One term, with its sign, sorted into the sums.
void ClassifyTerm(Session& s, NodeIdx term, const std::string& unknown, TermSums& sums) {
  const ExprNode& node = s.Pool[term];
  const char sign = node.Role == kRoleMinus ? '-' : '+';
  const char reversed = sign == '-' ? '+' : '-';
  const std::string text = node.Text;
  auto constant = [&] {
    sums.constant += sign + text;
    sums.negated += reversed + text;
  };
  if (node.Kind == kKindNumber) return constant();
  if (node.Kind == kKindVariable) {
    if (text == unknown) {
      sums.lin += sign + text;
      sums.lin_quotient += sign;
      sums.lin_quotient += '1';
    } else {
      constant();
    }
    return;
  }
  if (text == unknown + "^2") {
    sums.quad += sign + text;
    if (node.Kind == kKindPower) {
      sums.quad_quotient += sign;
      sums.quad_quotient += '1';
    } else {
      sums.quad_read = false;
    }
    return;
  }
  const std::vector<NodeIdx> occurrences = FindOccurrences(s, unknown, term);
  if (occurrences.empty()) return constant();
  if (node.Kind != kKindSumOrProduct || occurrences.size() >= 2) {
    sums.other += sign + text;
    return;
  }
  // A product with the unknown once: x as a factor, or x^2 as a factor.
  const NodeIdx x = occurrences.front();
  if (IsDirectNumerator(s, x, term)) {
    sums.lin += sign + text;
    sums.lin_read = sums.lin_read && AppendQuotient(s, term, x, sign, sums.lin_quotient);
    return;
  }
  if (s.Pool[x].Role == kRoleBase) {
    const NodeIdx power = ParentOf(s, x);
    const NodeIdx exponent = s.Pool[power].FirstChild;
    if (s.Pool[exponent].Text == "2" && IsDirectNumerator(s, power, term)) {
      sums.quad += sign + text;
      sums.quad_read = sums.quad_read && AppendQuotient(s, term, power, sign, sums.quad_quotient);
      return;
    }
  }
  sums.other += sign + text;
}

// The coefficient of a term written "u", "-u", "n*u" or "-n*u", where u is the divisor (the
// unknown or its square, the unknown a letter that stands for no constant) and n a whole number
// below 1E9 without leading zeros (from 1E9 up a number is written in the general form): the
// quotient that expanding would give, read off the text. Nothing for any other term.
std::optional<std::string> PlainCoefficient(const Session& s, std::string_view term,
                                            std::string_view divisor) {
  if (divisor.empty() || !IsAsciiLetter(divisor[0]) || IsConstantVar(s, divisor[0])) {
    return std::nullopt;
  }
  const bool minus = !term.empty() && term[0] == '-';
  if (minus) term.remove_prefix(1);
  if (term.size() < divisor.size() || term.substr(term.size() - divisor.size()) != divisor) {
    return std::nullopt;
  }
  term.remove_suffix(divisor.size());
  if (term.empty()) return std::string(minus ? "-1" : "1");
  if (term.back() != '*') return std::nullopt;
  term.remove_suffix(1);
  const bool whole = !term.empty() && term.size() <= 9 && term[0] != '0' &&
                     std::all_of(term.begin(), term.end(), IsAsciiDigit);
  if (!whole) return std::nullopt;
  return (minus ? "-" : "") + std::string(term);
}

// "(terms)/x^n" expanded and simplified; "0" stays "0". Where each term is a product with the
// power as a factor, the quotient read off the factors is expanded instead: the same answer,
// without factoring the sum over the fraction's line to cancel the power.
std::string Coefficient(Session& s, const std::string& terms, const std::string& divisor,
                        const std::string& quotient, bool read) {
  if (terms == "0") return "0";
  if (std::optional<std::string> plain = PlainCoefficient(s, terms, divisor)) return *plain;
  if (read) return ExpandedText(s, Tidy(quotient));
  return ExpandedText(s, "(" + terms + ")/" + divisor);
}

// The terms of the expression, each sorted into the sums.
void SortTerms(Session& s, const std::string& expression, const std::string& unknown,
               TermSums& sums) {
  TempTree tree(s, StripBrackets(expression), TempTree::Depth::Whole);
  const NodeIdx root = tree.Root();
  const ExprNode& node = tree[root];
  const bool single = node.Kind == kKindNumber || node.Kind == kKindVariable ||
                      node.Kind == kKindPower || node.Kind == kKindFunction ||
                      node.FirstChild == kNoNode || IsProductRole(tree[node.FirstChild].Role);
  if (single) {
    ClassifyTerm(s, root, unknown, sums);
  } else {
    for (NodeIdx c = node.FirstChild; c != kNoNode; c = tree[c].Next) {
      ClassifyTerm(s, c, unknown, sums);
    }
  }
}

// The sums as the view holds them, each tidied; the coefficients are left "0".
PolynomialView ViewOf(const TermSums& sums) {
  PolynomialView view;
  view.QuadTerms = Tidy(sums.quad);
  view.LinTerms = Tidy(sums.lin);
  view.ConstTerm = Tidy(sums.constant);
  view.NegConst = Tidy(sums.negated);
  view.OtherTerms = Tidy(sums.other);
  return view;
}

}  // namespace

PolynomialView ClassifyTerms(Session& s, const std::string& expression,
                             const std::string& unknown) {
  TermSums sums;
  SortTerms(s, expression, unknown, sums);
  return ViewOf(sums);
}

PolynomialView ClassifyPolynomial(Session& s, const std::string& expression,
                                  const std::string& unknown) {
  TermSums sums;
  SortTerms(s, expression, unknown, sums);
  PolynomialView view = ViewOf(sums);
  view.QuadCoef =
      Coefficient(s, view.QuadTerms, unknown + "^2", sums.quad_quotient, sums.quad_read);
  view.LinCoef = Coefficient(s, view.LinTerms, unknown, sums.lin_quotient, sums.lin_read);
  return view;
}

std::string ConstantPart(Session& s, const std::string& expression, const std::string& unknown) {
  return ClassifyTerms(s, expression, unknown).ConstTerm;
}

}  // namespace tavimor
