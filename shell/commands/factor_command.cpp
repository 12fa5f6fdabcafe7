// The Factor button: one factoring per press, told step by step or as its result.
#include "shell/commands/factor_command.h"

#include "manipulate/factor.h"
#include "shell/command_frame.h"
#include "shell/command_table.h"

namespace tavimor {

std::string cmdAutoFactor(Session& s, bool right_button) {
  const ExpressionCommand& command = *FindExpressionCommand("cmdAutoFactor");
  bool changed = false;
  bool narrated = false;
  bool noted = false;
  return RunCommandFrame(
      s, command.error,
      [&](NodeIdx side) {
        s.DetailNow = s.SolveDetailDefault;
        const std::string before = s.Pool[side].Text;
        changed = FactorSide(s, side, right_button);
        narrated = changed && s.DetailNow >= 1;
        // Nothing factored but the side simplified: the note has said so instead.
        noted = !changed && s.Pool[side].Text != before;
      },
      [&] {
        // A narrated factoring ends with its own result: one factoring per press.
        if (!narrated && !noted)
          ShowResult(s, ResultPhrases(command.verb, command.nothing), changed);
      });
}

}  // namespace tavimor
