// Multiplying an expression by a useful form of one: the proposed forms, the check of a typed
// form, and the multiplication with its report.
#include "manipulate/useful_form_of_one.h"

#include <vector>

#include "core/node_pool.h"
#include "core/pieces.h"
#include "core/scoped_override.h"
#include "core/temp_tree.h"
#include "core/text_predicates.h"
#include "core/validate.h"
#include "manipulate/factor.h"
#include "present/work_space.h"
#include "simplify/factor_texts.h"
#include "simplify/simplify_driver.h"

namespace tavimor {

namespace {

// A term of a sum with its sign, as it is written.
std::string WrittenTerm(const ExprNode& term) {
  return (term.Role == kRoleMinus ? "-" : "") + term.Text;
}
// The term with its sign turned, as a following term: "+x" for "-x".
std::string TurnedTerm(const ExprNode& term) {
  return (term.Role == kRoleMinus ? "+" : "-") + term.Text;
}

// The term has sqrt as a factor of its own: the term itself, or one factor of its product.
bool HasSqrtFactor(const Session& s, NodeIdx term) {
  if (IsFunctionNamed(s.Pool[term], "sqrt")) return true;
  for (NodeIdx c = s.Pool[term].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    if (IsProductRole(s.Pool[c].Role) && IsFunctionNamed(s.Pool[c], "sqrt")) return true;
  }
  return false;
}

// The letter of the imaginary unit under the options, or 0 with real arithmetic.
char ImaginaryLetter(const Session& s) {
  if (s.ComplexForm == 1) return 'i';
  if (s.ComplexForm == 2) return 'j';
  return 0;
}

// The term is a real multiple of the imaginary unit: the unit alone, or a product of numbers
// and one unit.
bool IsImaginaryTerm(const Session& s, NodeIdx term) {
  const char unit = ImaginaryLetter(s);
  if (unit == 0) return false;
  const ExprNode& t = s.Pool[term];
  if (t.Kind == kKindVariable) return t.Text == std::string(1, unit);
  if (t.FirstChild == kNoNode || !IsProductRole(s.Pool[t.FirstChild].Role)) return false;
  int units = 0;
  for (NodeIdx c = t.FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    const ExprNode& f = s.Pool[c];
    if (f.Kind == kKindVariable && f.Text == std::string(1, unit) && f.Role == kRoleNumerator) {
      ++units;
    } else if (f.Kind != kKindNumber) {
      return false;
    }
  }
  return units == 1;
}

int CountText(const std::string& text, const std::string& word) {
  int count = 0;
  for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
    ++count;
  }
  return count;
}

// The function term of the trig test: sin(...) or cos(...) alone.
bool IsTrigTerm(const Session& s, NodeIdx term, std::string& name) {
  for (const char* fn : {"sin", "cos"}) {
    if (IsFunctionNamed(s.Pool[term], fn)) {
      name = fn;
      return true;
    }
  }
  return false;
}

std::string Bracketed(Session& s, const std::string& text) {
  return NeedsBrackets(s, text) ? "(" + text + ")" : text;
}

// The part times the form's factor, the way the dialog writes it.
std::string TimesFactor(Session& s, const std::string& part, const std::string& factor,
                        bool factor_is_number) {
  if (!NeedsBrackets(s, part)) {
    return factor_is_number ? "[" + factor + "]*(" + part + ")" : "(" + part + ")*[" + factor + "]";
  }
  return "(" + part + ")*(" + factor + ")";
}

}  // namespace

void SplitFraction(Session& s, const std::string& text, std::string& numerator,
                   std::string& denominator) {
  TempTree tree(s, text, TempTree::Depth::Whole);
  const ExprNode& root = tree[tree.Root()];
  if (root.FirstChild == kNoNode || !IsProductRole(tree[root.FirstChild].Role)) {
    numerator = text;
    denominator = "1";
    return;
  }
  std::vector<std::string> top;
  std::vector<std::string> bottom;
  std::string sign;
  for (NodeIdx c = root.FirstChild; c != kNoNode; c = tree[c].Next) {
    const ExprNode& f = tree[c];
    if (f.Role == kRoleDenominator) {
      bottom.push_back(f.Text);
    } else if (IsPseudoSign(f)) {
      if (f.Text == "-") sign = sign.empty() ? "-" : "";
    } else {
      top.push_back(f.Text);
    }
  }
  numerator = sign + JoinFactors(top, {});
  denominator = JoinFactors(bottom, {});
}

