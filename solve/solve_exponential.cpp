// The exponential equation of two terms: a coefficient and exponentials on each side, the
// logarithm of both sides taken to bring the exponents down.
#include "solve/solve_exponential.h"

#include <algorithm>

#include "core/brackets.h"
#include "core/node_pool.h"
#include "core/pieces.h"
#include "core/temp_tree.h"
#include "core/text_predicates.h"
#include "manipulate/factor.h"
#include "present/work_space.h"
#include "simplify/simplify_driver.h"
#include "solve/alias_solve.h"
#include "solve/solver_writes.h"

namespace tavimor {

namespace {

constexpr const char* kHeadOneEach =
    "This is an exponential equation with exactly one term on each side of the equation.  ";
constexpr const char* kHeadTwoTerms = "This is an exponential equation with exactly two terms.  ";

// Whether the node itself is an exponential that holds the unknown.
bool IsExponentialOfUnknown(Session& s, NodeIdx n, const std::string& unknown) {
  const FunctionScan scan = ScanFunctionNodes(s, kExponentialScan, unknown, n);
  return std::find(scan.Entries.begin(), scan.Entries.end(), n) != scan.Entries.end();
}

std::string NegatedText(Session& s, const std::string& text) {
  return SimplifyText(s, "-(" + text + ")");
}

// 0 when neither coefficient is a negative number; else both negated: 2 when one still is,
// else 1 and the negated values replace them.
int FixSigns(Session& s, std::string& c1, std::string& c2) {
  if (!IsNegativeNumericText(s, c1) && !IsNegativeNumericText(s, c2)) return 0;
  const std::string n1 = NegatedText(s, c1);
  const std::string n2 = NegatedText(s, c2);
  if (IsNegativeNumericText(s, n1) || IsNegativeNumericText(s, n2)) return 2;
  c1 = n1;
  c2 = n2;
  return 1;
}

// A side rebuilt as the logarithms of its rows: exponent*log(base), joined by the rows' signs.
std::string BuildLogSide(Session& s, const std::vector<ExponentialRow>& rows, bool natural) {
  std::string side;
  for (const ExponentialRow& row : rows) {
    std::string piece;
    if (!row.Exponent.empty()) {
      piece = NeedsBrackets(s, row.Exponent) ? "(" + row.Exponent + ")" : row.Exponent;
    }
    std::string log;
    if (natural) {
      if (row.Base != "exp") log = "ln(" + row.Base + ")";
    } else {
      log = row.Base == "exp" ? "log(exp(1))" : "log(" + row.Base + ")";
    }
    if (!piece.empty() && !log.empty()) piece += "*";
    piece += log;
    if (row.Sign == '-') {
      side += "-" + piece;
    } else {
      AppendPiece(side, '+', piece);
    }
  }
  return side.empty() ? "0" : side;
}

// A line that ends the branch with no solution: a note, or in hint mode the hint.
void NoSolutionLine(Session& s, const std::string& message, const std::string& left,
                    const std::string& right) {
  if (s.HintState == 0) {
    ShowNote(s, message);
  } else {
    SolverStep(s, message, left, right, true);
  }
}

}  // namespace

bool IsTwoTermExponential(Session& s, const std::string& left, const std::string& right,
                          const std::string& unknown) {
  const std::string moved = SimplifyText(s, "(" + left + ")-(" + right + ")");
  if (CountTerms(s, moved) != 2) return false;
  TempTree tree(s, moved, TempTree::Depth::Whole);
  const NodeIdx root = tree.Root();
  if (ClassifyByFunction(s, {kExponentialScan}, unknown, root) != FormStatus::FormChanged) {
    return false;
  }
  for (const NodeIdx entry : ScanFunctionNodes(s, kExponentialScan, unknown, root).Entries) {
    const NodeIdx n = static_cast<NodeIdx>(entry < 0 ? -entry : entry);
    const NodeIdx parent = ParentOf(s, n);
    if (parent != root && ParentOf(s, parent) != root) return false;
  }
  return true;
}

ExponentialSplit SplitExponentialTerm(Session& s, const std::string& term,
                                      const std::string& unknown) {
  ExponentialSplit split;
  std::string coefficient;
  {
    TempTree tree(s, term, TempTree::Depth::Whole);
    const NodeIdx root = tree.Root();
    const NodeIdx first = s.Pool[root].FirstChild;
    if (s.Pool[root].Kind == kKindSumOrProduct && first != kNoNode &&
        IsProductRole(s.Pool[first].Role)) {
      for (NodeIdx c = first; c != kNoNode; c = s.Pool[c].Next) {
        if (IsExponentialOfUnknown(s, c, unknown)) continue;
        const std::string text = s.Pool[c].Text == "-" ? "-1" : s.Pool[c].Text;
        coefficient += (s.Pool[c].Role == kRoleDenominator ? "/" : "*") + text;
      }
    } else if (!IsExponentialOfUnknown(s, root, unknown)) {
      coefficient = "*" + term;
    }
  }
  if (coefficient.empty()) coefficient = "*1";
  if (coefficient[0] == '*') coefficient.erase(0, 1);
  if (coefficient[0] == '/') coefficient.insert(0, "1");
  split.Coefficient = SimplifyText(s, coefficient);
  split.Exponentials = SimplifyText(s, "(" + term + ")/(" + split.Coefficient + ")");
  return split;
}

std::vector<ExponentialRow> ListExponentials(Session& s, const ExponentialSplit& split) {
  std::vector<ExponentialRow> rows;
  if (split.Coefficient != "1") rows.push_back({'+', "", split.Coefficient});
  if (split.Exponentials == "1") return rows;
  TempTree tree(s, split.Exponentials, TempTree::Depth::Whole);
  const NodeIdx root = tree.Root();
  std::vector<NodeIdx> factors;
  const NodeIdx first = s.Pool[root].FirstChild;
  if (s.Pool[root].Kind == kKindSumOrProduct && first != kNoNode &&
      IsProductRole(s.Pool[first].Role)) {
    for (NodeIdx c = first; c != kNoNode; c = s.Pool[c].Next) factors.push_back(c);
  } else {
    factors.push_back(root);
  }
  for (const NodeIdx f : factors) {
    if (rows.size() >= 40) break;
    const ExprNode& node = s.Pool[f];
    ExponentialRow row;
    row.Sign = node.Role == kRoleDenominator ? '-' : '+';
    if (node.Kind == kKindPower) {
      row.Exponent = StripBrackets(s.Pool[node.FirstChild].Text);
      row.Base = s.Pool[s.Pool[node.FirstChild].Next].Text;
    } else if (node.Kind == kKindFunction && node.Text.rfind("exp(", 0) == 0) {
      row.Exponent = FunctionArgument(node.Text);
      row.Base = "exp";
    } else {
      row.Base = node.Text;
    }
    rows.push_back(row);
  }
  return rows;
}

FormStatus SolveTwoTermExponential(Session& s, SolveRun& run) {
  const std::string& x = run.Unknown;
  if (!IsTwoTermExponential(s, run.WorkLeft, "0", x)) return FormStatus::FormNotThisForm;
  std::string left = run.SavedLeft;
  std::string right = run.SavedRight;
  bool head_used = false;
  if (!left.empty() && !right.empty() && left[0] == '-' && right[0] == '-') {
    left = NegatedText(s, left);
    right = NegatedText(s, right);
    run.SavedLeft = left;
    run.SavedRight = right;
    if (SolverStep(s, std::string("268#") + kHeadOneEach + "Multiply the equation through by -1.",
                   left, right, true)) {
      return FormStatus::FormChanged;
    }
    head_used = true;
  }
  const bool one_each = !IsSumText(s, left) && !IsSumText(s, right);
  ExponentialSplit split_left;
  ExponentialSplit split_right;
  if (one_each) {
    split_left = SplitExponentialTerm(s, left, x);
    split_right = SplitExponentialTerm(s, right, x);
    std::string c1 = split_left.Coefficient;
    std::string c2 = split_right.Coefficient;
    const int fix = FixSigns(s, c1, c2);
    if (fix == 1) {
      left = NegatedText(s, left);
      right = NegatedText(s, right);
      run.SavedLeft = left;
      run.SavedRight = right;
      split_left = SplitExponentialTerm(s, left, x);
      split_right = SplitExponentialTerm(s, right, x);
      if (SolverStep(s,
                     std::string("269#") + kHeadOneEach +
                         "Multiply the equation through by -1.  (This is necessary because you "
                         "can't take the logarithm of a negative number.)",
                     left, right, true)) {
        return FormStatus::FormChanged;
      }
      head_used = true;
    } else if (fix == 2 && s.ComplexForm == 0) {
      const bool left_negative = !c1.empty() && c1[0] == '-';
      NoSolutionLine(s,
                     std::string("270#") + kHeadOneEach + "It has no solution because the " +
                         (left_negative ? "left" : "right") + " side is always negative and the " +
                         (left_negative ? "right" : "left") + " side is always positive.",
                     left, right);
      return FormStatus::FormNoSolution;
    }
  } else {
    const std::vector<SignedTerm> terms = SignedTerms(s, run.WorkLeft);
    if (terms.size() != 2) return FormStatus::FormNotThisForm;
    std::string order = "second";
    left = SignedText(terms[0]);
    right = NegatedText(s, SignedText(terms[1]));
    split_left = SplitExponentialTerm(s, left, x);
    split_right = SplitExponentialTerm(s, right, x);
    std::string c1 = split_left.Coefficient;
    std::string c2 = split_right.Coefficient;
    const int fix = FixSigns(s, c1, c2);
    if (fix == 1) {
      order = "first";
      left = SignedText(terms[1]);
      right = NegatedText(s, SignedText(terms[0]));
      split_left = SplitExponentialTerm(s, left, x);
      split_right = SplitExponentialTerm(s, right, x);
    } else if (fix == 2 && s.ComplexForm == 0) {
      const bool negative = !c1.empty() && c1[0] == '-';
      NoSolutionLine(s,
                     std::string("271#This is an exponential equation.  It has no solution "
                                 "because both terms on the left side are always ") +
                         (negative ? "negative" : "positive") + ".",
                     run.SavedLeft, run.SavedRight);
      return FormStatus::FormNoSolution;
    }
    run.SavedLeft = left;
    run.SavedRight = right;
    if (SolverStep(s,
                   std::string("272#") + kHeadTwoTerms + "Move the " + order + " term to the RHS.",
                   left, right, true)) {
      return FormStatus::FormChanged;
    }
    head_used = true;
  }
  const std::vector<ExponentialRow> rows_left = ListExponentials(s, split_left);
  const std::vector<ExponentialRow> rows_right = ListExponentials(s, split_right);
  bool has_e = false;
  bool has_10 = false;
  for (const std::vector<ExponentialRow>* rows : {&rows_left, &rows_right}) {
    for (const ExponentialRow& row : *rows) {
      has_e = has_e || row.Base == "exp" || (row.Base == "e" && s.SpecialE);
      has_10 = has_10 || row.Base == "10";
    }
  }
  const bool several = rows_left.size() + rows_right.size() > 2;
  const bool natural = has_e && !has_10;
  run.SavedLeft = BuildLogSide(s, rows_left, natural);
  run.SavedRight = BuildLogSide(s, rows_right, natural);
  const std::string number = head_used ? "273" : "274";
  std::string message = number + "#";
  if (!head_used) message += one_each ? kHeadOneEach : kHeadTwoTerms;
  const std::string log_form = several ? "@log(a*b^x)->log(a)+x*log(b)@ to bring down the exponent."
                                       : "@log(b^x)->x*log(b)@ to bring down the exponent.";
  if (natural) {
    message +=
        "Take the natural logarithm of both sides of the equation and use the property of "
        "logarithms that " +
        std::string(several ? "@ln(a*b^x)->ln(a)+x*ln(b)@ to bring down the exponent."
                            : "@ln(b^x)->x*ln(b)@ to bring down the exponent.");
  } else if (!has_10 || has_e) {
    message +=
        "Take the base 10 logarithm of both sides of the equation (but the natural logarithm "
        "would work just as well) and use the property of logarithms that " +
        log_form;
  } else {
    message +=
        "Take the base 10 logarithm of both sides of the equation and use the property of "
        "logarithms that " +
        log_form;
  }
  if (SolverStep(s, message, run.SavedLeft, run.SavedRight, true)) return FormStatus::FormChanged;
  bool left_changed = false;
  bool right_changed = false;
  run.SavedLeft = SimplifyText(s, run.SavedLeft, left_changed);
  run.SavedRight = SimplifyText(s, run.SavedRight, right_changed);
  if (left_changed || right_changed) {
    SolverStep(s, number + "#... and simplify", run.SavedLeft, run.SavedRight, true);
  }
  return FormStatus::FormChanged;
}

}  // namespace tavimor
