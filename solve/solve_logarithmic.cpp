// The logarithmic equation: logarithms to one side and the rest to the other, a coefficient
// folded into its logarithm, the change of base, and the antilog of both sides.
#include "solve/solve_logarithmic.h"

#include "core/brackets.h"
#include "core/node_queries.h"
#include "core/temp_tree.h"
#include "core/text_predicates.h"
#include "simplify/simplify_driver.h"
#include "solve/alias_solve.h"
#include "solve/side_terms.h"
#include "solve/solver_writes.h"

namespace tavimor {

namespace {

bool IsLn(const ExprNode& node) {
  return node.Kind == kKindFunction && node.Text.rfind("ln(", 0) == 0;
}
bool IsLog(const ExprNode& node) {
  return node.Kind == kKindFunction && node.Text.rfind("log(", 0) == 0;
}

// The index (from 1) of the last term whose code names a logarithm; 0 when none does.
std::size_t LastLogTerm(const std::vector<std::string>& codes) {
  std::size_t last = 0;
  for (std::size_t i = 0; i < codes.size(); ++i) {
    if (codes[i][2] == 'E' || codes[i][2] == 'D') last = i + 1;
  }
  return last;
}

}  // namespace

std::string LogTermCode(Session& s, const SignedTerm& term, const std::string& unknown) {
  std::string code = term.minus ? "-" : "+";
  TempTree tree(s, term.text, TempTree::Depth::Whole);
  const ExprNode& root = s.Pool[tree.Root()];
  if (root.Kind == kKindFunction) {
    code += IsLn(root) ? "WE" : IsLog(root) ? "WD" : "WN";
  } else if (root.Kind == kKindNumber) {
    code += "WN";
  } else {
    std::string letters = "FN";
    for (NodeIdx c = root.FirstChild; c != kNoNode; c = s.Pool[c].Next) {
      if (IsLn(s.Pool[c])) {
        letters = "FE";
        break;
      }
      if (IsLog(s.Pool[c])) {
        letters = "FD";
        break;
      }
    }
    code += letters;
  }
  code += FindOccurrences(s, unknown, tree.Root()).empty() ? "N" : "X";
  return code;
}

std::string FoldCoefficient(Session& s, const std::string& side, const std::string& unknown) {
  std::string coefficient;
  std::string name;
  std::string argument;
  {
    TempTree tree(s, side, TempTree::Depth::Whole);
    for (NodeIdx c = s.Pool[tree.Root()].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
      const ExprNode& factor = s.Pool[c];
      if (name.empty() && factor.Role == kRoleNumerator && (IsLn(factor) || IsLog(factor)) &&
          !FindOccurrences(s, unknown, c).empty()) {
        name = IsLn(factor) ? "ln" : "log";
        argument = FunctionArgument(factor.Text);
        continue;
      }
      const std::string text = factor.Text == "-" ? "-1" : factor.Text;
      coefficient += (factor.Role == kRoleDenominator ? "/" : "*") + text;
    }
  }
  if (name.empty()) return side;
  if (coefficient.empty()) coefficient = "*1";
  if (coefficient[0] == '*') coefficient.erase(0, 1);
  if (coefficient[0] == '/') coefficient.insert(0, "1");
  coefficient = SimplifyText(s, coefficient);
  if (NeedsBrackets(s, coefficient) || IsPowerText(s, coefficient)) {
    coefficient = "(" + coefficient + ")";
  }
  if (NeedsBrackets(s, argument)) argument = "(" + argument + ")";
  return name + "(" + argument + "^" + coefficient + ")";
}

std::string LogToLn(Session& s, const std::string& side) {
  std::string text = side;
  for (std::size_t at = text.find("log("); at != std::string::npos; at = text.find("log(")) {
    // The bracket after "log" and its partner, both counted from 1.
    const int close = FindCloseBracket(text, static_cast<int>(at) + 4);
    if (close == 0) break;
    const std::size_t end = static_cast<std::size_t>(close) - 1;
    const std::string a = text.substr(at + 4, end - at - 4);
    text = text.substr(0, at) + "(ln(" + a + ")/ln(10))" + text.substr(end + 1);
  }
  return SimplifyText(s, text);
}

FormStatus SolveLogarithmic(Session& s, SolveRun& run) {
  const FormStatus where = ClassifyTextByFunction(s, {"ln", "log"}, run.Unknown, run.WorkLeft);
  if (where == FormStatus::FormNotThisForm) return where;
  if (where == FormStatus::FormUnsolvable) {
    SolverLine(s,
               "167#This equation is unsolvable because " + run.Unknown +
                   " occurs both inside and outside a logarithm function.",
               true);
    return FormStatus::FormUnsolvable;
  }
  std::vector<SideTerm> left_terms = ListSideTerms(s, run.SavedLeft);
  std::vector<SideTerm> right_terms = ListSideTerms(s, run.SavedRight);
  std::vector<std::string> left_codes;
  std::vector<std::string> right_codes;
  for (const SideTerm& t : left_terms) {
    left_codes.push_back(LogTermCode(s, t.term, run.Unknown));
  }
  for (const SideTerm& t : right_terms) {
    right_codes.push_back(LogTermCode(s, t.term, run.Unknown));
  }
  const std::size_t log_left = LastLogTerm(left_codes);
  const std::size_t log_right = LastLogTerm(right_codes);
  std::string head = "This is a logarithmic equation.  ";
  if (!(left_terms.size() == 1 && right_terms.size() == 1 && log_left == 1 && log_right == 1)) {
    // All logarithms to the left, all the rest to the right.
    if (log_left > 0) left_terms[log_left - 1].stays = true;
    for (std::size_t i = 0; i < right_terms.size(); ++i) {
      if (i + 1 != log_right) right_terms[i].stays = true;
    }
    // A term with the unknown that is no logarithm (ln(x)^2) would only come back from the
    // right side on the next pass: gathering cannot end, and the form is not this one.
    for (std::size_t i = 0; i < left_terms.size(); ++i) {
      if (!left_terms[i].stays && left_codes[i][3] == 'X') return FormStatus::FormNotThisForm;
    }
    std::string left = run.SavedLeft;
    std::string right = run.SavedRight;
    // Nothing to move: the form is not one this solver can take further.
    if (!MoveUnflagged(s, left, right, left_terms, right_terms) ||
        (left == run.SavedLeft && right == run.SavedRight)) {
      return FormStatus::FormNotThisForm;
    }
    std::string message;
    if (!right.empty() && right[0] == '-') {
      run.SavedLeft = SimplifyText(s, "-(" + right + ")");
      run.SavedRight = SimplifyText(s, "-(" + left + ")");
      message = "213#" + head +
                "Transpose (add or subtract) terms so all logarithms end up on the right side and "
                "all non-logs on the left side.";
    } else {
      run.SavedLeft = left;
      run.SavedRight = right;
      message = "214#" + head +
                "Transpose (add or subtract) terms so all logarithms end up on the left side and "
                "all non-logs on the right side.";
    }
    SolverStep(s, message, run.SavedLeft, run.SavedRight, true);
    return FormStatus::FormChanged;
  }
  // One logarithm each side: a coefficient goes inside its logarithm.
  const bool fold_left = left_codes.front()[1] == 'F';
  const bool fold_right = right_codes.front()[1] == 'F';
  if (fold_left || fold_right) {
    if (fold_left) run.SavedLeft = FoldCoefficient(s, run.SavedLeft, run.Unknown);
    if (fold_right) run.SavedRight = FoldCoefficient(s, run.SavedRight, run.Unknown);
    if (SolverStep(s,
                   "388#" + head +
                       "Use the property of logarithms @a*log(y)->log(y^a)@ to get rid of the "
                       "factor multiplying the logarithm.",
                   run.SavedLeft, run.SavedRight, true)) {
      return FormStatus::FormChanged;
    }
    head.clear();
  }
  const char left_kind = left_codes.front()[2];
  const char right_kind = right_codes.front()[2];
  std::string message;
  if (left_kind == 'E' && right_kind == 'E') {
    run.SavedLeft = SimplifyText(s, "exp(" + run.SavedLeft + ")");
    run.SavedRight = SimplifyText(s, "exp(" + run.SavedRight + ")");
    message = "389#" + head + "Antilog both sides to base e.";
  } else if (left_kind == 'D' && right_kind == 'D') {
    run.SavedLeft = SimplifyText(s, "10^(" + run.SavedLeft + ")");
    run.SavedRight = SimplifyText(s, "10^(" + run.SavedRight + ")");
    message = "390#" + head + "Antilog both sides to base 10.";
  } else if (left_kind == 'E') {
    run.SavedRight = LogToLn(s, run.SavedRight);
    message = "391#" + head +
              "Use the change of base formula @log(y)->ln(y)/ln(10)@ to convert the base 10 "
              "logarithm on the right to a natural logarithm.";
  } else {
    run.SavedLeft = LogToLn(s, run.SavedLeft);
    message = "212#" + head +
              "Use the change of base formula @log(y)->ln(y)/ln(10)@ to convert the base 10 "
              "logarithm on the left to a natural logarithm.";
  }
  SolverStep(s, message, run.SavedLeft, run.SavedRight, true);
  return FormStatus::FormChanged;
}

}  // namespace tavimor
