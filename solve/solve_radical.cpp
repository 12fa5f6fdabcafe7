// The radical equation: a square root holding the unknown isolated, then both sides squared.
#include "solve/solve_radical.h"

#include "core/node_queries.h"
#include "core/temp_tree.h"
#include "simplify/simplify_driver.h"
#include "solve/side_terms.h"
#include "solve/solver_writes.h"

namespace tavimor {

namespace {

bool IsRootOfUnknown(const Session& s, NodeIdx n, const std::string& unknown) {
  return s.Pool[n].Kind == kKindFunction && s.Pool[n].Text.rfind("sqrt(", 0) == 0 &&
         !FindOccurrences(s, unknown, n).empty();
}

// A term that is a square root of the unknown, or has one as a direct factor.
bool IsRadicalTerm(Session& s, const std::string& term, const std::string& unknown) {
  TempTree tree(s, term, TempTree::Depth::Whole);
  const NodeIdx root = tree.Root();
  if (IsRootOfUnknown(s, root, unknown)) return true;
  for (NodeIdx c = s.Pool[root].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    if (IsRootOfUnknown(s, c, unknown)) return true;
  }
  return false;
}

}  // namespace

FormStatus SolveRadical(Session& s, SolveRun& run) {
  std::vector<SideTerm> left_terms = ListSideTerms(s, run.SavedLeft);
  std::vector<SideTerm> right_terms = ListSideTerms(s, run.SavedRight);
  std::vector<bool> left_marks;
  std::vector<bool> right_marks;
  int radicals = 0;
  for (const SideTerm& t : left_terms) {
    left_marks.push_back(IsRadicalTerm(s, t.term.text, run.Unknown));
    radicals += left_marks.back() ? 1 : 0;
  }
  for (const SideTerm& t : right_terms) {
    right_marks.push_back(IsRadicalTerm(s, t.term.text, run.Unknown));
    radicals += right_marks.back() ? 1 : 0;
  }
  if (radicals == 0) return FormStatus::FormNotThisForm;
  const bool left_lone = left_terms.size() == 1 && left_marks.front();
  const bool right_lone = right_terms.size() == 1 && right_marks.front();
  const bool one = radicals == 1;
  if (!left_lone && !right_lone) {
    // The first radical term, left before right, stays, and so does the other side.
    bool on_left = false;
    for (std::size_t i = 0; i < left_terms.size(); ++i) {
      if (left_marks[i]) {
        left_terms[i].stays = true;
        on_left = true;
        break;
      }
    }
    if (!on_left) {
      for (std::size_t i = 0; i < right_terms.size(); ++i) {
        if (right_marks[i]) {
          right_terms[i].stays = true;
          break;
        }
      }
    }
    for (SideTerm& t : on_left ? right_terms : left_terms) t.stays = true;
    MoveUnflagged(s, run.SavedLeft, run.SavedRight, left_terms, right_terms);
    SolverStep(s,
               std::string("262#This is a radical equation.  Isolate ") +
                   (one ? "the radical term." : "one of the radical terms."),
               run.SavedLeft, run.SavedRight, true);
    return FormStatus::FormChanged;
  }
  // (sqrt(a))^2 = a: both sides squared.
  run.SavedLeft = SimplifyText(s, "(" + run.SavedLeft + ")^2");
  run.SavedRight = SimplifyText(s, "(" + run.SavedRight + ")^2");
  SolverStep(s,
             std::string("261#This is a radical equation with ") +
                 (one ? "the radical term " : "one of the radical terms ") +
                 "isolated.  Square both sides.",
             run.SavedLeft, run.SavedRight, true);
  return FormStatus::FormChanged;
}

}  // namespace tavimor
