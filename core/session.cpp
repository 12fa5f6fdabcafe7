// The Session's first-run options and the function name table.
#include "core/session.h"

namespace tavimor {

void Session::SetFirstRunOptions() {
  Unknown = "x";
  SpecialE = true;
  SpecialP = false;
  SpecialD = false;
  Degrees = false;
  ComplexForm = 0;
  SolveDetailDefault = 1;
  SolveDetail = 1;
  StreamingOutput = false;
  FontSize = 12.0f;
  SigFigs = 3;
  ExponentToRadical = true;
  ExponentToReciprocal = true;
  ExponentToExponentialFunction = false;
  ExactToFloat = false;
  EvaluateInverseTrig = 1;
  QuadraticMethod = 2;
  GraphParms = kFactoryGraphParms;
  ShowWelcomeScreen = true;
  FormWidth = 12120.0f;
  FormHeight = 9480.0f;
  FormWindowState = 0;
}

namespace {
constexpr std::array<const char*, kFunctionCount> kNames = {
    "sin", "cos", "tan",  "arcsin", "arccos", "arctan", "ln",
    "exp", "log", "sqrt", "cot",    "sec",    "csc"};
}  // namespace

void InitFunctionTable(Session& s) {
  for (int i = 0; i < kFunctionCount; ++i) {
    s.FunctionNames[static_cast<std::size_t>(i + 1)] = kNames[static_cast<std::size_t>(i)];
    s.FunctionNameLengths[static_cast<std::size_t>(i + 1)] =
        static_cast<std::int16_t>(s.FunctionNames[static_cast<std::size_t>(i + 1)].size());
  }
}

}  // namespace tavimor
