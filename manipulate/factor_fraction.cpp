// Factor-and-cancel: a fraction whose sums, once factored, share a factor between its numerator
// and its denominator; and the factors of a product read as bases with whole exponents.
#include "manipulate/factor_fraction.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <numeric>
#include <optional>
#include <string_view>

#include "core/evaluate.h"
#include "core/expr_node.h"
#include "core/number_text.h"
#include "core/scoped_override.h"
#include "core/temp_tree.h"
#include "core/text_predicates.h"
#include "manipulate/distribute.h"
#include "manipulate/factor.h"
#include "manipulate/integer_gcd.h"
#include "simplify/bracket_rules.h"
#include "simplify/factor_texts.h"
#include "simplify/kept_answers.h"
#include "simplify/plain_arithmetic.h"
#include "simplify/simplify_driver.h"

namespace tavimor {

namespace {

// Factorings of one sum, at most: each takes one place, and a sum has few.
constexpr int kFactorRounds = 8;

// A power's whole exponent, or 0 when the factor is no such power.
int WholeExponent(Session& s, const std::string& factor, std::string& base) {
  const TempTree t(s, factor, TempTree::Depth::OneLevel);
  const ExprNode& root = t[t.Root()];
  if (root.Kind != kKindPower) return 0;
  const NodeIdx exponent = root.FirstChild;
  const std::string& e = t[exponent].Text;
  if (!IsNumberToken(s, e) || e[0] == '-') return 0;
  const double value = SafeValue(s, e);
  if (value != std::floor(value) || value > 1000.0) return 0;
  base = t[t[exponent].Next].Text;
  return static_cast<int>(value);
}

// The content of a bracketed sum factor, or empty for any other factor.
std::string SumContent(Session& s, const std::string& factor) {
  if (factor.size() < 3 || factor.front() != '(' || factor.back() != ')') return "";
  const TempTree t(s, factor, TempTree::Depth::OneLevel);
  if (!IsBracketedSum(s, t.Root())) return "";
  return ContentText(t[t.Root()]);
}

bool WholeNumber(Session& s, const std::string& text, std::int32_t& value) {
  if (!IsNumberToken(s, text)) return false;
  const double v = SafeValue(s, text);
  if (v != std::floor(v) || std::fabs(v) >= kIntegerBound) return false;
  value = static_cast<std::int32_t>(v);
  return true;
}

// Factors the sums among one side's factors; true if any changed.
bool FactorSide(Session& s, const std::vector<std::string>& factors, bool below,
                FractionFactors& into) {
  bool changed = false;
  for (const std::string& factor : factors) {
    const std::string content = SumContent(s, factor);
    if (!content.empty()) {
      const std::string factored = FactoredCompletely(s, content);
      if (factored != content) {
        AddFactorsOf(s, factored, below, into);
        changed = true;
        continue;
      }
    }
    AddSignedFactor(factor, below, into);
  }
  return changed;
}

// Looks for the negative of `factor` among `others`; on a hit writes the factor as the sign times
// that one.
bool FlipOne(Session& s, std::string& factor, const std::vector<std::string>& others) {
  std::string base = factor;
  const int n = WholeExponent(s, factor, base);
  const std::string content = SumContent(s, base);
  if (content.empty()) return false;
  // The negative is a bracket: a factor without one cannot be it, and then it is not worked out.
  const auto has_bracket = [](const std::string& other) { return other.find('(') != other.npos; };
  if (std::none_of(others.begin(), others.end(), has_bracket)) return false;
  const std::string negated = "(" + NegatedSum(s, content) + ")";
  for (const std::string& other : others) {
    if (FactorBase(s, other) != negated) continue;
    factor = n == 0 ? "(-1)*" + negated
                    : "(-1)^" + std::to_string(n) + "*" + negated + "^" + std::to_string(n);
    return true;
  }
  return false;
}

// A division by anything but a number: a sum with fractions of its own is not factored here, so
// that fractions nested in fractions are not factored again at every depth (each depth would
// copy the rest into a tree of its own, and a deep nesting would run the pool out).
bool HasLetterDenominator(const std::string& text) {
  for (std::size_t i = 0; i + 1 < text.size(); ++i) {
    if (text[i] == '/' && !(text[i + 1] >= '0' && text[i + 1] <= '9')) return true;
  }
  return false;
}

// "a*x+b" or "a*x-b" as the collection writes it (a left out when it is 1), in a letter that
// stands for no constant, a and b whole numbers from 1 to 999999999 without a common divisor:
// a sum that has no factor, so that factoring it leaves it as it stands.
bool IsPrimeLinear(const Session& s, std::string_view text) {
  std::int64_t a = 1;
  const std::size_t star = text.find('*');
  if (star != std::string_view::npos) {
    const std::optional<std::int64_t> n = PlainWholeNumber(text.substr(0, star));
    if (!n || *n < 2) return false;
    a = *n;
    text.remove_prefix(star + 1);
  }
  if (text.size() < 3 || !IsAsciiLetter(text[0]) || IsConstantVar(s, text[0]) ||
      (text[1] != '+' && text[1] != '-')) {
    return false;
  }
  const std::optional<std::int64_t> b = PlainWholeNumber(text.substr(2));
  return b && *b > 0 && std::gcd(a, *b) == 1;
}

}  // namespace

void AddSignedFactor(const std::string& factor, bool down, FractionFactors& into) {
  // A negative number gives its sign to the fraction: a/-2 would read as a sum.
  if (factor.size() > 1 && factor[0] == '-') {
    into.minus = !into.minus;
    (down ? into.down : into.up).push_back(factor.substr(1));
    return;
  }
  (down ? into.down : into.up).push_back(factor);
}

std::string FactoredCompletely(Session& s, const std::string& sum) {
  if (HasLetterDenominator(sum) || IsPrimeLinear(s, sum)) return sum;
  return KeptAnswer(s, 'f', sum, [&s, &sum] { return FactorTextCompletely(s, sum); });
}

std::string FactorTextCompletely(Session& s, const std::string& sum) {
  ScopedOverride detail(s.DetailNow, std::int16_t{0});
  ScopedOverride complex(s.ComplexForm, std::int16_t{0});
  ScopedOverride message(s.Message);
  std::string text = sum;
  for (int round = 0; round < kFactorRounds; ++round) {
    std::string next = text;
    std::string record;
    if (!FactorText(s, next, record, "00")) break;
    if (std::atoi(FactorRecordField(record, 4).c_str()) == kMethodNumeric || next == text) break;
    text = next;
  }
  return text;
}

void AddFactorsOf(Session& s, const std::string& text, bool below, FractionFactors& into) {
  const TempTree t(s, text, TempTree::Depth::OneLevel);
  const NodeIdx first = t[t.Root()].FirstChild;
  // Brackets around one quantity say nothing: (x) is the factor x, (x^2) a power of x.
  if (first != kNoNode && t[first].Role == kRoleNone && IsBracketNode(t[t.Root()])) {
    AddFactorsOf(s, ContentText(t[t.Root()]), below, into);
    return;
  }
  if (first == kNoNode || !IsProductRole(t[first].Role)) {
    const bool sum = first != kNoNode && IsSumRole(t[first].Role) && t[t.Root()].Kind == ' ';
    if (sum) {
      (below ? into.down : into.up).push_back("(" + text + ")");
    } else {
      AddSignedFactor(text, below, into);
    }
    return;
  }
  for (NodeIdx c = first; c != kNoNode; c = t[c].Next) {
    const ExprNode& factor = t[c];
    // One level parsed: a sign is a child with the text "-" or "+", its kind not set yet.
    if (factor.Text == "-" || factor.Text == "+") {
      if (factor.Text == "-") into.minus = !into.minus;
      continue;
    }
    const bool down = (factor.Role == kRoleDenominator) != below;
    AddSignedFactor(factor.Text, down, into);
  }
}

std::string FactorBase(Session& s, const std::string& factor) {
  std::string base = factor;
  WholeExponent(s, factor, base);
  return base;
}

std::string NegatedSum(Session& s, const std::string& sum) {
  ScopedOverride minus(s.DistributeMinus, true);
  return KeptAnswer(s, 'n', sum, [&s, &sum] { return SimplifyText(s, "-(" + sum + ")"); });
}

bool CancelFactors(Session& s, const FractionFactors& fraction) {
  for (const std::string& up : fraction.up) {
    std::int32_t a = 0;
    const bool number = WholeNumber(s, up, a);
    const std::string base = number ? "" : FactorBase(s, up);
    for (const std::string& down : fraction.down) {
      std::int32_t b = 0;
      if (number) {
        if (WholeNumber(s, down, b) && a != 0 && b != 0 && GcdOf(a, b) > 1) return true;
      } else if (FactorBase(s, down) == base) {
        return true;
      }
    }
  }
  return false;
}

bool FlipSign(Session& s, FractionFactors& fraction) {
  for (std::string& up : fraction.up) {
    if (FlipOne(s, up, fraction.down)) return true;
  }
  for (std::string& down : fraction.down) {
    if (FlipOne(s, down, fraction.up)) return true;
  }
  return false;
}

std::string FractionText(const FractionFactors& fraction) {
  return (fraction.minus ? "-" : "") + JoinFactors(fraction.up, fraction.down);
}

namespace {

std::string FactorsKey(const FractionFactors& fraction) {
  // Separators that no factor holds: every list of factors has its own key.
  std::string key(1, fraction.minus ? '-' : '+');
  for (const std::string& up : fraction.up) key.append(up).push_back('\x1f');
  key.push_back('\x1e');
  for (const std::string& down : fraction.down) key.append(down).push_back('\x1f');
  key.push_back('\x1d');
  return key;
}

std::optional<std::string> CanceledFraction(Session& s, const FractionFactors& written,
                                            const std::string& old_text) {
  FractionFactors factored;
  factored.minus = written.minus;
  bool changed = false;
  {
    // Silently, without complex factors. The factoring only asks what the factors are: its own
    // rewrites do not count against the loop's bound.
    ScopedOverride rewrites(s.RewriteCount);
    ScopedOverride detail(s.DetailNow, std::int16_t{0});
    ScopedOverride complex(s.ComplexForm, std::int16_t{0});
    changed = FactorSide(s, written.up, false, factored);
    changed = FactorSide(s, written.down, true, factored) || changed;
  }
  if (!CancelFactors(s, factored)) {
    // A factor that is the negative of one on the other side: its sign goes out first.
    ScopedOverride minus(s.DistributeMinus, false);
    if (!FlipSign(s, factored)) return std::nullopt;
    FractionFactors flipped;
    flipped.minus = factored.minus;
    for (const std::string& up : factored.up) AddFactorsOf(s, up, false, flipped);
    for (const std::string& down : factored.down) AddFactorsOf(s, down, true, flipped);
    if (!CancelFactors(s, flipped)) return std::nullopt;
    factored = flipped;
    changed = true;
  }
  if (!changed) return std::nullopt;
  std::string text = FractionText(factored);
  if (text == old_text || RegeneratedText(s, text) == old_text) return std::nullopt;
  return text;
}

}  // namespace

bool FactorFractionRule(Session& s, NodeIdx& slot) {
  const NodeIdx n = slot;
  const NodeIdx first = s.Pool[n].FirstChild;
  if (first == kNoNode || !IsProductRole(s.Pool[first].Role)) return false;
  // Nothing to do without a denominator, or without a sum to factor: looked for before the
  // factors are written out.
  bool below = false;
  bool bracketed_sum = false;
  for (NodeIdx c = first; c != kNoNode; c = s.Pool[c].Next) {
    if (IsPseudoSign(s.Pool[c])) continue;
    below = below || s.Pool[c].Role == kRoleDenominator;
    bracketed_sum = bracketed_sum || IsBracketedSum(s, c);
  }
  if (!below || !bracketed_sum) return false;
  // The factors.
  FractionFactors written;
  bool sum = false;
  for (NodeIdx c = first; c != kNoNode; c = s.Pool[c].Next) {
    const ExprNode& factor = s.Pool[c];
    if (IsPseudoSign(factor)) {
      if (factor.Text == "-") written.minus = !written.minus;
      continue;
    }
    sum = sum || IsBracketedSum(s, c);
    AddSignedFactor(factor.Text, factor.Role == kRoleDenominator, written);
  }
  if (written.down.empty() || !sum) return false;
  const std::string old_text = ContentText(s.Pool[n]);
  // A fraction whose factoring cancels nothing is asked again at every pass of every
  // simplification of the item: it is kept as one that stays, and not factored again.
  const std::string stays_key = OptionKey(s, 'x', FactorsKey(written) + old_text);
  if (KnownToStay(s, stays_key)) return false;
  const std::optional<std::string> text = CanceledFraction(s, written, old_text);
  if (!text) {
    KeepAsStaying(s, stays_key);
    return false;
  }
  ReplaceNodeContents(s, slot, *text, true);
  s.Message =
      "23#The fraction @" + old_text + "@ can be simplified by first factoring it like this:";
  return true;
}

}  // namespace tavimor
