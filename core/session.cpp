// The function name table of the Session.
#include "core/session.h"

namespace tavimor {

namespace {
constexpr std::array<const char*, kFunctionCount> kNames = {
    "sin", "cos", "tan",  "arcsin", "arccos", "arctan", "ln",
    "exp", "log", "sqrt", "cot",    "sec",    "csc"};
}  // namespace

void InitFunctionTable(Session& s) {
  if (!s.FunctionNames[1].empty()) return;  // filled once: the names never change
  for (int i = 0; i < kFunctionCount; ++i) {
    s.FunctionNames[static_cast<std::size_t>(i + 1)] = kNames[static_cast<std::size_t>(i)];
    s.FunctionNameLengths[static_cast<std::size_t>(i + 1)] =
        static_cast<std::int16_t>(s.FunctionNames[static_cast<std::size_t>(i + 1)].size());
    s.FunctionNameStarts[static_cast<unsigned char>(kNames[static_cast<std::size_t>(i)][0])] = true;
  }
}

}  // namespace tavimor
