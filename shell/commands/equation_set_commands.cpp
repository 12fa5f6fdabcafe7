// The commands of a set of equations: the other equations substituted into the last one, and
// every equation of the list solved in one go.
#include "shell/commands/equation_set_commands.h"

#include <chrono>
#include <cmath>

#include "core/brackets.h"
#include "core/message_box.h"
#include "core/node_pool.h"
#include "core/number_format.h"
#include "core/parse.h"
#include "core/regenerate.h"
#include "core/scoped_override.h"
#include "core/temp_tree.h"
#include "core/text_predicates.h"
#include "core/tree_walk.h"
#include "core/validate.h"
#include "present/work_space.h"
#include "shell/command_frame.h"
#include "shell/command_table.h"
#include "shell/commands/auto_solve_command.h"
#include "shell/main_flow.h"
#include "shell/status_bar.h"

namespace tavimor {

namespace {

constexpr int kSubstituteHelp = 396;
constexpr int kInputErrorHelp = 2;
constexpr const char* kNoSubstitutions = "No substitutions were found";
constexpr const char* kNotAnEquation =
    "Error: The right side of a substitution must be an expression";

std::string RowText(const EquationRow& row) {
  return row[1].empty() ? row[0] : row[0] + "=" + row[1];
}

// The side with each earlier row substituted in turn, reparsed after each.
std::string SubstituteInto(Session& s, const std::string& side,
                           const std::vector<EquationRow>& rows) {
  TempTree tree(s, side, TempTree::Depth::Whole);
  for (std::size_t k = 0; k + 1 < rows.size(); ++k) {
    ReplaceVariable(s, tree.Root(), StripBrackets(rows[k][1]), StripBrackets(rows[k][0]));
    RegenerateAll(s, tree.Root());
    FreeChildren(s, tree.Root());
    ParseTree(s, tree.Root());
  }
  return s.Pool[tree.Root()].Text;
}

}  // namespace

void ReplaceVariable(Session& s, NodeIdx node, const std::string& value,
                     const std::string& letter) {
  ForEachNodeParentFirst(s, node, [&](NodeIdx n) {
    ExprNode& leaf = s.Pool[n];
    if (leaf.FirstChild == kNoNode && leaf.Text == letter) leaf.Text = "(" + value + ")";
  });
}

std::string SubstituteEquations(Session& s) {
  s.HelpNumber = static_cast<std::int16_t>(kSubstituteHelp);
  std::vector<EquationRow> rows = s.EquationList;
  if (rows.empty()) return kNoSubstitutions;
  for (const EquationRow& row : rows) {
    if (row[1].empty()) return kNotAnEquation;
  }
  for (EquationRow& row : rows) {
    row[0] = RegeneratedText(s, row[0]);
    if (!row[1].empty()) row[1] = RegeneratedText(s, row[1]);
  }
  EquationRow& last = rows.back();
  const std::string before = RowText(last);
  last[0] = SubstituteInto(s, last[0], rows);
  if (!last[1].empty()) last[1] = SubstituteInto(s, last[1], rows);
  const std::string after = RowText(last);
  if (after == before) return kNoSubstitutions;
  std::string message = std::to_string(kSubstituteHelp) + "#Substituting|";
  for (std::size_t k = 0; k + 1 < rows.size(); ++k) {
    message += "     @" + StripBrackets(rows[k][0]) + "->" + StripBrackets(rows[k][1]) + "@  |";
  }
  message +=
      (last[1].empty() ? "into the expression @" : "into the equation @") + before + "@ yields";
  const EquationRow result = last;
  RestoreSides(s, result[0], result[1]);
  s.EquationList = {result};
  ShowStepEqn(s, message, s.Pool[kLeftRoot].Text, s.Pool[kRightRoot].Text);
  // The result is the work item: its panel is on offer for the next command.
  if (result[1].empty()) {
    s.Form.item_kind = "expression";
    SelectTab(s, kPanelExpression);
    UpdateButtonEnabling(s);
    s.Form.focus = "cmdSimplify";
  } else {
    s.Form.item_kind = "equation";
    SelectTab(s, kPanelEquation);
    s.Form.focus = "cmdAutoSolve";
  }
  return "";
}

std::string cmdSubstitute(Session& s, bool) {
  UpdateStatusPanel(s);
  std::string result;
  const std::string error = RunCommandFrame(
      s, "Error in Substitute.", [&](NodeIdx) { result = SubstituteEquations(s); }, [] {});
  if (!error.empty()) return error;
  if (result == kNoSubstitutions) {
    ShowCustomMessage(s, result, 0);
  } else if (!result.empty()) {
    ShowCustomMessage(s, result, kInputErrorHelp);
    return result;
  }
  return "";
}

std::string SolveAllTimeText(int count, double seconds, char decimal_point) {
  return "time taken for " + std::to_string(count) + " equations was " +
         GeneralNumberFormat(std::round(seconds * 100.0) / 100.0, decimal_point) + "s";
}

std::string MultiAutoSolve(Session& s, bool) {
  // Each load retrieves SolveDetail from its default: both are 0 for the run.
  ScopedOverride detail(s.SolveDetail, std::int16_t{0});
  ScopedOverride detail_default(s.SolveDetailDefault, std::int16_t{0});
  const auto start = std::chrono::steady_clock::now();
  // The entries as they stand: loading one may add nothing, but the list is read as it was.
  const std::vector<std::string> entries = s.Form.equation_box_items;
  int count = 0;
  for (std::size_t k = 0; k < entries.size(); ++k) {
    const std::string& text = entries[k];
    if (text.find('=') == std::string::npos || text.find(';') != std::string::npos) continue;
    s.Form.equation_box_selected = static_cast<int>(k);
    s.Form.equation_box_text = text;
    ++count;
    if (cmdLoadEquation(s, text, false)) AutoSolveCommand(s, false);
  }
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  ShowCustomMessage(s, SolveAllTimeText(count, seconds, s.Dp()), 0);
  return "";
}

}  // namespace tavimor
