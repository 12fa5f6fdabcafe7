// Quadratics: their coefficients in a letter, and factoring them by the sum and product, by
// grouping, as a perfect square, or by completing the square into a difference of squares.
#include <algorithm>
#include <cmath>
#include <optional>

#include "core/node_pool.h"
#include "core/node_queries.h"
#include "core/number_text.h"
#include "core/temp_tree.h"
#include "core/text_predicates.h"
#include "manipulate/factor.h"
#include "manipulate/polynomial.h"
#include "simplify/factor_texts.h"
#include "simplify/simplify_driver.h"

namespace tavimor {

namespace {

// The power of the letter in a term: 0 when absent, -1 when the term is no monomial in it.
int DegreeIn(Session& s, const std::string& term, const std::string& letter) {
  TempTree tree(s, term, TempTree::Depth::Whole);
  auto degree_of = [&](NodeIdx n) {
    const ExprNode& node = tree[n];
    if (node.Kind == kKindVariable) return node.Text == letter ? 1 : 0;
    if (node.Kind == kKindPower && tree[tree[node.FirstChild].Next].Text == letter) {
      const std::string exponent = ContentText(tree[node.FirstChild]);
      if (!IsPositiveIntegerText(s, exponent)) return -1;
      return static_cast<int>(std::lround(SafeValue(s, exponent)));
    }
    return FindOccurrences(s, letter, n).empty() ? 0 : -1;
  };
  const ExprNode& node = tree[tree.Root()];
  if (node.Kind == kKindSumOrProduct && node.FirstChild != kNoNode &&
      IsProductRole(tree[node.FirstChild].Role)) {
    int total = 0;
    for (NodeIdx c = node.FirstChild; c != kNoNode; c = tree[c].Next) {
      const int d = degree_of(c);
      if (d < 0 || (d > 0 && tree[c].Role == kRoleDenominator)) return -1;
      total += d;
    }
    return total;
  }
  return degree_of(tree.Root());
}

void LettersOf(Session& s, const std::string& text, std::vector<std::string>& letters) {
  TempTree tree(s, text, TempTree::Depth::Whole);
  std::vector<NodeIdx> stack{tree.Root()};
  WalkGuard guard;
  std::vector<std::string> found;
  while (!stack.empty()) {
    guard.Step();
    const NodeIdx n = stack.back();
    stack.pop_back();
    const ExprNode& node = tree[n];
    if (node.Kind == kKindVariable) found.push_back(node.Text);
    for (NodeIdx c = node.FirstChild; c != kNoNode; c = tree[c].Next) stack.push_back(c);
  }
  // In the order of the text.
  for (std::size_t i = 0; i < text.size(); ++i) {
    for (const std::string& letter : found) {
      if (text.compare(i, letter.size(), letter) == 0 &&
          std::find(letters.begin(), letters.end(), letter) == letters.end()) {
        letters.push_back(letter);
      }
    }
  }
}

bool QuadraticIn(Session& s, const std::vector<SignedTerm>& terms, const std::string& x,
                 std::string& variable, std::string& a, std::string& b, std::string& c) {
  std::vector<int> degrees;
  int top = 0;
  for (const SignedTerm& term : terms) {
    const int d = DegreeIn(s, term.text, x);
    if (d < 0) return false;
    degrees.push_back(d);
    top = std::max(top, d);
  }
  if (top < 2 || top % 2 != 0) return false;
  const int n = top / 2;
  std::vector<std::string> parts[3];
  for (std::size_t t = 0; t < terms.size(); ++t) {
    const int d = degrees[t];
    if (d != 0 && d != n && d != top) return false;
    const int slot = d == 0 ? 2 : (d == n ? 1 : 0);
    const std::string power = d == 1 ? x : x + "^" + std::to_string(d);
    parts[slot].push_back(d == 0
                              ? SignedText(terms[t])
                              : SimplifyText(s, "(" + SignedText(terms[t]) + ")/(" + power + ")"));
  }
  if (parts[1].empty() && parts[2].empty()) return false;
  variable = n == 1 ? x : x + "^" + std::to_string(n);
  auto coefficient = [&](int slot) {
    return parts[slot].empty() ? std::string("0") : SimplifyText(s, JoinTerms(parts[slot]));
  };
  a = coefficient(0);
  b = coefficient(1);
  c = coefficient(2);
  return a != "0";
}

}  // namespace

std::string CoefficientTimes(Session& s, const std::string& x, const std::string& y) {
  if (x == "1") return y;
  if (x == "-1") return "-" + y;
  return BracketIfNeeded(s, x) + "*" + y;
}

std::string StandardForm(Session& s, const std::string& x, const std::string& a,
                         const std::string& b, const std::string& c) {
  std::vector<std::string> terms{SimplifyText(s, CoefficientTimes(s, a, BaseText(s, x) + "^2"))};
  if (b != "0") terms.push_back(SimplifyText(s, CoefficientTimes(s, b, x)));
  if (c != "0") terms.push_back(c);
  return JoinTerms(terms);
}

std::string Shifted(const std::string& x, const std::string& h) {
  if (h == "0") return x;
  return JoinTerms({x, h});
}

std::string Negated(Session& s, const std::string& text) {
  return SimplifyText(s, "-(" + text + ")");
}

namespace {

bool IsPlain(const std::string& root) {
  return root.find("sqrt(") == std::string::npos && root.find("^(") == std::string::npos;
}

// (r*x+s)^2   help 227
bool PerfectSquareForm(Session& s, const std::string& part, const std::string& x, std::string a,
                       std::string b, std::string c, FactorFinding& found) {
  const bool minus = IsNegativeNumericText(s, a) || a.rfind("-", 0) == 0;
  if (minus) {
    a = Negated(s, a);
    b = Negated(s, b);
    c = Negated(s, c);
  }
  const std::string r = SquareRootOfExpression(s, a);
  if (!IsPlain(r)) return false;
  const std::string rx = SimplifyText(s, CoefficientTimes(s, r, x));
  const std::string h = SimplifyText(s, "(" + b + ")/(2*(" + r + "))");
  const std::string square = "(" + JoinTerms({rx, h}) + ")^2";
  const std::string inner = StandardForm(s, x, a, b, c);
  const std::string read = BaseText(s, rx) + "^2+2*" + BracketIfNeeded(s, rx) + "*" +
                           BracketIfNeeded(s, h) + "+" + BaseText(s, h) + "^2=" + square;
  found.code = kMethodPerfectSquare;
  found.factored = minus ? "-" + square : square;
  found.values = {minus ? "1" : "0",
                  part,
                  x,
                  "(" + b + ")^2-4*(" + a + ")*(" + c + ")",
                  inner,
                  rx,
                  h,
                  read,
                  minus ? "-(" + inner + ")" : ""};
  return true;
}

// (x+r)*(x+s) with r+s = b and r*s = c   help 223
void SumProductForm(const std::string& x, long long b, long long c, long long d, long long root,
                    const std::string& discriminant, FactorFinding& found) {
  const long long r = (b - root) / 2;
  const long long t = (b + root) / 2;
  std::string rt = std::to_string(r);
  std::string tt = std::to_string(t);
  // The factors in the order the product is kept in.
  if ("(" + Shifted(x, tt) + ")" < "(" + Shifted(x, rt) + ")") std::swap(rt, tt);
  found.code = kMethodSumProduct;
  found.factored = "(" + Shifted(x, rt) + ")*(" + Shifted(x, tt) + ")";
  found.values = {discriminant,
                  std::to_string(d),
                  std::to_string(root),
                  "(" + x + "+. . .)*(" + x + "+. . .)",
                  std::to_string(b),
                  std::to_string(c),
                  rt,
                  tt,
                  found.factored};
}

// a*x^2+r*x+s*x+c, factored in two groups   help 224
bool GroupingForm(Session& s, const std::string& x, long long a, long long b, long long c,
                  long long d, long long root, const std::string& discriminant,
                  FactorFinding& found) {
  const std::string square = BaseText(s, x) + "^2";
  // A group without a common factor stands in brackets behind the factor 1.
  auto group = [&](const std::string& text, FactorFinding& f) {
    const std::string simplified = SimplifyText(s, text);
    if (FactorCommon(s, simplified, 2, f)) return;
    // Only a minus sign to take out: -(x-1).
    const bool minus = simplified.rfind("-", 0) == 0;
    f.values = {minus ? "-1" : "1"};
    f.factored = minus ? "-(" + Negated(s, simplified) + ")" : "(" + simplified + ")";
  };
  auto bracket = [](const FactorFinding& f) {
    if (f.values[0] == "1") return f.factored;
    if (f.values[0] == "-1") return f.factored.substr(1);
    return f.factored.substr(f.values[0].size() + 1);
  };
  for (const long long r : {(b + root) / 2, (b - root) / 2}) {
    const long long t = b - r;
    auto term = [&](long long k, const std::string& power) {
      return SimplifyText(s, CoefficientTimes(s, std::to_string(k), power));
    };
    const std::string first = JoinTerms({term(a, square), term(r, x)});
    const std::string second = JoinTerms({term(t, x), std::to_string(c)});
    FactorFinding f1;
    FactorFinding f2;
    group(first, f1);
    group(second, f2);
    const std::string b1 = bracket(f1);
    if (f1.values[0] == "1" || b1 != bracket(f2)) continue;
    const std::string split = JoinTerms({first, second});
    found.code = kMethodQuadraticGrouping;
    found.factored = InProductOrder(b1, "(" + JoinTerms({f1.values[0], f2.values[0]}) + ")");
    found.values = {discriminant,
                    std::to_string(d),
                    std::to_string(root),
                    std::to_string(b),
                    "(" + std::to_string(a) + ")*(" + std::to_string(c) + ")",
                    std::to_string(a * c),
                    std::to_string(std::min(r, t)),
                    std::to_string(std::max(r, t)),
                    split,
                    JoinTerms({f1.factored, second}),
                    JoinTerms({f1.factored, f2.factored}),
                    found.factored};
    return true;
  }
  return false;
}

// a*(x^2+B*x+C) -> a*((x+B/2)^2-d) -> a*(x+B/2+k)*(x+B/2-k)   help 69 (k real), 70 (imaginary)
bool CompletedSquareRoute(Session& s, const std::string& part, const std::string& x,
                          const std::string& a, const std::string& b, const std::string& c,
                          double discriminant, FactorFinding& found) {
  if (discriminant < 0 && s.ComplexForm == 0) return false;
  const bool leading = a != "1";
  const std::string big = SimplifyText(s, "(" + b + ")/(" + a + ")");
  const std::string small = SimplifyText(s, "(" + c + ")/(" + a + ")");
  const std::string prefix = !leading ? "" : (a == "-1" ? "-(" : BracketIfNeeded(s, a) + "*(");
  const std::string close = leading ? ")" : "";
  auto wrap = [&](const std::string& inside) { return prefix + inside + close; };
  const std::string q = SimplifyText(s, "(" + big + ")^2/4");
  const std::string h = SimplifyText(s, "(" + big + ")/2");
  const std::string square = "(" + Shifted(x, h) + ")^2";
  const std::string quadratic = StandardForm(s, x, "1", big, "0");
  const std::string rest = SimplifyText(s, JoinTerms({small, "-" + BracketIfNeeded(s, q)}));
  const std::string taken = Negated(s, rest);
  std::string k;
  if (discriminant > 0) {
    k = SquareRootOfExpression(s, taken);
  } else {
    const std::string size = SquareRootOfExpression(s, Negated(s, taken));
    k = SimplifyText(s, BracketIfNeeded(s, size) + "*" + ImagUnitText(s));
  }
  const std::string shifted = Shifted(x, h);
  const std::string plus = JoinTerms({shifted, k});
  const std::string minus = JoinTerms({shifted, Negated(s, k)});
  const std::string factors = "(" + plus + ")*(" + minus + ")";
  const std::string standard = StandardForm(s, x, a, b, c);
  const std::string less_q = "-" + q;
  const std::string with_q = JoinTerms({quadratic, q, less_q, small});
  found.code = discriminant > 0 ? kMethodCompletedSquareReal : kMethodCompletedSquareImaginary;
  found.factored = leading ? wrap(factors) : factors;
  found.values = {
      standard == part ? "" : standard,
      leading ? wrap(JoinTerms({quadratic, small})) : "",
      q,
      wrap(with_q),
      wrap(JoinTerms({"(" + JoinTerms({quadratic, q}) + ")", "-" + BracketIfNeeded(s, q), small})),
      wrap(JoinTerms({square, "-" + BracketIfNeeded(s, q), small})),
      wrap(JoinTerms({square, rest})),
      wrap(square + "-(" + taken + ")"),
      wrap(square + "-" + BaseText(s, k) + "^2"),
      shifted,
      k,
      BaseText(s, shifted) + "^2-" + BaseText(s, k) + "^2=" + factors,
      leading ? found.factored : "",
      x};
  return true;
}

}  // namespace

bool QuadraticCoefficients(Session& s, const std::string& text, std::string& letter, std::string& a,
                           std::string& b, std::string& c) {
  a.clear();
  const std::vector<SignedTerm> terms = SignedTerms(s, text);
  if (terms.size() < 2) return false;
  std::vector<std::string> letters;
  if (letter.empty()) {
    LettersOf(s, text, letters);
  } else {
    letters.push_back(letter);
  }
  for (const std::string& x : letters) {
    if (IsConstantLetter(s, x)) continue;
    std::string variable;
    if (QuadraticIn(s, terms, x, variable, a, b, c)) {
      // The coefficients must be free of the letter (as a letter: the t of sqrt is none).
      auto mentions = [&](const std::string& coefficient) {
        if (coefficient.find(x) == std::string::npos) return false;
        TempTree tree(s, coefficient, TempTree::Depth::Whole);
        return !FindOccurrences(s, x, tree.Root()).empty();
      };
      if (mentions(a) || mentions(b) || mentions(c)) continue;
      letter = variable;
      return true;
    }
  }
  a.clear();
  return false;
}

bool FactorQuadratic(Session& s, const std::string& part, FactorFinding& found) {
  std::string x;
  std::string a;
  std::string b;
  std::string c;
  if (!QuadraticCoefficients(s, part, x, a, b, c)) return false;
  const std::string shown = "(" + b + ")^2-4*(" + a + ")*(" + c + ")";
  const std::string d = ExpandedText(s, "(" + b + ")*(" + b + ")-4*(" + a + ")*(" + c + ")");
  const bool integers = IsIntegerText(s, a) && IsIntegerText(s, b) && IsIntegerText(s, c);
  const std::optional<double> value = NumericTextValue(s, d);
  if (d == "0") return PerfectSquareForm(s, part, x, a, b, c, found);
  if (!integers) {
    if (!value || *value == 0.0) return false;
    return CompletedSquareRoute(s, part, x, a, b, c, *value, found);
  }
  if (!value || *value <= 0) return false;
  const long long dv = std::llround(*value);
  const long long root = std::llround(std::sqrt(static_cast<double>(dv)));
  if (root * root != dv) return false;
  const long long av = std::llround(SafeValue(s, a));
  const long long bv = std::llround(SafeValue(s, b));
  const long long cv = std::llround(SafeValue(s, c));
  if (av == 1) {
    SumProductForm(x, bv, cv, dv, root, shown, found);
    return true;
  }
  return GroupingForm(s, x, av, bv, cv, dv, root, shown, found);
}

bool PerfectSquareOfQuadratic(Session& s, const std::string& text, std::string& square) {
  std::string x;
  std::string a;
  std::string b;
  std::string c;
  if (!QuadraticCoefficients(s, text, x, a, b, c) || b == "0") return false;
  if (ExpandedText(s, "(" + b + ")*(" + b + ")-4*(" + a + ")*(" + c + ")") != "0") return false;
  const std::string h = SimplifyText(s, "(" + b + ")/(2*(" + a + "))");
  square = CoefficientTimes(s, a, "(" + Shifted(x, h) + ")^2");
  return true;
}

}  // namespace tavimor
