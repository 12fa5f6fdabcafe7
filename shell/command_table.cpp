// The one table of the main form's buttons, and the lookups the front ends and the frame make in
// it.
#include "shell/command_table.h"

#include <algorithm>

#include "core/pieces.h"
#include "core/scoped_override.h"
#include "manipulate/combine_logs.h"
#include "manipulate/expand.h"
#include "present/step_markup.h"
#include "shell/command_frame.h"
#include "shell/commands/add_fractions_command.h"
#include "shell/commands/auto_solve_command.h"
#include "shell/commands/both_sides_command.h"
#include "shell/commands/brackets_command.h"
#include "shell/commands/complete_square_command.h"
#include "shell/commands/equation_set_commands.h"
#include "shell/commands/factor_command.h"
#include "shell/commands/fraction_panel_command.h"
#include "shell/commands/graph_command.h"
#include "shell/commands/number_tools_command.h"
#include "shell/commands/solve_system_command.h"
#include "shell/commands/solving_hint_command.h"
#include "shell/commands/tree_view_command.h"
#include "shell/commands/ufoo_command.h"
#include "shell/evaluate_command.h"
#include "shell/main_flow.h"
#include "simplify/simplify_driver.h"
#include "simplify/trig_identities.h"

namespace tavimor {

namespace {

constexpr unsigned On(int panel) { return 1u << static_cast<unsigned>(panel); }

constexpr TerminalWord kNoWord = {nullptr, nullptr};
constexpr ExpressionCommand kNoFrame = {nullptr, nullptr, nullptr, nullptr};

// The engines and commands built so far.
bool SimplifyEngine(Session& s, NodeIdx side, bool) {
  ScopedOverride trig(s.TrigMode, std::int16_t{0});
  return SimplifySide(s, side);
}
// The right button expands denominators too. A side with nothing to expand that the first
// simplification changed is told so in a note, and stays as it was input.
bool ExpandEngine(Session& s, NodeIdx side, bool right_button) {
  const std::string input = s.Pool[side].Text;
  if (ExpandSide(s, side, right_button)) return true;
  TellSimplifiedInstead(s, side, input, GetPiece(s.Message, 1, kExpandRecordSeparator),
                        NothingToExpandNote(input, s.Message));
  return false;
}
// A side with no logarithms to combine that Simplify would change is told so in a note.
bool CombineLogsEngine(Session& s, NodeIdx side, bool) {
  const std::string input = s.Pool[side].Text;
  if (CombineLogsSide(s, side)) return true;
  const std::string simplified = SimplifyText(s, input);
  TellSimplifiedInstead(
      s, side, input, simplified,
      SimplifiedInsteadNote(input, simplified, "There are no logarithms that can be combined."));
  return false;
}
// Break apart trig and Combine trig: the simplify loop with the rules of their mode. A side that
// only the rules of Simplify change is told so in a note, and stays as it was input.
bool TrigEngine(Session& s, NodeIdx side, std::int16_t mode, const char* nothing) {
  const std::string input = s.Pool[side].Text;
  std::string simplified;
  std::string in_mode;
  {
    ScopedOverride plain(s.TrigMode, kTrigSimplify);
    simplified = SimplifyText(s, input);
  }
  ScopedOverride trig(s.TrigMode, mode);
  in_mode = SimplifyText(s, input);
  if (in_mode != simplified) return SimplifySide(s, side);
  TellSimplifiedInstead(s, side, input, simplified,
                        SimplifiedInsteadNote(input, simplified, nothing));
  return false;
}
bool BreakApartTrigEngine(Session& s, NodeIdx side, bool) {
  return TrigEngine(s, side, kTrigBreakApart, "There are no trig functions to break apart.");
}
bool CombineTrigEngine(Session& s, NodeIdx side, bool) {
  return TrigEngine(s, side, kTrigCombine, "There are no trig functions to combine.");
}
std::string EvaluateButton(Session& s, bool) { return cmdEvaluate(s); }
std::string LeftSideButton(Session& s, bool) {
  cmdDoLHS(s);
  return "";
}
std::string RightSideButton(Session& s, bool) {
  cmdDoRHS(s);
  return "";
}
std::string EquationButton(Session& s, bool) {
  cmdShowEqnFrame(s);
  return "";
}

// clang-format off
const std::vector<CommandRow> kRows = {
  // The Number panel.
  {"cmdSigFigs", On(kPanelNumber), "Significant figures",
   "Show the number expressed to any number of significant figures",
   {"sig-figs", "the number to N significant figures (sig-figs N, 1 to 20)"}, kNoWord, kNoFrame,
   nullptr, &cmdSigFigs},
  {"cmdFactor", On(kPanelNumber), "Prime factors", "Factor the integer into prime numbers",
   {"prime-factors", "the number's prime factors"}, kNoWord, kNoFrame, nullptr, &cmdFactor},
  // The Expression panel (also a side of an equation).
  {"cmdSimplify", On(kPanelExpression), "Simplify", "Simplify the expression",
   {"simplify", "simplify the expression"}, kNoWord,
   {"Simplify", "There is nothing to simplify", "Simplifying", "Error in Simplify."},
   &SimplifyEngine, nullptr},
  {"cmdExpand", On(kPanelExpression), "Expand",
   "Expand the expression (right click to expand a denominator)",
   {"expand", "expand the expression"}, {"expand-denominators", "expand, denominators too"},
   {"Expand", "There is nothing to expand", "Expanding", "Error in Expand."}, &ExpandEngine,
   nullptr},
  {"cmdAutoFactor", On(kPanelExpression), "Factor",
   "Factor the expression (right click to also factor the LCM out of denominators)",
   {"factor", "factor the expression"}, {"factor-lcm", "factor, the LCM out of denominators too"},
   {"Factor", "There is nothing to factor", "Factoring", "Error in Factor."}, nullptr, cmdAutoFactor},
  {"cmd1Frac", On(kPanelExpression), "Add fractions", "Add fractions in the expression",
   {"add-fractions", "add the fractions"}, kNoWord,
   {"Add fractions", "There are no fractions to combine", "Combining fractions",
    "Error in Combining Fractions."}, nullptr, cmd1Frac},
  {"cmdCombineLogs", On(kPanelExpression), "Combine logs", "Add logarithms in the expression",
   {"combine-logs", "combine the logarithms"}, kNoWord,
   {"Combine logs", "There are no logarithms that can be combined", "Combining logarithms",
    "Error in Combine Logs."}, &CombineLogsEngine, nullptr},
  {"cmdCSExpr", On(kPanelExpression), "Complete the square",
   "Convert the expression to completed square form",
   {"complete-square", "complete the square"}, kNoWord,
   {"Complete the square", "There is nothing to convert to completed square form",
    "Completing the square", "Error in Complete the Square."}, nullptr, &cmdCSExpr},
  {"cmdExpandTrig", On(kPanelExpression), "Break apart trig",
   "Apply trig identities to break down trig expressions",
   {"break-trig", "break apart trig functions"}, kNoWord,
   {"Break apart trig", "There are no trig functions to break apart",
    "Breaking apart trig functions", "Error in Simplify."}, &BreakApartTrigEngine, nullptr},
  {"cmdCombineTrig", On(kPanelExpression), "Combine trig",
   "Apply trig identities to combine trig expressions",
   {"combine-trig", "combine trig functions"}, kNoWord,
   {"Combine trig", "There are no trig functions to combine", "Combining trig functions",
    "Error in Simplify."}, &CombineTrigEngine, nullptr},
  {"cmdUFOO", On(kPanelExpression), "Useful form of one",
   "Multiply the numerator and denominator by the same quantity",
   {"ufoo", "multiply by a useful form of one: ufoo -1, pi, conjugate, match or TEXT"},
   kNoWord, kNoFrame, nullptr, &cmdUFOO},
  {"cmdBrackets", On(kPanelExpression), " Unneeded     brackets",
   "Removes one set of unnecessary brackets",
   {"brackets", "remove one set of unneeded brackets"}, kNoWord, kNoFrame, nullptr,
   &cmdBrackets},
  {"cmdEvaluate", On(kPanelExpression), "Evaluate",
   "Ask for values for variables and then evaluate the expression",
   {"evaluate", "evaluate for values of the letters"}, kNoWord, kNoFrame, nullptr,
   &EvaluateButton},
  {"cmdTree", On(kPanelExpression), "Tree", "Show a tree structure representing the expression",
   {"tree", "show the tree of the expression"}, kNoWord, kNoFrame, nullptr, &cmdTree},
  {"cmdShowEqnFrame", On(kPanelExpression), "Equation", "Return to the Equation buttons",
   {"equation", "back to the whole equation"}, kNoWord, kNoFrame, nullptr, &EquationButton},
  // The Equation panel.
  {"cmdAutoSolve", On(kPanelEquation), "Auto solve",
   "Automatically solve the equation step-by-step",
   {"solve", "solve step by step"}, kNoWord, kNoFrame, nullptr, &AutoSolveCommand},
  {"cmdDoToEqn", On(kPanelEquation), "Do to both sides",
   "Perform an (identical) operation on both sides of the equation",
   kNoWord, kNoWord, kNoFrame, nullptr, &cmdDoToEqn},
  {"cmdDoLHS", On(kPanelEquation), "Left side", "Manipulate the left side of the equation",
   {"left", "work on the left side"}, kNoWord, kNoFrame, nullptr, &LeftSideButton},
  {"cmdDoRHS", On(kPanelEquation), "Right side", "Manipulate the right side of the equation",
   {"right", "work on the right side"}, kNoWord, kNoFrame, nullptr, &RightSideButton},
  {"cmdSolvingHint", On(kPanelEquation), "Solving hint",
   "Tell what the next step is in solving the equation",
   {"hint", "the next step of solving"}, kNoWord, kNoFrame, nullptr, &cmdSolvingHint},
  // The Fraction panel.
  {"cmdSimplifyFraction", On(kPanelFraction), "Simplify fraction",
   "Reduce a fraction to lowest terms", {"reduce", "reduce the fraction to lowest terms"},
   kNoWord, kNoFrame, nullptr, &cmdSimplifyFraction},
  {"cmdAddFractions", On(kPanelFraction), "Add fractions", "Add or subtract two fractions",
   {"add-fractions", "add the fractions"}, kNoWord, kNoFrame, nullptr, &cmdAddFractions},
  // The panel of a set of equations.
  {"MultiAutoSolve", On(kPanelMultiEquations), "Auto solve all", "",
   {"solve-all", "solve every equation of the list, the result only"}, kNoWord, kNoFrame,
   nullptr, &MultiAutoSolve},
  {"cmdSolveByElim", On(kPanelMultiEquations), "By elimination",
   "Solve the system of equations by Gaussian elimination",
   {"elim", "solve the system by elimination"}, kNoWord, kNoFrame, nullptr, &cmdSolveByElim},
  {"cmdSolveBySubs", On(kPanelMultiEquations), "By substitution",
   "Solve the system of equations by substitution",
   {"subs", "solve the system by substitution: then choose ROW LETTER, ok, continue"}, kNoWord,
   kNoFrame, nullptr, &cmdSolveBySubs},
  {"cmdSubstitute", On(kPanelMultiEquations), "Substitute",
   "Substitute the other equations into the last equation",
   {"substitute", "substitute the other equations into the last"}, kNoWord, kNoFrame, nullptr,
   &cmdSubstitute},
  // Last on both panels it stands on.
  {"cmdGraph", On(kPanelEquation) | On(kPanelMultiEquations), "Graph", "Graph the equation",
   {"graph", "graph the equations"}, kNoWord, kNoFrame, nullptr, &cmdGraph},
  // The OK and Next buttons above the panels.
  {"cmdLoadEquation", 0, "OK", "Right click on OK or Next to first clear the workspace",
   kNoWord, kNoWord, kNoFrame, nullptr, nullptr},
};
// clang-format on

std::array<std::vector<std::string>, kPanelCount> BuildPanels() {
  std::array<std::vector<std::string>, kPanelCount> panels;
  for (const CommandRow& row : kRows) {
    for (int panel = 0; panel < kPanelCount; ++panel) {
      if ((row.panels & On(panel)) != 0)
        panels[static_cast<std::size_t>(panel)].push_back(row.button);
    }
  }
  return panels;
}

std::vector<CommandWord> BuildWords() {
  std::vector<CommandWord> words;
  for (const CommandRow& row : kRows) {
    if (row.left.word != nullptr)
      words.push_back({row.left.word, row.button, false, row.left.what});
    if (row.right.word != nullptr)
      words.push_back({row.right.word, row.button, true, row.right.what});
  }
  return words;
}

const std::array<std::vector<std::string>, kPanelCount> kPanels = BuildPanels();
const std::vector<CommandWord> kWords = BuildWords();

}  // namespace

const std::vector<CommandRow>& CommandRows() { return kRows; }

const CommandRow* FindCommandRow(const std::string& button) {
  for (const CommandRow& row : kRows) {
    if (button == row.button) return &row;
  }
  return nullptr;
}

const std::vector<std::string>& PanelButtons(int panel) {
  return kPanels[static_cast<std::size_t>(std::clamp(panel, 0, kPanelCount - 1))];
}

int PanelOfButton(const std::string& button) {
  const CommandRow* row = FindCommandRow(button);
  if (row == nullptr) return -1;
  for (int panel = 0; panel < kPanelCount; ++panel) {
    if ((row->panels & On(panel)) != 0) return panel;
  }
  return -1;
}

std::string ButtonTooltip(const std::string& button) {
  const CommandRow* row = FindCommandRow(button);
  return row == nullptr ? "" : row->tooltip;
}

std::string ButtonCaption(const std::string& button) {
  const CommandRow* row = FindCommandRow(button);
  return row == nullptr ? "" : row->caption;
}

bool ButtonIsBuilt(const std::string& button) {
  const CommandRow* row = FindCommandRow(button);
  return row != nullptr && (row->engine != nullptr || row->command != nullptr);
}

const ExpressionCommand* FindExpressionCommand(const std::string& button) {
  const CommandRow* row = FindCommandRow(button);
  return row == nullptr || row->frame.name == nullptr ? nullptr : &row->frame;
}

const std::vector<CommandWord>& CommandWords() { return kWords; }

const CommandWord* FindCommandWord(const std::string& word, int panel) {
  const CommandWord* found = nullptr;
  for (const CommandWord& entry : kWords) {
    if (word != entry.word) continue;
    const CommandRow* row = FindCommandRow(entry.button);
    if (panel >= 0 && panel < kPanelCount && row != nullptr && (row->panels & On(panel)) != 0) {
      return &entry;
    }
    if (found == nullptr) found = &entry;
  }
  return found;
}

}  // namespace tavimor
