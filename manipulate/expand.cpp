// Expansion: products multiplied out over bracketed sums and integer powers of sums opened, one
// place at a time, each step narrated.
#include "manipulate/expand.h"

#include <cmath>
#include <vector>

#include "core/node_pool.h"
#include "core/node_queries.h"
#include "core/number_text.h"
#include "core/pieces.h"
#include "core/regenerate.h"
#include "core/scoped_override.h"
#include "core/text_predicates.h"
#include "core/tree_walk.h"
#include "manipulate/distribute.h"
#include "present/step_markup.h"
#include "present/work_space.h"
#include "simplify/bracket_rules.h"
#include "simplify/product_rules.h"
#include "simplify/simplify_driver.h"

namespace tavimor {

namespace {

constexpr std::int32_t kExpandable = 1;

std::string Field(const std::string& record, int index) {
  return GetPiece(record, index, kExpandRecordSeparator);
}
void SetField(std::string& record, int index, const std::string& value) {
  SetPiece(record, index, kExpandRecordSeparator, value);
}
int Counter(const std::string& record) {
  return static_cast<int>(std::lround(std::atof(Field(record, 2).c_str())));
}

bool ModeAllowsRewrites(const Session& s) { return s.ExpandMode == 1 || s.ExpandMode == 2; }

// Clears the marks of the tree, then marks what may be expanded: everything but exponents, and
// denominators too only when they are expanded.
void MarkSubtree(Session& s, NodeIdx root) {
  ForEachNodeParentFirst(s, root, [&s](NodeIdx n) { s.Pool[n].Value = std::int32_t{0}; });
  std::vector<NodeIdx> stack{root};
  WalkGuard guard;
  while (!stack.empty()) {
    guard.Step();
    const NodeIdx n = stack.back();
    stack.pop_back();
    const ExprNode& node = s.Pool[n];
    if (node.Role == kRoleExponent) continue;
    if (node.Role == kRoleDenominator && s.ExpandMode != 2) continue;
    s.Pool[n].Value = kExpandable;
    for (NodeIdx c = node.FirstChild; c != kNoNode; c = s.Pool[c].Next) stack.push_back(c);
  }
}

bool IsMarked(const Session& s, NodeIdx n) {
  const NodeValue& value = s.Pool[n].Value;
  return std::holds_alternative<std::int32_t>(value) &&
         std::get<std::int32_t>(value) == kExpandable;
}

// Runs the simplify loop on the tree silently; after a rewrite, complex products stay as they are.
void SimplifySilently(Session& s, NodeIdx& root, bool keep_complex_products) {
  ScopedOverride detail(s.DetailNow, std::int16_t{0});
  ScopedOverride complex_products(s.ComplexProducts,
                                  keep_complex_products ? false : s.ComplexProducts);
  ScopedOverride message(s.Message);
  int level = 0;
  SimplifyTree(s, root, level);
}

// After a rewrite at a place: the texts regenerated, a term that became a sum opened into the
// sum around it, then the expanded and the simplified form written to the record.
void FinishRewrite(Session& s, NodeIdx& root, NodeIdx changed, std::string& record, bool simplify) {
  RegenerateAll(s, root);
  const char role = s.Pool[changed].Role;
  if (changed != root && (role == kRolePlus || role == kRoleMinus)) {
    const NodeIdx sum = ParentOf(s, changed);
    NodeIdx& slot = sum == root ? root : SlotOf(s, sum);
    {
      ScopedOverride message(s.Message);
      FlattenSumBrackets(s, slot, true);
    }
    RegenerateAll(s, root);
  }
  SetField(record, 4, s.Pool[root].Text);
  if (!simplify) return;
  const std::string before = s.Pool[root].Text;
  SimplifySilently(s, root, true);
  if (s.Pool[root].Text != before) SetField(record, 5, s.Pool[root].Text);
}

// Pass 1: a product multiplied out over one of its bracketed sums.
bool DistributeAt(Session& s, NodeIdx& root, NodeIdx& slot, std::string& record) {
  const NodeIdx n = slot;
  const NodeIdx factor = FindDistributableFactor(s, n);
  if (factor == kNoNode) return false;
  std::string text;
  if (s.Pool[factor].Role == kRoleNumerator) {
    text = DistributeProductOver(s, n, factor);
  } else {
    text = DistributeDenominator(s, n, factor);
  }
  if (text.empty()) return false;
  ReplaceNodeContents(s, slot, text, true);
  FinishRewrite(s, root, slot, record, true);
  return true;
}

// Pass 2: a low power of a sum becomes a product, which the next pass 1 multiplies out.
bool LowPowerAt(Session& s, NodeIdx& root, NodeIdx& slot, std::string& record) {
  int exponent = 0;
  int terms = 0;
  if (!PowerOfSum(s, slot, exponent, terms) || exponent + terms >= 6) return false;
  ReplaceNodeContents(s, slot, PowerToProduct(s, slot), true);
  if (s.Pool[slot].Role == kRoleDenominator) {
    ScopedOverride message(s.Message);
    CollapseProductSigns(s, slot);
  }
  // Simplifying now would collect b*b back into b^2: the product waits for pass 1.
  FinishRewrite(s, root, slot, record, false);
  SetField(record, 3, s.Pool[root].Text);
  return true;
}

// Pass 3: a higher power of a sum opened by the binomial or multinomial theorem.
bool TheoremAt(Session& s, NodeIdx& root, NodeIdx& slot, std::string& record) {
  int exponent = 0;
  int terms = 0;
  if (!PowerOfSum(s, slot, exponent, terms) || exponent + terms < 6) return false;
  const std::string power = s.Pool[slot].Text;
  std::string expansion;
  std::string formula;
  if (!PowerByTheorem(s, slot, expansion, formula)) return false;
  ReplaceNodeContents(s, slot, expansion, true);
  FinishRewrite(s, root, slot, record, true);
  SetField(record, 3, formula.empty() ? power : formula);
  record.insert(0, std::to_string(terms) + ":");
  return true;
}

double Factorial(int n) {
  double f = 1.0;
  for (int i = 2; i <= n; ++i) f *= i;
  return f;
}

// The statement of the theorem is given when it stays short enough to read in one line.
constexpr int kFormulaMaxProducts = 10;

// The term count a record of a theorem step carries in front, removed from the record.
int TakeTermCount(std::string& record) {
  const std::size_t colon = record.find(':');
  if (colon == std::string::npos) return 0;
  const int terms = std::atoi(record.substr(0, colon).c_str());
  record.erase(0, colon + 1);
  return terms;
}

void ShowExpansionStep(Session& s, NodeIdx root, const std::string& message) {
  s.Message = message;
  ShowStep(s, root);
}

}  // namespace

NodeIdx FindDistributableFactor(const Session& s, NodeIdx n) {
  const ExprNode& node = s.Pool[n];
  if (node.FirstChild == kNoNode || !IsProductRole(s.Pool[node.FirstChild].Role)) return kNoNode;
  int denominators = 0;
  for (NodeIdx c = node.FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    denominators += s.Pool[c].Role == kRoleDenominator ? 1 : 0;
  }
  for (NodeIdx c = node.FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    const ExprNode& factor = s.Pool[c];
    if (factor.Kind != kKindBracket && factor.Kind != kKindHiddenBracket) continue;
    if (!IsBracketedSum(s, c)) continue;
    if (factor.Role == kRoleNumerator) return c;
    // A sum in the denominator beside other denominators: (a+b)*c written out below the line.
    if (factor.Role == kRoleDenominator && denominators >= 2 && s.ExpandMode == 2) return c;
  }
  return kNoNode;
}

bool PowerOfSum(const Session& s, NodeIdx n, int& exponent, int& term_count) {
  std::string power;
  if (!IsIntegerPowerOfSum(s, n, power, term_count)) return false;
  const double value = SafeValue(s, power);
  if (value < 1.0 || value > 32767.0) return false;
  exponent = static_cast<int>(value);
  return true;
}

// b^2 -> b*b, b^n -> b^(n-1)*b: one factor at a time.
std::string PowerToProduct(const Session& s, NodeIdx power) {
  const NodeIdx exponent = s.Pool[power].FirstChild;
  const std::string base = s.Pool[s.Pool[exponent].Next].Text;
  const int n = static_cast<int>(SafeValue(s, s.Pool[exponent].Text));
  if (n == 2) return base + "*" + base;
  return base + "^" + std::to_string(n - 1) + "*" + base;
}

// (t1+...+tk)^n = sum of n!/(e1!*...*ek!) * t1^e1*...*tk^ek over e1+...+ek = n   help 413, 414
bool PowerByTheorem(Session& s, NodeIdx power, std::string& expansion, std::string& formula) {
  int n = 0;
  int k = 0;
  if (!PowerOfSum(s, power, n, k) || k < 2 || k > kTheoremMaxTerms) return false;
  // C(n+k-1, k-1) products; each coefficient at most the central one, checked as it is made.
  double products = 1.0;
  for (int i = 1; i < k; ++i) products = products * (n + i) / i;
  if (products > kTheoremMaxProducts) return false;
  std::vector<std::string> terms;
  const NodeIdx base = s.Pool[s.Pool[power].FirstChild].Next;
  for (NodeIdx t = s.Pool[base].FirstChild; t != kNoNode; t = s.Pool[t].Next) {
    std::string text = s.Pool[t].Text;
    const bool negative = s.Pool[t].Role == kRoleMinus;
    if (negative) text = "-" + text;
    const bool single = s.Pool[t].FirstChild == kNoNode || s.Pool[t].Kind == kKindFunction;
    if (negative || !single || NeedsBrackets(s, text)) text = "(" + text + ")";
    terms.push_back(text);
  }
  // Nested loops over the exponents, the first term's highest power first.
  std::vector<int> e(static_cast<std::size_t>(k), 0);
  e[0] = n;
  std::string sum;
  int count = 0;
  for (;;) {
    double coefficient = Factorial(n);
    for (const int ei : e) coefficient /= Factorial(ei);
    coefficient = std::round(coefficient);
    if (coefficient > kIntegerBound) return false;
    std::string product = coefficient == 1.0 ? "" : std::to_string(static_cast<long>(coefficient));
    for (std::size_t i = 0; i < e.size(); ++i) {
      if (e[i] == 0) continue;
      if (!product.empty()) product += "*";
      product += terms[i];
      if (e[i] > 1) product += "^" + std::to_string(e[i]);
    }
    sum += "+" + product;
    ++count;
    // The next tuple: move one unit from the last non-zero place before the end one step on.
    int j = k - 2;
    while (j >= 0 && e[static_cast<std::size_t>(j)] == 0) --j;
    if (j < 0) break;
    const std::size_t ju = static_cast<std::size_t>(j);
    const int rest = e[static_cast<std::size_t>(k - 1)];
    --e[ju];
    e[static_cast<std::size_t>(k - 1)] = 0;
    e[ju + 1] += rest + 1;
  }
  expansion = sum.substr(1);
  formula = count <= kFormulaMaxProducts ? s.Pool[power].Text + "=" + expansion : "";
  return true;
}

bool ExpandPass(Session& s, int pass, NodeIdx& root, std::string& record) {
  if (!ModeAllowsRewrites(s)) return false;
  MarkSubtree(s, root);
  return ForEachSlotUntil(s, root, true, [&](NodeIdx& slot) {
    if (!ModeAllowsRewrites(s) || !IsMarked(s, slot)) return false;
    switch (pass) {
      case 1: return DistributeAt(s, root, slot, record);
      case 2: return LowPowerAt(s, root, slot, record);
      default: return TheoremAt(s, root, slot, record);
    }
  });
}

std::string DistributionStepMessage(const std::string& record) {
  const int k = Counter(record);
  const std::string f1 = Field(record, 1);
  const std::string f3 = Field(record, 3);
  const std::string f4 = Field(record, 4);
  const std::string f5 = Field(record, 5);
  std::string text;
  if (!f3.empty()) {
    text = k < 2 ? "In order to expand this, first express it as @" + f3 + "@ .||"
                 : "In order to expand this, first simplify it and express it as @" + f3 + "@ .||";
  } else if (k > 1) {
    text = "In order to expand this, first simplify it as @" + f1 + "@ .||";
  }
  const bool first = k < 2 && text.empty();
  if (!f5.empty()) {
    text += (first ? "Expand as @" : "Now expand as @") + f4 + "@ ,||. . . and simplify.";
  } else {
    text += first ? "Expand." : "Now expand.";
  }
  return (f5.empty() ? "75#" : "76#") + text;
}

std::string TheoremStepMessage(const std::string& record) {
  std::string fields = record;
  const int terms = TakeTermCount(fields);
  const int k = Counter(fields);
  const std::string statement = Field(fields, 3);
  const std::string f5 = Field(fields, 5);
  const std::size_t equals = statement.find('=');
  const std::string power = statement.substr(0, equals);
  const std::string word = terms == 2 ? "binomial" : "multinomial";
  std::string text = terms == 2 ? "413#" : "414#";
  text += k < 2 ? "Expand " : "Now expand ";
  if (k > 1) text += "In order to expand this, first simplify it as @" + Field(fields, 1) + "@ .||";
  text += "@" + power + "@ using the " + word;
  if (equals == std::string::npos) {
    text += " theorem.  (Press F1 for more info.)";
  } else if (f5.empty()) {
    text += " theorem which states that @" + statement + "@ .  The result is";
  } else {
    text += " theorem which states that @" + statement + "@ .||Now simplify.";
  }
  return text;
}

bool ExpandTree(Session& s, NodeIdx& root) {
  SimplifySilently(s, root, false);
  std::string record = kFreshExpandRecord;
  SetField(record, 1, s.Pool[root].Text);
  bool result = false;
  // After a shown step the record starts again from the form now shown.
  auto reset = [&]() {
    record = kFreshExpandRecord;
    SetField(record, 1, s.Pool[root].Text);
  };
  auto count = [&]() {
    if (++s.RewriteCount > kRewriteLimit) {
      throw RunTimeError(RunTimeErrorNumber::Overflow, "The expansion does not come to an end");
    }
    SetField(record, 2, std::to_string(Counter(record) + 1));
  };
  for (;;) {
    if (ExpandPass(s, 1, root, record)) {
      result = true;
      if (s.DetailNow >= 1) {
        ShowExpansionStep(s, root, DistributionStepMessage(record));
        reset();
        if (!s.StreamingOutput) break;
      } else {
        count();
      }
      continue;
    }
    if (ExpandPass(s, 2, root, record)) {
      result = true;
      count();
      continue;
    }
    if (ExpandPass(s, 3, root, record)) {
      result = true;
      if (s.DetailNow >= 1) {
        ShowExpansionStep(s, root, TheoremStepMessage(record));
        reset();
        if (!s.StreamingOutput) break;
      } else {
        TakeTermCount(record);
        count();
      }
      continue;
    }
    break;
  }
  s.Message = record;
  return result;
}

bool ExpandSide(Session& s, NodeIdx side, bool denominators) {
  // 2 while a denominator is expanded too; 1 again afterwards, however the run ends.
  ScopedOverride mode(s.ExpandMode, static_cast<std::int16_t>(denominators ? 2 : 1));
  NodeIdx root = side;
  return ExpandTree(s, root);
}

std::string NothingToExpandNote(const std::string& input, const std::string& record) {
  const std::string result = Field(record, 1);
  if (result == input || result == "Error") return "";
  return SimplifiedInsteadNote(input, result, "There is nothing to expand.");
}

}  // namespace tavimor
