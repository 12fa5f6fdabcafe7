// The elimination window, screen-free: the trial of an ERO and its undo, the keyboard line, the
// assistant, and the grid's lines.
#include "linsys/sys_eq_form.h"

#include <algorithm>

#include "core/message_box.h"
#include "present/step_markup.h"
#include "present/typesetter.h"
#include "present/work_space.h"

namespace tavimor {

namespace {

constexpr const char* kHelpPrefix = "296#";

// The text of the system, without the markup of variables.
std::string WithoutVariableMarks(std::string text) {
  text.erase(std::remove(text.begin(), text.end(), '%'), text.end());
  return text;
}

}  // namespace

void WriteStep(Session& s, const std::string& message) {
  s.HelpNumber = static_cast<std::int16_t>(HelpNumberOf(message));
  std::string body = WithoutVariableMarks(StripHelpPrefix(message));
  WorkSpaceSink box(s);
  WriteText(s, box, "", 1, 0, "FFF0");
  // A line that is one equation alone is set indented, as the equations of a set are when it is
  // loaded; other lines are written as messages.
  std::size_t at = 0;
  while (at < body.size()) {
    std::size_t end = body.find('|', at);
    if (end == std::string::npos) end = body.size();
    const std::string line = body.substr(at, end - at);
    at = end + 1;
    const std::size_t equals = line.find('=');
    if (line.size() > 2 && line.front() == '@' && line.back() == '@' &&
        line.find('@', 1) == line.size() - 1 && equals != std::string::npos) {
      Picture picture = DrawEquation(s, s.Screen().Metrics(), line.substr(1, equals - 1),
                                     line.substr(equals + 1, line.size() - equals - 2));
      InsertPicture(s, box, std::move(picture), 0, 1, true);
    } else {
      WriteMessage(s, box, line, true);
    }
  }
}

namespace {

void WriteSystemStep(Session& s, const SysEqState& form, const std::string& step) {
  WriteStep(s, step + ".  The system of equations becomes:|" + SystemLines(s, form.grid));
}

void ClearComments(SysEqState& form) {
  form.comments.assign(static_cast<std::size_t>(form.grid.rows), "");
}

void ShowComment(SysEqState& form, const Session& s, const Ero& e) {
  ClearComments(form);
  if (e.kind == 3) {
    form.comments[static_cast<std::size_t>(e.row - 1)] = CommentArrow();
    form.comments[static_cast<std::size_t>(e.row2 - 1)] = CommentArrow();
  } else {
    form.comments[static_cast<std::size_t>(e.row - 1)] = CommentArrow() + " " + EroComment(s, e);
  }
}

bool RowInGrid(const SysEqState& form, int row) { return row >= 1 && row <= form.grid.rows; }

// The number of a number box, or the keyboard's; a text that is no number gives false.
bool ReadFactor(const Session& s, const SysEqState& form, const std::string& box, int row,
                GridNumber& factor) {
  GridNumber typed;
  std::string bare;
  for (const char c : box) {
    if (c != ' ') bare += c;
  }
  if (!GridNumber::FromText(s, bare, typed)) return false;
  factor = SnapToShownCoefficient(s, form.grid, row, s.SigFigs, typed);
  return true;
}

}  // namespace

std::vector<std::vector<std::string>> GridLines(const Session& s, const SysEqState& form) {
  const SystemGrid& g = form.grid;
  const std::size_t width = static_cast<std::size_t>(3 * g.cols - 1);
  std::vector<std::vector<std::string>> lines;
  for (int i = 1; i <= g.rows; ++i) {
    if (i > 1) lines.emplace_back(width + 1, "");
    std::vector<std::string> cells = RowCells(s, g, i, s.SigFigs);
    const std::size_t k = static_cast<std::size_t>(i - 1);
    cells.push_back(k < form.comments.size() ? form.comments[k] : "");
    lines.push_back(cells);
  }
  return lines;
}

std::vector<std::string> GridTextLines(const Session& s, const SysEqState& form) {
  std::vector<std::vector<std::string>> lines = GridLines(s, form);
  // The pivot in blue is set in brackets.
  if (form.blue_row >= 1 && form.blue_col >= 1) {
    std::string& cell = lines[static_cast<std::size_t>(2 * (form.blue_row - 1))]
                             [static_cast<std::size_t>(3 * (form.blue_col - 1) + 1)];
    cell = "[" + cell + "]";
  }
  std::vector<std::size_t> widths;
  for (const auto& line : lines) {
    for (std::size_t c = 0; c + 1 < line.size(); ++c) {
      if (widths.size() <= c) widths.resize(c + 1, 0);
      widths[c] = std::max(widths[c], line[c].size());
    }
  }
  std::vector<std::string> out;
  for (std::size_t l = 0; l < lines.size(); l += 2) {
    std::string text;
    const auto& line = lines[l];
    for (std::size_t c = 0; c + 1 < line.size(); ++c) {
      const std::string& cell = line[c];
      const bool number = c % 3 == 1 || c + 2 == line.size();
      const std::string pad(widths[c] - cell.size(), ' ');
      text += (number ? pad + cell : cell + pad) + (c + 2 < line.size() ? " " : "");
    }
    text += line.back();
    while (!text.empty() && text.back() == ' ') text.pop_back();
    out.push_back(text);
  }
  return out;
}

bool StartSysSolve(Session& s, SysEqState& form) {
  form = SysEqState{};
  const std::string message = BuildGrid(s, form.grid);
  if (!message.empty()) {
    form.closed = true;
    ShowCustomMessage(s, "Error: " + message, 40);
    return false;
  }
  ClearComments(form);
  form.ero2_row2 = 2;
  form.ero3_row2 = 2;
  if (s.SolveDetail == 0) {
    const int steps = EliminateSilently(form.grid);
    form.reading = ReadReducedForm(s, form.grid);
    // The reduced form is shown unless it is the system as loaded.
    std::string text;
    if (steps > 0 || form.reading.kind != SystemKind::Unique) {
      text =
          "Solving this system of equations by elimination puts it into Row-Reduced Echelon "
          "(or Gauss-Jordan) Form:|" +
          SystemLines(s, form.grid) +
          ReadingText(s, form.grid, form.reading, ReadingVoice::AfterForm);
    } else {
      text = ReadingText(s, form.grid, form.reading, ReadingVoice::Alone);
    }
    WriteStep(s, kHelpPrefix + text);
    form.reduced = true;
    form.read = true;
    form.closed = true;
    return false;
  }
  return true;
}

bool cmdTest(Session& s, SysEqState& form) {
  if (!form.TestEnabled()) return false;
  Ero e;
  e.kind = form.panel;
  switch (form.panel) {
    case 1:
      e.row = form.ero1_row;
      e.second = form.ero1_divide;
      break;
    case 2:
      e.row = form.ero2_row;
      e.row2 = form.ero2_row2;
      e.second = form.ero2_subtract;
      break;
    default:
      e.row = form.ero3_row;
      e.row2 = form.ero3_row2;
      break;
  }
  const bool rows_ok = RowInGrid(form, e.row) && (e.kind == 1 || RowInGrid(form, e.row2)) &&
                       (e.kind == 1 || e.row != e.row2);
  bool factor_ok = true;
  if (form.factor_from_keyboard) {
    e.factor = form.pending.factor;
  } else if (e.kind != 3) {
    factor_ok =
        ReadFactor(s, form, e.kind == 1 ? form.ero1_number : form.ero2_number, e.row, e.factor);
  }
  // A factor of 0 scales nothing back: refused, as is an ERO the panels cannot name.
  if (!rows_ok || !factor_ok || (e.kind == 1 && e.factor.IsZero())) {
    form.factor_from_keyboard = false;
    form.pending = Ero{};
    ShowCustomMessage(s, kElimError, kElimHelp);
    return false;
  }
  form.saved_row.clear();
  for (int column = 1; column <= form.grid.cols; ++column) {
    form.saved_row.push_back(form.grid.At(e.row, column));
  }
  form.before_trial = form.grid;
  ApplyEro(form.grid, e);
  ShowComment(form, s, e);
  form.blue_row = 0;
  form.blue_col = 0;
  form.pending = e;
  return true;
}

void cmdOK(Session& s, SysEqState& form) {
  if (!form.Pending()) return;
  const Ero e = form.pending;
  form.pending = Ero{};
  form.factor_from_keyboard = false;
  ClearComments(form);
  form.undo_list.push_back(form.before_trial);
  WriteSystemStep(s, form, kHelpPrefix + EroStepText(s, e));
}

bool TakeBackLastEro(Session& s, SysEqState& form) {
  if (form.closed) return false;
  if (form.Pending()) {
    cmdUndo(s, form);
    return true;
  }
  if (form.undo_list.empty()) return false;
  form.grid = form.undo_list.back();
  form.undo_list.pop_back();
  form.reduced = false;
  form.assist_caption = kAssistCaption;
  form.assist_text.clear();
  form.blue_row = 0;
  form.blue_col = 0;
  ClearComments(form);
  return true;
}

void cmdUndo(Session&, SysEqState& form) {
  if (!form.Pending()) return;
  const Ero e = form.pending;
  if (e.kind == 3) {
    ApplyEro(form.grid, e);  // a second swap
  } else {
    for (int column = 1; column <= form.grid.cols; ++column) {
      form.grid.At(e.row, column) = form.saved_row[static_cast<std::size_t>(column - 1)];
    }
  }
  form.pending = Ero{};
  form.factor_from_keyboard = false;
  ClearComments(form);
}

bool EnterKeyboardEro(Session& s, SysEqState& form, const std::string& text) {
  if (!form.PanelsEnabled()) return false;
  form.factor_from_keyboard = false;
  Ero e;
  if (!ParseEROText(s, text, form.grid, s.SigFigs, e)) {
    ShowCustomMessage(s, kEroError, 40);
    return false;
  }
  // The controls as if the student had filled them in.
  form.panel = e.kind;
  if (e.kind == 1) {
    form.ero1_row = e.row;
    form.ero1_divide = e.second;
    form.ero1_number = e.factor.Text(s);
  } else if (e.kind == 2) {
    form.ero2_row = e.row;
    form.ero2_row2 = e.row2;
    form.ero2_subtract = e.second;
    form.ero2_number = e.factor.Text(s);
  } else {
    form.ero3_row = e.row;
    form.ero3_row2 = e.row2;
  }
  form.keyboard.clear();
  form.pending.factor = e.factor;
  form.factor_from_keyboard = true;
  return cmdTest(s, form);
}

void ClickGridCell(Session& s, SysEqState& form, int line, int cell) {
  if (line < 0 || line % 2 != 0 || cell < 0) return;
  const int row = line / 2 + 1;
  const int column = cell / 3 + 1;
  if (row > form.grid.rows || column > form.grid.cols) return;
  const GridNumber& c = form.grid.At(row, column);
  if (column < form.grid.cols && c.IsZero()) return;
  const std::string shown = c.SigFigsText(s, s.SigFigs);
  if (form.panel == 1) form.ero1_number = shown;
  if (form.panel == 2) form.ero2_number = shown;
}

void cmdAssistElim(Session& s, SysEqState& form) {
  if (!form.AssistEnabled()) return;
  if (form.reduced) {
    if (!form.read) {
      form.reading = ReadReducedForm(s, form.grid);
      WriteStep(s, kHelpPrefix + ReadingText(s, form.grid, form.reading, ReadingVoice::Window));
      form.read = true;
    }
    form.closed = true;
    return;
  }
  AssistChoice choice;
  if (!ChooseNextEro(form.grid, choice)) {
    form.reduced = true;
    form.assist_text = kDoneText;
    form.assist_caption = kDoneCaption;
    form.blue_row = 0;
    form.blue_col = 0;
    ClearComments(form);
    s.HelpNumber = static_cast<std::int16_t>(kElimHelp);
    return;
  }
  form.assist_text = AssistReason(s, choice, form.narration);
  form.blue_row = choice.pivot_row;
  form.blue_col = choice.pivot_col;
  {
    WorkSpaceSink box(s);
    WriteText(s, box, form.assist_text, 1, 0, "TNN9");
  }
  form.undo_list.push_back(form.grid);
  ApplyAssistEro(form.grid, choice);
  ShowComment(form, s, choice.ero);
  WriteSystemStep(s, form, kHelpPrefix + EroStepText(s, choice.ero));
}

}  // namespace tavimor
