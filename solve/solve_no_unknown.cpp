// An equation in which the unknown has cancelled: an identity or a contradiction.
#include "solve/solve_no_unknown.h"

#include "solve/solver_writes.h"

namespace tavimor {

bool SolveNoUnknown(Session& s, SolveRun& run, const std::string& const_term) {
  run.WorkLeft = run.Unknown;
  if (const_term == "0") {
    run.WorkRight = kAnyValue;
    return SolverLine(
        s, "150#This equation is an identity.  Any value of @" + run.Unknown + "@ is a solution.|",
        true);
  }
  run.WorkRight = kNoSolution;
  return SolverLine(s, "151#This equation has no solution.", true);
}

}  // namespace tavimor
