// Polynomials in one letter: their coefficients, all their complex roots by Laguerre's method,
// division by a root, evaluation without noise, and square roots of terms.
#include "manipulate/polynomial.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <set>

#include "core/message_box.h"
#include "core/node_queries.h"
#include "core/number_text.h"
#include "core/temp_tree.h"
#include "core/text_predicates.h"
#include "core/tree_walk.h"
#include "simplify/radical_rules.h"
#include "simplify/simplify_driver.h"

namespace tavimor {

namespace {

// Step fractions that break a cycle of Laguerre's method at every tenth iteration.
constexpr std::array<double, 8> kBreakCycleFractions = {0.5,  0.25, 0.75, 0.13,
                                                        0.38, 0.62, 0.88, 1.0};

bool IsWholeNonNegative(const Session& s, const std::string& text) {
  if (NumberEnd(s, text, 1) != static_cast<int>(text.size())) return false;
  const double v = SafeValue(s, text);
  return v >= 0.0 && v <= 32767.0 && v == std::floor(v);
}

// x^n with x the letter and n whole: the power n, else -1.
int PowerOfLetter(const TempTree& tree, NodeIdx n, const Session& s, const std::string& letter) {
  const ExprNode& node = tree[n];
  if (node.Kind == kKindVariable) return node.Text == letter ? 1 : -1;
  if (node.Kind != kKindPower || node.FirstChild == kNoNode) return -1;
  const ExprNode& exponent = tree[node.FirstChild];
  const ExprNode& base = tree[exponent.Next];
  if (base.Kind != kKindVariable || base.Text != letter) return -1;
  if (!IsWholeNonNegative(s, exponent.Text)) return -1;
  return static_cast<int>(SafeValue(s, exponent.Text));
}

// A term c*x^n of the sum: its power and coefficient; false for any other shape.
bool ReadTerm(const TempTree& tree, NodeIdx t, const Session& s, const std::string& letter,
              int& power, double& coefficient) {
  const ExprNode& term = tree[t];
  coefficient = 1.0;
  if (term.Kind == kKindNumber) {
    power = 0;
    coefficient = SafeValue(s, term.Text);
    return true;
  }
  power = PowerOfLetter(tree, t, s, letter);
  if (power >= 0) return true;
  // number * letter, letter / number, number * power, number / number * letter, a sign factor.
  if (term.Kind != kKindSumOrProduct || term.FirstChild == kNoNode ||
      !IsProductRole(tree[term.FirstChild].Role)) {
    return false;
  }
  int factors = 0;
  power = -1;
  for (NodeIdx c = term.FirstChild; c != kNoNode; c = tree[c].Next) {
    const ExprNode& factor = tree[c];
    if (++factors > 3) return false;
    if (factor.Kind == kKindNumber) {
      const double v =
          factor.Text == "-" ? -1.0 : (factor.Text == "+" ? 1.0 : SafeValue(s, factor.Text));
      if (factor.Role == kRoleDenominator) {
        if (v == 0.0) return false;
        coefficient /= v;
      } else {
        coefficient *= v;
      }
      continue;
    }
    const int p = PowerOfLetter(tree, c, s, letter);
    if (p < 0 || power >= 0 || factor.Role != kRoleNumerator) return false;
    power = p;
  }
  if (power < 0) power = 0;
  return true;
}

Complex Polar(double magnitude, double angle) { return std::polar(magnitude, angle); }

// The value and the first derivative by Horner's rule.
void ValueAndSlope(const std::vector<Complex>& a, int degree, Complex x, Complex& p, Complex& dp) {
  p = a[static_cast<std::size_t>(degree)];
  dp = 0.0;
  for (int j = degree - 1; j >= 0; --j) {
    dp = x * dp + p;
    p = x * p + a[static_cast<std::size_t>(j)];
  }
}

// Laguerre stops once the value is within 2e-9 of its rounding bound, which can leave a simple
// root some 1e-8 off and a whole root that no longer reads as whole. Newton's steps finish the
// polish while they make the value smaller; a real root stays real.
constexpr int kRefineSteps = 60;
void RefineRoot(const std::vector<Complex>& a, int degree, Complex& x) {
  Complex p;
  Complex dp;
  ValueAndSlope(a, degree, x, p, dp);
  for (int step = 0; step < kRefineSteps && std::abs(p) > 0.0 && std::abs(dp) > 0.0; ++step) {
    const Complex next = x - p / dp;
    Complex p_next;
    Complex dp_next;
    ValueAndSlope(a, degree, next, p_next, dp_next);
    if (!(std::abs(p_next) < std::abs(p))) return;
    x = next;
    p = p_next;
    dp = dp_next;
  }
}

}  // namespace

bool IsPolynomial(Session& s, const std::string& text, std::vector<double>& coefficients,
                  std::int16_t& degree) {
  coefficients.clear();
  degree = 0;
  const std::string simplified = SimplifyText(s, text);
  TempTree tree(s, simplified, TempTree::Depth::Whole);
  std::set<std::string> letters;
  ForEachNodeParentFirst(s, tree.Root(), [&](NodeIdx n) {
    if (tree[n].Kind == kKindVariable) letters.insert(tree[n].Text);
  });
  if (letters.size() != 1) return false;
  const std::string letter = *letters.begin();
  const ExprNode& root = tree[tree.Root()];
  if (root.FirstChild == kNoNode || !IsSumRole(tree[root.FirstChild].Role)) return false;
  for (NodeIdx t = root.FirstChild; t != kNoNode; t = tree[t].Next) {
    int power = 0;
    double coefficient = 0.0;
    if (!ReadTerm(tree, t, s, letter, power, coefficient)) {
      coefficients.clear();
      return false;
    }
    if (tree[t].Role == kRoleMinus) coefficient = -coefficient;
    if (static_cast<int>(coefficients.size()) <= power) {
      coefficients.resize(static_cast<std::size_t>(power) + 1, 0.0);
    }
    coefficients[static_cast<std::size_t>(power)] += coefficient;
  }
  for (std::size_t i = 0; i < coefficients.size(); ++i) {
    if (coefficients[i] != 0.0) degree = static_cast<std::int16_t>(i);
  }
  coefficients.resize(static_cast<std::size_t>(degree) + 1);
  return true;
}

void LaguerreRoot(Session& s, const std::vector<Complex>& a, int degree, Complex& x,
                  int& iterations) {
  const int m = degree;
  for (int iter = 1; iter <= kRootMaxIterations; ++iter) {
    iterations = iter;
    Complex b = a[static_cast<std::size_t>(m)];
    double err = std::abs(b);
    Complex d = 0.0;
    Complex f = 0.0;
    const double abx = std::abs(x);
    // The value b, first derivative d and half the second f by Horner's rule, with the bound
    // of the rounding error.
    for (int j = m - 1; j >= 0; --j) {
      f = x * f + d;
      d = x * d + b;
      b = x * b + a[static_cast<std::size_t>(j)];
      err = std::abs(b) + abx * err;
    }
    err *= kRootRoundoff;
    if (std::abs(b) <= err) return;  // x is a root as far as rounding can tell
    const Complex g = d / b;
    const Complex g2 = g * g;
    const Complex h = g2 - 2.0 * (f / b);
    const Complex sq = std::sqrt(static_cast<double>(m - 1) * (static_cast<double>(m) * h - g2));
    Complex gp = g + sq;
    const Complex gm = g - sq;
    const double abp = std::abs(gp);
    const double abm = std::abs(gm);
    if (abp < abm) gp = gm;
    const Complex dx = std::max(abp, abm) > 0.0 ? static_cast<double>(m) / gp
                                                : Polar(1.0 + abx, static_cast<double>(iter));
    const Complex x1 = x - dx;
    if (x1 == x) return;
    if (iter % 10 != 0) {
      x = x1;
    } else {
      x -= kBreakCycleFractions[static_cast<std::size_t>(iter / 10 - 1)] * dx;
    }
  }
  ShowCriticalMessage(s, "Too many iterations in Laguerre");
}

std::vector<Complex> PolynomialRoots(Session& s, const std::vector<double>& coefficients,
                                     int degree) {
  if (degree > kMaxPolynomialDegree || degree < 0 ||
      static_cast<int>(coefficients.size()) <= degree) {
    throw RunTimeError(RunTimeErrorNumber::SubscriptOutOfRange, "Subscript out of range");
  }
  // The roots are those of the polynomial divided by its leading coefficient.
  if (degree > 0 && coefficients[static_cast<std::size_t>(degree)] == 0.0) {
    throw RunTimeError(RunTimeErrorNumber::DivisionByZero, "Division by zero");
  }
  const int m = degree;
  std::vector<Complex> a(coefficients.begin(), coefficients.begin() + m + 1);
  std::vector<Complex> ad = a;
  std::vector<Complex> roots(static_cast<std::size_t>(m));
  int iterations = 0;
  for (int j = m; j >= 1; --j) {
    Complex x = 0.0;
    LaguerreRoot(s, ad, j, x, iterations);
    if (std::abs(x.imag()) <= 2.0 * kRootEpsilon * kRootEpsilon * std::abs(x.real())) {
      x = Complex(x.real(), 0.0);
    }
    roots[static_cast<std::size_t>(j - 1)] = x;
    // Deflation: the quotient by (x - root) takes the place of the polynomial.
    Complex b = ad[static_cast<std::size_t>(j)];
    for (int k = j - 1; k >= 0; --k) {
      const Complex c = ad[static_cast<std::size_t>(k)];
      ad[static_cast<std::size_t>(k)] = b;
      b = x * b + c;
    }
  }
  for (Complex& root : roots) {  // polish
    LaguerreRoot(s, a, m, root, iterations);
    RefineRoot(a, m, root);
  }
  // Straight insertion by the real part.
  for (std::size_t j = 1; j < roots.size(); ++j) {
    const Complex x = roots[j];
    std::size_t i = j;
    while (i > 0 && roots[i - 1].real() > x.real()) {
      roots[i] = roots[i - 1];
      --i;
    }
    roots[i] = x;
  }
  return roots;
}

template <typename T>
std::vector<T> SyntheticDivision(const std::vector<T>& p, T root, T& remainder) {
  if (p.empty()) {
    remainder = T(0);
    return {};
  }
  std::vector<T> quotient(p.size() - 1);
  T b = p.back();
  for (std::size_t k = p.size() - 1; k-- > 0;) {
    quotient[k] = b;
    b = root * b + p[k];
  }
  remainder = b;
  return quotient;
}

std::vector<double> DividePolynomial(const std::vector<double>& p, double root, double& remainder) {
  return SyntheticDivision(p, root, remainder);
}

std::vector<Complex> DividePolynomial(const std::vector<Complex>& p, Complex root,
                                      Complex& remainder) {
  return SyntheticDivision(p, root, remainder);
}

double EvaluateCleaned(const std::vector<double>& coefficients, double x) {
  double sum = 0.0;
  double scale = 0.0;
  for (std::size_t k = coefficients.size(); k-- > 0;) {
    scale = std::max(scale, std::fabs(coefficients[k]));
    sum = sum * x + coefficients[k];
    if (std::fabs(sum) < scale * kRootEpsilon) sum = 0.0;
  }
  return sum;
}

std::vector<double> PolynomialFromRoots(const std::vector<Complex>& roots) {
  std::vector<Complex> p{Complex(1.0)};
  for (const Complex& r : roots) {
    std::vector<Complex> next(p.size() + 1, Complex(0.0));
    for (std::size_t k = 0; k < p.size(); ++k) {
      next[k + 1] += p[k];
      next[k] -= r * p[k];
    }
    p = std::move(next);
  }
  double scale = 0.0;
  for (const Complex& c : p) scale = std::max(scale, std::abs(c));
  std::vector<double> out;
  for (const Complex& c : p)
    out.push_back(std::fabs(c.real()) < scale * kRootEpsilon ? 0.0 : c.real());
  return out;
}

std::string CollectImaginaryRoots(Session& s, const std::string& text, std::int32_t& factor) {
  factor = 1;
  const std::string unit = ImagUnitText(s);
  TempTree tree(s, text, TempTree::Depth::OneLevel);
  const ExprNode& root = tree[tree.Root()];
  if (root.FirstChild == kNoNode || tree[root.FirstChild].Role != kRoleNumerator) return text;
  // At most two units are taken out: i*i = -1 is the multiple carried in front.
  int found = 0;
  std::string rest;
  for (NodeIdx c = root.FirstChild; c != kNoNode; c = tree[c].Next) {
    const ExprNode& f = tree[c];
    if (found < 2 && f.Role == kRoleNumerator && (f.Text == unit || f.Text == "sqrt(-1)")) {
      ++found;
      continue;
    }
    if (f.Kind == kKindNumber && f.Text == "-") {
      factor = -factor;
      continue;
    }
    rest += (f.Role == kRoleDenominator ? "/" : (rest.empty() ? "" : "*")) + f.Text;
  }
  if (found == 0) {
    factor = 1;
    return text;
  }
  if (found == 2) factor = -factor;
  if (rest.empty() || rest[0] == '/') rest = "1" + rest;
  if (found == 1) rest += "*" + unit;
  return rest;
}

std::string SquareRootOfExpression(Session& s, const std::string& text) {
  const std::string simplified = SimplifyText(s, text);
  std::string result;
  {
    TempTree tree(s, simplified, TempTree::Depth::OneLevel);
    const ExprNode& root = tree[tree.Root()];
    const NodeIdx first = root.FirstChild;
    if (root.Kind == kKindNumber) {
      int code = 0;
      result = SquareRootOfNumber(s, simplified, code);
    } else if (root.Kind == kKindPower && first != kNoNode) {
      result = tree[tree[first].Next].Text + "^(" + tree[first].Text + "/2)";
    } else if (root.Kind == kKindSumOrProduct && first != kNoNode &&
               IsProductRole(tree[first].Role)) {
      std::vector<std::pair<char, std::string>> factors;
      for (NodeIdx c = first; c != kNoNode; c = tree[c].Next) {
        const std::string factor = tree[c].Text == "-" ? "-1" : tree[c].Text;
        factors.emplace_back(tree[c].Role == kRoleDenominator ? '/' : '*', factor);
      }
      for (const auto& [joint, factor] : factors) {
        std::string root_text;
        if (NumberEnd(s, factor, 1) == static_cast<int>(factor.size())) {
          int code = 0;
          root_text = SquareRootOfNumber(s, factor, code);
        } else {
          root_text = SquareRootOfExpression(s, factor);
        }
        if (NeedsBrackets(s, root_text)) root_text = "(" + root_text + ")";
        result += (result.empty() && joint == '*' ? "" : std::string(1, joint)) + root_text;
      }
      if (!result.empty() && result[0] == '/') result = "1" + result;
      for (int pass = 0; pass < 2; ++pass) {
        std::int32_t factor = 1;
        const std::string collected = CollectImaginaryRoots(s, result, factor);
        if (collected == result && factor == 1) break;
        result = (factor == -1 ? "-" : "") + collected;
        if (factor != 1 && factor != -1) result = std::to_string(factor) + "*" + collected;
      }
    } else {
      result = "sqrt(" + simplified + ")";  // a letter, a function, a bracket or a sum
    }
  }
  return SimplifyText(s, result);
}

}  // namespace tavimor
