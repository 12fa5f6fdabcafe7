// What the alias solvers share: the scan for the nodes of one function, the choice of an alias
// letter, and the equation in the alias solved and its answers put back as equations.
#include "solve/alias_solve.h"

#include <algorithm>

#include "core/node_pool.h"
#include "core/node_queries.h"
#include "core/pieces.h"
#include "core/temp_tree.h"
#include "core/tree_walk.h"
#include "solve/auto_solve.h"
#include "solve/check_solutions.h"
#include "solve/solver_writes.h"

namespace tavimor {

namespace {

// The letters an alias may take, in the order they are offered.
constexpr std::string_view kAliasLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
// Letters that may stand for constants (e, pi, the degree, the imaginary units) under some
// option: an alias never takes them, whatever the options are now.
constexpr std::string_view kReservedLetters = "deijp";

bool HoldsUnknown(const Session& s, NodeIdx n, const std::string& unknown) {
  return !FindOccurrences(s, unknown, n).empty();
}

bool MatchesFunction(const Session& s, NodeIdx n, const std::string& name,
                     const std::string& unknown) {
  const ExprNode& node = s.Pool[n];
  if (node.Kind == kKindFunction && node.Text.rfind(name, 0) == 0) return true;
  if (name != kExponentialScan) return false;
  if (node.Kind == kKindFunction) return node.Text.rfind("exp", 0) == 0;
  if (node.Kind != kKindPower || node.FirstChild == kNoNode) return false;
  const NodeIdx base = s.Pool[node.FirstChild].Next;
  return base != kNoNode && !HoldsUnknown(s, base, unknown);
}

}  // namespace

FunctionScan ScanFunctionNodes(Session& s, const std::string& name, const std::string& unknown,
                               NodeIdx root) {
  FunctionScan scan;
  ForEachInnerNodeChildrenFirst(s, root, [&](NodeIdx n) {
    if (!MatchesFunction(s, n, name, unknown)) return;
    if (HoldsUnknown(s, n, unknown)) {
      ++scan.InsideCount;
      scan.Entries.push_back(n);
    } else {
      ++scan.OutsideCount;
      scan.Entries.push_back(static_cast<NodeIdx>(-n));
    }
  });
  scan.NodeCount = scan.InsideCount + scan.OutsideCount;
  return scan;
}

FormStatus ClassifyByFunction(Session& s, const std::vector<std::string>& names,
                              const std::string& unknown, NodeIdx root) {
  bool any_inside = false;
  bool all_inside = true;
  for (const NodeIdx occurrence : FindOccurrences(s, unknown, root)) {
    bool inside = false;
    for (NodeIdx n = occurrence; n != kNoNode && !inside;) {
      for (const std::string& name : names) {
        if (n != occurrence && MatchesFunction(s, n, name, unknown)) inside = true;
      }
      if (n == root) break;
      n = ParentOf(s, n);
    }
    any_inside = any_inside || inside;
    all_inside = all_inside && inside;
  }
  if (!any_inside) return FormStatus::FormNotThisForm;
  return all_inside ? FormStatus::FormChanged : FormStatus::FormUnsolvable;
}

FormStatus ClassifyTextByFunction(Session& s, const std::vector<std::string>& names,
                                  const std::string& unknown, const std::string& text) {
  TempTree tree(s, text, TempTree::Depth::Whole);
  return ClassifyByFunction(s, names, unknown, tree.Root());
}

std::string FunctionArgument(const std::string& call) {
  const std::size_t open = call.find('(');
  if (open == std::string::npos || call.size() < open + 2 || call.back() != ')') return call;
  return call.substr(open + 1, call.size() - open - 2);
}

std::string PickAlias(Session& /*s*/, const std::string& text, const std::string& preferred) {
  std::string free;
  for (const char letter : kAliasLetters) {
    if (text.find(letter) != std::string::npos) continue;
    if (kReservedLetters.find(letter) != std::string_view::npos) continue;
    free += letter;
  }
  if (free.empty()) return preferred;
  // The list turned to start at the first free letter at or behind the preferred one.
  const std::size_t from =
      preferred.empty() ? 0 : std::min(kAliasLetters.find(preferred[0]), kAliasLetters.size());
  for (const char letter : free) {
    if (kAliasLetters.find(letter) >= from) return std::string(1, letter);
  }
  return std::string(1, free.front());
}

FormStatus SolveInAlias(Session& s, SolveRun& run, const std::string& alias,
                        const std::string& replaced, const AliasBackNumbers& numbers) {
  std::string answers;
  AutoSolve(s, run.SavedLeft + "=" + run.SavedRight, alias, answers);
  if (s.HintState == 2) return FormStatus::FormChanged;
  int rejected = 0;
  CleanAnswers(answers, rejected);
  if (answers == kUnsolvable) return FormStatus::FormUnsolvable;
  if (answers == kNoSolution) return FormStatus::FormNoSolution;
  std::vector<std::string> values;
  const int count = CountPieces(answers, "; ");
  for (int k = 1; k <= count; ++k) values.push_back(GetPiece(answers, k, "; "));
  // Every value of the alias solves its equation: nothing can be said of the unknown.
  if (std::find(values.begin(), values.end(), kAnyValue) != values.end()) {
    return FormStatus::FormUnsolvable;
  }
  if (values.size() == 1) {
    run.SavedLeft = replaced;
    run.SavedRight = values.front();
    SolverStep(s,
               std::to_string(numbers.one) + "#Now replace back the alias " + alias + " with @" +
                   replaced + "@ .",
               run.SavedLeft, run.SavedRight, false);
    return FormStatus::FormChanged;
  }
  // The row in hand gives way to one row per value, the first value on top.
  run.ResizePending(std::max(run.PendingCount - 1, 0));
  const int below = run.PendingCount;
  for (std::size_t k = values.size(); k-- > 0;) {
    run.ResizePending(run.PendingCount + 1);
    run.Row(run.PendingCount) = {replaced, values[k]};
  }
  for (int row = run.PendingCount; row > below; --row) {
    const PendingEquation& equation = run.Row(row);
    if (row == run.PendingCount) {
      SolverStep(s,
                 std::to_string(numbers.first) + "#Now replace back the alias " + alias +
                     " with @" + replaced + "@ in each equation.|The first equation is:",
                 equation[0], equation[1], false);
    } else {
      --s.StepCount;  // the list of equations counts as one step
      SolverStep(s, std::to_string(numbers.next) + "#The next equation is:", equation[0],
                 equation[1], false);
    }
  }
  const PendingEquation& top = run.Row(run.PendingCount);
  --s.StepCount;
  SolverStep(s, std::to_string(numbers.proceed) + "#Now proceed to solve the equation:", top[0],
             top[1], false);
  run.SavedLeft = top[0];
  run.SavedRight = top[1];
  return FormStatus::FormChanged;
}

}  // namespace tavimor
