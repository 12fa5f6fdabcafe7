// The Evaluate button: values for the letters are asked for, put in, and the side simplified
// to a number, which one sentence tells.
#include "shell/evaluate_command.h"

#include <optional>
#include <vector>

#include "core/complex_number.h"
#include "core/evaluate.h"
#include "core/message_box.h"
#include "core/node_pool.h"
#include "core/node_queries.h"
#include "core/number_text.h"
#include "core/regenerate.h"
#include "core/scoped_override.h"
#include "core/temp_tree.h"
#include "core/tree_walk.h"
#include "core/validate.h"
#include "present/work_space.h"
#include "shell/command_frame.h"
#include "simplify/bracket_rules.h"
#include "simplify/coefficients.h"
#include "simplify/complex_rules.h"
#include "simplify/factor_texts.h"
#include "simplify/simplify_driver.h"

namespace tavimor {

namespace {

constexpr const char* kComplexOnly =
    "This expression cannot be evaluated further over the real numbers but it can be evaluated "
    "over the complex numbers.";

bool HasTrigonometry(const std::string& text) {
  for (const char* name : {"sin(", "cos(", "tan(", "cot(", "sec(", "csc("}) {
    if (text.find(name) != std::string::npos) return true;
  }
  return false;
}

// The words of the side, by the caption of panel 1.
std::string SideWords(const Session& s) {
  if (s.Form.panel1_caption == "Left Side") return "left side of the equation evaluates to ";
  if (s.Form.panel1_caption == "Right Side") return "right side of the equation evaluates to ";
  return "expression evaluates to ";
}

// The value of a side that the simplify loop left with a function it has no rule for yet;
// empty when a root of a negative number makes it complex under real arithmetic.
std::string Evaluated(Session& s, NodeIdx side) {
  try {
    EvaluateAllRounded(s, side);
  } catch (const RootOfNegativeError&) {
    if (s.ComplexForm != 0) throw;
    return "";
  }
  return FormatValue(s, ValueAsNumber(s, s.Pool[side].Value));
}

// Whether a letter of the text is no constant: a value must be a number or hold only numbers.
bool HoldsLetter(Session& s, const std::string& text) {
  const TempTree t(s, text, TempTree::Depth::Whole);
  bool letter = false;
  ForEachNodeParentFirst(s, t.Root(), [&s, &t, &letter](NodeIdx n) {
    const ExprNode& node = t[n];
    if (node.Kind == kKindVariable && !node.Text.empty() && !IsConstantVar(s, node.Text[0])) {
      letter = true;
    }
  });
  return letter;
}

// The message that refuses a value for the letter, or empty; `value` loses its blanks.
std::string ValueRefusal(Session& s, const std::string& letter, std::string& value) {
  std::string refusal = ValidationMessage(s, value);
  if (!refusal.empty()) return refusal;
  if (value.empty()) return "Please give a value for " + letter + ".";
  if (value.find('=') != std::string::npos) {
    return "The value of " + letter + " can't hold an = sign.";
  }
  // One quantity of numbers: no other letter, and not the pieces of a set.
  if (value.find(';') != std::string::npos || HoldsLetter(s, value)) {
    return "The value of " + letter + " must be a number or an expression of numbers.";
  }
  return "";
}

// The values of the letters, each checked as a typed item is; a refused value is told and asked
// for again, as long as the front end can ask. Nothing when the student cancels.
std::optional<std::vector<std::string>> AskCheckedValues(Session& s,
                                                         const std::vector<std::string>& letters,
                                                         std::vector<std::string> suggestions) {
  for (;;) {
    std::optional<std::vector<std::string>> answer = s.Screen().AskValues(letters, suggestions);
    if (!answer || answer->size() != letters.size()) return std::nullopt;
    std::vector<std::string> values = std::move(*answer);
    bool refused = false;
    for (std::size_t k = 0; k < values.size() && !refused; ++k) {
      std::string checked = values[k];
      const std::string refusal = ValueRefusal(s, letters[k], checked);
      if (refusal.empty()) {
        values[k] = checked;
        continue;
      }
      ShowCustomMessage(s, refusal, 2);
      if (!s.Screen().AskValueAgain(letters[k])) return std::nullopt;
      refused = true;
    }
    if (!refused) return values;
    suggestions = values;  // what was typed, to be put right
  }
}

}  // namespace

bool EvaluateCommand(Session& s, NodeIdx side, std::string& result) {
  result.clear();
  // 1. and 2. The letters, constants left out.
  s.SubstitutionCount = 0;
  s.SubstitutionVars.clear();
  CollectVars(s, side);
  std::vector<std::string> letters;
  std::vector<std::string> suggestions;
  for (const char letter : s.SubstitutionVars) {
    if (IsConstantVar(s, letter)) continue;
    letters.emplace_back(1, letter);
    const NodeValue known = VarValue(s, letter);
    const auto* text = std::get_if<std::string>(&known);
    suggestions.push_back(text != nullptr ? *text : "");
  }
  // 3. Their values, each checked; Cancel ends the command.
  std::vector<std::string> values;
  if (!letters.empty()) {
    std::optional<std::vector<std::string>> answer = AskCheckedValues(s, letters, suggestions);
    if (!answer) return false;
    values = std::move(*answer);
    for (std::size_t k = 0; k < values.size(); ++k) SetVarValue(s, letters[k][0], values[k]);
  }
  // 4. Each letter replaced by its value, then the simplify loop, silently.
  std::vector<std::pair<NodeIdx, std::string>> replacements;
  for (std::size_t k = 0; k < letters.size(); ++k) {
    for (const NodeIdx n : FindOccurrences(s, letters[k], side)) {
      if (s.Pool[n].Kind == kKindVariable) replacements.emplace_back(n, values[k]);
    }
  }
  NodeIdx root = side;
  for (const auto& [n, value] : replacements) {
    ReplaceNodeContents(s, n == side ? root : SlotOf(s, n), value, true);
  }
  RegenerateAll(s, root);
  const std::string before = s.Pool[root].Text;
  {
    ScopedOverride detail(s.DetailNow, std::int16_t{0});
    int level = 0;
    // First with the student's arithmetic, so that special values read exactly (sin(30) in
    // degrees is 1/2, sin(p) is 0), then in floating point.
    SimplifyTree(s, root, level);
    ScopedOverride exact_to_float(s.ExactToFloat, true);
    SimplifyTree(s, root, level);
  }
  std::string value = s.Pool[root].Text;
  bool complex = ContainsImagUnit(s, value);
  if (!complex && !IsNumberToken(s, value)) {
    value = Evaluated(s, root);
    complex = value.empty();
  }
  // A floating result, in the significant figures the student chose.
  if (!complex) value = FormatResult(s, value);
  // A complex value the rules leave as a quotient, (1+i)/(1-i), is written as a+b*i.
  if (complex && s.ComplexForm != 0) {
    double re = 0.0;
    double im = 0.0;
    if (ClassifyComplex(s, root, re, im) == kOtherComplex &&
        EvaluateComplex(s, root, re, im) != 0) {
      value = ComplexValueText(s, re, im);
    }
  }
  // 5. and 6. The sentence.
  if (complex && s.ComplexForm == 0) {
    result = kComplexOnly;
    return true;
  }
  std::string sentence = "The " + SideWords(s);
  if (!letters.empty()) {
    std::string with = "With ";
    for (std::size_t k = 0; k < letters.size(); ++k) {
      with += (k == 0 ? "" : "; ") + letters[k] + " = " + values[k];
    }
    sentence = with + " the " + SideWords(s);
  }
  sentence += "@" + value + "@ .";
  if (HasTrigonometry(before)) {
    sentence += s.Degrees ? "  (angle in degrees)." : "  (angle in radians).";
  }
  result = sentence;
  return true;
}

std::string cmdEvaluate(Session& s) {
  const std::string left = s.Pool[kLeftRoot].Text;
  const std::string right = s.Pool[kRightRoot].Text;
  std::string sentence;
  bool done = false;
  return RunCommandFrame(
      s, "Error in Evaluate.", [&](NodeIdx side) { done = EvaluateCommand(s, side, sentence); },
      [&] {
        // The student's item stays as it was: the value lives in the sentence.
        RestoreSides(s, left, right);
        if (done) {
          WorkSpaceSink box(s);
          WriteMessage(s, box, sentence, s.StreamingOutput);
        }
      });
}

}  // namespace tavimor
