// The operations a student applies to both sides of an equation by hand, with their narration.
#include "solve/do_to_both_sides.h"

#include <array>

#include "core/brackets.h"
#include "core/input_split.h"
#include "core/message_box.h"
#include "core/node_pool.h"
#include "core/temp_tree.h"
#include "core/text_predicates.h"
#include "core/validate.h"
#include "present/work_space.h"
#include "simplify/simplify_driver.h"

namespace tavimor {

namespace {

constexpr int kValidationHelp = 2;  // the help topic of a refused input
constexpr const char* kQIsAnEquation =
    "The textbox for Q must contain a valid expression, not an equation";
constexpr const char* kQIsEmpty = "The textbox for Q must contain a valid expression";

struct OperationText {
  const char* caption;
  const char* step;  // the step's words; Q stands where the value goes
  int help;
};

// clang-format off
constexpr std::array<OperationText, kBothSidesOperationCount> kOperations = {{
  {"Swap sides", "Swapping sides yields:", 105},
  {"sin", "Taking the sine of both sides yields:", 124},
  {"cos", "Taking the cosine of both sides yields:", 125},
  {"tan", "Taking the tangent of both sides yields:", 126},
  {"arcsin", "Taking the arcsin of both sides yields:", 121},
  {"arccos", "Taking the arccosine of both sides yields:", 122},
  {"arctan", "Taking the arctangent of both sides yields:", 123},
  {"ln", "Taking the natural logarithm of both sides yields:", 131},
  {"log", "Taking the base 10 logarithm of both sides yields:", 132},
  {"e to the power", "Raising e to the power of both sides yields:", 127},
  {"10 to the power", "Raising 10 to the power of both sides yields:", 129},
  {"square", "Squaring both sides yields:", 130},
  {"square root", "", 136},
  {"reciprocal", "Taking the reciprocal of both sides yields:", 141},
  {"Q'th power", "Raising both sides to the power @Q@ yields:", 140},
  {"Q'th root", "Taking the n'th root where @n=Q@ yields:", 140},
  {"add Q", "Adding @Q@ to both sides yields:", 143},
  {"subtract Q", "Subtracting @Q@ from both sides yields:", 142},
  {"multiply by Q", "Multiplying both sides by @Q@ yields:", 145},
  {"divide by Q", "Dividing both sides by @Q@ yields:", 144},
  {"subtract the RHS", "Subtracting the right side from both sides yields:", 148},
}};
// clang-format on

const OperationText& TextOf(BothSidesOperation operation) {
  return kOperations[static_cast<std::size_t>(operation)];
}

// The step's words with Q in its place.
std::string StepWords(BothSidesOperation operation, const std::string& q) {
  std::string words = TextOf(operation).step;
  const std::size_t at = words.find("@Q@");
  const std::size_t root = words.find("@n=Q@");
  if (at != std::string::npos) words.replace(at + 1, 1, q);
  if (root != std::string::npos) words.replace(root + 3, 1, q);
  return words;
}

// One new side: the raw text, and the simplified one when the operation made it already.
struct NewSide {
  std::string raw;
  std::string simplified;
  bool done = false;
};

// ln or log of a product of exponentials brought down: each exponent times the logarithm of its
// base, the coefficient's logarithm first, the factors of a denominator subtracted.
std::string BuildLogSide(Session& s, const std::string& coefficient, const std::string& exponential,
                         const std::string& log_name) {
  struct Row {
    char sign;
    std::string exponent;
    std::string base;
  };
  std::vector<Row> rows;
  if (coefficient != "1") rows.push_back({'+', "", coefficient});
  TempTree tree(s, exponential, TempTree::Depth::OneLevel);
  const auto add_factor = [&](NodeIdx n, char sign) {
    const ExprNode& node = s.Pool[n];
    const std::string text = node.Text;
    TempTree factor(s, text, TempTree::Depth::OneLevel);
    const ExprNode& f = s.Pool[factor.Root()];
    if (f.Kind == kKindPower) {
      const NodeIdx exponent = f.FirstChild;
      const NodeIdx base = s.Pool[exponent].Next;
      rows.push_back({sign, StripBrackets(s.Pool[exponent].Text), s.Pool[base].Text});
    } else if (text.rfind("exp(", 0) == 0) {
      // exp(u): the argument is the exponent.
      rows.push_back({sign, StripBrackets(text.substr(3)), "exp"});
    }  // the "1" before a first "/" is no factor of its own
  };
  if (s.Pool[tree.Root()].FirstChild != kNoNode &&
      IsProductRole(s.Pool[s.Pool[tree.Root()].FirstChild].Role)) {
    for (NodeIdx n = s.Pool[tree.Root()].FirstChild; n != kNoNode; n = s.Pool[n].Next) {
      add_factor(n, s.Pool[n].Role == kRoleDenominator ? '-' : '+');
    }
  } else {
    add_factor(tree.Root(), '+');
  }
  std::string side;
  for (const Row& row : rows) {
    std::string term;
    if (!row.exponent.empty()) {
      term = NeedsBrackets(s, row.exponent) ? "(" + row.exponent + ")*" : row.exponent + "*";
    }
    if (log_name == "ln") {
      if (row.base == "exp") {
        if (!term.empty()) term.pop_back();
      } else {
        term += "ln(" + row.base + ")";
      }
    } else {
      term += row.base == "exp" ? "log(exp(1))" : "log(" + row.base + ")";
    }
    if (!side.empty() || row.sign == '-') side += row.sign;
    side += term;
  }
  return side.empty() ? "0" : side;
}

NewSide ApplyLogarithm(Session& s, const std::string& side, const std::string& log_name) {
  NewSide out;
  out.raw = log_name + "(" + StripBrackets(side) + ")";
  if (IsProductText(s, side)) {
    std::string coefficient;
    std::string exponential;
    SplitExpoTerm2(s, side, coefficient, exponential);
    if (coefficient != "1" && exponential != "1") {
      out.simplified = BuildLogSide(s, coefficient, exponential, log_name);
      out.done = true;
    }
  }
  return out;
}

std::string Bracketed(Session& s, const std::string& text) {
  const std::string stripped = StripBrackets(text);
  return NeedsBrackets(s, stripped) ? "(" + stripped + ")" : stripped;
}

NewSide ApplyOperation(Session& s, BothSidesOperation operation, const std::string& side,
                       const std::string& right, const std::string& q) {
  const std::string stripped = StripBrackets(side);
  NewSide out;
  switch (operation) {
    case BothSidesOperation::SwapSides:
      out.raw = side;
      out.simplified = side;
      out.done = true;
      break;
    case BothSidesOperation::Sine: out.raw = "sin(" + stripped + ")"; break;
    case BothSidesOperation::Cosine: out.raw = "cos(" + stripped + ")"; break;
    case BothSidesOperation::Tangent: out.raw = "tan(" + stripped + ")"; break;
    case BothSidesOperation::Arcsine: out.raw = "arcsin(" + stripped + ")"; break;
    case BothSidesOperation::Arccosine: out.raw = "arccos(" + stripped + ")"; break;
    case BothSidesOperation::Arctangent: out.raw = "arctan(" + stripped + ")"; break;
    case BothSidesOperation::NaturalLog: return ApplyLogarithm(s, side, "ln");
    case BothSidesOperation::Log10: return ApplyLogarithm(s, side, "log");
    case BothSidesOperation::EToThePower: out.raw = "e^(" + stripped + ")"; break;
    case BothSidesOperation::TenToThePower: out.raw = "10^(" + stripped + ")"; break;
    case BothSidesOperation::Square: out.raw = "(" + stripped + ")^2"; break;
    case BothSidesOperation::SquareRoot: out.raw = "sqrt(" + stripped + ")"; break;
    case BothSidesOperation::Reciprocal: out.raw = "1/(" + side + ")"; break;
    case BothSidesOperation::QthPower: out.raw = "(" + stripped + ")^" + Bracketed(s, q); break;
    case BothSidesOperation::QthRoot:
      out.raw = "(" + stripped + ")^" + Bracketed(s, SimplifyText(s, "1/(" + q + ")"));
      break;
    case BothSidesOperation::AddQ: out.raw = "(" + side + ")+(" + q + ")"; break;
    case BothSidesOperation::SubtractQ: out.raw = "(" + side + ")-(" + q + ")"; break;
    case BothSidesOperation::MultiplyByQ: out.raw = "(" + side + ")*(" + q + ")"; break;
    case BothSidesOperation::DivideByQ: out.raw = "(" + side + ")/(" + q + ")"; break;
    case BothSidesOperation::SubtractRightSide: out.raw = "(" + side + ")-(" + right + ")"; break;
  }
  return out;
}

}  // namespace

std::string BothSidesCaption(BothSidesOperation operation) { return TextOf(operation).caption; }

bool UsesQ(BothSidesOperation operation) {
  const int index = static_cast<int>(operation);
  return index >= static_cast<int>(BothSidesOperation::QthPower) &&
         index <= static_cast<int>(BothSidesOperation::DivideByQ);
}

std::string BadExprMessage(Session& s, BothSidesOperation operation, std::string& q,
                           int& help_number) {
  help_number = 0;
  if (!UsesQ(operation)) return "";
  if (q.find('=') != std::string::npos) return kQIsAnEquation;
  std::string trimmed = q;
  RemoveSpaces(trimmed);
  if (trimmed.empty()) return kQIsEmpty;
  // The input check says why it refuses, with its own help topic.
  std::string message = ValidationMessage(s, q);
  if (!message.empty()) {
    help_number = kValidationHelp;
    return message;
  }
  // A list of items is no value either.
  if (q.find(';') != std::string::npos) return kQIsEmpty;
  return "";
}

bool BadExpr(Session& s, BothSidesOperation operation, std::string& q) {
  int help_number = 0;
  const std::string message = BadExprMessage(s, operation, q, help_number);
  if (message.empty()) return false;
  ShowCustomMessage(s, message, help_number);
  return true;
}

void SplitExpoTerm2(Session& s, const std::string& side, std::string& coefficient,
                    std::string& exponential) {
  coefficient.clear();
  exponential.clear();
  TempTree tree(s, side, TempTree::Depth::OneLevel);
  for (NodeIdx n = s.Pool[tree.Root()].FirstChild; n != kNoNode; n = s.Pool[n].Next) {
    const ExprNode& node = s.Pool[n];
    if (!IsProductRole(node.Role)) continue;
    const std::string sign = node.Role == kRoleDenominator ? "/" : "*";
    const bool is_exp = IsPowerText(s, node.Text) || node.Text.rfind("exp(", 0) == 0;
    (is_exp ? exponential : coefficient) += sign + node.Text;
  }
  for (std::string* part : {&coefficient, &exponential}) {
    if (part->empty()) {
      *part = "1";
    } else if ((*part)[0] == '*') {
      part->erase(0, 1);
    } else {
      *part = "1" + *part;
    }
  }
}

void DoToBothSides(Session& s, BothSidesOperation operation, const std::string& q,
                   std::optional<char> root_sign) {
  const std::string left = s.Pool[kLeftRoot].Text;
  const std::string right = s.Pool[kRightRoot].Text;
  NewSide new_left;
  NewSide new_right;
  std::string words = StepWords(operation, q);
  if (operation == BothSidesOperation::SwapSides) {
    new_left = ApplyOperation(s, operation, right, right, q);
    new_right = ApplyOperation(s, operation, left, right, q);
  } else {
    new_left = ApplyOperation(s, operation, left, right, q);
    new_right = ApplyOperation(s, operation, right, right, q);
  }
  if (operation == BothSidesOperation::SquareRoot) {
    const char sign = root_sign.has_value()
                          ? *root_sign
                          : (s.Screen().AskYesNo(kSquareRootSignQuestion) ? '+' : '-');
    if (sign == '-') new_right.raw = "-" + new_right.raw;
    words = std::string("Taking the square root of both sides and using the ") + sign +
            " sign on the right side yields:";
  }
  for (NewSide* side : {&new_left, &new_right}) {
    if (!side->done) side->simplified = SimplifyText(s, side->raw);
  }
  const std::string help = std::to_string(TextOf(operation).help) + "#";
  ShowStepEqn(s, help + words, new_left.raw, new_right.raw);
  if (new_left.simplified != new_left.raw || new_right.simplified != new_right.raw) {
    ShowStepEqn(s, help + "Simplifying this yields:", new_left.simplified, new_right.simplified);
  }
  s.DoToBothSidesQ.clear();
  FreeChildren(s, kLeftRoot);
  LoadSide(s, kLeftRoot, new_left.simplified);
  FreeChildren(s, kRightRoot);
  LoadSide(s, kRightRoot, new_right.simplified);
}

}  // namespace tavimor
