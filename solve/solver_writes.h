// How the solver writes: a step through ReportStep with the cancel checked after it, and a line
// with no equation that is also the hint in hint mode.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// ReportStep, then the stop the student may have asked for at the pacing button raises the
// cancel error. True when the step was shown as the hint: the run is to unwind.
bool SolverStep(Session& s, const std::string& message, const std::string& left,
                const std::string& right, bool hint);
// A line with no equation ("NNN#" and the text): HelpNumber from it; written when steps are
// shown, paced when `pace`; in hint mode shown as the hint instead (true: the run unwinds).
bool SolverLine(Session& s, const std::string& message, bool pace);

}  // namespace tavimor
