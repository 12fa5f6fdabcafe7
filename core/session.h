// The one Session: the node pool, the options and all public state of a running tutor.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/expr_node.h"
#include "core/form_state.h"
#include "core/frontend.h"
#include "core/help_tables.h"

namespace tavimor {

inline constexpr int kFunctionCount = 13;
inline constexpr const char* kFactoryGraphParms =
    "500;500;-10;10;10;10;-10;10;10;10;2;0;2;0;0;1;255;16711680;65280;8421504;8388736;16711935;"
    "8421376;8388608;32768;0";

struct SysEqState;
struct SetSides;

// One node of a tree parsed from a text, kept in pre-order (core/parse_cache.h).
struct ParsedNode {
  char kind = ' ';
  char role = ' ';
  std::int16_t children = 0;
  std::string text;
};

// A tree parsed from a text, with what its reading depended on besides the text.
struct ParsedText {
  char decimal_point = '.';
  bool functions_known = false;
  std::vector<ParsedNode> nodes;  // in pre-order, the root first
};

// One row of the equations of the work item: left side, right side, two columns of graph data.
using EquationRow = std::array<std::string, 4>;

// The student's options, with their first-run values: a value of this type is a set of options,
// so the first-run options are `OptionSet{}` and a snapshot is one copy.
struct OptionSet {
  std::string Unknown = "x";
  bool SpecialE = true;
  bool SpecialP = false;
  bool SpecialD = false;
  bool Degrees = false;
  std::int16_t ComplexForm = 0;
  std::int16_t SolveDetail = 1;
  std::int16_t SolveDetailDefault = 1;
  bool StreamingOutput = false;
  float FontSize = 12.0f;
  std::int16_t SigFigs = 3;
  bool ExponentToRadical = true;
  bool ExponentToReciprocal = true;
  bool ExponentToExponentialFunction = false;
  bool ExactToFloat = false;
  std::int16_t EvaluateInverseTrig = 1;
  std::int16_t QuadraticMethod = 2;
  std::string GraphParms = kFactoryGraphParms;
  bool ShowWelcomeScreen = true;
  float FormWidth = 12120.0f;  // twips
  float FormHeight = 9480.0f;  // twips
  std::int16_t FormWindowState = 0;
};

// The state of the running command and of the engines it calls.
struct CommandState {
  std::int16_t DetailNow = 0;
  std::string Message;
  std::int16_t HelpNumber = 0;
  std::int16_t HintState = 0;
  std::int16_t TrigMode = 0;
  std::string ExtraUnknown;
  std::int16_t StepCount = 0;
  std::string DecimalPoint = ".";
  float WaitX = 0.0f;
  float WaitY = 0.0f;
  bool WritingWorkSpace = false;
  // The variable table of evaluation: letters and their values, in parallel.
  std::vector<char> VarNames;
  std::vector<NodeValue> VarValues;
  std::int16_t VarCount = 0;
  std::vector<char> SubstitutionVars;
  std::int16_t SubstitutionCount = 0;
  std::vector<EquationRow> EquationList;
  std::vector<NodeIdx> ImagNodes;  // at most 100, see CollectImagUnits

  // The Tag of the solve button: "Cancel;" once the student has asked to stop.
  std::string AutoSolveTag;
  // The field Q of the do-to-both-sides tool: the last operation applied to both sides.
  std::string DoToBothSidesQ;
  // The answers the last solve stated for the unknown, after the check, joined by "; " (or one
  // of the reserved words); empty before a solve.
  std::string SolveAnswers;
  // The hint text kept for the hint box.
  std::string StoredHint;

  // Shadow copies of the options a command may force.
  bool SavedExponentToReciprocal = true;
  bool SavedExponentToRadical = true;
  bool SavedExactToFloat = false;
  std::int16_t SavedComplexForm = 0;
  // Switches of the engines, true at the start of a command.
  bool DistributeMinus = true;
  bool ComplexProducts = true;
  // Pythagoras' identities take part in simplifying; cleared around silent simplifications that
  // must keep a product as it stands.
  bool PythagorasRules = true;
  // Set by the solver: a power whose exponent holds this text is not spread over a product.
  std::string ProtectedExponent;
  // 1 normally, 2 while a denominator is expanded too.
  std::int16_t ExpandMode = 1;

