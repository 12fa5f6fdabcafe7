// The Solving hint button: the next step of the solver told in the hint box, not taken.
#include "shell/commands/solving_hint_command.h"

#include "core/scoped_override.h"
#include "shell/command_frame.h"
#include "shell/status_bar.h"
#include "solve/auto_solve.h"

namespace tavimor {

std::string cmdSolvingHint(Session& s, bool) {
  const std::string equation = s.Pool[kLeftRoot].Text + "=" + s.Pool[kRightRoot].Text;
  std::string error = RunCommandFrame(
      s, "Error in Solving Hint.",
      [&](NodeIdx) {
        ScopedOverride detail(s.SolveDetail, std::int16_t{0});
        ScopedOverride hint(s.HintState, std::int16_t{1});
        std::string answers;  // thrown away: only the hint counts
        AutoSolve(s, equation, s.Unknown, answers);
      },
      [] {});
  s.HintState = 0;
  UpdateStatusPanel(s);
  return error;
}

}  // namespace tavimor
