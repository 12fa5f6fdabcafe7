// The main command flow, screen-free: start-up, loading and classifying an item, the panels, and
// working on one side of an equation.
#include "shell/main_flow.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/input_split.h"
#include "core/message_box.h"
#include "core/node_pool.h"
#include "core/node_queries.h"
#include "core/number_format.h"
#include "core/number_text.h"
#include "core/regenerate.h"
#include "core/validate.h"
#include "present/typesetter.h"
#include "present/work_space.h"
#include "shell/algebra_file.h"
#include "shell/command_frame.h"
#include "shell/command_table.h"
#include "shell/load_item.h"
#include "shell/status_bar.h"
#include "shell/version.h"
#include "simplify/bracket_rules.h"

namespace tavimor {

namespace {

constexpr int kInputHelp = 2;

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
  const std::vector<EquationRow> kept_equations = s.EquationList;
  const FormState kept_form = s.Form;
  const std::int16_t kept_help = s.HelpNumber;
  bool pool_kept = false;
  try {
    if (ValidateInput(s, text) != 0) return false;
    if (text.empty()) return false;  // a box of blanks is an empty box
    // The load starts the pool anew: it works on the spare one, and the item's pool is kept.
    s.Pool.Swap(s.KeptPool);
    pool_kept = true;
    LoadEquation(s, text);
    AddToEquationList(s, text);
    s.Message.clear();
    s.SystemWindow.reset();  // a system window belongs to the item it was opened on
  } catch (const std::exception&) {
    if (pool_kept) s.Pool.Swap(s.KeptPool);
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

void cmdDoLHS(Session& s) { WorkOnSide(s, "Left Side"); }
void cmdDoRHS(Session& s) { WorkOnSide(s, "Right Side"); }
void cmdShowEqnFrame(Session& s) { SelectTab(s, kPanelEquation); }

}  // namespace tavimor
