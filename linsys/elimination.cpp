// The elimination assistant: the next ERO from the grid alone, its reasons, and the reading of
// the reduced row echelon form.
#include "linsys/elimination.h"

#include "core/errors.h"

namespace tavimor {

namespace {

std::string Num(int n) { return std::to_string(n); }

// "There is nothing to do in column 1.  " or "... in columns 1 to 3.  "; empty for none.
std::string NothingToDo(int first, int last) {
  if (last < first) return "";
  if (last == first) return "There is nothing to do in column " + Num(first) + ".  ";
  return "There is nothing to do in columns " + Num(first) + " to " + Num(last) + ".  ";
}

}  // namespace

bool ChooseNextEro(const SystemGrid& g, AssistChoice& choice) {
  int pr = 1;
  for (int pc = 1; pc < g.cols; ++pc) {
    if (pr > g.rows) break;
    int r = 0;
    for (int i = pr; i <= g.rows && r == 0; ++i) {
      if (!g.At(i, pc).IsZero()) r = i;
    }
    if (r == 0) continue;
    choice.pivot_row = pr;
    choice.pivot_col = pc;
    if (r != pr) {
      choice.code = 1;
      choice.ero = {3, static_cast<std::int16_t>(pr), static_cast<std::int16_t>(r), false, 1};
      return true;
    }
    const GridNumber& p = g.At(pr, pc);
    if (!p.IsOne()) {
      choice.code = 3;
      choice.ero = {1, static_cast<std::int16_t>(pr), 0, true, p};
      return true;
    }
    for (int i = 1; i <= g.rows; ++i) {
      const GridNumber& a = g.At(i, pc);
      if (i == pr || a.IsZero()) continue;
      choice.code = 5;
      // Ri := Ri - a * RPR, told with " + " and the size of a negative a.
      choice.ero = {2, static_cast<std::int16_t>(i), static_cast<std::int16_t>(pr), !a.Negative(),
                    a.Negative() ? -a : a};
      return true;
    }
    ++pr;
  }
  return false;
}

void ApplyAssistEro(SystemGrid& g, const AssistChoice& choice) {
  const Ero& e = choice.ero;
  if (e.kind == 3) {
    for (int column = 1; column <= g.cols; ++column)
      std::swap(g.At(e.row, column), g.At(e.row2, column));
    return;
  }
  for (int column = 1; column <= g.cols; ++column) {
    if (column == choice.pivot_col) continue;
    GridNumber& cell = g.At(e.row, column);
    if (e.kind == 1) {
      cell = cell / e.factor;
    } else {
      const GridNumber step = e.factor * g.At(e.row2, column);
      cell = e.second ? cell - step : cell + step;
    }
  }
  g.At(e.row, choice.pivot_col) = GridNumber(e.kind == 1 ? 1 : 0);
}

std::string AssistReason(const Session& s, const AssistChoice& choice, NarrationState& state) {
  const int pr = choice.pivot_row;
  const int pc = choice.pivot_col;
  const bool is_new = pr != state.previous_pivot_row || pc != state.previous_pivot_col;
  std::string text;
  if (is_new) {
    if (state.previous_pivot_col == 0) {
      text = "The goal is to put the system into RREF form.  " + NothingToDo(1, pc - 1) +
             "The first required operation is in column " + Num(pc) +
             ", so it becomes the pivot column.  Row " + Num(pr) + " becomes the pivot row.  ";
    } else {
      text = "Column " + Num(state.previous_pivot_col) + " is now in RREF form.  " +
             NothingToDo(state.previous_pivot_col + 1, pc - 1) +
             "The next required operation is in column " + Num(pc) +
             ", so it becomes the new pivot column.  The row below the previous pivot row "
             "becomes the new pivot row.  ";
    }
    text += pr == pc ? "The pivot position is on the diagonal and is shown in blue."
                     : "The pivot position is shown in blue.";
    text += "  ";
  }
  const Ero& e = choice.ero;
  switch (choice.code) {
    case 1:
      text +=
          "The first task is to get a 1 in the pivot position.  But we can't use the usual ERO # 1 "
          "to do it because that would mean dividing by 0, so instead we apply ERO # 3 and "
          "interchange rows " +
          Num(pr) + " and " + Num(e.row2) + ".";
      break;
    case 3:
      text += is_new ? "The first task is to get a 1 in the pivot position.  "
                     : "We can now get a 1 in the pivot position.  ";
      text += "Do this by applying ERO # 1, i.e. by dividing the pivot row (row " + Num(pr) +
              ") through by the pivot.  ";
      break;
    case 5:
      if (!is_new && state.last_code == 4) {
        text += "We continue working on column " + Num(pc) +
                ", applying ERO # 2 to get 0's above and below the pivot position.  ";
      } else if (is_new || state.last_code == 2) {
        text +=
            "The pivot already equals 1 so we can begin applying ERO # 2 to get 0's above and "
            "below it.  ";
      }
      text += "To get a 0 in row " + Num(e.row) +
              " we subtract a suitable multiple of the pivot row (row " + Num(pr) + ") from it.";
      break;
    default: break;
  }
  (void)s;
  state.previous_pivot_row = pr;
  state.previous_pivot_col = pc;
  state.last_code = choice.code + 1;
  return text;
}

SystemReading ReadReducedForm(const Session& s, const SystemGrid& g) {
  SystemReading reading;
  std::vector<int> pivot_col_of_row(static_cast<std::size_t>(g.rows) + 1, 0);
  std::vector<bool> is_pivot_col(static_cast<std::size_t>(g.cols) + 1, false);
  for (int i = 1; i <= g.rows; ++i) {
    int lead = 0;
    for (int column = 1; column < g.cols && lead == 0; ++column) {
      if (!g.At(i, column).IsZero()) lead = column;
    }
    if (lead == 0) {
      if (!g.At(i, g.cols).IsZero() && reading.inconsistent_row == 0) reading.inconsistent_row = i;
      continue;
    }
    pivot_col_of_row[static_cast<std::size_t>(i)] = lead;
    is_pivot_col[static_cast<std::size_t>(lead)] = true;
    ++reading.pivots;
  }
  for (int column = 1; column < g.cols; ++column) {
    const char letter = g.vars[static_cast<std::size_t>(column - 1)];
    (is_pivot_col[static_cast<std::size_t>(column)] ? reading.pivot_vars : reading.free_vars)
        .push_back(letter);
  }
  if (reading.inconsistent_row != 0) {
    reading.kind = SystemKind::None;
  } else if (reading.pivots == g.cols - 1) {
    reading.kind = SystemKind::Unique;
    for (int i = 1; i <= g.rows; ++i) {
      const int lead = pivot_col_of_row[static_cast<std::size_t>(i)];
      if (lead == 0) continue;
      // In the reduced form a pivot row reads 1 * letter = value.
      const GridNumber value = g.At(i, g.cols) / g.At(i, lead);
      reading.solution.emplace_back(g.vars[static_cast<std::size_t>(lead - 1)], value.Text(s));
    }
  } else {
    reading.kind = SystemKind::Infinite;
  }
  return reading;
}

std::string VariableList(const std::vector<char>& letters) {
  if (letters.size() == 1) return std::string("variable %") + letters[0];
  std::string text = "variables ";
  for (std::size_t k = 0; k < letters.size(); ++k) {
    if (k > 0) text += k + 1 == letters.size() ? " and %" : ", %";
    if (k == 0) text += "%";
    text += letters[k];
  }
  return text;
}

std::string SystemLines(const Session& s, const SystemGrid& g) {
  std::string lines;
  for (int i = 1; i <= g.rows; ++i) lines += "@" + RowEquationText(s, g, i) + "@|";
  return lines;
}

std::string ReadingText(const Session& s, const SystemGrid& g, const SystemReading& reading,
                        ReadingVoice voice) {
  std::string text;
  if (reading.kind == SystemKind::None) {
    const int n = reading.inconsistent_row;
    return "This form shows that the system of equations is inconsistent and has no solution.  "
           "No values of the variables will satisfy equation " +
           Num(n) + ", which states that @" + RowEquationText(s, g, n) + "@ .|";
  }
  if (reading.kind == SystemKind::Unique) {
    switch (voice) {
      case ReadingVoice::Window:
        text = "This form shows that the system of equations has a unique solution, namely:|";
        break;
      case ReadingVoice::AfterForm:
        text = "This means that the system of equations has a unique solution, namely:|";
        break;
      case ReadingVoice::Alone: text = "This system of equations has the unique solution:|"; break;
    }
    for (const auto& [letter, value] : reading.solution) {
      text += "@" + std::string(1, letter) + "=" + value + "@|";
    }
  } else {
    text =
        "This form shows that the system of equations has an infinite number of solutions.  "
        "Any value of " +
        VariableList(reading.free_vars) + " will satisfy the equations.  ";
    if (!reading.pivot_vars.empty()) {
      text += std::string(reading.free_vars.size() == 1 ? "If a value is " : "If values are ") +
              "supplied for " + VariableList(reading.free_vars) + " then " +
              VariableList(reading.pivot_vars) +
              (reading.pivot_vars.size() == 1 ? " is " : " are ") + "determined as well.";
    }
    text += "|";
  }
  if (reading.pivots < g.rows) {
    text += std::string(g.rows - reading.pivots == 1
                            ? "Also, the zero row at the bottom of the RREF form shows "
                            : "Also, the zero rows at the bottom of the RREF form show ") +
            "that the system of equations is redundant.|";
  }
  return text;
}

int EliminateSilently(SystemGrid& g) {
  int count = 0;
  AssistChoice choice;
  while (ChooseNextEro(g, choice)) {
    ApplyAssistEro(g, choice);
    if (++count > 100000) {
      throw RunTimeError(RunTimeErrorNumber::Overflow, "Too many row operations");
    }
  }
  return count;
}

}  // namespace tavimor
