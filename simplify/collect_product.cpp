// Products in the house form: one sign, one coefficient in lowest terms, factors sorted, like
// bases combined through their exponents.
#include "simplify/collect_product.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <vector>

#include "core/errors.h"
#include "core/node_pool.h"
#include "core/number_text.h"
#include "core/pieces.h"
#include "core/text_predicates.h"
#include "manipulate/reduce_fraction.h"
#include "simplify/bracket_rules.h"
#include "simplify/coefficients.h"
#include "simplify/factor_texts.h"
#include "simplify/power_rules.h"
#include "simplify/simplify_driver.h"
#include "simplify/step_parts.h"

namespace tavimor {

namespace {

// Bits of what a collection did.
constexpr int kBitPlus = 1;         // an unnecessary plus sign dropped
constexpr int kBitOnes = 2;         // factors of 1 dropped
constexpr int kBitSorted = 4;       // factors sorted
constexpr int kBitCoefficient = 8;  // the coefficient simplified
constexpr int kBitReduced = 16;     // the coefficient reduced to a fraction in lowest terms
constexpr int kBitCanceled = 32;    // a base canceled between numerator and denominator
constexpr int kBitExponents = 64;   // exponents of a base added
constexpr int kMaskCollected = 48;  // reduced or canceled
constexpr int kMaskTidied = 15;     // plus, ones, sorting, coefficient

struct Entry {
  NodeIdx node = kNoNode;
  char role = kRoleNumerator;
  char kind = 'A';       // class letter
  std::string base;      // the base text, without role
  std::string exponent;  // the exponent text as written ("1" for a factor without one)
  std::string text;      // the factor's text
  std::string sort_key;
  bool number = false;  // a number factor without exponent: part of the coefficient
};

// "000000.000000": a value formatted so that texts sort by value.
std::string PaddedValue(double value) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%013.6f", std::fabs(value));
  return (value < 0.0 ? "-" : "") + std::string(buffer);
}

Entry ReadFactor(Session& s, NodeIdx c) {
  const ExprNode& factor = s.Pool[c];
  Entry entry;
  entry.node = c;
  entry.role = factor.Role;
  entry.text = factor.Text;
  NodeIdx base = c;
  entry.exponent = "1";
  if (factor.Kind == kKindPower) {
    const NodeIdx exponent = factor.FirstChild;
    base = s.Pool[exponent].Next;
    entry.exponent = s.Pool[exponent].Text;
  }
  const ExprNode& b = s.Pool[base];
  switch (b.Kind) {
    case kKindNumber: entry.kind = 'A'; break;
    case kKindVariable: entry.kind = 'B'; break;
    case kKindPower: entry.kind = 'D'; break;
    case kKindFunction: entry.kind = 'E'; break;
    default: entry.kind = 'C'; break;
  }
  entry.base = b.Text;
  entry.number = factor.Kind == kKindNumber;
  const char side = entry.role == kRoleDenominator ? '2' : '1';
  if (entry.kind == 'A' && entry.number) {
    entry.sort_key = std::string("A") + side;
  } else if (entry.kind == 'A') {
    entry.sort_key = "A3" + PaddedValue(SafeValue(s, b.Text)) + side;
  } else {
    entry.sort_key = entry.kind + entry.base + side;
  }
  return entry;
}

double NumberOf(Session& s, const std::string& text) {
  if (text == "-") return -1.0;
  if (text == "+") return 1.0;
  return SnapToInteger(s, text);
}

// A value cleaned by its round trip through number text.
double Cleaned(Session& s, double value) {
  // A whole number of up to 15 digits is written with all of them, so it reads back as it is.
  if (std::fabs(value) < 1e15 && value == std::nearbyint(value)) return value;
  return SnapToInteger(s, FormatValue(s, value));
}

// The exponent as it stands after a base: bracketed unless it is one plain quantity.
std::string ExponentOperand(Session& s, const std::string& exponent) {
  if (IsNumberToken(s, exponent) && exponent[0] != '-') return exponent;
  if (exponent.size() == 1 && IsAsciiLetter(exponent[0])) return exponent;
  return "(" + exponent + ")";
}

struct RunResult {
  std::vector<std::string> numerator;
  std::vector<std::string> denominator;
};

// One base with the summed exponent e, written as the house form wants it.
void PlaceBase(Session& s, const std::string& base_text, std::string e, RunResult& out) {
  const std::string base = BaseText(s, base_text);
  if (e == "0") return;
  if (e == "1") {
    out.numerator.push_back(base);
    return;
  }
  if (e == "-1") {
    if (s.ExponentToReciprocal) {
      out.denominator.push_back(base);
    } else {
      out.numerator.push_back(base + "^(-1)");
    }
    return;
  }
  if (s.ExponentToReciprocal && NegatedText(s, e)) {
    out.denominator.push_back(e == "1" ? base : base + "^" + ExponentOperand(s, e));
    return;
  }
  out.numerator.push_back(base + "^" + ExponentOperand(s, e));
}

// Whether the product of two whole numbers loses a digit: in the float, or in its text.
bool LosesDigits(Session& s, double a, double value) {
  const auto whole = [](double x) { return std::isfinite(x) && x == std::nearbyint(x); };
  if (!whole(a) || !whole(value)) return false;
  const double product = a * value;
  return std::fma(a, value, -product) != 0.0 || Cleaned(s, product) != product;
}

bool StartsNegative(const std::string& exponent) {
  return !exponent.empty() && (exponent[0] == '-' || exponent.rfind("(-", 0) == 0);
}

}  // namespace