bool CreateUFOO2(Session& s, const std::string& text, std::string& conjugate, std::string& kind) {
  conjugate.clear();
  kind.clear();
  TempTree tree(s, text, TempTree::Depth::Whole);
  const ExprNode& root = tree[tree.Root()];
  if (root.FirstChild == kNoNode || tree[root.FirstChild].Role != kRoleNumerator) return false;
  NodeIdx bracket = kNoNode;
  for (NodeIdx c = root.FirstChild; c != kNoNode; c = tree[c].Next) {
    const ExprNode& f = tree[c];
    if (f.Role != kRoleDenominator) continue;
    if (f.Kind != kKindBracket && f.Kind != kKindHiddenBracket) continue;
    if (f.FirstChild == kNoNode || !IsSumRole(tree[f.FirstChild].Role)) continue;
    if (bracket != kNoNode) return false;  // more than one: no single conjugate
    bracket = c;
  }
  if (bracket == kNoNode) return false;
  const NodeIdx first = tree[bracket].FirstChild;
  const NodeIdx second = tree[first].Next;
  if (second == kNoNode || tree[second].Next != kNoNode) return false;
  const std::string candidate = WrittenTerm(tree[first]) + TurnedTerm(tree[second]);
  if (HasSqrtFactor(s, first) || HasSqrtFactor(s, second)) {
    conjugate = candidate;
    kind = "sqrt";
    return true;
  }
  if (IsImaginaryTerm(s, first) || IsImaginaryTerm(s, second)) {
    conjugate = candidate;
    kind = "cplx";
    return true;
  }
  const std::string& inside = tree[bracket].Text;
  const int sines = CountText(inside, "sin(") - CountText(inside, "arcsin(");
  const int cosines = CountText(inside, "cos(") - CountText(inside, "arccos(");
  if (!((sines == 1 && cosines == 0) || (sines == 0 && cosines == 1))) return false;
  std::string name;
  NodeIdx trig = first;
  NodeIdx other = second;
  if (!IsTrigTerm(s, trig, name)) std::swap(trig, other);
  if (!IsTrigTerm(s, trig, name)) return false;
  // The ratio of the function's term to the other is the function's term: the other is 1.
  if (tree[other].Text != "1" || tree[other].Role == kRoleMinus) return false;
  conjugate = candidate;
  kind = name;
  return true;
}

bool CreateUFOO3(Session& s, NodeIdx side, std::string& factor) {
  factor.clear();
  if (SideOfPanel(s) == 0) return false;  // an expression has no other side
  const NodeIdx other_side = side == kLeftRoot ? kRightRoot : kLeftRoot;
  const std::string here = s.Pool[side].Text;
  const std::string there = s.Pool[other_side].Text;
  if (here.empty() || there.empty()) return false;
  std::string numerator;
  std::string mine;
  std::string theirs;
  SplitFraction(s, here, numerator, mine);
  SplitFraction(s, there, numerator, theirs);
  if (theirs == "1") return false;
  const std::string ratio = SimplifyText(s, "(" + theirs + ")/(" + mine + ")");
  if (ratio == "1" || ratio == "-1" || HasDenominatorText(s, ratio)) return false;
  factor = ratio;
  return true;
}

std::string UfooBoxMessage(Session& s, const std::string& text) {
  std::string checked = text;
  RemoveSpaces(checked);
  if (checked.empty()) return kUfooBadNumerator;
  if (checked.find('=') != std::string::npos) return kUfooNotEquation;
  if (checked.find(';') != std::string::npos) return kUfooBadNumerator;
  if (!ValidationMessage(s, checked).empty()) return kUfooBadNumerator;
  return "";
}

std::string UfooFormText(Session& s, const std::string& numerator, const std::string& denominator) {
  return Bracketed(s, numerator) + "/" + Bracketed(s, denominator);
}

std::string ApplyUFOO(Session& s, const std::string& expression, const UfooRequest& request) {
  std::string top;
  std::string bottom;
  SplitFraction(s, expression, top, bottom);
  top = Bracketed(s, top);
  bottom = Bracketed(s, bottom);
  const std::string n = Bracketed(s, request.numerator);
  const std::string d = Bracketed(s, request.denominator);
  const bool plain_number = IsNumberToken(s, request.numerator);
  const std::string top_times = TimesFactor(s, top, n, plain_number);
  const std::string bottom_times = TimesFactor(s, bottom, d, plain_number);
  std::string top_kept;
  std::string bottom_kept;
  std::string top_used;
  std::string bottom_used;
  {
    // The product stays as it stands: no complex products, no Pythagoras.
    ScopedOverride keep_complex(s.ComplexProducts, false);
    ScopedOverride keep_pythagoras(s.PythagorasRules, false);
    top_kept = SimplifyText(s, top_times);
    bottom_kept = SimplifyText(s, bottom_times);
    top_used = request.expand_numerator ? ExpandedText(s, top_kept) : top_kept;
    bottom_used = request.expand_denominator ? ExpandedText(s, bottom_kept) : bottom_kept;
  }
  const std::string top_final = SimplifyText(s, top_used);
  const std::string bottom_final = SimplifyText(s, bottom_used);
  // Built, not simplified as a whole: that would cancel the form again.
  const std::string final_text = RegeneratedText(s, "(" + top_final + ")/(" + bottom_final + ")");
  const std::string kind = request.option == UfooOption::Conjugate ? request.kind : "";
  const std::vector<std::string> fields = {std::to_string(static_cast<int>(request.option)),
                                           request.typed,
                                           UfooFormText(s, request.numerator, request.denominator),
                                           top_times,
                                           bottom_times,
                                           top_kept,
                                           bottom_kept,
                                           request.expand_numerator ? "-1" : "0",
                                           request.expand_denominator ? "-1" : "0",
                                           kind,
                                           top_final,
                                           bottom_final,
                                           final_text};
  std::string report;
  for (const std::string& field : fields) {
    report += (report.empty() ? "" : kUfooReportSeparator) + field;
  }
  return report;
}

std::string UfooReportField(const std::string& report, int field) {
  return GetPiece(report, field, kUfooReportSeparator);
}

}  // namespace tavimor
