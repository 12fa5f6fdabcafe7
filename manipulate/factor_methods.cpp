// The factoring methods that work on the terms as they stand: the common factor, squares, cubes,
// grouping, and the alias for a repeated quantity.
#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <optional>

#include "core/errors.h"
#include "core/evaluate.h"
#include "core/node_pool.h"
#include "core/node_queries.h"
#include "core/number_format.h"
#include "core/number_text.h"
#include "core/parse.h"
#include "core/scoped_override.h"
#include "core/temp_tree.h"
#include "core/text_predicates.h"
#include "manipulate/factor.h"
#include "manipulate/integer_gcd.h"
#include "manipulate/polynomial.h"
#include "simplify/collect_sum.h"
#include "simplify/factor_texts.h"
#include "simplify/simplify_driver.h"

namespace tavimor {

std::vector<SignedTerm> SignedTerms(Session& s, const std::string& text) {
  std::vector<SignedTerm> terms;
  // A sum at the top is read off the text; anything else is read as a tree, whose reading goes
  // into a bracket or a function's argument.
  const std::vector<TopLevelTerm> top = TopLevelTerms(s, text);
  if (!top.empty()) {
    terms.reserve(top.size());
    for (const TopLevelTerm& term : top) {
      terms.push_back({term.role == kRoleMinus, std::string(term.text)});
    }
    return terms;
  }
  TempTree tree(s, text, TempTree::Depth::OneLevel);
  const NodeIdx first = tree[tree.Root()].FirstChild;
  if (first == kNoNode || !IsSumRole(tree[first].Role)) return terms;
  for (NodeIdx c = first; c != kNoNode; c = tree[c].Next) {
    terms.push_back({tree[c].Role == kRoleMinus, tree[c].Text});
  }
  return terms;
}

std::string SignedText(const SignedTerm& term) { return (term.minus ? "-" : "") + term.text; }

std::string JoinTerms(const std::vector<std::string>& terms) {
  std::string sum;
  for (const std::string& term : terms) {
    if (!sum.empty() && !term.empty() && term[0] != '-') sum += "+";
    sum += term;
  }
  return sum;
}

bool IsConstantLetter(const Session& s, const std::string& letter) {
  if (letter == "i" || letter == "j") return s.ComplexForm > 0;
  if (letter == "e") return s.SpecialE;
  if (letter == "p") return s.SpecialP;
  if (letter == "d") return s.SpecialD;
  return false;
}

std::string InProductOrder(const std::string& first, const std::string& second) {
  return second < first ? second + "*" + first : first + "*" + second;
}

namespace {

// A factor of a term other than its number: its base and exponent, a denominator's negated.
struct LiteralFactor {
  std::string base;
  std::string exponent;  // as written; "1" for a plain factor
  double value = 1.0;    // the exponent's value when it is a number
  bool numeric = true;
};

std::vector<LiteralFactor> LiteralFactors(Session& s, const TempTree& tree, NodeIdx term) {
  std::vector<LiteralFactor> factors;
  auto add = [&](NodeIdx n, bool below) {
    const ExprNode& node = tree[n];
    if (node.Kind == kKindNumber && node.FirstChild == kNoNode) return;
    LiteralFactor f;
    if (node.Kind == kKindPower) {
      const NodeIdx exponent = node.FirstChild;
      f.base = tree[tree[exponent].Next].Text;
      f.exponent = tree[exponent].Text;
      const std::string inner = ContentText(tree[exponent]);
      f.numeric = IsNumberToken(s, inner) || NumericTextValue(s, inner).has_value();
      if (f.numeric) f.value = NumericTextValue(s, inner).value_or(1.0);
    } else {
      f.base = node.Text;
      f.exponent = "1";
    }
    if (below) {
      f.value = -f.value;
      f.exponent = "-" + BracketIfNeeded(s, f.exponent);
    }
    factors.push_back(f);
  };
  const ExprNode& node = tree[term];
  if (node.Kind == kKindSumOrProduct && node.FirstChild != kNoNode &&
      IsProductRole(tree[node.FirstChild].Role)) {
    for (NodeIdx c = node.FirstChild; c != kNoNode; c = tree[c].Next) {
      add(c, tree[c].Role == kRoleDenominator);
    }
  } else {
    add(term, false);
  }
  return factors;
}

bool IsWhole(double x) { return std::fabs(x - std::round(x)) < 1e-9 && std::fabs(x) < 2e9; }

std::string WholeText(double x) { return std::to_string(static_cast<long long>(std::llround(x))); }

// The literal factor shared by every term: each base with its lowest exponent.
void CommonLiterals(Session& s, const std::vector<std::vector<LiteralFactor>>& terms,
                    std::vector<std::string>& above, std::vector<std::string>& below) {
  if (terms.empty()) return;
  for (const LiteralFactor& candidate : terms[0]) {
    LiteralFactor lowest = candidate;
    bool everywhere = true;
    for (std::size_t t = 1; t < terms.size() && everywhere; ++t) {
      const auto it = std::find_if(terms[t].begin(), terms[t].end(), [&](const LiteralFactor& f) {
        return f.base == candidate.base;
      });
      if (it == terms[t].end()) {
        everywhere = false;
      } else if (it->numeric && lowest.numeric) {
        if (it->value < lowest.value) lowest = *it;
      } else if (it->exponent != lowest.exponent) {
        everywhere = false;
      }
    }
    if (!everywhere) continue;
    if (std::find(above.begin(), above.end(), lowest.base) != above.end()) continue;
    if (lowest.numeric && lowest.value == 0.0) continue;
    const bool negative = lowest.numeric && lowest.value < 0;
    std::string exponent = lowest.exponent;
    if (lowest.numeric) {
      const double size = std::fabs(lowest.value);
      exponent = IsWhole(size) ? WholeText(size) : GeneralNumberFormat(size, s.Dp());
    } else if (exponent.rfind("-", 0) == 0) {
      continue;  // a letter exponent below the line stays where it is
    }
    const std::string text = exponent == "1"
                                 ? lowest.base
                                 : BaseText(s, lowest.base) + "^" + BracketIfNeeded(s, exponent);
    (negative ? below : above).push_back(text);
  }
}

std::string CountWord(std::size_t n) { return std::to_string(n); }

}  // namespace

namespace {

// The common factor of the terms of `part`, read once by the caller.
std::optional<std::string> CommonFactorOfTerms(Session& s, const std::string& part,
                                               const std::vector<SignedTerm>& signed_terms,
                                               int depth) {
  if (signed_terms.size() < 2) return std::nullopt;
  std::vector<std::vector<LiteralFactor>> literals;
  std::vector<double> numerators;
  std::vector<double> denominators;
  {
    TempTree tree(s, part, TempTree::Depth::Whole);
    for (NodeIdx c = tree[tree.Root()].FirstChild; c != kNoNode; c = tree[c].Next) {
      const SplitParts parts = SplitTerm(s, c);
      numerators.push_back(parts.numerator);
      denominators.push_back(parts.denominator);
      literals.push_back(LiteralFactors(s, tree, c));
    }
  }
  const bool whole_numerators = std::all_of(numerators.begin(), numerators.end(), IsWhole);
  const bool whole_denominators = std::all_of(denominators.begin(), denominators.end(), IsWhole);
  std::int32_t numerator = 1;
  std::int32_t denominator = 1;
  if (whole_numerators) {
    numerator = 0;
    for (double n : numerators) numerator = GcdOf(numerator, static_cast<std::int32_t>(n));
  }
  if (whole_denominators && depth == 1) {
    for (double d : denominators) denominator = LcmOf(s, denominator, static_cast<std::int32_t>(d));
    if (denominator == 0) denominator = 1;
  } else if (whole_denominators && whole_numerators) {
    denominator = 0;
    for (double d : denominators) denominator = GcdOf(denominator, static_cast<std::int32_t>(d));
  }
  if (numerator == 0) numerator = 1;
  if (denominator == 0) denominator = 1;
  std::vector<std::string> above;
  std::vector<std::string> below;
  CommonLiterals(s, literals, above, below);
  if (numerator != 1) above.insert(above.begin(), std::to_string(numerator));
  if (denominator != 1) below.insert(below.begin(), std::to_string(denominator));
  std::string factor = JoinFactors(above, below);
  if (factor == "1") return std::nullopt;
  return signed_terms[0].minus ? "-" + factor : factor;
}

}  // namespace

std::optional<std::string> CommonFactorOf(Session& s, const std::string& part, int depth) {
  return CommonFactorOfTerms(s, part, SignedTerms(s, part), depth);
}

// ab+ac -> a*(b+c)   help 66, 67 with a minus taken out
bool FactorCommon(Session& s, const std::string& part, int depth, FactorFinding& found) {
  const std::vector<SignedTerm> signed_terms = SignedTerms(s, part);
  const std::optional<std::string> common = CommonFactorOfTerms(s, part, signed_terms, depth);
  if (!common) return false;
  const std::string& factor = *common;
  found.code = signed_terms[0].minus ? kMethodCommonMinus : kMethodCommon;
  std::vector<std::string> quotients;
  std::vector<std::string> dots;
  for (const SignedTerm& term : signed_terms) {
    const std::string quotient = SimplifyText(s, "(" + SignedText(term) + ")/(" + factor + ")");
    dots.push_back(quotient.rfind("-", 0) == 0 ? "-. . ." : ". . .");
    quotients.push_back(quotient);
  }
  const std::string inside = JoinTerms(quotients);
  found.factored = factor + "*(" + inside + ")";
  found.values = {factor, CountWord(signed_terms.size()), factor + "*(" + JoinTerms(dots) + ")",
                  found.factored};
  return true;
}

namespace {

// A root that is written without a root sign: no sqrt and no fractional exponent.
bool IsPlainRoot(const std::string& text) {
  if (text.find("sqrt(") != std::string::npos) return false;
  for (std::size_t at = text.find("^("); at != std::string::npos; at = text.find("^(", at + 1)) {
    int depth = 0;
    for (std::size_t i = at + 1; i < text.size(); ++i) {
      if (text[i] == '(') ++depth;
      if (text[i] == ')' && --depth == 0) break;
      if (text[i] == '/') return false;
    }
  }
  return true;
}

std::optional<std::string> SquareRootOfTerm(Session& s, const std::string& term) {
  std::string root = SquareRootOfExpression(s, term);
  if (!IsPlainRoot(root) || ContainsImagUnit(s, root)) return std::nullopt;
  return root;
}

// The cube root of a whole number, a power with an exponent divisible by 3, or a product of them.
std::optional<std::string> CubeRootOfTerm(Session& s, const std::string& term) {
  std::vector<std::string> above;
  std::vector<std::string> below;
  TempTree tree(s, SimplifyText(s, term), TempTree::Depth::Whole);
  auto root_of = [&](NodeIdx n) -> std::optional<std::string> {
    const ExprNode& node = tree[n];
    if (node.Kind == kKindNumber && node.FirstChild == kNoNode) {
      if (!IsIntegerText(s, node.Text)) return std::nullopt;
      const double value = SafeValue(s, node.Text);
      const double root = std::round(std::cbrt(value));
      if (root * root * root != value) return std::nullopt;
      return WholeText(root);
    }
    if (node.Kind == kKindPower) {
      const std::string exponent = ContentText(tree[node.FirstChild]);
      if (!IsIntegerText(s, exponent)) return std::nullopt;
      const long long e = std::llround(SafeValue(s, exponent));
      if (e % 3 != 0 || e <= 0) return std::nullopt;
      const std::string base = tree[tree[node.FirstChild].Next].Text;
      return e == 3 ? base : BaseText(s, base) + "^" + std::to_string(e / 3);
    }
    return std::nullopt;
  };
  const ExprNode& node = tree[tree.Root()];
  if (node.Kind == kKindSumOrProduct && node.FirstChild != kNoNode &&
      IsProductRole(tree[node.FirstChild].Role)) {
    for (NodeIdx c = node.FirstChild; c != kNoNode; c = tree[c].Next) {
      const std::optional<std::string> root = root_of(c);
      if (!root) return std::nullopt;
      (tree[c].Role == kRoleDenominator ? below : above).push_back(*root);
    }
    return JoinFactors(above, below);
  }
  return root_of(tree.Root());
}

std::string Squared(Session& s, const std::string& x) { return BaseText(s, x) + "^2"; }
std::string Cubed(Session& s, const std::string& x) { return BaseText(s, x) + "^3"; }
std::string Times(Session& s, const std::string& x, const std::string& y) {
  return BracketIfNeeded(s, x) + "*" + BracketIfNeeded(s, y);
}

}  // namespace

// a^2-b^2 -> (a+b)*(a-b)   help 225; a^2+b^2 -> (a+b*i)*(a-b*i) with complex numbers   help 226
bool FactorSquares(Session& s, const std::string& part, FactorFinding& found) {
  const std::vector<SignedTerm> terms = SignedTerms(s, part);
  if (terms.size() != 2) return false;
  const bool minus = terms[0].minus;
  const bool sum = terms[0].minus == terms[1].minus;
  if (sum && s.ComplexForm == 0) return false;
  const std::optional<std::string> a = SquareRootOfTerm(s, terms[0].text);
  if (!a) return false;
  const std::optional<std::string> b = SquareRootOfTerm(s, terms[1].text);
  if (!b) return false;
  const std::string inner = terms[0].text + (sum ? "+" : "-") + terms[1].text;
  std::string second = *b;
  if (sum) second = Times(s, *b, ImagUnitText(s));
  const std::string factors = "(" + *a + "+" + second + ")*(" + *a + "-" + second + ")";
  const std::string formula_read =
      Squared(s, *a) + (sum ? "+" : "-") + Squared(s, *b) + "=" + factors;
  std::string simplified = SimplifyText(s, factors);
  found.code = sum ? kMethodSumOfSquares : kMethodDifferenceOfSquares;
  found.factored = minus ? "-" + simplified : simplified;
  found.values = {minus ? "1" : "0", inner,   *a,         *b,
                  formula_read,      factors, simplified, ImagUnitText(s)};
  return true;
}

// a^3+b^3 -> (a+b)*(a^2-a*b+b^2)   help 71; a^3-b^3 -> (a-b)*(a^2+a*b+b^2)   help 72
bool FactorCubes(Session& s, const std::string& part, FactorFinding& found) {
  const std::vector<SignedTerm> terms = SignedTerms(s, part);
  if (terms.size() != 2) return false;
  const bool minus = terms[0].minus;
  const bool sum = terms[0].minus == terms[1].minus;
  const std::optional<std::string> a = CubeRootOfTerm(s, terms[0].text);
  if (!a) return false;
  const std::optional<std::string> b = CubeRootOfTerm(s, terms[1].text);
  if (!b) return false;
  const std::string inner = terms[0].text + (sum ? "+" : "-") + terms[1].text;
  const std::string sign = sum ? "+" : "-";
  const std::string other = sum ? "-" : "+";
  const std::string factors = "(" + *a + sign + *b + ")*(" + Squared(s, *a) + other +
                              Times(s, *a, *b) + "+" + Squared(s, *b) + ")";
  const std::string formula_read = Cubed(s, *a) + sign + Cubed(s, *b) + "=" + factors;
  const std::string simplified = SimplifyText(s, factors);
  found.code = sum ? kMethodSumOfCubes : kMethodDifferenceOfCubes;
  found.factored = minus ? "-" + simplified : simplified;
  found.values = {minus ? "1" : "0", inner, *a, *b, formula_read, factors, simplified, ""};
  return true;
}

namespace {

// Whether the values of x and y tell at once that x/y is no number near 1: at some point where
// both have a finite value and y is not near zero, x/y is farther than 1/1000 from 1. Every rewrite
// of the simplify loop keeps the value, so x/y could then never simplify to a number within 1E-7
// of 1. The letters take values between 0.3 and 1.4, where the loop's rules for powers, roots,
// logarithms and inverse functions (which take letters as positive, and angles as small) hold; a
// text with a constant letter (i, e, p, d as the options make them) is not tried, nor one whose
// values cannot be found. False means "not told apart", never "the same".
bool ValuesTellApart(Session& s, const std::string& x, const std::string& y) {
  ScopedOverride names(s.VarNames);
  ScopedOverride values(s.VarValues);
  ScopedOverride count(s.VarCount);
  ScopedOverride letters(s.SubstitutionVars, {});
  ScopedOverride letter_count(s.SubstitutionCount, std::int16_t{0});
  try {
    TempTree left(s, x, TempTree::Depth::Whole);
    TempTree right(s, y, TempTree::Depth::Whole);
    CollectVars(s, left.Root());
    CollectVars(s, right.Root());
    const std::vector<char>& found = s.SubstitutionVars;
    if (std::any_of(found.begin(), found.end(),
                    [&s](char letter) { return IsConstantVar(s, letter); })) {
      return false;
    }
    constexpr std::array<double, 3> kPoints = {0.5813, 0.9277, 1.2391};
    for (const double point : kPoints) {
      for (std::size_t k = 0; k < found.size(); ++k) {
        SetVarValue(s, found[k],
                    0.3 + std::fmod(point - 0.3 + 0.1731 * static_cast<double>(k), 1.1));
      }
      try {
        EvaluateAll(s, left.Root());
        EvaluateAll(s, right.Root());
      } catch (const RunTimeError&) {
        continue;  // outside a domain at this point: another may tell
      }
      const double vx = ValueAsNumber(s, s.Pool[left.Root()].Value);
      const double vy = ValueAsNumber(s, s.Pool[right.Root()].Value);
      if (!std::isfinite(vx) || !std::isfinite(vy) || std::fabs(vy) < 1e-9) continue;
      if (std::fabs(vx / vy - 1.0) > 1e-3) return true;
    }
  } catch (const RunTimeError&) {
    return false;  // a text the parser refuses is left to the simplify loop
  }
  return false;
}

// The two brackets of the grouping are equal when their quotient is 1 within the bound.
bool SameBracket(Session& s, const std::string& x, const std::string& y) {
  if (x == y) return true;
  if (ValuesTellApart(s, x, y)) return false;
  const std::string bound_text = std::string("1") + s.Dp() + "0000001";
  const double bound = SafeValue(s, bound_text);
  const std::optional<double> ratio = NumericTextValue(s, "(" + x + ")/(" + y + ")");
  return ratio && *ratio<bound&& * ratio> 1.0 / bound;
}

// A group of two terms as factor and bracket; the factor is "1" when there is none.
void FactorGroup(Session& s, const std::string& group, std::string& factor, std::string& bracket) {
  FactorFinding inner;
  if (FactorCommon(s, group, 2, inner)) {
    factor = inner.values[0];
    bracket = SimplifyText(s, inner.factored.substr(factor.size() + 1));
    if (bracket.size() > 1 && bracket.front() == '(' && bracket.back() == ')') {
      bracket = bracket.substr(1, bracket.size() - 2);
    }
  } else {
    factor = "1";
    bracket = group;
  }
}

// The factor of a common-factor result is a product with its sign in front: no brackets needed.
std::string GroupText(const std::string& factor, const std::string& bracket) {
  if (factor == "1") return "(" + bracket + ")";
  if (factor == "-1") return "-(" + bracket + ")";
  return factor + "*(" + bracket + ")";
}

}  // namespace

// a*c+a*d+b*c+b*d -> a*(c+d)+b*(c+d) -> (a+b)*(c+d)   help 228
bool FactorGrouping(Session& s, const std::string& part, FactorFinding& found) {
  const std::vector<SignedTerm> terms = SignedTerms(s, part);
  if (terms.size() != 4) return false;
  constexpr std::array<std::array<int, 4>, 3> kOrders = {
      {{0, 1, 2, 3}, {0, 2, 1, 3}, {0, 3, 2, 1}}};
  for (const auto& order : kOrders) {
    auto text_of = [&](int i) { return SignedText(terms[order[i]]); };
    const std::string first = JoinTerms({text_of(0), text_of(1)});
    const std::string second = JoinTerms({text_of(2), text_of(3)});
    std::string f1, b1, f2, b2;
    FactorGroup(s, first, f1, b1);
    FactorGroup(s, second, f2, b2);
    if (f1 == "1" && f2 == "1") continue;
    std::string shown_second = GroupText(f2, b2);
    if (!SameBracket(s, b1, b2)) {
      const std::string negated = SimplifyText(s, "-(" + b2 + ")");
      if (!SameBracket(s, b1, negated)) continue;
      f2 = SimplifyText(s, "-(" + f2 + ")");
      b2 = negated;
    }
    const std::string arranged = JoinTerms({first, second});
    const std::string first_done = JoinTerms({GroupText(f1, b1), second});
    const std::string both_done = JoinTerms({GroupText(f1, b1), shown_second});
    const std::string tidy = JoinTerms({GroupText(f1, b1), GroupText(f2, b1)});
    const std::string outside = JoinTerms({f1, f2});
    found.code = kMethodGrouping;
    found.factored = InProductOrder("(" + b1 + ")", "(" + outside + ")");
    found.values = {arranged == part ? "" : arranged, first_done, both_done,
                    tidy == both_done ? "" : tidy, found.factored};
    return true;
  }
  return false;
}

namespace {

void ReplaceAll(std::string& text, const std::string& from, const std::string& to) {
  for (std::size_t at = text.find(from); at != std::string::npos;
       at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
}

// A quantity that may take the alias, and how its square is written.
struct AliasCandidate {
  std::string text;
  std::string square;
};

// Functions of the part and exponentials base^x, each once, in the order met.
void AliasCandidates(Session& s, NodeIdx n, std::vector<AliasCandidate>& found) {
  std::vector<NodeIdx> stack{n};
  WalkGuard guard;
  while (!stack.empty()) {
    guard.Step();
    const NodeIdx at = stack.back();
    stack.pop_back();
    const ExprNode& node = s.Pool[at];
    AliasCandidate candidate;
    if (node.Kind == kKindFunction) candidate = {node.Text, node.Text + "^2"};
    if (node.Kind == kKindPower) {
      const ExprNode& exponent = s.Pool[node.FirstChild];
      const ExprNode& base = s.Pool[exponent.Next];
      if (base.Kind == kKindFunction) {
        candidate = {base.Text, base.Text + "^2"};
      } else if (!IsNumericText(s, ContentText(exponent))) {
        // b^x, met as b^(2*x) too.
        candidate = {node.Text, SimplifyText(s, BaseText(s, base.Text) + "^(2*(" +
                                                    ContentText(exponent) + "))")};
      }
    }
    const bool known = std::any_of(found.begin(), found.end(), [&](const AliasCandidate& c) {
      return c.text == candidate.text;
    });
    if (!candidate.text.empty() && !known) found.push_back(candidate);
    for (NodeIdx c = node.FirstChild; c != kNoNode; c = s.Pool[c].Next) stack.push_back(c);
  }
}

}  // namespace

// A quantity met as Q and as Q^2 takes the alias Q, is factored, and comes back   help 412
bool FactorByAlias(Session& s, const std::string& part, const std::string& mode,
                   FactorFinding& found) {
  if (part.find('Q') != std::string::npos || part.find('~') != std::string::npos) return false;
  std::vector<AliasCandidate> candidates;
  {
    TempTree tree(s, part, TempTree::Depth::Whole);
    AliasCandidates(s, tree.Root(), candidates);
  }
  for (const AliasCandidate& alias : candidates) {
    const std::string& candidate = alias.text;
    if (part.find(alias.square) == std::string::npos) continue;
    std::string aliased = part;
    ReplaceAll(aliased, alias.square, "Q^2");
    if (aliased.find(candidate) == std::string::npos) continue;
    ReplaceAll(aliased, candidate, "Q");
    aliased = SimplifyText(s, aliased);
    std::string inner_record;
    std::string factored = aliased;
    const std::string inner_mode = std::string(1, mode.empty() ? '2' : mode[0]) + "0";
    if (!FactorText(s, factored, inner_record, inner_mode)) continue;
    const int inner_code = std::atoi(FactorRecordField(inner_record, 4).c_str());
    if (inner_code == kMethodNumeric) continue;
    std::string back = factored;
    ReplaceAll(back, "Q", "~");
    ReplaceAll(back, "~", BracketIfNeeded(s, candidate));
    back = RegeneratedText(s, back);
    found.code = kMethodAlias;
    found.factored = back;
    found.values = {candidate, aliased, std::to_string(inner_code), factored, back};
    return true;
  }
  return false;
}

}  // namespace tavimor