std::string FactorSortKey(Session& s, NodeIdx factor) { return ReadFactor(s, factor).sort_key; }

bool CollectProduct(Session& s, NodeIdx& slot, int& level) {
  const NodeIdx n = slot;
  const NodeIdx first = s.Pool[n].FirstChild;
  if (first == kNoNode || !IsProductRole(s.Pool[first].Role)) return false;
  // 1. The arrays, and the word.
  std::vector<Entry> entries;
  entries.reserve(static_cast<std::size_t>(CountChildren(s, n, false)));
  std::string word = "product";
  int zeros_up = 0;
  int zeros_down = 0;
  int ones = 0;       // factors of 1
  int ones_down = 0;  // of them in the denominator
  for (NodeIdx c = first; c != kNoNode; c = s.Pool[c].Next) {
    entries.push_back(ReadFactor(s, c));
    const ExprNode& factor = s.Pool[c];
    if (factor.Role == kRoleDenominator) word = "quotient";
    if (!IsNumberLeaf(factor)) continue;
    const double value = SafeValue(s, factor.Text);
    if (value == 0.0) ++(factor.Role == kRoleDenominator ? zeros_down : zeros_up);
    if (value == 1.0) ++ones;
    if (value == 1.0 && factor.Role == kRoleDenominator) ++ones_down;
  }
  const std::string old_text = ContentText(s.Pool[n]);
  // 2. A factor of zero. A zero in the denominator is an error of arithmetic, not a zero.
  if (zeros_down > 0) {
    if (zeros_up > 0) throw AppError(kErrorZeroOverZero, "0/0");
    throw RunTimeError(RunTimeErrorNumber::DivisionByZero, "Division by zero");
  }
  if (zeros_up > 0) {
    const char role = s.Pool[n].Role;
    ReplaceNodeContents(s, slot, "0", true);
    s.Message = std::string("1#Simplify by replacing ") +
                (IsSumRole(role) ? "a term" : "an expression") +
                " having a factor of zero by zero.";
    return true;
  }
  // 3. and 4. Factors of 1, then the bubble sort.
  if (ones > 0) level = std::max(level, 1);
  int bits = 0;
  for (bool swapped = true; swapped;) {
    swapped = false;
    for (std::size_t i = 0; i + 1 < entries.size(); ++i) {
      if (entries[i].sort_key > entries[i + 1].sort_key) {
        std::swap(entries[i], entries[i + 1]);
        swapped = true;
        bits |= kBitSorted;
      }
    }
  }
  if (bits & kBitSorted) level = 2;
  // 5. The coefficient from the leading numbers.
  double a = 1.0;
  double b = 1.0;
  std::size_t i = 0;
  int numbers_up = 0;
  int numbers_down = 0;
  std::vector<std::string> old_up;
  std::vector<std::string> old_down;
  bool negated = false;
  bool lossy = false;
  for (; i < entries.size() && entries[i].kind == 'A' && entries[i].number; ++i) {
    const Entry& entry = entries[i];
    const double value = NumberOf(s, entry.text);
    if (entry.text == "-") {
      negated = !negated;
    } else if (entry.text != "+") {
      (entry.role == kRoleDenominator ? old_down : old_up).push_back(entry.text);
      ++(entry.role == kRoleDenominator ? numbers_down : numbers_up);
    }
    double& product = entry.role == kRoleDenominator ? b : a;
    lossy = lossy || LosesDigits(s, product, value);
    product = Cleaned(s, product * value);
  }
  // Whole numbers whose product a number's text cannot hold stay as they stand in exact work:
  // 123456789*987654321 is not 1.21932631112635E17. 3000000000*3 is 9E9, every digit kept.
  RunResult kept;
  if (lossy && !s.ExactToFloat) {
    const auto not_one = [&s](const std::string& text) { return NumberOf(s, text) != 1.0; };
    std::copy_if(old_up.begin(), old_up.end(), std::back_inserter(kept.numerator), not_one);
    std::copy_if(old_down.begin(), old_down.end(), std::back_inserter(kept.denominator), not_one);
    if (kept.numerator.size() + kept.denominator.size() > 1) {
      a = negated ? -1.0 : 1.0;
      b = 1.0;
      numbers_up = 0;
      numbers_down = 0;
    } else {
      kept = RunResult{};
    }
  }
  const double a0 = a;
  const double b0 = b;
  int flag = 0;
  ReduceFraction(a, b, flag);
  const bool reduced = a != a0 || b != b0;
  if (s.ExactToFloat && b != 1.0) {
    a = Cleaned(s, a / b);
    b = 1.0;
  }
  const bool coefficient_changed = a != a0 || b != b0;
  // 6. What the narration will tell so far; it is written once the product is known to change.
  if (!old_text.empty() && old_text[0] == '+') bits |= kBitPlus;
  const bool coefficient_told = coefficient_changed || numbers_up > 1 || numbers_down > 1;
  int dropped = 0;
  if (coefficient_told) {
    bits |= (reduced && !s.ExactToFloat && b != 1.0) ? kBitReduced : kBitCoefficient;
  } else {
    // A 1 in the numerator goes when nothing else of the coefficient is written.
    const bool coefficient_shown = b != 1.0 || i == entries.size();
    dropped = ones_down + (coefficient_shown ? 0 : ones - ones_down);
    if (dropped > 0) bits |= kBitOnes;
  }
  std::vector<std::string> run_parts;
  // 7. Runs of one base: the exponents are added.
  RunResult out = kept;
  while (i < entries.size()) {
    std::size_t j = i + 1;
    while (j < entries.size() && entries[j].kind == entries[i].kind &&
           entries[j].base == entries[i].base) {
      ++j;
    }
    const Entry& head = entries[i];
    // One factor stays as it is written, unless its exponent changes sides: a negative exponent
    // goes under the line, and without reciprocals a denominator comes up, 2/x^3 = 2*x^(-3).
    const bool negative = StartsNegative(head.exponent);
    if (j - i == 1 && (head.role == kRoleDenominator ? !negative && s.ExponentToReciprocal
                                                     : !negative || !s.ExponentToReciprocal)) {
      (head.role == kRoleDenominator ? out.denominator : out.numerator).push_back(head.text);
      i = j;
      continue;
    }
    std::string sum;
    RunResult old_run;
    int ups = 0;
    for (std::size_t k = i; k < j; ++k) {
      const bool down = entries[k].role == kRoleDenominator;
      sum += (down ? "-" : "+") + ExponentOperand(s, entries[k].exponent);
      (down ? old_run.denominator : old_run.numerator).push_back(entries[k].text);
      ups += down ? 0 : 1;
    }
    const std::string e = SimplifyText(s, sum);
    RunResult new_run;
    PlaceBase(s, head.base, e, new_run);
    out.numerator.insert(out.numerator.end(), new_run.numerator.begin(), new_run.numerator.end());
    out.denominator.insert(out.denominator.end(), new_run.denominator.begin(),
                           new_run.denominator.end());
    const std::string old_run_text = JoinFactors(old_run.numerator, old_run.denominator);
    const std::string new_run_text = JoinFactors(new_run.numerator, new_run.denominator);
    if (old_run_text != new_run_text) {
      if (j - i == 2 && ups == 1 && e == "0") {
        bits |= kBitCanceled;
        run_parts.push_back("canceling this @" + old_run_text + "->" + new_run_text + "@ .|");
      } else {
        bits |= kBitExponents;
        run_parts.push_back("applying the property of exponents @" + old_run_text + "->" +
                            new_run_text + "@ .|");
      }
    }
    i = j;
  }
  // 8. The new text.
  std::string up;
  for (const std::string& f : out.numerator) AppendPiece(up, '*', f);
  std::string down;
  for (const std::string& f : out.denominator) AppendPiece(down, '/', f);
  const std::string text = FormatCoefficient(s, a, b, up, down);
  // Brackets that the tree does not keep are no change.
  if (text == old_text || RegeneratedText(s, text) == old_text) return false;
  ReplaceNodeContents(s, slot, text, true);
  // 9. The message by the bits.
  if (bits == 0) {
    level = std::max(level, 1);
    s.Message = kSkipMessage;
    return true;
  }
  if (bits == kBitSorted) {
    s.Message = kSortFactorsMessage;
    return true;
  }
  StepParts parts;
  AddStepPart(parts, "Simplify the " + word + " @" + old_text + "@ by:|");
  if (bits & kBitPlus) AddStepPart(parts, "dropping the unnecessary + sign.|");
  if (bits & kBitSorted) {
    AddStepPart(parts,
                "sorting the factors (numbers first, then variables in alphabetical order).|");
  }
  if (coefficient_told) {
    const std::string old_coefficient = (negated ? "-" : "") + JoinFactors(old_up, old_down);
    AddStepPart(parts, "simplifying the coefficient @" + old_coefficient + "->" +
                           FormatCoefficient(s, a, b, "", "") + "@ .|");
  } else if (dropped > 0) {
    AddStepPart(parts, dropped == 1 ? "dropping the unnecessary factor of 1.|"
                                    : "dropping the unnecessary factors of 1.|");
  }
  for (const std::string& run : run_parts) AddStepPart(parts, run);
  AddStepPart(parts, "The result is:");
  const bool exponents = (bits & kBitExponents) != 0;
  const bool collected = (bits & kMaskCollected) != 0;
  const bool tidied = (bits & kMaskTidied) != 0;
  int help = 356;
  if (exponents && collected && tidied) {
    help = 362;
  } else if (exponents && collected) {
    help = 361;
  } else if (exponents && tidied) {
    help = 360;
  } else if (collected && tidied) {
    help = 358;
  } else if (exponents) {
    help = 359;
  } else if (collected) {
    help = 357;
  }
  s.Message = std::to_string(help) + "#" + JoinStepParts(parts);
  return true;
}

bool CollectProductRule(Session& s, NodeIdx& slot) {
  int level = 0;
  return CollectProduct(s, slot, level);
}

}  // namespace tavimor