  // Rewrites made by the simplify loop in the running command, against endless rewriting.
  int RewriteCount = 0;

  // Whether the running command has told that a drawing failed: it tells once, however many
  // drawings fail after. Each command starts with false.
  bool DrawFailureShown = false;
  // Whether the running command has told, in place of its result, that it found nothing of its
  // own to do but that the side simplifies (the note in the hint box). Each command starts with
  // false.
  bool SimplifiedInsteadTold = false;

  // Diagnostics of the running command: its start in seconds of a steady clock.
  double CommandStartSeconds = 0.0;

  // The method of the system window: 1 elimination, 2 substitution.
  std::int16_t SysMethod = 0;
  // The system window and its grid (linsys/sys_eq_form.h): lives until the next one starts or
  // the next item is loaded.
  std::shared_ptr<SysEqState> SystemWindow;
  // Answers kept for the item (simplify/kept_answers.h): silent simplifications and factorings,
  // and the nodes the loop's rules left as they stand, by question, options and text, asked
  // again at every pass and round. Dropped at every load.
  std::unordered_map<std::string, std::string> KeptAnswers;
  // Texts parsed whole into short-lived trees (core/parse_cache.h), by their text: a step asks
  // several questions of the same side. Dropped at every load.
  std::unordered_map<std::string, ParsedText> ParsedTexts;
  // The sides the typesetter set as text for a front end that paints no drawings
  // (present/text_picture.h), by their text, for the item loaded: a step shows the same
  // mathematics more than once (the sum it names, then its terms; the result, then the next step).
  std::shared_ptr<SetSides> SetSidesOfItem;
};

// The open algebra list: a typed problem is remembered here as "Eqn:" and "Comment:" entries.
struct OpenList {
  std::vector<std::string> ListEntries;  // entry i at index i - 1
  std::int16_t EqnInsertPos = 1;
  bool EqnAddedFlag = false;
  bool ListEditedFlag = false;
  bool TopicsStaleFlag = true;
  std::string FileName;  // the open algebra file; empty for an unnamed list
  std::int16_t CurrentTopic = 0;
  std::int16_t CurrentSubTopic = 0;
};

// Everything that is state of the system, in named parts whose fields keep their names
// (`s.ExactToFloat`, `s.Message`, `s.ListEntries`). Engines take it as their first parameter;
// two sessions share nothing.
class Session : public OptionSet, public CommandState, public OpenList {
 public:
  explicit Session(Frontend& frontend) : frontend_(&frontend) {}

  Frontend& Screen() { return *frontend_; }
  void SetFrontend(Frontend& frontend) { frontend_ = &frontend; }

  // The parts as values of their own.
  OptionSet& OptionValues() { return *this; }
  const OptionSet& OptionValues() const { return *this; }
  CommandState& Running() { return *this; }
  OpenList& List() { return *this; }

  // Sets every option to its first-run value.
  void SetFirstRunOptions() { OptionValues() = OptionSet{}; }

  NodePool Pool;
  // The previous item's pool while a load is under way, given back whole if the load fails;
  // after a load it is only storage for the next one.
  NodePool KeptPool;

  // The main form, screen-free.
  FormState Form;

  // The function name table, filled by InitFunctionTable.
  std::array<std::string, kFunctionCount + 1> FunctionNames{};  // 1-based
  std::array<std::int16_t, kFunctionCount + 1> FunctionNameLengths{};
  // The bytes a function name can start with, so a search at any other byte ends at once.
  std::array<bool, 256> FunctionNameStarts{};

  // The help topic map, read at start-up beside the executable (shell/help_topics.h).
  HelpTables Help;

  char Dp() const { return DecimalPoint.empty() ? '.' : DecimalPoint[0]; }

 private:
  Frontend* frontend_;
};

// Fills the function name table: sin cos tan arcsin arccos arctan ln exp log sqrt cot sec csc.
void InitFunctionTable(Session& s);

}  // namespace tavimor
