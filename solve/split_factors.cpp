// A product equal to zero replaced by one equation per factor that holds the unknown: where the
// tree of equations arises.
#include "solve/split_factors.h"

#include "core/brackets.h"
#include "core/node_queries.h"
#include "core/temp_tree.h"
#include "solve/solver_writes.h"

namespace tavimor {

namespace {

// "*a*b" -> "a*b".
std::string CutStar(const std::string& list) { return list.empty() ? list : list.substr(1); }

}  // namespace

bool SplitFactors(Session& s, SolveRun& run) {
  const int base = run.PendingCount - 1;
  run.ResizePending(base);
  std::string unknown_factors;
  std::string constant_numerators;
  std::string denominators;
  {
    TempTree tree(s, run.WorkLeft, TempTree::Depth::Whole);
    NodeIdx last = tree[tree.Root()].FirstChild;
    while (last != kNoNode && tree[last].Next != kNoNode) last = tree[last].Next;
    // From the last factor to the first: the first factor ends on top of the stack.
    for (NodeIdx c = last; c != kNoNode; c = tree[c].Prev) {
      const std::string text = tree[c].Text;
      const bool holds_unknown = !FindOccurrences(s, run.Unknown, c).empty();
      if (tree[c].Role == kRoleDenominator) {
        denominators += "*" + text;
      } else if (holds_unknown) {
        run.ResizePending(run.PendingCount + 1);
        run.Row(run.PendingCount) = {StripBrackets(text), "0"};
        unknown_factors += "*" + text;
      } else {
        constant_numerators += "*" + text;
      }
      if (c == tree[tree.Root()].FirstChild) break;
    }
  }
  const int new_equations = run.PendingCount - base;
  unknown_factors = CutStar(unknown_factors);
  constant_numerators = CutStar(constant_numerators);
  denominators = CutStar(denominators);
  if (constant_numerators.rfind("1*", 0) == 0) constant_numerators.erase(0, 2);
  if (constant_numerators == "-") constant_numerators = "-1";
  if (constant_numerators.rfind("-*", 0) == 0) constant_numerators.erase(1, 1);
  if (unknown_factors.empty()) {
    run.ResizePending(run.PendingCount + 1);
    run.Row(run.PendingCount) = {constant_numerators, "0"};
    constant_numerators.clear();
  }
  if (!constant_numerators.empty() || !denominators.empty()) {
    std::string message;
    if (constant_numerators.empty()) {
      message = "115#Multiply both sides by the factor @" + denominators + "@ .";
    } else if (denominators.empty()) {
      message = "116#Divide both sides by the factor @" + constant_numerators + "@ .";
    } else {
      message = "117#Divide both sides by the factor @" + constant_numerators +
                "@ .|Multiply both sides by the factor @" + denominators + "@ .";
    }
    const std::string shown =
        unknown_factors.empty() ? run.Row(run.PendingCount)[0] : unknown_factors;
    if (SolverStep(s, message, shown, "0", true)) return true;
  }
  if (new_equations >= 2) {
    for (int row = run.PendingCount; row > base; --row) {
      const std::string& left = run.Row(row)[0];
      if (row == run.PendingCount) {
        std::string message = "118#Replace this equation with " + std::to_string(new_equations) +
                              " new equations.  Each new equation comes from setting one of the "
                              "factors to zero.";
        if (s.HintState == 1) return SolverLine(s, message, false);
        message += left == run.Unknown ? "  The first new equation (which is already solved) is:"
                                       : "  The first new equation is:";
        SolverStep(s, message, left, "0", false);
      } else {
        --s.StepCount;
        SolverStep(s, "119#The next new equation is:", left, "0", false);
      }
    }
    // The first equation already solved: its answer joins with a comma, which the exit's cut of
    // two characters also removes when it comes first. After earlier answers it joins with "; "
    // like every other answer: a comma would glue it to the answer before it, which the check
    // could then not read, and a true solution would be lost.
    if (run.Row(run.PendingCount)[0] == run.Unknown) {
      run.Answers += run.Answers.empty() ? ", 0" : "; 0";
      run.ResizePending(run.PendingCount - 1);
    }
  }
  const PendingEquation& top = run.Row(run.PendingCount);
  --s.StepCount;
  SolverStep(s, "120#Now proceed to solve the equation:", top[0], top[1], false);
  run.WorkLeft = top[0];
  run.WorkRight = top[1];
  return false;
}

}  // namespace tavimor
