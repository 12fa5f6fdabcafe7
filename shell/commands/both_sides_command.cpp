// The Do to both sides button and the dialog's Apply, and the terminal tutor's both-sides word.
#include "shell/commands/both_sides_command.h"

#include <sstream>

#include "core/message_box.h"
#include "shell/buttons.h"
#include "shell/command_frame.h"

namespace tavimor {

namespace {

constexpr const char* kApplyError = "Error in Do To Both Sides.";

// clang-format off
const std::vector<BothSidesWord> kOperationWords = {
  {"swap", BothSidesOperation::SwapSides},
  {"sin", BothSidesOperation::Sine},
  {"cos", BothSidesOperation::Cosine},
  {"tan", BothSidesOperation::Tangent},
  {"arcsin", BothSidesOperation::Arcsine},
  {"arccos", BothSidesOperation::Arccosine},
  {"arctan", BothSidesOperation::Arctangent},
  {"ln", BothSidesOperation::NaturalLog},
  {"log", BothSidesOperation::Log10},
  {"e^", BothSidesOperation::EToThePower},
  {"10^", BothSidesOperation::TenToThePower},
  {"square", BothSidesOperation::Square},
  {"sqrt", BothSidesOperation::SquareRoot},
  {"reciprocal", BothSidesOperation::Reciprocal},
  {"^", BothSidesOperation::QthPower},
  {"root", BothSidesOperation::QthRoot},
  {"+", BothSidesOperation::AddQ},
  {"-", BothSidesOperation::SubtractQ},
  {"*", BothSidesOperation::MultiplyByQ},
  {"/", BothSidesOperation::DivideByQ},
  {"subtract-right", BothSidesOperation::SubtractRightSide},
};
// clang-format on

const BothSidesWord* FindOperationWord(const std::string& word) {
  for (const BothSidesWord& entry : kOperationWords) {
    if (word == entry.word) return &entry;
  }
  return nullptr;
}

std::string OperationWordList() {
  std::string list;
  for (const BothSidesWord& entry : kOperationWords) {
    list += (list.empty() ? "" : " ") + std::string(entry.word);
  }
  return list;
}

}  // namespace

std::string cmdDoToEqn(Session&, bool) { return ""; }

std::string cmdApply(Session& s, BothSidesOperation operation, std::optional<char> root_sign) {
  std::string q = s.DoToBothSidesQ;
  if (BadExpr(s, operation, q)) return "";
  return RunCommandFrame(
      s, kApplyError, [&](NodeIdx) { DoToBothSides(s, operation, q, root_sign); }, [] {});
}

const std::vector<BothSidesWord>& BothSidesWords() { return kOperationWords; }

int BothSidesArguments(const std::string& operation_word) {
  const BothSidesWord* entry = FindOperationWord(operation_word);
  if (entry == nullptr) return 0;
  return UsesQ(entry->operation) || entry->operation == BothSidesOperation::SquareRoot ? 1 : 0;
}

bool RunBothSidesWord(Session& s, const std::string& argument, std::string& error,
                      std::string& refusal) {
  std::istringstream words(argument);
  std::string operation_word;
  words >> operation_word;
  std::string rest;
  std::getline(words, rest);
  const std::size_t first = rest.find_first_not_of(' ');
  rest = first == std::string::npos ? "" : rest.substr(first);
  const BothSidesWord* entry = FindOperationWord(operation_word);
  if (entry == nullptr) {
    refusal = std::string(kBothSidesWord) + " takes an operation (" + OperationWordList() +
              ") and, for ^ root + - * /, its value Q: for example both-sides + 3";
    return false;
  }
  if (!ButtonOnOffer(s, "cmdDoToEqn")) {
    refusal = std::string(kBothSidesWord) + " works on an equation: load one first.";
    return false;
  }
  std::optional<char> sign;
  if (entry->operation == BothSidesOperation::SquareRoot) {
    if (rest != "+" && rest != "-") {
      refusal = std::string(kBothSidesWord) +
                " sqrt takes the sign of the right side: both-sides sqrt + or both-sides sqrt -";
      return false;
    }
    sign = rest[0];
  } else if (!UsesQ(entry->operation) && !rest.empty()) {
    refusal = std::string(kBothSidesWord) + " " + operation_word + " takes no value.";
    return false;
  }
  if (UsesQ(entry->operation)) s.DoToBothSidesQ = rest;
  std::string q = s.DoToBothSidesQ;
  int help_number = 0;
  refusal = BadExprMessage(s, entry->operation, q, help_number);
  if (!refusal.empty()) return false;
  error = cmdApply(s, entry->operation, sign);
  return true;
}

}  // namespace tavimor
