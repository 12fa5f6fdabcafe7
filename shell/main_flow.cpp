// The main command flow, screen-free: start-up, loading an item, panels, status bar, and the
// frame every expression command runs in.
#include "shell/main_flow.h"

#include <array>
#include <chrono>
#include <cmath>
#include <map>

#include "core/input_split.h"
#include "core/node_pool.h"
#include "core/node_queries.h"
#include "core/number_format.h"
#include "core/number_text.h"
#include "core/regenerate.h"
#include "core/validate.h"
#include "present/message_box.h"
#include "present/typesetter.h"
#include "present/work_space.h"
#include "shell/algebra_file.h"
#include "shell/load_item.h"
#include "shell/version.h"
#include "simplify/bracket_rules.h"

namespace tavimor {

namespace {

constexpr int kInputHelp = 2;

const std::array<std::vector<std::string>, 5> kPanelButtons = {{
    {"cmdSigFigs", "cmdFactor"},
    {"cmdSimplify", "cmdExpand", "cmdAutoFactor", "cmd1Frac", "cmdCombineLogs", "cmdCSExpr",
     "cmdExpandTrig", "cmdCombineTrig", "cmdUFOO", "cmdBrackets", "cmdEvaluate", "cmdTree",
     "cmdShowEqnFrame"},
    {"cmdAutoSolve", "cmdDoToEqn", "cmdDoLHS", "cmdDoRHS", "cmdSolvingHint", "cmdGraph"},
    {"cmdSimplifyFraction", "cmdAddFractions"},
    {"MultiAutoSolve", "cmdSolveByElim", "cmdSolveBySubs", "cmdSubstitute", "cmdGraph"},
}};

const std::map<std::string, std::string> kTooltips = {
    {"cmdSimplify", "Simplify the expression"},
    {"cmdExpand", "Expand the expression (right click to expand a denominator)"},
    {"cmdAutoFactor",
     "Factor the expression (right click to also factor the LCM out of denominators)"},
    {"cmd1Frac", "Add fractions in the expression"},
    {"cmdCombineLogs", "Add logarithms in the expression"},
    {"cmdCSExpr", "Convert the expression to completed square form"},
    {"cmdExpandTrig", "Apply trig identities to break down trig expressions"},
    {"cmdCombineTrig", "Apply trig identities to combine trig expressions"},
    {"cmdUFOO", "Multiply the numerator and denominator by the same quantity"},
    {"cmdBrackets", "Removes one set of unnecessary brackets"},
    {"cmdEvaluate", "Ask for values for variables and then evaluate the expression"},
    {"cmdTree", "Show a tree structure representing the expression"},
    {"cmdShowEqnFrame", "Return to the Equation buttons"},
    {"cmdAutoSolve", "Automatically solve the equation step-by-step"},
    {"cmdSolvingHint", "Tell what the next step is in solving the equation"},
    {"cmdDoToEqn", "Perform an (identical) operation on both sides of the equation"},
    {"cmdDoLHS", "Manipulate the left side of the equation"},
    {"cmdDoRHS", "Manipulate the right side of the equation"},
    {"cmdGraph", "Graph the equation"},
    {"cmdSigFigs", "Show the number expressed to any number of significant figures"},
    {"cmdFactor", "Factor the integer into prime numbers"},
    {"cmdAddFractions", "Add or subtract two fractions"},
    {"cmdSimplifyFraction", "Reduce a fraction to lowest terms"},
    {"cmdSolveByElim", "Solve the system of equations by Gaussian elimination"},
    {"cmdSolveBySubs", "Solve the system of equations by substitution"},
    {"cmdSubstitute", "Substitute the other equations into the last equation"},
    {"cmdLoadEquation", "Right click on OK or Next to first clear the workspace"},
};

// Button      Name                 "Nothing" text                                     Verb Message
// on error
const std::array<ExpressionCommand, 8> kExpressionCommands = {{
    {"cmdSimplify", "Simplify", "There is nothing to simplify", "Simplifying",
     "Error in Simplify."},
    {"cmdExpandTrig", "Break apart trig", "There are no trig functions to break apart",
     "Breaking apart trig functions", "Error in Simplify."},
    {"cmdCombineTrig", "Combine trig", "There are no trig functions to combine",
     "Combining trig functions", "Error in Simplify."},
    {"cmdExpand", "Expand", "There is nothing to expand", "Expanding", "Error in Expand."},
    {"cmdAutoFactor", "Factor", "There is nothing to factor", "Factoring", "Error in Factor."},
    {"cmd1Frac", "Add fractions", "There are no fractions to combine", "Combining fractions",
     "Error in Combining Fractions."},
    {"cmdCombineLogs", "Combine logs", "There are no logarithms that can be combined",
     "Combining logarithms", "Error in Combine Logs."},
    {"cmdCSExpr", "Complete the square", "There is nothing to convert to completed square form",
     "Completing the square", "Error in Complete the Square."},
}};

// Numbered mathematical errors: their sentences and help topics.
struct NumberedError {
  std::uint32_t number;
  const char* text;
  int help;
};
constexpr std::array<NumberedError, 5> kNumberedErrors = {{
    {kErrorLogZero, "You are attempting to take the logarithm of 0 and this is undefined.", 255},
    {kErrorLnZero, "You are attempting to take the natural logarithm of 0 and this is undefined.",
     256},
    {kErrorTangent,
     "You are attempting to take the tangent of an angle for which the tangent is undefined.", 257},
    {kErrorZeroPower, "You are attempting to raise 0 to non-positive power and this is undefined.",
     258},
    {kErrorZeroOverZero, "You are attempting to evaluate 0/0 and this is indeterminate.", 259},
}};
constexpr const char* kDivideByZero = "You are attempting to divide by 0 and this is undefined.";
constexpr int kDivideByZeroHelp = 260;

// Texts of status panels 2 and 5, by the option's value.
constexpr std::array<const char*, 4> kComplex = {
    "real arithmetic only ", "cplx arithmetic (using i) ", "cplx arithmetic (using j) ",
    "complex arithmetic (not using i or j) "};
constexpr std::array<const char*, 4> kQuadratics = {"quads by factoring ", "quads by formula ",
                                                    "quads by compl. sq. ", "quads by graphing "};

double NowSeconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

int CountOf(const std::string& text, const std::string& part) {
  int count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

bool HoldsAny(const std::string& text, std::initializer_list<const char*> parts) {
  for (const char* part : parts) {
    if (text.find(part) != std::string::npos) return true;
  }
  return false;
}

void WritePictureLine(Session& s, RichTextSink& box, Picture picture) {
  InsertPicture(s, box, std::move(picture), 0, 0, false);
  WriteText(s, box, "  ", 0, 1, "FFF0");
}

}  // namespace

NodeIdx CurrentSide(const Session& s) {
  return s.Form.panel1_caption == "Right Side" ? kRightRoot : kLeftRoot;
}

// Loads the kept texts of both sides as the work item again, on a fresh pool.
void RestoreSides(Session& s, const std::string& left, const std::string& right) {
  InitNodePool(s);
  NewNode(s);
  NewNode(s);
  LoadSide(s, kLeftRoot, left);
  if (!right.empty()) LoadSide(s, kRightRoot, right);
}

std::string PanelCaption(const Session& s, int panel) {
  switch (panel) {
    case kPanelNumber: return "Number";
    case kPanelExpression: return s.Form.panel1_caption;
    case kPanelEquation: return "Equation";
    case kPanelFraction: return "Fraction";
    case kPanelMultiEquations: return "Multi Eqns";
    default: return "";
  }
}

const std::vector<std::string>& PanelButtons(int panel) {
  return kPanelButtons[static_cast<std::size_t>(std::clamp(panel, 0, 4))];
}

std::string ButtonTooltip(const std::string& button) {
  const auto it = kTooltips.find(button);
  return it == kTooltips.end() ? "" : it->second;
}

std::string FormCaption() { return std::string(kProgramVersion) + " The Tavimor  - [Untitled]"; }

void StartUp(Session& s, const std::string& decimal_point) {
  s.DecimalPoint = decimal_point == "," ? "," : ".";
  s.Form.caption = FormCaption();
  s.HintState = 0;
  s.DetailNow = 0;
  s.Form.buttons["cmdNextEquation"].visible = false;
  UpdateStatusPanel(s);
  OptionSnapshot(s, "Set");
}

bool cmdLoadEquation(Session& s, const std::string& typed, bool right_button) {
  if (right_button) s.Screen().ClearWorkSpace();
  std::string text = typed;
  if (text.empty()) return false;
  s.DrawFailureShown = false;
  // A load that fails gives the previous item back whole: its trees, its equations, its panel.
  const NodePool kept_pool = s.Pool;
  const std::vector<EquationRow> kept_equations = s.EquationList;
  const FormState kept_form = s.Form;
  const std::int16_t kept_help = s.HelpNumber;
  try {
    if (ValidateInput(s, text) != 0) return false;
    if (text.empty()) return false;  // a box of blanks is an empty box
    LoadEquation(s, text);
    AddToEquationList(s, text);
    s.Message.clear();
  } catch (const std::exception&) {
    s.Pool = kept_pool;
    s.EquationList = kept_equations;
    s.Form = kept_form;
    s.HelpNumber = kept_help;
    ShowCustomMessage(s, "Error in input string.", kInputHelp);
    return false;
  }
  return true;
}

bool cmdNextEquation(Session& s, bool right_button) {
  std::vector<std::string>& items = s.Form.equation_box_items;
  if (items.empty()) return false;
  int& selected = s.Form.equation_box_selected;
  if (selected < static_cast<int>(items.size()) - 1) ++selected;
  s.Form.equation_box_text = items[static_cast<std::size_t>(selected)];
  return cmdLoadEquation(s, s.Form.equation_box_text, right_button);
}

void LoadEquation(Session& s, const std::string& text) {
  OptionSnapshot(s, "Retrieve");
  s.StepCount = 0;
  // Everything that can fail comes before the first word is written, so that a refused item
  // leaves no "Consider" without its item in the work space.
  const ItemShape shape = LoadItemTrees(s, text);
  const ExprNode& left = s.Pool[kLeftRoot];
  const bool number = shape == ItemShape::Expression && left.Kind == kKindNumber;
  const int fraction_kind =
      shape == ItemShape::Expression && !number ? FractionKind(s, kLeftRoot) : 0;
  const bool whole_number = number && IsIntegerText(s, left.Text);
  // A number in E notation is written out in full: 2147483646, not 2.147483646E9.
  const std::string number_text = number ? FullNumberText(left.Text, s.Dp()) : left.Text;
  WorkSpaceSink box(s);
  WriteText(s, box, "Consider  ", 1, 0, "TFF12");
  const FontMetrics& metrics = s.Screen().Metrics();
  if (shape == ItemShape::SetOfEquations) {
    s.Form.item_kind = "set of equations";
    WriteText(s, box, "the set of equations:", 0, 1, "FFF0");
    for (const EquationRow& row : s.EquationList) {
      Picture picture = row[1].empty() ? DrawExpression(s, metrics, row[0])
                                       : DrawEquation(s, metrics, row[0], row[1]);
      InsertPicture(s, box, std::move(picture), 0, 1, true);
    }
    s.Form.Button("cmdSolveBySubs").enabled = s.SolveDetail > 0;
    SelectTab(s, kPanelMultiEquations);
    s.Form.focus = "cmdSubstitute";
    return;
  }
  if (shape == ItemShape::Equation) {
    s.Form.item_kind = "equation";
    WriteText(s, box, "the equation  ", 0, 0, "FFF0");
    SelectTab(s, kPanelEquation);
    s.Form.focus = "cmdAutoSolve";
    WritePictureLine(s, box, DrawEquation(s, metrics, left.Text, s.Pool[kRightRoot].Text));
  } else if (number) {
    s.Form.item_kind = "number";
    WriteText(s, box, "the number  ", 0, 0, "FFF0");
    SelectTab(s, kPanelNumber);
    s.Form.focus = "cmdSigFigs";
    s.Form.Button("cmdFactor").enabled = whole_number;
    WriteText(s, box, number_text + "  ", 0, 1, "FFF0");
  } else if (fraction_kind == 1 || fraction_kind == 2) {
    s.Form.item_kind = fraction_kind == 1 ? "fraction" : "sum of fractions";
    WriteText(s, box, "the " + s.Form.item_kind + "  ", 0, 0, "FFF0");
    SelectTab(s, kPanelFraction);
    s.Form.Button("cmdSimplifyFraction").enabled = fraction_kind == 1;
    s.Form.Button("cmdAddFractions").enabled = fraction_kind == 2;
    s.Form.focus = fraction_kind == 1 ? "cmdSimplifyFraction" : "cmdAddFractions";
    WritePictureLine(s, box, DrawExpression(s, metrics, left.Text));
  } else {
    s.Form.item_kind = "expression";
    WriteText(s, box, "the expression  ", 0, 0, "FFF0");
    SelectTab(s, kPanelExpression);
    UpdateButtonEnabling(s);
    s.Form.focus = "cmdSimplify";
    WritePictureLine(s, box, DrawExpression(s, metrics, left.Text));
  }
}

void AddToEquationList(Session& s, const std::string& text) {
  std::vector<std::string>& entries = s.ListEntries;
  if (const int found = FindProblemEntry(s, text); found >= 0) {
    const std::string comment = CommentOfProblem(s, found);
    if (!comment.empty()) {
      WorkSpaceSink box(s);
      WriteText(s, box, comment, 0, 1, "FFF0");
    }
    return;
  }
  if (!ListHasRoomForProblem(s)) {
    ShowCustomMessage(s, ListFullText(), 0);
    return;
  }
  s.Form.equation_box_items.push_back(text);
  s.Form.equation_box_selected = static_cast<int>(s.Form.equation_box_items.size()) - 1;
  s.Form.Button("cmdNextEquation").visible = true;
  const auto count = static_cast<std::int16_t>(entries.size());
  std::size_t at = entries.size();
  if (s.EqnInsertPos >= 1 && s.EqnInsertPos <= count)
    at = static_cast<std::size_t>(s.EqnInsertPos - 1);
  entries.insert(entries.begin() + static_cast<std::ptrdiff_t>(at), {"Eqn:" + text, "Comment:"});
  s.EqnInsertPos = static_cast<std::int16_t>(s.EqnInsertPos + 2);
  s.EqnAddedFlag = true;
}

void SelectTab(Session& s, int index) {
  s.Form.visible_panel = std::clamp(index, 0, 4);
  if (index != kPanelExpression) return;
  s.Form.panel1_caption = "Expression";
  s.Form.panel1_extra_height = 0;
  s.Form.Button("cmdBrackets").tag = "restart";
  s.Form.Button("cmdShowEqnFrame").visible = false;
  for (const char* name : {"cmdCombineLogs", "cmdExpandTrig", "cmdCombineTrig"}) {
    s.Form.Button(name).enabled = true;
  }
}

void UpdateButtonEnabling(Session& s) {
  const std::string& text = s.Pool[CurrentSide(s)].Text;
  const int logs = CountOf(text, "log(");
  const int lns = CountOf(text, "ln(");
  s.Form.Button("cmdCombineLogs").enabled = logs >= 2 || lns >= 2 || (logs >= 1 && lns >= 1);
  const bool trig = HoldsAny(text, {"sin(", "cos(", "tan(", "cot(", "sec(", "csc("}) ||
                    (HoldsAny(text, {"i", "j", "sqrt("}) && HoldsAny(text, {"exp(", "e^"}));
  s.Form.Button("cmdExpandTrig").enabled = trig;
  s.Form.Button("cmdCombineTrig").enabled = trig;
}

namespace {

void WorkOnSide(Session& s, const char* caption) {
  SelectTab(s, kPanelExpression);
  s.Form.panel1_caption = caption;
  UpdateButtonEnabling(s);
  ButtonState& back = s.Form.Button("cmdShowEqnFrame");
  back.visible = true;
  back.enabled = true;
  s.Form.panel1_extra_height = 600;
}

}  // namespace

void cmdBrackets(Session& s) {
  const std::string left = s.Pool[kLeftRoot].Text;
  const std::string right = s.Pool[kRightRoot].Text;
  ButtonState& button = s.Form.Button("cmdBrackets");
  if (button.tag == "restart") button.tag = "0";
  const std::string& caption = s.Form.panel1_caption;
  const std::string where = caption == "Left Side"    ? " on the left side of the equation"
                            : caption == "Right Side" ? " on the right side of the equation"
                                                      : "";
  try {
    NodeIdx root = CurrentSide(s);
    const std::string message = s.Message;
    const bool removed = RemoveOneBracket(s, root);
    s.Message = message;
    WorkSpaceSink box(s);
    if (!removed) {
      WriteText(s, box, "There are no unneccessary brackets" + where + ".", 0, 1, "FFF0");
      return;
    }
    RegenerateAll(s, root);
    const int count = std::atoi(button.tag.c_str()) + 1;
    button.tag = std::to_string(count);
    const char* how_many = count == 1 ? "one " : (count == 2 ? "another " : "more ");
    WriteText(
        s, box,
        std::string("Removing ") + how_many + "set of unneccessary brackets" + where + " yields:",
        0, 0, "FFF0");
    const FontMetrics& metrics = s.Screen().Metrics();
    Picture picture =
        where.empty() ? DrawExpression(s, metrics, s.Pool[kLeftRoot].Text)
                      : DrawEquation(s, metrics, s.Pool[kLeftRoot].Text, s.Pool[kRightRoot].Text);
    InsertPicture(s, box, std::move(picture), 1, 2, true);
  } catch (const std::exception& error) {
    CommandError(s, "Error in removing brackets.", error, left, right);
  }
}

void cmdDoLHS(Session& s) { WorkOnSide(s, "Left Side"); }
void cmdDoRHS(Session& s) { WorkOnSide(s, "Right Side"); }
void cmdShowEqnFrame(Session& s) { SelectTab(s, kPanelEquation); }

void UpdateStatusPanel(Session& s) {
  std::array<std::string, 9>& p = s.Form.status_panels;
  if (s.SolveDetail == 0) {
    p[0] = "show result only ";
  } else {
    p[0] = s.StreamingOutput ? "show steps in a stream " : "show steps one-by-one ";
  }
  p[1] = kComplex[static_cast<std::size_t>(std::clamp<int>(s.ComplexForm, 0, 3))];
  p[2] = s.ExactToFloat ? "floating pt. arithmetic " : "exact arithmetic ";
  p[3] = s.Degrees ? "degrees " : "radians ";
  p[4] = kQuadratics[static_cast<std::size_t>(std::clamp<int>(s.QuadraticMethod, 0, 3))];
  p[5] = "unknown = " + s.Unknown + " ";
  p[6] = s.SpecialE ? "e = 2" + s.DecimalPoint + "718.. " : "e = variable ";
  p[7] = s.SpecialP ? "p = pi " : "p = variable ";
  p[8] = s.Degrees && s.SpecialD ? "d = degrees " : "d = variable ";
}

void ClickStatusPanel(Session& s, int panel) {
  switch (panel) {
    case 1:  // result only -> one-by-one -> stream -> result only
      if (s.SolveDetail == 0) {
        s.SolveDetail = 1;
        s.StreamingOutput = false;
      } else if (!s.StreamingOutput) {
        s.StreamingOutput = true;
      } else {
        s.SolveDetail = 0;
      }
      s.SolveDetailDefault = s.SolveDetail;
      s.Form.Button("cmdSolveBySubs").enabled = s.SolveDetail != 0;
      break;
    case 2: s.ComplexForm = static_cast<std::int16_t>((s.ComplexForm + 1) % 4); break;
    case 3: s.ExactToFloat = !s.ExactToFloat; break;
    case 4: s.Degrees = !s.Degrees; break;
    case 5: s.QuadraticMethod = static_cast<std::int16_t>((s.QuadraticMethod + 1) % 4); break;
    case 6: {
      const std::optional<std::string> letter =
          s.Screen().AskText("Enter the letter of the unknown", s.Unknown);
      if (letter && letter->size() == 1 && std::isalpha(static_cast<unsigned char>((*letter)[0]))) {
        s.Unknown = *letter;
      }
      break;
    }
    case 7: s.SpecialE = !s.SpecialE; break;
    case 8: s.SpecialP = !s.SpecialP; break;
    case 9: s.SpecialD = !s.SpecialD; break;
    default: return;
  }
  OptionSnapshot(s, "Set");
  UpdateStatusPanel(s);
}

void OptionSnapshot(Session& s, const std::string& command) {
  if (command == "Set") {
    s.SavedExponentToReciprocal = s.ExponentToReciprocal;
    s.SavedExponentToRadical = s.ExponentToRadical;
    s.SavedExactToFloat = s.ExactToFloat;
    s.SavedComplexForm = s.ComplexForm;
  } else if (command == "Retrieve") {
    s.HintState = 0;
    s.DetailNow = 0;
    s.SolveDetail = s.SolveDetailDefault;
    s.ExtraUnknown.clear();
    s.TrigMode = 0;
    s.DistributeMinus = true;
    s.ComplexProducts = true;
    s.ExponentToReciprocal = s.SavedExponentToReciprocal;
    s.ExponentToRadical = s.SavedExponentToRadical;
    s.ExactToFloat = s.SavedExactToFloat;
    s.ComplexForm = s.SavedComplexForm;
    s.StoredHint.clear();
  }
}

void ResetDiagnostics(Session& s) {
  s.CommandStartSeconds = NowSeconds();
  s.StepCount = 0;
  s.Pool.MaxNodesInUse = 0;
}

void ShowDiagnostics(Session& s) {
  const double seconds = std::max(0.0, NowSeconds() - s.CommandStartSeconds);
  // "0.##": up to two decimals, none written when they are zero.
  std::string time = GeneralNumberFormat(std::round(seconds * 100.0) / 100.0, s.Dp());
  std::string label = "n=" + std::to_string(s.Pool.MaxNodesInUse) + ", t=" + time + "s\n" +
                      std::to_string(s.Pool.NodesInUse);
  if (s.StepCount != 0) label += "\nsteps=" + std::to_string(s.StepCount);
  s.Form.diagnostics = label;
}

const ExpressionCommand* FindExpressionCommand(const std::string& button) {
  for (const ExpressionCommand& command : kExpressionCommands) {
    if (button == command.button) return &command;
  }
  return nullptr;
}

std::array<std::string, 6> ResultPhrases(const std::string& verb, const std::string& nothing) {
  return {verb + " on the left side of the equation yields",
          nothing + " on the left side of the equation.",
          verb + " on the right side of the equation yields",
          nothing + " on the right side of the equation.",
          verb + " yields",
          nothing + "."};
}

void ShowResult(Session& s, const std::array<std::string, 6>& phrases, bool changed) {
  WorkSpaceSink box(s);
  const FontMetrics& metrics = s.Screen().Metrics();
  const std::string& caption = s.Form.panel1_caption;
  const bool side = caption == "Left Side" || caption == "Right Side";
  const std::size_t first = caption == "Left Side" ? 0 : (caption == "Right Side" ? 2 : 4);
  if (changed) {
    WriteMessage(s, box, phrases[first], s.StreamingOutput);
    Picture picture =
        side ? DrawEquation(s, metrics, s.Pool[kLeftRoot].Text, s.Pool[kRightRoot].Text)
             : DrawExpression(s, metrics, s.Pool[kLeftRoot].Text);
    InsertPicture(s, box, std::move(picture), 1, 2, true);
  } else {
    WriteText(s, box, phrases[first + 1], 0, 1, "FFF0");
  }
  if (side) s.DoToBothSidesQ.clear();
}

std::string CommandError(Session& s, const std::string& command_text, const std::exception& error,
                         const std::string& left, const std::string& right) {
  std::string message = command_text;
  int help = 0;
  bool cancelled = false;
  if (const auto* app = dynamic_cast<const AppError*>(&error)) {
    cancelled = app->Number() == kErrorCancel;
    for (const NumberedError& numbered : kNumberedErrors) {
      if (numbered.number == app->Number()) {
        message = numbered.text;
        help = numbered.help;
      }
    }
  } else if (const auto* run_time = dynamic_cast<const RunTimeError*>(&error)) {
    if (run_time->Number() == RunTimeErrorNumber::DivisionByZero) {
      message = kDivideByZero;
      help = kDivideByZeroHelp;
    }
  }
  try {
    RestoreSides(s, left, right);
  } catch (const std::exception&) {
    // The kept texts loaded before; a pool anew always holds them.
  }
  s.AutoSolveTag.clear();
  if (cancelled) return "";  // the student asked to stop: no error to report
  if (help != 0) s.HelpNumber = static_cast<std::int16_t>(help);
  ShowCustomMessage(s, message, help);
  return message;
}

std::string RunExpressionCommand(Session& s, const ExpressionCommand& command,
                                 const SideEngine& engine) {
  const NodeIdx side = CurrentSide(s);
  const std::string left = s.Pool[kLeftRoot].Text;
  const std::string right = s.Pool[kRightRoot].Text;
  try {
    ResetDiagnostics(s);
    s.DetailNow = s.SolveDetailDefault;
    bool changed = engine(s, side);
    ShowDiagnostics(s);
    const std::array<std::string, 6> phrases = ResultPhrases(command.verb, command.nothing);
    if (s.DetailNow >= 1 && s.StreamingOutput) changed = false;
    if (s.DetailNow == 0 || !changed) ShowResult(s, phrases, changed);
    s.DetailNow = 0;
    return "";
  } catch (const std::exception& error) {
    s.DetailNow = 0;
    ShowDiagnostics(s);
    return CommandError(s, command.error, error, left, right);
  }
}

}  // namespace tavimor
