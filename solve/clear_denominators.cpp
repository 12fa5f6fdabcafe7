// The solver's steps that make a rational or bracketed equation polynomial: the denominators
// cleared by the LCD, and both sides expanded.
#include "solve/clear_denominators.h"

#include <vector>

#include "core/brackets.h"
#include "core/pieces.h"
#include "core/regenerate.h"
#include "core/temp_tree.h"
#include "core/text_predicates.h"
#include "manipulate/factor.h"
#include "simplify/bracket_rules.h"
#include "simplify/simplify_driver.h"
#include "solve/solver_writes.h"

namespace tavimor {

namespace {

// The terms of a sum as signed texts; anything else is one term.
std::vector<std::string> TermsOf(Session& s, const std::string& text) {
  std::vector<std::string> terms;
  for (const SignedTerm& term : SignedTerms(s, text)) terms.push_back(SignedText(term));
  if (terms.empty()) terms.push_back(text);
  return terms;
}

// The first `count` terms and the rest, each joined with a leading "+" cut ("0" when empty).
void SplitAt(Session& s, const std::string& text, std::size_t count, std::string& first,
             std::string& rest) {
  const std::vector<std::string> terms = TermsOf(s, text);
  std::vector<std::string> left(terms.begin(), terms.begin() + static_cast<long>(count));
  std::vector<std::string> right(terms.begin() + static_cast<long>(count), terms.end());
  first = left.empty() ? "0" : JoinTerms(left);
  rest = right.empty() ? "0" : JoinTerms(right);
  for (std::string* side : {&first, &rest}) {
    if (side->rfind('+', 0) == 0) side->erase(0, 1);
  }
}

// The brackets that say nothing removed, until none is left.
std::string WithoutBrackets(Session& s, const std::string& text) {
  TempTree tree(s, text, TempTree::Depth::Whole);
  for (int round = 0; round < 200 && RemoveOneBracket(s, tree.RootSlot()); ++round) {
  }
  RegenerateAll(s, tree.Root());
  return tree[tree.Root()].Text;
}

}  // namespace

bool ClearDenominators(Session& s, SolveRun& run, const std::string& report, bool& hint_shown) {
  hint_shown = false;
  const std::size_t left_count = TermsOf(s, run.WorkLeft).size();
  const std::size_t right_count = TermsOf(s, run.WorkRight).size();
  const std::string code = GetPiece(report, 1, "; ");
  const std::string over_lcd = GetPiece(report, 3, "; ");
  std::string lcd = GetPiece(report, 4, "; ");
  const std::string numerators = GetPiece(report, 5, "; ");
  // Each term of both sides has its own term over the LCD; the sides split where they met.
  if (TermsOf(s, over_lcd).size() != left_count + right_count ||
      TermsOf(s, numerators).size() != left_count + right_count) {
    return false;
  }
  std::string new_left, new_right;
  SplitAt(s, over_lcd, left_count, new_left, new_right);
  if (lcd.rfind('-', 0) == 0 || IsSumText(s, lcd)) lcd = "(" + lcd + ")";
  run.WorkLeft = "(" + new_left + ")*" + lcd;
  run.WorkRight = "(" + new_right + ")*" + lcd;
  std::string top_left, top_right;
  SplitAt(s, numerators, left_count, top_left, top_right);
  top_left = WithoutBrackets(s, top_left);
  top_right = WithoutBrackets(s, top_right);

  std::string sentence;
  if (code == "1") {
    sentence =
        "To help find the LCD, turn non-fraction terms into fractions with denominators of 1.";
  } else if (code == "2") {
    sentence = "To help find the LCD, factor the denominators of the fractions.";
  } else if (code == "3") {
    sentence =
        "To help find the LCD, factor the denominators and turn non-fraction terms into "
        "fractions with denominators of 1.";
  }
  const std::string opening =
      "113#This is a fractional (rational) equation.  Eliminate the denominators.  ";
  const std::string message =
      s.HintState == 1 ? opening + "Find the LCD (lowest common denominator), namely @" + lcd +
                             "@ .  Multiply and distribute the LCD onto both sides of the "
                             "equation.||" +
                             sentence
                       : opening +
                             "Multiply the equation through by the LCD (lowest common "
                             "denominator), namely @" +
                             lcd + "@ .  " + sentence;
  hint_shown = SolverStep(s, message, run.WorkLeft, run.WorkRight, true);
  if (hint_shown) return true;
  run.WorkLeft = top_left;
  run.WorkRight = top_right;
  hint_shown =
      SolverStep(s, "113#Carry out the multiplication.", run.WorkLeft, run.WorkRight, true);
  if (hint_shown) return true;
  bool left_changed = false;
  bool right_changed = false;
  run.WorkLeft = SimplifyText(s, run.WorkLeft, left_changed);
  run.WorkRight = SimplifyText(s, run.WorkRight, right_changed);
  if (left_changed || right_changed) {
    hint_shown = SolverStep(s, "113#Sort and/or simplify.", run.WorkLeft, run.WorkRight, true);
  }
  return true;
}

bool ExpandSides(Session& s, SolveRun& run, bool& hint_shown) {
  hint_shown = false;
  bool changed = false;
  for (int side = 0; side < 2; ++side) {
    std::string& text = side == 0 ? run.WorkLeft : run.WorkRight;
    const std::string expanded = StripBrackets(ExpandedText(s, text));
    if (expanded == text) continue;
    text = expanded;
    changed = true;
    if (SolverStep(s,
                   side == 0 ? "146#Expand on the left side of the equation."
                             : "147#Expand on the right side of the equation.",
                   run.WorkLeft, run.WorkRight, true)) {
      hint_shown = true;
      return true;
    }
  }
  return changed;
}

}  // namespace tavimor
