// The exponential equation in one base whose exponents are multiples of one common exponent:
// that exponential replaced by an alias, the equation in the alias solved, the alias put back.
#include "solve/exponential_alias.h"

#include <algorithm>
#include <vector>

#include "core/brackets.h"
#include "core/node_pool.h"
#include "core/number_text.h"
#include "core/regenerate.h"
#include "core/temp_tree.h"
#include "core/text_predicates.h"
#include "manipulate/factor.h"
#include "present/work_space.h"
#include "simplify/simplify_driver.h"
#include "solve/alias_solve.h"
#include "solve/polynomial_view.h"
#include "solve/solver_writes.h"

namespace tavimor {

namespace {

// The base and exponent of an exponential node: "exp" and the argument for a call of exp.
void ReadExponential(const Session& s, NodeIdx n, std::string& base, std::string& exponent) {
  const ExprNode& node = s.Pool[n];
  if (node.Kind == kKindFunction) {
    base = "exp";
    exponent = FunctionArgument(node.Text);
    return;
  }
  exponent = StripBrackets(s.Pool[node.FirstChild].Text);
  base = s.Pool[s.Pool[node.FirstChild].Next].Text;
}

// An exp call and a power of e stand for the same base.
std::string SameBaseName(const std::string& base) { return base == "exp" ? "e" : base; }

std::string Bracketed(Session& s, const std::string& text) {
  return NeedsBrackets(s, text) ? "(" + text + ")" : text;
}

// The exponential (exponent less its constant part, over U) as a power of the alias.
std::string AliasPower(Session& s, const std::string& base, const std::string& exponent,
                       const std::string& u, const std::string& unknown, const std::string& alias) {
  const std::string c = SimplifyText(s, ConstantPart(s, exponent, unknown));
  const std::string q = SimplifyText(s, "((" + exponent + ")-(" + c + "))/(" + u + ")");
  std::string text;
  if (q == "1") {
    text = alias;
  } else if (q == "-1") {
    text = "1/" + alias;
  } else if (!q.empty() && q[0] == '-') {
    text = "1/" + alias + "^" + Bracketed(s, q.substr(1));
  } else {
    text = alias + "^" + Bracketed(s, q);
  }
  if (c != "0") {
    text = (base == "exp" ? "exp(" + c + ")" : base + "^" + Bracketed(s, c)) + "*" + text;
  }
  return Bracketed(s, text);
}

// Every exponential of the unknown in the side written as a power of the alias.
std::string ReplaceByAlias(Session& s, const std::string& side, const std::string& u,
                           const std::string& unknown, const std::string& alias) {
  std::string text;
  {
    TempTree tree(s, side, TempTree::Depth::Whole);
    const NodeIdx root = tree.Root();
    const FunctionScan scan = ScanFunctionNodes(s, kExponentialScan, unknown, root);
    std::vector<NodeIdx> outermost;
    for (const NodeIdx entry : scan.Entries) {
      if (entry <= 0) continue;
      bool nested = false;
      for (const NodeIdx other : scan.Entries) {
        if (other <= 0 || other == entry) continue;
        for (NodeIdx up = entry; up != root && up != kNoNode;) {
          up = ParentOf(s, up);
          if (up == other) nested = true;
        }
      }
      if (!nested) outermost.push_back(entry);
    }
    for (const NodeIdx n : outermost) {
      std::string base;
      std::string exponent;
      ReadExponential(s, n, base, exponent);
      std::string power = AliasPower(s, base, exponent, u, unknown, alias);
      // A power as the base of a power keeps its brackets.
      if (s.Pool[n].Role == kRoleBase && power.front() != '(' && power != alias) {
        power = "(" + power + ")";
      }
      FreeChildren(s, n);
      s.Pool[n].Text = power;
      s.Pool[n].Kind = kKindVariable;
    }
    RegenerateAll(s, root);
    text = s.Pool[root].Text;
  }
  return RegeneratedText(s, text);
}

}  // namespace

CommonExponent FindCommonExponent(Session& s, const std::string& text, const std::string& unknown) {
  CommonExponent found;
  std::vector<std::string> parts;
  std::string first_base;
  {
    TempTree tree(s, text, TempTree::Depth::Whole);
    const FunctionScan scan = ScanFunctionNodes(s, kExponentialScan, unknown, tree.Root());
    for (const NodeIdx entry : scan.Entries) {
      std::string base;
      std::string exponent;
      ReadExponential(s, static_cast<NodeIdx>(entry < 0 ? -entry : entry), base, exponent);
      if (first_base.empty() && entry > 0) first_base = base;
      if (!first_base.empty() && SameBaseName(base) != SameBaseName(first_base)) {
        found.SameBase = false;
      }
      if (entry > 0) parts.push_back(exponent);
    }
  }
  if (!found.SameBase || parts.empty()) return found;
  for (std::string& part : parts) {
    part = SimplifyText(s, "(" + part + ")-(" + ConstantPart(s, part, unknown) + ")");
  }
  std::string u = parts.front();
  if (std::any_of(parts.begin(), parts.end(), [&](const std::string& p) { return p != u; })) {
    std::vector<std::string> terms;
    for (const std::string& part : parts) {
      terms.push_back(IsSumText(s, part) ? "(" + part + ")" : part);
    }
    const std::optional<std::string> factor = CommonFactorOf(s, JoinTerms(terms), 2);
    if (!factor || *factor == "1") return found;
    u = *factor;
  }
  // Each exponent a whole multiple of U; all of them negative: U takes the minus.
  bool all_negative = true;
  for (const std::string& part : parts) {
    const std::string q = SimplifyText(s, "(" + part + ")/(" + u + ")");
    if (!IsIntegerText(s, q) || q == "0") return found;
    all_negative = all_negative && q[0] == '-';
  }
  if (all_negative) u = SimplifyText(s, "-(" + u + ")");
  found.Found = true;
  found.U = u;
  found.E = first_base == "exp" ? "exp(" + u + ")" : first_base + "^" + Bracketed(s, u);
  return found;
}

FormStatus SolveExponentialByAlias(Session& s, SolveRun& run) {
  const std::string& x = run.Unknown;
  const FormStatus where = ClassifyTextByFunction(s, {kExponentialScan}, x, run.WorkLeft);
  if (where == FormStatus::FormNotThisForm) return where;
  if (where == FormStatus::FormUnsolvable) {
    SolverLine(s,
               "170#This equation is unsolvable because " + x +
                   " occurs both inside and outside an exponent.",
               true);
    return FormStatus::FormUnsolvable;
  }
  const CommonExponent common = FindCommonExponent(s, run.WorkLeft, x);
  if (!common.SameBase) return FormStatus::FormNotThisForm;
  if (!common.Found) {
    if (CountTerms(s, run.WorkLeft) == 2) return FormStatus::FormNotThisForm;
    SolverLine(s,
               "172#This exponential equation is unsolvable because the exponents are not "
               "multiples of each other.",
               true);
    return FormStatus::FormUnsolvable;
  }
  const std::string alias = PickAlias(s, run.WorkLeft, "Q");
  run.SavedLeft = ReplaceByAlias(s, run.SavedLeft, common.U, x, alias);
  run.SavedRight = ReplaceByAlias(s, run.SavedRight, common.U, x, alias);
  SolverStep(s,
             "173#This is an exponential equation.  Temporarily replace the exponential @" +
                 common.E + "@ with the alias " + alias + " and proceed to solve for " + alias +
                 ".",
             run.SavedLeft, run.SavedRight, false);
  if (s.HintState == 1) {
    s.HelpNumber = 174;
    ShowHint(s, "This is an exponential equation.  Temporarily replace the exponential @" +
                    common.E + "@ with the alias " + alias + ".|The resulting equation is @" +
                    run.SavedLeft + "=" + run.SavedRight + "@ .  Solve it for " + alias +
                    ".|Once solved, replace back the alias " + alias + " with the exponential @" +
                    common.E + "@ and proceed to solve for " + x + ".");
    s.HintState = 2;
    return FormStatus::FormChanged;
  }
  return SolveInAlias(s, run, alias, common.E);
}

}  // namespace tavimor
