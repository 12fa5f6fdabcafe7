// How the solver writes: a step through ReportStep with the cancel checked after it, and a line
// with no equation that is also the hint in hint mode.
#include "solve/solver_writes.h"

#include "core/errors.h"
#include "present/step_markup.h"
#include "present/work_space.h"

namespace tavimor {

namespace {

void ThrowIfCancelled(const Session& s) {
  if (s.AutoSolveTag.rfind("Cancel", 0) == 0) throw AppError(kErrorCancel, "Cancelled");
}

}  // namespace

bool SolverStep(Session& s, const std::string& message, const std::string& left,
                const std::string& right, bool hint) {
  if (ReportStep(s, message, left, right, hint ? 1 : 0)) return true;
  ThrowIfCancelled(s);
  return false;
}

bool SolverLine(Session& s, const std::string& message, bool pace) {
  s.HelpNumber = static_cast<std::int16_t>(HelpNumberOf(message));
  const std::string body = StripHelpPrefix(message);
  if (s.HintState == 1) {
    ShowHint(s, body);
    s.HintState = 2;
    return true;
  }
  if (s.SolveDetail > 0) {
    WorkSpaceSink box(s);
    WriteMessage(s, box, body, s.StreamingOutput);
    if (pace && !s.StreamingOutput) ShowWaitButton(s, "");
  }
  ThrowIfCancelled(s);
  return false;
}

}  // namespace tavimor
