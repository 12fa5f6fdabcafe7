// The Add fractions button: one sum made into one fraction per press, told step by step or as
// its result.
#include "shell/commands/add_fractions_command.h"

#include "manipulate/add_fractions_narration.h"
#include "shell/command_frame.h"
#include "shell/command_table.h"

namespace tavimor {

std::string cmd1Frac(Session& s, bool) {
  const ExpressionCommand& command = *FindExpressionCommand("cmd1Frac");
  bool changed = false;
  bool narrated = false;
  bool overflow = false;
  return RunCommandFrame(
      s, command.error,
      [&](NodeIdx side) {
        s.DetailNow = s.SolveDetailDefault;
        const std::string input = s.Pool[side].Text;
        const AddFractionsOutcome outcome = AddFractionsSide(s, side);
        changed = outcome.added;
        overflow = outcome.overflow;
        narrated = changed && s.DetailNow >= 1;
        // Nothing to add but the side simplifies: the note says so in place of the result.
        if (!changed && !overflow) {
          TellSimplifiedInstead(s, side, input, outcome.simplified,
                                NothingToAddNote(input, outcome.simplified));
        }
      },
      [&] {
        // A narrated addition ends with its own result: one sum per press. An LCD too large
        // has been told in its message box.
        if (!narrated && !overflow && !s.SimplifiedInsteadTold) {
          ShowResult(s, ResultPhrases(command.verb, command.nothing), changed);
        }
      });
}

}  // namespace tavimor
