// Adding fractions: a sum with fractions in it made into one fraction over the lowest common
// denominator, the record its narration is told from, and the silent form the solver uses.
#include "manipulate/add_fractions.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "core/brackets.h"
#include "core/node_pool.h"
#include "core/node_shape.h"
#include "core/number_text.h"
#include "core/parse.h"
#include "core/pieces.h"
#include "core/regenerate.h"
#include "core/scoped_override.h"
#include "core/temp_tree.h"
#include "core/text_predicates.h"
#include "core/tree_walk.h"
#include "manipulate/factor_fraction.h"
#include "manipulate/integer_gcd.h"
#include "simplify/bracket_rules.h"
#include "simplify/factor_texts.h"
#include "simplify/simplify_driver.h"

namespace tavimor {

namespace {

using Power = std::pair<std::string, int>;  // a base and its whole exponent

// One term of the sum: its sign, its written factors, its denominator factored.
struct Term {
  bool minus = false;
  std::vector<std::string> up;
  std::vector<std::string> down;
  std::int32_t coefficient = 1;  // the number of the factored denominator
  std::vector<Power> bases;      // the other factors of the factored denominator
  std::string factored;          // the factored denominator as text
};

std::string PowerText(const Power& p) {
  return p.second == 1 ? p.first : p.first + "^" + std::to_string(p.second);
}

std::string ProductText(std::int32_t coefficient, const std::vector<Power>& bases) {
  std::vector<std::string> factors;
  if (coefficient != 1) factors.push_back(std::to_string(coefficient));
  for (const Power& p : bases) factors.push_back(PowerText(p));
  return JoinFactors(factors, {});
}

// a over b: the numerator bracketed when it is a sum, the denominator when it has more than one
// factor.
std::string Over(Session& s, const std::string& a, const std::string& b) {
  return (IsSumText(s, a) ? "(" + a + ")" : a) + "/" + BracketIfNeeded(s, b);
}

// Terms joined into a sum with their signs.
std::string SumText(const std::vector<std::pair<bool, std::string>>& terms) {
  std::string text;
  for (const auto& [minus, term] : terms) {
    if (minus) {
      text += "-";
    } else if (!text.empty()) {
      text += "+";
    }
    text += term;
  }
  return text;
}

bool IsTrigFunction(const std::string& text) {
  return text.rfind("sin(", 0) == 0 || text.rfind("cos(", 0) == 0 || text.rfind("tan(", 0) == 0;
}

bool HoldsTrig(const std::string& text) {
  return text.find("sin(") != std::string::npos || text.find("cos(") != std::string::npos ||
         text.find("tan(") != std::string::npos;
}

// The terms of the sum at the node, read as signed numerator and denominator factors.
std::vector<Term> ReadTerms(Session& s, NodeIdx sum) {
  std::vector<Term> terms;
  for (NodeIdx c = s.Pool[sum].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    FractionFactors factors;
    factors.minus = s.Pool[c].Role == kRoleMinus;
    const NodeIdx first = s.Pool[c].FirstChild;
    if (s.Pool[c].Kind == kKindSumOrProduct && first != kNoNode &&
        IsProductRole(s.Pool[first].Role)) {
      for (NodeIdx f = first; f != kNoNode; f = s.Pool[f].Next) {
        const ExprNode& factor = s.Pool[f];
        if (IsPseudoSign(factor)) {
          if (factor.Text == "-") factors.minus = !factors.minus;
          continue;
        }
        AddSignedFactor(factor.Text, factor.Role == kRoleDenominator, factors);
      }
    } else {
      AddSignedFactor(s.Pool[c].Text, false, factors);
    }
    Term term;
    term.minus = factors.minus;
    term.up = std::move(factors.up);
    term.down = std::move(factors.down);
    terms.push_back(std::move(term));
  }
  return terms;
}

void AddPower(std::vector<Power>& bases, const std::string& base, int exponent) {
  for (Power& p : bases) {
    if (p.first == base) {
      p.second += exponent;
      return;
    }
  }
  bases.emplace_back(base, exponent);
}

// The denominator of the term factored completely into a number and powers of bases.
void FactorDenominator(Session& s, Term& term) {
  FractionFactors factors;
  for (const std::string& down : term.down) {
    const TempTree t(s, down, TempTree::Depth::OneLevel);
    const bool sum =
        t[t.Root()].Kind == kKindBracket && ContentShapeOf(s.Pool, t.Root()) == Shape::Sum;
    const std::string content = sum ? ContentText(t[t.Root()]) : "";
    AddFactorsOf(s, sum ? FactoredCompletely(s, content) : down, false, factors);
  }
  if (factors.minus) term.minus = !term.minus;
  std::vector<std::string> texts;
  for (const std::string& f : factors.up) {
    if (IsNumberToken(s, f)) {
      const double v = SafeValue(s, f);
      if (v == std::floor(v) && std::fabs(v) < kIntegerBound &&
          std::fabs(static_cast<double>(term.coefficient) * v) < kIntegerBound) {
        term.coefficient *= static_cast<std::int32_t>(std::fabs(v));
        if (v < 0) term.minus = !term.minus;
        continue;
      }
    }
    std::string base = FactorBase(s, f);
    const int exponent = base == f ? 1 : std::atoi(f.substr(base.size() + 1).c_str());
    AddPower(term.bases, base, exponent > 0 ? exponent : 1);
  }
  // A denominator factor of a factor (from a bracketed product) stays a factor of the numerator.
  for (const std::string& f : factors.down) term.up.push_back(f);
  term.factored = ProductText(term.coefficient, term.bases);
}

// The negative of a bracketed sum base, bracketed; empty for any other base.
std::string NegatedBase(Session& s, const std::string& base) {
  if (base.size() < 3 || base.front() != '(') return "";
  const TempTree t(s, base, TempTree::Depth::OneLevel);
  if (ContentShapeOf(s.Pool, t.Root()) != Shape::Sum) return "";
  return "(" + NegatedSum(s, ContentText(t[t.Root()])) + ")";
}

// The whole tree at the root made anew from a text, without brackets around it.
void SetWholeText(Session& s, NodeIdx root, const std::string& text) {
  FreeChildren(s, root);
  s.Pool[root].Kind = kKindSumOrProduct;
  s.Pool[root].Text = text;
  ParseTree(s, root);
}

void SetField(std::string& record, int field, const std::string& value) {
  SetPiece(record, field, kAddFractionsSeparator, value);
}

// Adds the fractions of the sum at `sum`, inside the tree at `root`.
bool AddAtSum(Session& s, NodeIdx& root, NodeIdx& sum, FractionSum& out) {
  const std::string before_sum = ContentText(s.Pool[sum]);
  std::vector<Term> terms = ReadTerms(s, sum);
  if (terms.size() < 2) return false;
  // 1. Fractions among the terms; none, or only trig functions over trig denominators: nothing.
  const auto fraction = [](const Term& t) { return !t.down.empty(); };
  if (std::none_of(terms.begin(), terms.end(), fraction)) return false;
  const bool trig_only = std::all_of(terms.begin(), terms.end(), [](const Term& t) {
    return t.up.size() == 1 && IsTrigFunction(t.up[0]) && HoldsTrig(JoinFactors(t.down, {}));
  });
  if (trig_only) return false;
  // 2. Numerators and factored denominators.
  int code = 0;
  for (Term& term : terms) {
    if (term.down.empty()) code |= kFormTermsAsFractions;
    FactorDenominator(s, term);
    if (!term.down.empty() && term.factored != JoinFactors(term.down, {}))
      code |= kFormFactoredDenominators;
  }
  const bool same = std::all_of(terms.begin(), terms.end(), [&](const Term& t) {
    return !t.down.empty() && JoinFactors(t.down, {}) == JoinFactors(terms[0].down, {});
  });
  if (same) code = kFormSameDenominator;
  // 3. The LCD: each base with its highest power, the LCM of the numbers; a sum that is the
  // negative of a base already there is that base, its sign on the term.
  std::int32_t lcd_number = 1;
  std::vector<Power> lcd;
  for (Term& term : terms) {
    lcd_number = LcmOf(s, lcd_number, term.coefficient);
    if (lcd_number == 0) {  // past 2147483647: told, and nothing added
      out.overflow = true;
      return false;
    }
    for (Power& p : term.bases) {
      auto at =
          std::find_if(lcd.begin(), lcd.end(), [&](const Power& q) { return q.first == p.first; });
      if (at == lcd.end()) {
        const std::string negated = NegatedBase(s, p.first);
        at = std::find_if(lcd.begin(), lcd.end(),
                          [&](const Power& q) { return !negated.empty() && q.first == negated; });
        if (at != lcd.end()) {
          p.first = negated;
          if (p.second % 2 != 0) term.minus = !term.minus;
        }
      }
      if (at == lcd.end()) {
        lcd.push_back(p);
      } else {
        at->second = std::max(at->second, p.second);
      }
    }
  }
  // Fractions over one denominator keep it as it is written.
  const std::string lcd_text = same ? JoinFactors(terms[0].down, {}) : ProductText(lcd_number, lcd);
  if (lcd_text == "1") return false;
  // 4. Each numerator times what its denominator lacks.
  std::vector<std::pair<bool, std::string>> before;
  std::vector<std::pair<bool, std::string>> factored;
  std::vector<std::pair<bool, std::string>> as_fractions;
  std::vector<std::pair<bool, std::string>> equivalent;
  std::vector<std::pair<bool, std::string>> numerators;
  for (const Term& term : terms) {
    const std::string numerator = JoinFactors(term.up, {});
    std::vector<std::string> lacking;
    if (lcd_number / term.coefficient != 1)
      lacking.push_back(std::to_string(lcd_number / term.coefficient));
    for (const Power& p : lcd) {
      int has = 0;
      for (const Power& q : term.bases) {
        if (q.first == p.first) has = q.second;
      }
      if (p.second > has) lacking.push_back(PowerText({p.first, p.second - has}));
    }
    std::string multiplied = numerator;
    if (!lacking.empty())
      multiplied =
          numerator == "1" ? JoinFactors(lacking, {}) : numerator + "*" + JoinFactors(lacking, {});
    const std::string written =
        term.down.empty() ? numerator : Over(s, numerator, JoinFactors(term.down, {}));
    as_fractions.emplace_back(term.minus, term.down.empty() ? numerator + "/1" : written);
    factored.emplace_back(term.minus,
                          term.down.empty() ? numerator + "/1" : Over(s, numerator, term.factored));
    equivalent.emplace_back(term.minus, Over(s, multiplied, lcd_text));
    numerators.emplace_back(term.minus, multiplied);
  }
  // 5. The numerators over the LCD, their sum simplified silently.
  const std::string numerator_sum = SumText(numerators);
  const std::string single =
      "(" + SimplifyText(s, numerator_sum) + ")/(" + StripBrackets(lcd_text) + ")";
  // 6. A numerator that shares a factor with the LCD cancels it when the whole is simplified.
  FractionFactors shared;
  AddFactorsOf(s, FactoredCompletely(s, SimplifyText(s, numerator_sum)), false, shared);
  for (const Power& p : lcd) shared.down.push_back(PowerText(p));
  if (lcd_number != 1) shared.down.push_back(std::to_string(lcd_number));
  out.cancels = CancelFactors(s, shared);
  const bool is_whole = sum == root;
  if (is_whole) {
    SetWholeText(s, root, single);
  } else {
    ScopedOverride keep(s.Message);
    ReplaceNodeContents(s, sum, single, false);
  }
  RegenerateAll(s, root);
  const std::string whole = s.Pool[root].Text;
  // The whole simplified in place, silently: no copy of the tree is made.
  {
    ScopedOverride keep_message(s.Message);
    ScopedOverride keep_help(s.HelpNumber);
    int level = 0;
    SimplifyTree(s, root, level);
  }
  const std::string simplified = s.Pool[root].Text;
  std::string record;
  SetField(record, kFieldBefore, "");
  SetField(record, kFieldCode, std::to_string(code));
  SetField(record, kFieldFactored, SumText(factored));
  SetField(record, kFieldAsFractions, SumText(as_fractions));
  SetField(record, kFieldLcd, lcd_text);
  SetField(record, kFieldEquivalent, SumText(equivalent));
  SetField(record, kFieldSingle, single);
  SetField(record, kFieldSubstituted, whole);
  SetField(record, kFieldSimplified, simplified);
  out.record = record;
  out.numerators = numerator_sum;
  out.sum = before_sum;
  out.whole = is_whole;
  return true;
}

}  // namespace

std::string AddFractionsField(const std::string& record, int field) {
  return GetPiece(record, field, kAddFractionsSeparator);
}

bool AddFractionsAt(Session& s, NodeIdx& slot, int pass, FractionSum& sum) {
  ScopedOverride detail(s.DetailNow, std::int16_t{0});
  const std::string before = s.Pool[slot].Text;
  bool done = false;
  if (sum.overflow) return false;
  if (pass == 1) {
    if (ContentShapeOf(s.Pool, slot) == Shape::Sum) done = AddAtSum(s, slot, slot, sum);
  } else {
    NodeIdx& root = slot;
    // The walk stops at the first sum added, or at an LCD too large.
    done = ForEachSlotUntil(s, slot, false,
                            [&](NodeIdx& at) {
                              return ContentShapeOf(s.Pool, at) == Shape::Sum &&
                                     (AddAtSum(s, root, at, sum) || sum.overflow);
                            }) &&
           !sum.overflow;
  }
  if (done) SetField(sum.record, kFieldBefore, before);
  return done;
}

bool AddFractionsTree(Session& s, NodeIdx& slot, int pass, std::string& record) {
  FractionSum sum;
  if (!AddFractionsAt(s, slot, pass, sum)) return false;
  record = sum.record;
  return true;
}

bool AddFractions(Session& s, std::string& text, std::string& record) {
  TempTree tree(s, text, TempTree::Depth::Whole);
  FractionSum sum;
  if (!AddFractionsAt(s, tree.RootSlot(), 1, sum) && !AddFractionsAt(s, tree.RootSlot(), 2, sum)) {
    return false;
  }
  record = sum.record;
  text = s.Pool[tree.RootSlot()].Text;
  return true;
}

int CombineFractions(Session& s, std::string& text, std::string& report) {
  ScopedOverride detail(s.DetailNow, std::int16_t{0});
  ScopedOverride message(s.Message);
  ScopedOverride help(s.HelpNumber);
  TempTree tree(s, text, TempTree::Depth::Whole);
  FractionSum sum;
  if (!AddFractionsAt(s, tree.RootSlot(), 1, sum)) return 0;
  const std::string& r = sum.record;
  report = AddFractionsField(r, kFieldCode) + kAddFractionsSeparator + text +
           kAddFractionsSeparator + AddFractionsField(r, kFieldEquivalent) +
           kAddFractionsSeparator + AddFractionsField(r, kFieldLcd) + kAddFractionsSeparator +
           sum.numerators + kAddFractionsSeparator + AddFractionsField(r, kFieldSimplified);
  text = AddFractionsField(r, kFieldSimplified);
  return sum.cancels ? 2 : 1;
}

}  // namespace tavimor
