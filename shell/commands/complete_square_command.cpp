// The Complete the square button: one quadratic in completed square form per press, told step by
// step or as its result.
#include "shell/commands/complete_square_command.h"

#include "manipulate/complete_square.h"
#include "present/step_markup.h"
#include "shell/command_frame.h"
#include "shell/command_table.h"
#include "simplify/simplify_driver.h"

namespace tavimor {

std::string cmdCSExpr(Session& s, bool) {
  const ExpressionCommand& command = *FindExpressionCommand("cmdCSExpr");
  bool changed = false;
  bool narrated = false;
  return RunCommandFrame(
      s, command.error,
      [&](NodeIdx side) {
        s.DetailNow = s.SolveDetailDefault;
        const std::string input = s.Pool[side].Text;
        changed = CompleteSquareSide(s, side);
        narrated = changed && s.DetailNow >= 1;
        // Nothing to convert but the side simplifies: the note says so in place of the result.
        if (!changed) {
          const std::string simplified = SimplifyText(s, input);
          TellSimplifiedInstead(
              s, side, input, simplified,
              SimplifiedInsteadNote(input, simplified,
                                    "There is nothing to convert to completed square form."));
        }
      },
      [&] {
        // A narrated conversion ends with its own result: one quadratic per press.
        if (!narrated && !s.SimplifiedInsteadTold) {
          ShowResult(s, ResultPhrases(command.verb, command.nothing), changed);
        }
      });
}

}  // namespace tavimor
