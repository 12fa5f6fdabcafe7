// The substitution assistant: choosing, setting aside, substituting, simplifying, and
// back-substitution, each with its sentences.
#include "linsys/substitution.h"

#include <algorithm>

#include "core/message_box.h"
#include "linsys/elimination.h"
#include "linsys/sys_eq_form.h"

namespace tavimor {

namespace {

constexpr const char* kHelpPrefix = "297#";

std::string Letter(const SystemGrid& g, int column) {
  return std::string(1, g.vars[static_cast<std::size_t>(column - 1)]);
}

// c1*x1 + ... + k as the tutor writes it; "0" when all are zero.
std::string LinearText(const Session& s, const SystemGrid& g, const std::vector<GridNumber>& row,
                       int skip_column) {
  std::string text;
  for (int c = 1; c <= g.cols; ++c) {
    const GridNumber& a = row[static_cast<std::size_t>(c - 1)];
    if (c == skip_column || a.IsZero()) continue;
    const GridNumber size = a.Negative() ? -a : a;
    std::string term = c == g.cols    ? size.Text(s)
                       : size.IsOne() ? Letter(g, c)
                                      : size.Text(s) + "*" + Letter(g, c);
    if (size.Text(s).find('/') != std::string::npos && c != g.cols) {
      term = "(" + size.Text(s) + ")*" + Letter(g, c);
    }
    text += a.Negative() ? "-" + term : (text.empty() ? "" : "+") + term;
  }
  return text.empty() ? "0" : text;
}

std::string SetAsideText(const Session& s, const SystemGrid& g, const SetAsideEquation& e) {
  return Letter(g, e.column) + "=" + LinearText(s, g, e.right, 0);
}

// The equation of a grid row with the letter of `column` replaced by the bracketed solution.
std::string SubstitutedText(const Session& s, const SystemGrid& g, int row, int column,
                            const std::string& solution) {
  std::string left;
  for (int c = 1; c < g.cols; ++c) {
    const GridNumber& a = g.At(row, c);
    if (a.IsZero()) continue;
    const GridNumber size = a.Negative() ? -a : a;
    const std::string what = c == column ? "(" + solution + ")" : Letter(g, c);
    const std::string term = size.IsOne() ? what : size.Text(s) + "*" + what;
    left += a.Negative() ? "-" + term : (left.empty() ? "" : "+") + term;
  }
  return (left.empty() ? "0" : left) + "=" + g.At(row, g.cols).Text(s);
}

bool ZeroLeft(const SystemGrid& g, int row) {
  for (int c = 1; c < g.cols; ++c) {
    if (!g.At(row, c).IsZero()) return false;
  }
  return true;
}

std::string EquationLines(const Session& s, const SysEqState& form) {
  std::string lines;
  for (const int row : form.subs.remaining) {
    lines += "@" + RowEquationText(s, form.grid, row) + "@|";
  }
  return lines;
}

void Finish(Session& s, SysEqState& form, const std::string& text) {
  form.subs.phase = SubsPhase::Done;
  form.assist_text = text;
  form.assist_caption = kDoneCaption;
  form.reduced = true;
  s.HelpNumber = static_cast<std::int16_t>(kSubsHelp);
}

void Inspect(Session& s, SysEqState& form);

void BackSubstitute(Session& s, SysEqState& form) {
  SystemGrid& g = form.grid;
  std::vector<SetAsideEquation>& eqs = form.subs.set_aside;
  std::string text = eqs.size() == 1 ? "The only set-aside equation is Equation # 1:|"
                                     : "The set-aside equations are:|";
  for (const SetAsideEquation& e : eqs) text += "@" + SetAsideText(s, g, e) + "@|";
  text += eqs.size() == 1 ? "There is only one set-aside equation.  Call it Equation # 1."
                          : "Number the set-aside equations and go through them in reverse "
                            "order, from last to first.";
  WriteStep(s, kHelpPrefix + text);
  for (std::size_t n = eqs.size(); n-- > 0;) {
    SetAsideEquation& e = eqs[n];
    const std::string number = std::to_string(n + 1);
    std::vector<int> used;
    for (std::size_t later = n + 1; later < eqs.size(); ++later) {
      if (!e.right[static_cast<std::size_t>(eqs[later].column - 1)].IsZero()) {
        used.push_back(static_cast<int>(later));
      }
    }
    if (used.empty()) {
      WriteStep(
          s, kHelpPrefix + std::string("There is nothing to do in Equation # ") + number + ".  ");
      continue;
    }
    std::string letters;
    std::string rebuilt;
    for (std::size_t k = 0; k < used.size(); ++k) {
      letters += (k == 0 ? "" : " and ") + Letter(g, eqs[static_cast<std::size_t>(used[k])].column);
    }
    // The equation with each value bracketed in place of its letter.
    std::string right;
    for (int c = 1; c <= g.cols; ++c) {
      const GridNumber& a = e.right[static_cast<std::size_t>(c - 1)];
      if (a.IsZero()) continue;
      const GridNumber size = a.Negative() ? -a : a;
      std::string what = c == g.cols ? "" : Letter(g, c);
      for (const int later : used) {
        if (eqs[static_cast<std::size_t>(later)].column == c) {
          what = "(" + LinearText(s, g, eqs[static_cast<std::size_t>(later)].right, 0) + ")";
        }
      }
      const std::string term = c == g.cols    ? size.Text(s)
                               : size.IsOne() ? what
                                              : size.Text(s) + "*" + what;
      right += a.Negative() ? "-" + term : (right.empty() ? "" : "+") + term;
    }
    rebuilt = Letter(g, e.column) + "=" + right;
    for (const int later : used) {
      const SetAsideEquation& value = eqs[static_cast<std::size_t>(later)];
      const GridNumber a = e.right[static_cast<std::size_t>(value.column - 1)];
      e.right[static_cast<std::size_t>(value.column - 1)] = GridNumber(0);
      for (int c = 1; c <= g.cols; ++c) {
        e.right[static_cast<std::size_t>(c - 1)] = e.right[static_cast<std::size_t>(c - 1)] +
                                                   a * value.right[static_cast<std::size_t>(c - 1)];
      }
    }
    WriteStep(s, std::string(kHelpPrefix) + "Backsubstitute " + letters + " into Equation # " +
                     number + ".  |@" + rebuilt + "@|Simplify Equation # " + number + "|@" +
                     SetAsideText(s, g, e) + "@");
  }
  // The reading: every letter determined, or some left free.
  SystemReading reading;
  std::vector<bool> solved(static_cast<std::size_t>(g.cols), false);
  for (const SetAsideEquation& e : eqs) solved[static_cast<std::size_t>(e.column - 1)] = true;
  for (int c = 1; c < g.cols; ++c) {
    (solved[static_cast<std::size_t>(c - 1)] ? reading.pivot_vars : reading.free_vars)
        .push_back(g.vars[static_cast<std::size_t>(c - 1)]);
  }
  // The grid holds the answer: one row a set-aside letter, the others zero.
  std::vector<SetAsideEquation> sorted = eqs;
  std::sort(sorted.begin(), sorted.end(), [](const SetAsideEquation& a, const SetAsideEquation& b) {
    return a.column < b.column;
  });
  for (int r = 1; r <= g.rows; ++r) {
    for (int c = 1; c <= g.cols; ++c) g.At(r, c) = GridNumber(0);
  }
  for (std::size_t k = 0; k < sorted.size(); ++k) {
    const int r = static_cast<int>(k) + 1;
    for (int c = 1; c < g.cols; ++c) g.At(r, c) = -sorted[k].right[static_cast<std::size_t>(c - 1)];
    g.At(r, sorted[k].column) = GridNumber(1);
    g.At(r, g.cols) = sorted[k].right[static_cast<std::size_t>(g.cols - 1)];
  }
  reading.pivots = g.rows;
  std::string end;
  if (reading.free_vars.empty()) {
    reading.kind = SystemKind::Unique;
    for (const SetAsideEquation& e : sorted) {
      reading.solution.emplace_back(g.vars[static_cast<std::size_t>(e.column - 1)],
                                    e.right[static_cast<std::size_t>(g.cols - 1)].Text(s));
    }
    for (const SetAsideEquation& e : sorted) end += "@" + SetAsideText(s, g, e) + "@|";
    end += "This is the unique solution of the system of equations.";
  } else {
    reading.kind = SystemKind::Infinite;
    for (const SetAsideEquation& e : sorted) end += "@" + SetAsideText(s, g, e) + "@|";
    end += ReadingText(s, g, reading, ReadingVoice::Window);
  }
  WriteStep(s, kHelpPrefix + end);
  form.reading = reading;
  form.read = true;
  Finish(s, form, "You are done!  This window will now close.");
}

}  // namespace

void StartSubstitution(Session& s, SysEqState& form) {
  form.method = 2;
  form.subs = SubstitutionState{};
  form.subs.active = true;
  for (int r = 1; r <= form.grid.rows; ++r) form.subs.remaining.push_back(r);
  form.assist_caption = "OK";
  form.assist_text =
      "Choose any equation, and in that equation choose any variable to solve for.  Do this by "
      "clicking on a variable in an equation.\n\nWhen you are satisfied with your choice, click "
      "on OK to continue.";
  WriteStep(s, kHelpPrefix +
                   std::string("To solve this system of equations, first write it in standard "
                               "form:|") +
                   SystemLines(s, form.grid));
}

bool ClickSubstitutionCell(SysEqState& form, int row, int column) {
  if (row < 1 || row > form.grid.rows || column < 1 || column >= form.grid.cols) return false;
  if (form.grid.At(row, column).IsZero()) return false;  // an empty cell
  form.subs.chosen_row = row;
  form.subs.chosen_col = column;
  form.blue_row = row;
  form.blue_col = column;
  return true;
}

bool SubstitutionOK(Session& s, SysEqState& form) {
  SubstitutionState& subs = form.subs;
  if (subs.phase != SubsPhase::Choosing) return false;
  // Equations with no letter left (0 = k) offer nothing to choose: they are read at once.
  if (std::all_of(subs.remaining.begin(), subs.remaining.end(),
                  [&form](int row) { return ZeroLeft(form.grid, row); })) {
    Inspect(s, form);
    return true;
  }
  const bool usable = subs.chosen_row != 0 &&
                      std::find(subs.remaining.begin(), subs.remaining.end(), subs.chosen_row) !=
                          subs.remaining.end();
  if (!usable) {
    ShowCustomMessage(s,
                      subs.any_chosen_before
                          ? "You must first click on a variable in one of the remaining equations."
                          : "You must first click on a variable in an equation.",
                      kSubsHelp);
    return false;
  }
  SystemGrid& g = form.grid;
  const int r = subs.chosen_row;
  const int v = subs.chosen_col;
  const GridNumber pivot = g.At(r, v);
  const std::string equation = RowEquationText(s, g, r);
  // v = (k - sum of the others) / a
  SetAsideEquation e;
  e.column = v;
  for (int c = 1; c <= g.cols; ++c) {
    const GridNumber a = g.At(r, c);
    e.right.push_back(c == v ? GridNumber(0) : (c == g.cols ? a / pivot : -(a / pivot)));
  }
  subs.set_aside.push_back(e);
  subs.remaining.erase(std::find(subs.remaining.begin(), subs.remaining.end(), r));
  subs.any_chosen_before = true;
  const std::string solution = LinearText(s, g, e.right, 0);
  const std::string letter = Letter(g, v);
  // The solution put into the others: shown bracketed, computed exactly.
  subs.substituted.clear();
  for (const int i : subs.remaining) {
    subs.substituted.push_back(SubstitutedText(s, g, i, v, solution));
    const GridNumber a = g.At(i, v);
    for (int c = 1; c <= g.cols; ++c) {
      g.At(i, c) = c == v ? GridNumber(0) : g.At(i, c) - a / pivot * g.At(r, c);
    }
  }
  const std::size_t left = subs.remaining.size();
  std::string box = "You have chosen to solve for " + letter + ".  Set that equation aside.  ";
  box += left == 0 ? "There are no remaining equations so we now begin the back-substitution "
                     "phase on the set-aside equations."
                   : std::string("In the remaining equation") + (left > 1 ? "s" : "") +
                         " substitute in the solution for " + letter + ", as shown.";
  form.assist_text = box + "\n\nClick on Continue.";
  form.assist_caption = "Continue";
  std::string step = "Select the equation @" + equation + "@, solve it for " + letter +
                     ", and set it aside as Equation # " + std::to_string(subs.set_aside.size()) +
                     ":|@" + letter + "=" + solution + "@|";
  if (left > 0) {
    step += left == 1 ? "The remaining equation is:|" : "The remaining equations are:|";
    for (const std::string& text : subs.substituted) step += "@" + text + "@|";
  }
  WriteStep(s, kHelpPrefix + step);
  subs.phase = left == 0 ? SubsPhase::BackStart : SubsPhase::Substituted;
  subs.chosen_row = 0;
  subs.chosen_col = 0;
  form.blue_row = 0;
  form.blue_col = 0;
  return true;
}

void SubstitutionContinue(Session& s, SysEqState& form) {
  SubstitutionState& subs = form.subs;
  switch (subs.phase) {
    case SubsPhase::Choosing: return;
    case SubsPhase::Done: form.closed = true; return;
    case SubsPhase::BackStart: BackSubstitute(s, form); return;
    case SubsPhase::Substituted: break;
  }
  Inspect(s, form);
}

namespace {

void Inspect(Session& s, SysEqState& form) {
  SubstitutionState& subs = form.subs;
  SystemGrid& g = form.grid;
  subs.substituted.clear();
  // A row 0 = k with k not 0: no solution.
  for (const int row : subs.remaining) {
    if (ZeroLeft(g, row) && !g.At(row, g.cols).IsZero()) {
      const std::string zero = "@0=" + g.At(row, g.cols).Text(s) + "@";
      const std::string text =
          "Notice that no values of the variables can possibly satisfy the equation " + zero +
          ".  This indicates that the system of equations has no solution.";
      WriteStep(s, kHelpPrefix + text);
      form.reading = SystemReading{};
      form.reading.kind = SystemKind::None;
      form.reading.inconsistent_row = row;
      form.read = true;
      Finish(s, form, text + "  This window will now close.");
      return;
    }
  }
  std::vector<int> dropped;
  for (const int row : subs.remaining) {
    if (ZeroLeft(g, row)) dropped.push_back(row);
  }
  std::string box;
  if (!dropped.empty()) {
    const bool many = dropped.size() > 1;
    box = std::string(
              "Notice that any values of the variables satisfy the equation @0=0@.  This "
              "indicates that the system of equations is redundant.  ") +
          (many ? "The remaining equations don't help solve the system, so drop them.  "
                : "The remaining equation doesn't help solve the system, so drop it.  ");
    WriteStep(s, kHelpPrefix + std::string(many ? "Drop the redundant equations.  They are of no "
                                                  "help in solving the system of equations.  "
                                                : "Drop the redundant equation.  It is of no help "
                                                  "in solving the system of equations.  "));
    for (const int row : dropped) {
      subs.remaining.erase(std::find(subs.remaining.begin(), subs.remaining.end(), row));
    }
  }
  const std::size_t left = subs.remaining.size();
  if (left == 0) {
    box += std::string("We now begin the back-substitution phase with the set-aside equation") +
           (subs.set_aside.size() > 1 ? "s" : "") + ".\n\nClick on Continue.";
    subs.phase = SubsPhase::BackStart;
    form.assist_caption = "Continue";
  } else {
    box += std::string("Simplify the remaining equation") + (left > 1 ? "s" : "") +
           ", as shown.  Now repeat the process:  Choose any remaining equation, and in that "
           "equation choose any variable to solve for.\n\nAfter choosing, click OK to continue.";
    WriteStep(s, kHelpPrefix +
                     std::string(left == 1 ? "After simplifying, the remaining "
                                             "equation is:|"
                                           : "After simplifying, the remaining "
                                             "equations are:|") +
                     EquationLines(s, form));
    subs.phase = SubsPhase::Choosing;
    form.assist_caption = "OK";
  }
  form.assist_text = box;
}

}  // namespace

std::vector<std::string> SubstitutionLines(const Session& s, const SysEqState& form) {
  std::vector<std::string> lines;
  const SubstitutionState& subs = form.subs;
  for (std::size_t k = 0; k < subs.remaining.size(); ++k) {
    const int row = subs.remaining[k];
    const std::string text =
        k < subs.substituted.size() ? subs.substituted[k] : RowEquationText(s, form.grid, row);
    lines.push_back("R" + std::to_string(row) + ": " + text);
  }
  for (std::size_t n = 0; n < subs.set_aside.size() && subs.phase != SubsPhase::Done; ++n) {
    lines.push_back("Equation # " + std::to_string(n + 1) + ": " +
                    SetAsideText(s, form.grid, subs.set_aside[n]));
  }
  return lines;
}

}  // namespace tavimor
